#pragma once

#include "base/Text.h"

#include <QFont>

/// The font for a topic's name and size in points. The name is data and may name a font that is not
/// here; it is never read back from the QFont. Sizes that no screen can show are drawn as the
/// nearest that can.
QFont DisplayFont(TextView name, float size);

/// Has the settings file's default font name drawn with the desktop's sans-serif font. Once, at
/// start.
void RegisterFontSubstitutes();
