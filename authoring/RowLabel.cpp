#include "authoring/RowLabel.h"

#include "base/QtText.h"

#include <QMouseEvent>

RowLabel::RowLabel(QWidget* owner) : QLabel(owner) {
  setTextFormat(Qt::PlainText);
  setAutoFillBackground(true);
  setMargin(3);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  SetHighlighted(false);
}

void RowLabel::SetCardText(TextView text) {
  QString shown = ToShownText(text);
  setText(shown.replace(u'\n', QStringLiteral(" \u21B5 ")));
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

void RowLabel::mouseDoubleClickEvent(QMouseEvent*) { emit DoubleClicked(); }
