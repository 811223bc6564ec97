#include "windows/frame/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

ElidedLabel::ElidedLabel(Qt::TextElideMode cut, QWidget* owner) : QLabel(owner), m_cut(cut) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  constexpr int Visible = 1000;  // more characters than any window has room for
  const QRect area = contentsRect().adjusted(margin(), 0, -margin(), 0);
  const QString end = m_cut == Qt::ElideLeft ? text().right(Visible) : text().left(Visible);
  const QString shown = fontMetrics().elidedText(end, m_cut, area.width());
  QPainter painter(this);
  style()->drawItemText(&painter, area, static_cast<int>(alignment()) | Qt::TextSingleLine,
                        palette(), isEnabled(), shown, foregroundRole());
}
