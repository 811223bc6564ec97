#include "windows/study/ScrolledText.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int Margin = 4;

}  // namespace

ScrolledText::ScrolledText(QLabel* label, QWidget* owner) : QScrollArea(owner), m_label(label) {
  label->setAlignment(Qt::AlignCenter);
  label->setMargin(Margin);
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setWidget(label);
}

void ScrolledText::SetTextFont(const QFont& font) {
  m_label->setFont(font);
  updateGeometry();
}

void ScrolledText::SetText(const QString& text) {
  if (text == m_label->text()) return;
  m_label->setText(text);
  horizontalScrollBar()->setValue(0);
  verticalScrollBar()->setValue(0);
}

/// A line of the text, but no more of a huge one than leaves the window smaller than a screen.
QSize ScrolledText::minimumSizeHint() const {
  constexpr int LeastWidth = 120;
  constexpr int MostHeight = 48;
  return {LeastWidth, std::min(m_label->fontMetrics().height() + 2 * Margin, MostHeight)};
}

/// Keys reach the window, which knows what else there is to scroll.
void ScrolledText::keyPressEvent(QKeyEvent* event) { event->ignore(); }

bool IsScrollKey(int key) {
  switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return true;
    default:
      return false;
  }
}

bool ScrollsForwards(int key) {
  return key == Qt::Key_Down || key == Qt::Key_Right || key == Qt::Key_PageDown;
}

bool ScrollByKey(QAbstractScrollArea& area, int key) {
  if (!IsScrollKey(key) || !area.isVisible()) return false;
  const bool across = key == Qt::Key_Left || key == Qt::Key_Right;
  const bool page = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
  QScrollBar& bar = across ? *area.horizontalScrollBar() : *area.verticalScrollBar();
  const int before = bar.value();
  const int line = area.fontMetrics().height() * 2;
  const int step = page ? std::max(bar.pageStep() - line, line) : line;
  bar.setValue(before + (ScrollsForwards(key) ? step : -step));
  return bar.value() != before;
}
