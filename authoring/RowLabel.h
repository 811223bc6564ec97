#pragma once

#include "base/Text.h"

#include <QLabel>

/// One cell of the card list: a card's text on one line, with an ellipsis where it does not fit;
/// struck out for a card marked for deletion, highlighted in the selected row.
class RowLabel : public QLabel {
  Q_OBJECT

 public:
  explicit RowLabel(QWidget* owner);

  void SetCardText(TextView text);
  void SetStruckOut(bool struckOut);
  void SetHighlighted(bool highlighted);

  QSize minimumSizeHint() const override { return {40, QLabel::minimumSizeHint().height()}; }

 signals:
  void Clicked();
  void DoubleClicked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
};
