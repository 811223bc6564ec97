#include "program/WindowPlacement.h"

#include <algorithm>

WindowSize RoomFor(const FrameWidths& frame, const ScreenArea& area) {
  return {.width = std::max(area.width - frame.left - frame.right, 0),
          .height = std::max(area.height - frame.top - frame.bottom, 0)};
}

WindowSize CutToRoom(WindowSize wanted, WindowSize room) {
  return {.width = std::min(wanted.width, room.width),
          .height = std::min(wanted.height, room.height)};
}

FrameCorner CentredCorner(WindowSize window, const FrameWidths& frame, const ScreenArea& area) {
  const WindowSize room = RoomFor(frame, area);
  return {.left = area.left + std::max(room.width - window.width, 0) / 2,
          .top = area.top + std::max(room.height - window.height, 0) / 2};
}
