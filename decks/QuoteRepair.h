#pragma once

#include <string>
#include <string_view>

/// A table whose quotes are in order: of a field that begins with one, the whole is in quotes.
struct RepairedQuotes {
  std::string text;
  int unclosedLine = 0;  ///< where a quote opens that never closes; 0 without
};

/// Puts the quotes of a table in order. Inside a quoted field a quote stands for itself when one
/// that ends the field follows in the same line; otherwise it ends the quotes, and what stands
/// behind it is the rest of the field: "x"y becomes "xy". Lines stay lines.
/// @param firstLine  number of the text's first line
RepairedQuotes RepairQuotes(std::string_view utf8, char separator, int firstLine);
