#pragma once

#include "base/Text.h"

/// Letter case is folded character by character and never changes a length; the locale has no part
/// in it. Covered: the letters of Windows-1252 as that code page pairs them (so sharp s, micro sign
/// and florin stay as they are), the other letters of Latin, Greek (also with the old accents),
/// Cyrillic and Armenian, and the full-width Latin letters. Every other character is its own upper
/// case.

/// The capital letter of `unit`, or `unit` itself.
char16_t ToUpper(char16_t unit);

Text UpperCase(TextView text);

bool EqualIgnoringCase(TextView a, TextView b);

/// Position of the first `pattern` in `text` at or after `from`, or npos. An empty pattern is found
/// at `from`.
std::size_t FindIgnoringCase(TextView text, TextView pattern, std::size_t from = 0);

bool ContainsIgnoringCase(TextView text, TextView pattern);
