#include "windows/authoring/RowLabel.h"

#include "windows/frame/QtText.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QToolTip>

namespace {

constexpr std::size_t LongestTip = 1000;  // characters; more fills the screen

}  // namespace

RowLabel::RowLabel(QWidget* owner) : ElidedLabel(Qt::ElideRight, owner) {
  setAutoFillBackground(true);
  setMargin(3);
  SetHighlighted(false);
}

void RowLabel::SetCardText(TextView text) {
  static const QRegularExpression lineBreak(QStringLiteral("\r\n|[\r\n\u2028\u2029]"));
  setText(ToQString(text).replace(lineBreak, QStringLiteral(" \u21B5 ")));
  m_tip = Text(CutText(text, LongestTip));
  if (m_tip.size() < text.size()) m_tip += u'\u2026';
}

QSize RowLabel::sizeHint() const {
  constexpr int SmallestWidth = 40;
  return {SmallestWidth, fontMetrics().height() + 2 * (margin() + frameWidth())};
}

/// The tip is markup, which a screen reader would read out if it were a property of the label.
bool RowLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return ElidedLabel::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), PlainToolTip(m_tip), this);
  return true;
}

void RowLabel::SetStruckOut(bool struckOut) {
  QFont struck = font();
  struck.setStrikeOut(struckOut);
  setFont(struck);
  setAccessibleDescription(struckOut ? QStringLiteral("marked for deletion") : QString());
}

void RowLabel::SetHighlighted(bool highlighted) {
  setBackgroundRole(highlighted ? QPalette::Highlight : QPalette::Base);
  setForegroundRole(highlighted ? QPalette::HighlightedText : QPalette::Text);
}

void RowLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit Clicked();
}

void RowLabel::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit DoubleClicked();
}
