#pragma once

#include "base/Text.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// Text in rows and columns: comma-separated (RFC 4180), tab-separated, and their relatives. Whole
// texts are UTF-8 here, as in their files: they may be long, and are not copied.

struct DelimitedRow {
  int line = 0;  ///< where the row begins, from 1
  std::vector<Text> fields;
};

enum class QuoteRule {
  Strict,   ///< a field is quoted as a whole, with quotes in it doubled, or holds none
  Lenient,  ///< a quote inside a field that does not begin with one is a quote
  None,     ///< quotes are characters like any other
};

/// More fields than the widest spreadsheet has columns (XFD), or more characters in a field than
/// anybody reads on a card, make a text no table.
inline constexpr std::size_t MostFields = 16'384;
inline constexpr std::size_t LongestField = std::size_t{1} << 20;  ///< bytes of UTF-8

/// How reading a table ended.
struct TableEnd {
  int brokenLine = 0;    ///< where the text breaks the rule of its quotes; 0 when it keeps it
  int tooLargeLine = 0;  ///< of a row that goes beyond MostFields or LongestField, or 0
  bool IsWell() const { return brokenLine == 0 && tooLargeLine == 0; }
};

/// Hears a row; what is in it may be moved away.
using RowListener = std::function<void(DelimitedRow& row)>;

/// Takes the next part of a text that is written, in UTF-8 and in whole characters.
using RowWriter = std::function<void(std::string_view utf8)>;

/// Reads the rows of a text, in room for one of them; empty lines give none. `separator` is an
/// ASCII character.
/// @param firstLine  number of the text's first line
/// @param listener   hears the rows before the one that ends the reading; may be empty
TableEnd ReadDelimited(std::string_view utf8, char separator, QuoteRule rule, int firstLine,
                       const RowListener& listener);

/// The rule that a text keeps: Strict, or else `otherwise`.
struct FittingRule {
  QuoteRule rule = QuoteRule::Strict;
  int strictBrokenLine = 0;  ///< where Strict broke; 0 when it fits
  TableEnd end;              ///< how reading by `rule` ends
};
FittingRule FindFittingRule(std::string_view utf8, char separator, QuoteRule otherwise,
                            int firstLine);

/// The separator that the first line of `utf8` has most of, quoted parts aside: "\t", "," or ";".
/// `fallback` when it has none.
char GuessSeparator(std::string_view utf8, char fallback);

/// The row, ended by CR LF. Fields are quoted where the format needs it, and where a program
/// that trims would change them.
std::string WriteRow(const std::vector<Text>& fields, char separator);
