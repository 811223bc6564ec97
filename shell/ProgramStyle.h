#pragma once

#include <QProxyStyle>

/// The desktop's style, with two things mended where it is Fusion: on dark windows the rims of
/// check boxes, radio buttons and fields would be darker than the window, where nobody sees them;
/// and a field of several lines would not show that it has the focus. Other styles stay untouched.
class ProgramStyle : public QProxyStyle {
  Q_OBJECT

 public:
  ProgramStyle() : QProxyStyle(QStringLiteral("fusion")) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};
