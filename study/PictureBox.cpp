#include "study/PictureBox.h"

#include "base/AccessibleRole.h"

#include <QImageReader>
#include <QPainter>

PictureBox::PictureBox(QWidget* owner) : QWidget(owner) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize(80, 60);
  SetAccessibleRole(this, QAccessible::Graphic);
  Describe();
}

bool PictureBox::Show(const QString& path) {
  if (path == m_path) return true;
  m_path = path;
  m_picture = QImage();
  update();
  const bool shown = path.isEmpty() || Decode();
  if (!shown) m_path.clear();
  Describe();
  return shown;
}

/// In words that give nothing away: the name of the file may be the answer.
void PictureBox::Describe() {
  setAccessibleName(m_path.isEmpty() ? QStringLiteral("No picture")
                                     : QStringLiteral("The card's picture"));
}

bool PictureBox::Decode() {
  QImageReader reader(m_path);
  reader.setAutoTransform(true);
  reader.setDecideFormatFromContent(
      true);  // a picture under another's extension is shown all the same
  m_fullSize = reader.size();
  const QSize box = size() * devicePixelRatioF();
  const bool larger = m_fullSize.width() > box.width() || m_fullSize.height() > box.height();
  if (m_fullSize.isValid() && larger) {
    reader.setScaledSize(m_fullSize.scaled(box, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
  }
  m_picture = reader.read();
  return !m_picture.isNull();
}

void PictureBox::paintEvent(QPaintEvent*) {
  if (m_picture.isNull()) return;
  const qreal ratio = devicePixelRatioF();
  QSizeF shown = QSizeF(m_picture.size()) / ratio;
  if (shown.width() > width() || shown.height() > height()) {
    shown.scale(size(), Qt::KeepAspectRatio);
  }
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(
      QRectF(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown),
      m_picture);
}

void PictureBox::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const QSize box = size() * devicePixelRatioF();
  const bool couldBeLarger = m_picture.width() < m_fullSize.width();
  const bool tooLarge = m_picture.width() > box.width() || m_picture.height() > box.height();
  if (!m_picture.isNull() && (couldBeLarger || tooLarge)) Decode();
}
