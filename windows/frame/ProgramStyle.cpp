#include "windows/frame/ProgramStyle.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QStyleOption>

namespace {

enum class Rim { None, Circle, Square, Field, LargeField };

bool HasFocus(const QStyleOption& option) { return (option.state & QStyle::State_HasFocus) != 0; }

/// The rim that an element has; a one-line field with the focus has a highlighted one already.
Rim RimOf(QStyle::PrimitiveElement element, const QStyleOption& option, const QWidget* widget) {
  switch (element) {
    case QStyle::PE_IndicatorRadioButton:
      return Rim::Circle;
    case QStyle::PE_IndicatorCheckBox:
      return Rim::Square;
    case QStyle::PE_PanelLineEdit: {
      // The field inside a combo box has no frame of its own.
      const auto* const field = qstyleoption_cast<const QStyleOptionFrame*>(&option);
      const bool framed = field != nullptr && field->lineWidth > 0;
      return framed && !HasFocus(option) ? Rim::Field : Rim::None;
    }
    case QStyle::PE_Frame:
      return qobject_cast<const QAbstractScrollArea*>(widget) != nullptr ? Rim::LargeField
                                                                         : Rim::None;
    default:
      return Rim::None;
  }
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

/// A colour between the text's and the window's: half of each stands out from the window.
QColor Between(const QPalette& palette) {
  const QColor text = palette.color(QPalette::WindowText);
  const QColor window = palette.color(QPalette::Window);
  return {(text.red() + window.red()) / 2, (text.green() + window.green()) / 2,
          (text.blue() + window.blue()) / 2};
}

}  // namespace

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const Rim kind = RimOf(element, *option, widget);
  if (kind == Rim::None) return;
  const bool focused = kind == Rim::LargeField && HasFocus(*option);
  if (!focused && !IsDark(option->palette)) return;

  const QRectF rim = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setBrush(Qt::NoBrush);
  painter->setPen(focused ? option->palette.color(QPalette::Highlight) : Between(option->palette));
  if (kind == Rim::Circle) {
    painter->drawEllipse(rim.adjusted(1, 1, -1, -1));
  } else {
    const qreal corner = kind == Rim::Field ? 2 : 0;
    painter->drawRoundedRect(rim, corner, corner);
  }
  painter->restore();
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawControl(element, option, painter, widget);
  constexpr int InsideButton = 3;
  if (element == CE_PushButton) DrawFocus(*option, InsideButton, painter, widget);
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_ScrollBar) DrawFocus(*option, 1, painter, widget);
}

void ProgramStyle::DrawFocus(const QStyleOption& option, int inside, QPainter* painter,
                             const QWidget* widget) const {
  constexpr auto ByKey = State_HasFocus | State_KeyboardFocusChange;
  if ((option.state & ByKey) != ByKey) return;
  QStyleOptionFocusRect focus;
  focus.QStyleOption::operator=(option);
  focus.rect = option.rect.adjusted(inside, inside, -inside, -inside);
  drawPrimitive(PE_FrameFocusRect, &focus, painter, widget);
}
