#pragma once

#include "base/Text.h"

#include <cstdint>
#include <optional>

// The characters that HTML and XML write as "&name;" and "&#number;".

/// The character that stands between "&#" and ";", decimal or, behind an "x", hexadecimal; nothing
/// when it is no number. A number that is no character's is given as it is, up to 0x110000.
std::optional<std::uint32_t> NumberedCharacter(TextView digits);

/// The character that stands between "&" and ";" in HTML.
std::optional<std::uint32_t> NamedCharacter(TextView name);

/// Appends a character by its number; U+FFFD for a number that is none's, half of a character
/// included.
void AppendCharacter(Text& text, std::uint32_t character);
