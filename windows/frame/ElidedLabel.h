#pragma once

#include <QLabel>

/// A label of one line, plain, with an ellipsis at one end where it does not fit. `text()` and what
/// a screen reader hears are the whole text.
class ElidedLabel : public QLabel {
 public:
  ElidedLabel(Qt::TextElideMode cut, QWidget* owner);

  QSize minimumSizeHint() const override { return {40, QLabel::minimumSizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Qt::TextElideMode m_cut;
};
