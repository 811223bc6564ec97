#pragma once

#include "base/Text.h"

#include <QFont>

/// The largest size that is drawn, in points: the size fields take 32, and where cards are typed in
/// they stand 2 larger.
inline constexpr float LargestDisplaySize = 34;

/// The font for a topic's name and size in points. The name is data and may name a font that is not
/// here; it is never read back from the QFont. A size that no field takes, from a hand-made
/// settings file, is drawn as the nearest that can be had.
/// @param zoom  by how much to enlarge that
QFont DisplayFont(TextView name, float size, float zoom = 1);

/// Has the settings file's default font name drawn with the desktop's sans-serif font. Once, at
/// start.
void RegisterFontSubstitutes();
