#pragma once

/// Where a window goes on the screen. All lengths are the window system's logical pixels.

/// A window's size without its frame.
struct WindowSize {
  int width = 0;
  int height = 0;

  friend bool operator==(const WindowSize&, const WindowSize&) = default;
};

/// What the desktop adds around a window: its title bar and borders.
struct FrameWidths {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  friend bool operator==(const FrameWidths&, const FrameWidths&) = default;
};

/// The part of a screen that panels leave to windows.
struct ScreenArea {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

/// The upper left corner of a window's frame.
struct FrameCorner {
  int left = 0;
  int top = 0;

  friend bool operator==(const FrameCorner&, const FrameCorner&) = default;
};

/// The frame to reckon with before the desktop has shown any of ours: that of a common desktop,
/// rather too wide than too narrow.
inline constexpr FrameWidths UsualFrame{.left = 4, .top = 38, .right = 4, .bottom = 6};

/// The largest size inside its frame that a window can have on the screen.
WindowSize RoomFor(const FrameWidths& frame, const ScreenArea& area);

/// `wanted`, cut in either direction to what there is room for.
WindowSize CutToRoom(WindowSize wanted, WindowSize room);

/// Centres a window together with its frame: half of what is left over goes to each side, cut to
/// whole pixels. A window larger than the screen begins at the screen's upper left corner, so that
/// its title bar can be reached.
FrameCorner CentredCorner(WindowSize window, const FrameWidths& frame, const ScreenArea& area);
