#pragma once

#include "program/WindowPlacement.h"
#include "settings/ProfileFile.h"

#include <optional>

/// What the program remembers from one run to the next without anybody's setting it: see
/// docs/formats.md, "State file". It is of no value to the user: what cannot be read is not
/// remembered, what cannot be written is forgotten, and nobody is told.
///
/// The file is read at every question and changed line by line under a lock, so programs that run
/// at the same time keep each other's lines; of two who remember the same thing, the later wins.
class RememberedState {
 public:
  static constexpr int LargestSide = 32767;  ///< of a window; no screen is larger

  /// @param path  the state file; it and its folder are made when there is something to remember
  RememberedState(Files& files, Text path);

  /// Without the frame, in pixels of a 100 % desktop.
  /// @param window  a window's name: letters and digits
  /// @return nothing when none is known, or when what the file says is no size
  std::optional<WindowSize> Size(TextView window) const;
  void KeepSize(TextView window, WindowSize size);

  /// How much a window enlarges card texts, in per cent: SmallestZoom to LargestZoom.
  std::optional<int> Zoom(TextView window) const;
  void KeepZoom(TextView window, int percent);

 private:
  std::optional<int> Number(TextView window, TextView key, int least, int most) const;
  void Keep(const std::function<void(ProfileText&)>& change);

  Files& m_files;
  ProfileFile m_file;
};
