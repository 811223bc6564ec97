#pragma once

#include "decks/Finding.h"

#include <string>
#include <string_view>

// What can be said of a stack file's bytes before anything is read out of them.

/// The line ends of a file, and where the first of each kind stands.
struct LineEndCounts {
  int crLf = 0;
  int lf = 0;       ///< without CR before it
  int cr = 0;       ///< without LF behind it
  int firstLf = 0;  ///< number of the line it ends or stands in, by the program's count; 0: none
  int firstCr = 0;
};
LineEndCounts CountLineEnds(std::string_view bytes);

/// "CR LF", "LF", "CR LF and LF", ...; "none" for a single line.
std::string LineEndWords(const LineEndCounts& counts);

/// Line ends of several kinds, encodings that the program takes for others, control characters.
void CheckBytes(std::string_view bytes, Findings& findings);
