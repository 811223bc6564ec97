#include "authoring/RowLabel.h"

#include "base/QtText.h"

#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QStyle>

RowLabel::RowLabel(QWidget* owner) : QLabel(owner) {
  setTextFormat(Qt::PlainText);
  setAutoFillBackground(true);
  setMargin(3);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
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

void RowLabel::paintEvent(QPaintEvent*) {
  constexpr int Visible = 1000;  // more characters than any window has room for
  const QRect area = contentsRect().adjusted(margin(), 0, -margin(), 0);
  const QString shown =
      fontMetrics().elidedText(text().left(Visible), Qt::ElideRight, area.width());
  QPainter painter(this);
  style()->drawItemText(&painter, area, static_cast<int>(alignment()) | Qt::TextSingleLine,
                        palette(), isEnabled(), shown, foregroundRole());
}

void RowLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit Clicked();
}

void RowLabel::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit DoubleClicked();
}
