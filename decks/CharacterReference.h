#pragma once

#include "base/Text.h"

#include <cstdint>
#include <optional>

// The characters that HTML and XML write as "&name;" and "&#number;".

/// The character that stands between "&#" and ";", decimal or, behind an "x", hexadecimal; nothing
/// when it is no number, or that of no character: 0, half of a character, or above 0x10FFFF.
std::optional<std::uint32_t> NumberedCharacter(TextView digits);

/// The character that stands between "&" and ";" in HTML.
std::optional<std::uint32_t> NamedCharacter(TextView name);

/// Appends a character by its number, which is one of these.
void AppendCharacter(Text& text, std::uint32_t character);
