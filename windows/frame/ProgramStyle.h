#pragma once

#include <QProxyStyle>

/// The desktop's style, with two things mended where it is Fusion: on dark windows the rims of
/// check boxes, radio buttons and fields would be darker than the window, where nobody sees them;
/// and a field of several lines, a scroll bar and the default button, which wears the mark of the
/// focus all the time, would not show that they have it. Other styles stay untouched.
class ProgramStyle : public QProxyStyle {
  Q_OBJECT

 public:
  ProgramStyle() : QProxyStyle(QStringLiteral("fusion")) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;

 private:
  /// Draws the mark of the focus this many pixels inside an element that got it by a key.
  void DrawFocus(const QStyleOption& option, int inside, QPainter* painter,
                 const QWidget* widget) const;
};
