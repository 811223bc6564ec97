#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text in memory: UTF-16 units, so that lengths and positions count as the toolkit's fields count
/// them. Bytes exist only at the file boundary (CodePage.h, Paths.h).
using Text = std::u16string;
using TextView = std::u16string_view;

/// A line break inside a card text, and the end of a line in every file that we write.
inline constexpr TextView LineBreak = u"\r\n";

/// Without the blanks (character 32, nothing else) at the right end.
TextView TrimRight(TextView text);

/// Without the blanks (character 32, nothing else) at both ends.
TextView TrimBlanks(TextView text);

/// The first `length` units, one less where the cut would part the two units of one character.
TextView CutText(TextView text, std::size_t length);

/// `text` cut, or padded on the right with blanks, to exactly `width` units.
Text FixedWidth(TextView text, std::size_t width);

/// `text` with every occurrence of `from` (not empty) replaced, left to right; what was put in is
/// not searched again.
Text ReplaceAll(TextView text, TextView from, TextView to);

/// Up to the first CR or LF: what a one-line field keeps of a pasted text.
TextView FirstLine(TextView text);

/// The decimal form without a leading blank: "12", "-3".
Text NumberText(int number);

/// The decimal form with the place of the sign kept: " 12", "-3".
Text SignedNumberText(int number);

/// The shortest decimal form with at most 7 significant digits, "." as the point and a zero before
/// it, whatever the locale: "8.25", "10", "0.5". Very large or small numbers: "1E+07".
Text NumberText(float number);

/// The number at the start of `text`, 0 when there is none: sign, digits, one ".", digits, and an
/// exponent marked by "e" or "d" with optional sign. Blanks, tabs and line feeds are skipped
/// wherever they stand. An exponent too large for a number gives an infinity.
double LeadingNumber(TextView text);
