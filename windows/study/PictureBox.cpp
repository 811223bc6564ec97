#include "windows/study/PictureBox.h"

#include "base/Paths.h"
#include "windows/frame/AccessibleRole.h"
#include "windows/frame/QtText.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QPainter>
#include <QPointer>
#include <QScreen>

using namespace std::chrono_literals;

namespace {

constexpr auto Frame = 16ms;  // of a screen, at 60 a second
constexpr auto Pace = 5ms;
constexpr auto LongestWait = 5s;  // without keys and clicks
constexpr int LineWidth = 1;
constexpr int LineOpacity = 96;  // of 255: seen on any card, and quieter than its text

/// No window is larger than this, so no picture has to be. In device pixels.
QSize LargestScreen() {
  QSize largest(1, 1);
  for (const QScreen* const screen : QGuiApplication::screens()) {
    largest = largest.expandedTo(screen->size() * screen->devicePixelRatio());
  }
  return largest;
}

}  // namespace

PictureBox::PictureBox(QWidget* owner, PictureTime time)
    : QWidget(owner), m_loader(std::move(time)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize(80, 60);
  SetAccessibleRole(this, QAccessible::Graphic);
  m_poll.setInterval(Pace);
  connect(&m_poll, &QTimer::timeout, this, [this] { TakeResult(0ms); });
  Describe();
}

void PictureBox::Show(const QString& path) {
  if (path == m_path) return;
  m_path = path;
  m_loader.Cancel();
  m_poll.stop();
  m_full = {};
  m_shown = {};
  update();
  Describe();
  if (path.isEmpty()) return;
  m_loader.Start(EncodePath(ToText(path)), LargestScreen());
  m_poll.start();
  TakeResult(Frame);
}

void PictureBox::WaitUntilLoaded() {
  if (!IsLoading()) return;
  const QPointer<PictureBox> alive(this);
  while (alive != nullptr && IsLoading() && m_loader.Age() < LongestWait) {
    TakeResult(Pace);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  // Held back keys and clicks would otherwise lie there until the desktop reports something new.
  QAbstractEventDispatcher::instance()->wakeUp();
}

/// Signals the failure last: the box may be gone after that.
void PictureBox::TakeResult(std::chrono::milliseconds wait) {
  if (!m_loader.Take(wait, m_full)) return;
  m_poll.stop();
  update();
  const PictureFault fault = m_full.fault;
  if (fault == PictureFault::None) return;
  m_path.clear();
  Describe();
  emit Failed(fault);
}

/// In words that give nothing away: the name of the file may be the answer.
void PictureBox::Describe() {
  setAccessibleName(m_path.isEmpty() ? QStringLiteral("No picture")
                                     : QStringLiteral("The card's picture"));
}

/// Where the picture stands, in the middle, with room for the line around it.
QRectF PictureBox::Place() const {
  const QSizeF room = size() - QSize(2, 2) * LineWidth;
  QSizeF shown = m_full.fullSize;
  if (shown.width() > room.width() || shown.height() > room.height()) {
    shown.scale(room, Qt::KeepAspectRatio);
  }
  return {QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown};
}

void PictureBox::paintEvent(QPaintEvent*) {
  if (m_full.image.isNull()) return;
  const QRectF place = Place();
  const QSize wanted = (place.size() * devicePixelRatioF()).toSize().expandedTo(QSize(1, 1));
  if (m_shown.isNull() || m_shown.size() != wanted) {
    m_shown = m_full.image.size() == wanted
                  ? m_full.image
                  : m_full.image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  QPainter painter(this);
  painter.drawImage(place, m_shown);
  QColor line = palette().color(QPalette::Text);
  line.setAlpha(LineOpacity);
  painter.setPen(QPen(line, LineWidth));
  constexpr qreal Outside = LineWidth / 2.0;
  painter.drawRect(place.adjusted(-Outside, -Outside, Outside, Outside));
}
