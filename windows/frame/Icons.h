#pragma once

#include <QIcon>

/// One of our drawings, painted in the palette's text colour at any size and scale factor, so that
/// it reads on light and dark desktops.
QIcon TintedIcon(const char* name);

/// The program's own icon, in its colours.
QIcon ProgramIcon();
