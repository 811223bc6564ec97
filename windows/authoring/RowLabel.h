#pragma once

#include "base/Text.h"
#include "windows/frame/ElidedLabel.h"

/// One cell of the card list: a card's text on one line, with an ellipsis where it does not fit;
/// struck out for a card marked for deletion, highlighted in the selected row.
class RowLabel : public ElidedLabel {
  Q_OBJECT

 public:
  explicit RowLabel(QWidget* owner);

  void SetCardText(TextView text);
  void SetStruckOut(bool struckOut);
  void SetHighlighted(bool highlighted);

  /// One line high, whatever the text: a long one is never measured.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  void Clicked();
  void DoubleClicked();

 protected:
  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  Text m_tip;
};
