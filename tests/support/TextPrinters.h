#pragma once

#include "base/CodePage.h"
#include "base/FileStatus.h"

#include <ostream>

// How failures show our types; texts are printed by GoogleTest itself.
inline void PrintTo(FileStatus status, std::ostream* out) {
  *out << static_cast<int>(status) << " " << ToUtf8(ErrorText(status));
}
inline void PrintTo(CharCode code, std::ostream* out) { *out << "code " << static_cast<int>(code); }
