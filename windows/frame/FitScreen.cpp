#include "windows/frame/FitScreen.h"

#include "program/WindowPlacement.h"

#include <QApplication>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace {

WindowSize SizeOf(const QSize& size) { return {.width = size.width(), .height = size.height()}; }

QSize ToQSize(const WindowSize& size) { return {size.width, size.height}; }

ScreenArea AreaOf(const QWidget& window) {
  const QRect area = window.screen()->availableGeometry();
  return {.left = area.left(), .top = area.top(), .width = area.width(), .height = area.height()};
}

/// The frame that the desktop will give the window. It tells only for a window that it has shown;
/// our windows look alike, so one of them stands for all.
FrameWidths FrameOf(const QWidget& window) {
  if (window.windowFlags().testFlag(Qt::FramelessWindowHint)) return {};
  FrameWidths frame;
  for (const QWidget* const other : QApplication::topLevelWidgets()) {
    if (!other->isVisible() || other->isMaximized() || other->isFullScreen()) continue;
    const QRect outside = other->frameGeometry();
    const QRect inside = other->geometry();
    frame.left = std::max(frame.left, inside.left() - outside.left());
    frame.top = std::max(frame.top, inside.top() - outside.top());
    frame.right = std::max(frame.right, outside.right() - inside.right());
    frame.bottom = std::max(frame.bottom, outside.bottom() - inside.bottom());
  }
  return frame == FrameWidths() ? UsualFrame : frame;
}

/// True for a row of buttons and the space between them.
bool HoldsButtonsAlone(QLayout& row) {
  bool buttons = false;
  for (int i = 0; i < row.count(); ++i) {
    QLayoutItem& item = *row.itemAt(i);
    if (item.spacerItem() != nullptr) continue;
    if (item.widget() == nullptr || !item.widget()->inherits("QPushButton")) return false;
    buttons = true;
  }
  return buttons;
}

/// Takes the row of buttons at a window's foot out of its layout; null when there is none.
QLayout* TakeButtonRow(QLayout& content) {
  auto* const column = qobject_cast<QVBoxLayout*>(&content);
  if (column == nullptr || column->count() < 2) return nullptr;
  const int last = column->count() - 1;
  QLayout* const row = column->itemAt(last)->layout();
  if (row == nullptr || !HoldsButtonsAlone(*row)) return nullptr;
  column->takeAt(last);
  return row;
}

/// Shows the whole of a control that gets the focus, however it gets it.
void FollowFocus(QScrollArea& area) {
  QObject::connect(qApp, &QApplication::focusChanged, &area, [&area](const QWidget*, QWidget* now) {
    if (now != nullptr && area.widget()->isAncestorOf(now)) {
      area.ensureWidgetVisible(now);
    }
  });
}

/// Puts the window's content into a scroll area, between its menu bar and its last buttons.
void MakeScrollable(QWidget& window) {
  QLayout* const content = window.layout();
  QWidget* const menuBar = content->menuBar();
  content->setMenuBar(nullptr);
  QLayout* const buttons = TakeButtonRow(*content);
  const QMargins margins = content->contentsMargins();

  auto* const area = new QScrollArea(&window);
  area->setObjectName(QStringLiteral("scrContent"));
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  auto* const inside = new QWidget(&window);
  area->setWidget(inside);
  inside->setLayout(content);  // which takes it, and what it lays out, away from the window
  FollowFocus(*area);
  window.setMinimumSize(0, 0);  // those of the content
  window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);

  auto* const column = new QVBoxLayout(&window);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->setMenuBar(menuBar);
  column->addWidget(area, 1);
  if (buttons != nullptr) {
    buttons->setContentsMargins(margins.left(), margins.top() / 2, margins.right(),
                                margins.bottom());
    column->addLayout(buttons);
  }
  area->show();
}

/// The size below which the window's content would be cut off.
QSize Needed(const QWidget& window) {
  const QLayout& layout = *window.layout();
  const bool fixed = layout.sizeConstraint() == QLayout::SetFixedSize;
  return fixed ? layout.totalSizeHint() : layout.totalMinimumSize();
}

bool LacksRoom(const QWidget& window, const QSize& room) {
  if (window.layout() == nullptr) return false;
  const QSize needed = Needed(window);
  return needed.width() > room.width() || needed.height() > room.height();
}

}  // namespace

void FitOnScreen(QWidget& window) {
  const FrameWidths frame = FrameOf(window);
  const ScreenArea area = AreaOf(window);
  const QSize room = ToQSize(RoomFor(frame, area));
  if (window.layout() != nullptr) window.layout()->activate();
  QSize size = window.size();
  if (LacksRoom(window, room)) {
    MakeScrollable(window);
    // Beside a scroll bar the content keeps its width, where there is room for both.
    size.rwidth() += window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  }
  window.resize(size.boundedTo(room));
  const FrameCorner corner = CentredCorner(SizeOf(window.size()), frame, area);
  // The place inside the frame: the toolkit does not know the frame of a window to be shown, and
  // would have the frame stand beside the place that move() gives.
  window.setGeometry(
      QRect(QPoint(corner.left + frame.left, corner.top + frame.top), window.size()));
}

void KeepOnScreen(QWidget& window) {
  const QSize room = ToQSize(RoomFor(FrameOf(window), AreaOf(window)));
  if (LacksRoom(window, room)) FitOnScreen(window);
}
