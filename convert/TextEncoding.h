#pragma once

#include "base/Text.h"
#include "convert/Finding.h"

#include <string>
#include <string_view>

// The encodings of other programs' text files. Stack files are decoded by the stack reader alone.

/// The encoding of text files that nothing is said about: UTF-8 without a mark.
inline constexpr std::string_view DefaultEncoding = "utf-8";
/// UTF-8 behind its mark, which spreadsheets want.
inline constexpr std::string_view MarkedUtf8Name = "utf-8-bom";

/// Decodes a whole file.
/// @param encoding  a name that the system's iconv knows, or MarkedUtf8Name. Empty: by the mark at
///                  the start (UTF-8 or UTF-16), else UTF-8 where the bytes are that, else
///                  Windows-1252.
/// @param used      receives the name of the encoding
/// @return false for a name that nobody knows. Bytes that stand for nothing become U+FFFD, with a
///         finding.
bool DecodeForeignText(std::string_view bytes, std::string_view encoding, Text& text,
                       std::string& used, Findings& findings);

/// Encodes a whole file. A character that the encoding lacks becomes "?": who reads the bytes back
/// sees it.
/// @return false for a name that nobody knows
bool EncodeForeignText(TextView text, std::string_view encoding, std::string& bytes);

/// True for a name that the two take.
bool IsKnownEncoding(std::string_view encoding);
