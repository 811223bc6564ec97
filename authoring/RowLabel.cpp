#include "authoring/RowLabel.h"

#include "base/QtText.h"

#include <QMouseEvent>
#include <QRegularExpression>

RowLabel::RowLabel(QWidget* owner) : ElidedLabel(Qt::ElideRight, owner) {
  setAutoFillBackground(true);
  setMargin(3);
  SetHighlighted(false);
}

void RowLabel::SetCardText(TextView text) {
  static const QRegularExpression lineBreak(QStringLiteral("\r\n|[\r\n\u2028\u2029]"));
  setText(ToQString(text).replace(lineBreak, QStringLiteral(" \u21B5 ")));
  setToolTip(PlainToolTip(text));
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
