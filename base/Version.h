#pragma once

#include "base/Text.h"

/// The version stands in the top CMakeLists.txt alone.
inline constexpr TextView ProgramVersion = u"" QUIB_VERSION;
inline constexpr TextView ProgramName = u"Quib!Cards";

/// Title of the main window and of every message box; the error messages of the file routines add
/// " Error".
inline constexpr TextView ProgramTitle = u"Quib!Cards " QUIB_VERSION;
