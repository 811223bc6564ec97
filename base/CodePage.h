#pragma once

#include "base/Text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// A code 0..255 of the key table, the character list and the code chart: a Windows-1252 code,
/// never to be taken for a character.
enum class CharCode : std::uint8_t {};

/// The character of a code. The five codes that Windows-1252 leaves open (129, 141, 143, 144, 157)
/// stand for the characters of the same number, so that every code has a character of its own.
char16_t CharOfCode(CharCode code);

/// The code of a character, or nothing when Windows-1252 has none for it.
std::optional<CharCode> CodeOfChar(char16_t unit);

/// How the bytes of a stack or settings file stand for characters.
enum class FileEncoding { Windows1252, MarkedUtf8 };

/// Marked UTF-8 when the bytes begin with the byte order mark and all of them are valid UTF-8;
/// anything else, a marked file with broken sequences included, is Windows-1252.
FileEncoding EncodingOf(std::string_view bytes);

/// The first of the only two crossings between file bytes and text: a whole file.
Text DecodeFileText(std::string_view bytes);

/// Decodes a piece of a file whose encoding is known; `bytes` holds no byte order mark and parts no
/// sequence. The text is appended to `text`.
void AppendDecoded(Text& text, std::string_view bytes, FileEncoding encoding);

/// The byte order mark that begins a file of marked UTF-8.
inline constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

/// The other crossing: the bytes of a whole file. Windows-1252 when it has a code for every
/// character, else UTF-8 behind its mark. A unit that is half of a character becomes U+FFFD.
std::string EncodeFileText(TextView text);

/// Length of the longest valid UTF-8 text at the start of `bytes`.
std::size_t ValidUtf8Length(std::string_view bytes);

/// Plain UTF-8 without a mark; halves of characters become U+FFFD.
std::string ToUtf8(TextView text);

/// The text of valid UTF-8; a byte that is not part of a valid sequence is taken as Windows-1252.
Text FromUtf8(std::string_view bytes);
