#pragma once

#include "base/Text.h"

#include <string>
#include <vector>

// Text in rows and columns: comma-separated (RFC 4180), tab-separated, and their relatives.

struct DelimitedRow {
  int line = 0;  ///< where the row begins, from 1
  std::vector<Text> fields;
};

enum class QuoteRule {
  Strict,   ///< a field is quoted as a whole, with quotes in it doubled, or holds none
  Lenient,  ///< a quote inside a field that does not begin with one is a quote
  None,     ///< quotes are characters like any other
};

/// Rows of a text; empty lines give none. `separator` is an ASCII character.
/// @param firstLine  number of the text's first line
/// @return 0, or the line at which the text breaks `rule`; `rows` then holds those before it
int ParseDelimited(TextView text, char separator, QuoteRule rule, int firstLine,
                   std::vector<DelimitedRow>& rows);

/// The rows by the rule that fits: strict, or else `otherwise`, and then `brokenLine` is where the
/// strict one broke.
/// @return false when `otherwise` breaks as well
bool ParseDelimitedAsItFits(TextView text, char separator, QuoteRule otherwise, int firstLine,
                            std::vector<DelimitedRow>& rows, int& brokenLine);

/// The separator that the first line of `text` has most of, quoted parts aside: "\t", "," or ";".
/// `fallback` when it has none.
char GuessSeparator(TextView text, char fallback);

/// Appends a row, ended by CR LF. Fields are quoted where the format needs it, and where a program
/// that trims would change them.
void AppendRow(Text& text, const std::vector<Text>& fields, char separator);
