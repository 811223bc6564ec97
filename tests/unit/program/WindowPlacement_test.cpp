#include "program/WindowPlacement.h"

#include <gtest/gtest.h>

namespace {

constexpr FrameWidths Frame{.left = 1, .top = 24, .right = 3, .bottom = 6};
constexpr ScreenArea Screen{.left = 0, .top = 0, .width = 1024, .height = 600};

TEST(RoomFor, IsTheScreenLessTheFrame) {
  EXPECT_EQ(RoomFor(Frame, Screen), (WindowSize{.width = 1020, .height = 570}));
}

TEST(RoomFor, IsNeverBelowNothing) {
  EXPECT_EQ(RoomFor(Frame, {.width = 3, .height = 20}), WindowSize());
}

TEST(CutToRoom, CutsEachDirectionByItself) {
  const WindowSize room{.width = 1020, .height = 570};
  EXPECT_EQ(CutToRoom({.width = 400, .height = 300}, room),
            (WindowSize{.width = 400, .height = 300}));
  EXPECT_EQ(CutToRoom({.width = 400, .height = 700}, room),
            (WindowSize{.width = 400, .height = 570}));
  EXPECT_EQ(CutToRoom({.width = 2000, .height = 300}, room),
            (WindowSize{.width = 1020, .height = 300}));
}

TEST(CentredCorner, IsHalfOfWhatTheWindowAndItsFrameLeaveOver) {
  // Without a frame: (1024 - 401) / 2 and (600 - 301) / 2 as integers.
  EXPECT_EQ(CentredCorner({.width = 401, .height = 301}, {}, Screen),
            (FrameCorner{.left = 311, .top = 149}));
  EXPECT_EQ(CentredCorner({.width = 400, .height = 300}, Frame, Screen),
            (FrameCorner{.left = 310, .top = 135}));
}

TEST(CentredCorner, CountsFromTheAreaThatPanelsLeave) {
  EXPECT_EQ(CentredCorner({.width = 400, .height = 300}, {},
                          {.left = 1920, .top = 30, .width = 1000, .height = 500}),
            (FrameCorner{.left = 2220, .top = 130}));
}

TEST(CentredCorner, KeepsTheTitleBarOfALargeWindowOnTheScreen) {
  EXPECT_EQ(CentredCorner({.width = 1200, .height = 700}, Frame, Screen),
            (FrameCorner{.left = 0, .top = 0}));
  // It fits, but its frame does not.
  EXPECT_EQ(CentredCorner({.width = 1024, .height = 590}, Frame, Screen),
            (FrameCorner{.left = 0, .top = 0}));
}

}  // namespace
