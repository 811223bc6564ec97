#pragma once

#include "base/Text.h"
#include "decks/Finding.h"

#include <memory>
#include <string>
#include <string_view>

// The encodings of other programs' text files. Stack files are decoded by the stack reader alone.

class EncodingConverter;

/// The encoding of text files that nothing is said about: UTF-8 without a mark.
inline constexpr std::string_view DefaultEncoding = "utf-8";
/// UTF-8 behind its mark, which spreadsheets want.
inline constexpr std::string_view MarkedUtf8Name = "utf-8-bom";

/// Decodes a whole file to UTF-8 without a mark.
/// @param encoding  as of DecodeForeignText
/// @param storage   may receive the bytes that `utf8` is a view of; else it is one of `bytes`
/// @param used      receives the name of the encoding
/// @return as of DecodeForeignText
bool DecodeToUtf8(std::string_view bytes, std::string_view encoding, std::string& storage,
                  std::string_view& utf8, std::string& used, Findings& findings);

/// Decodes a whole file.
/// @param encoding  a name that the system's iconv knows, or MarkedUtf8Name. Empty: by the mark at
///                  the start (UTF-8, UTF-16 or UTF-32), else UTF-8 where the bytes are that, else
///                  Windows-1252.
/// @param used      receives the name of the encoding
/// @return false for a name that nobody knows. Bytes that stand for nothing become U+FFFD, with a
///         finding; there is one as well when the text takes more or fewer bytes than there are.
bool DecodeForeignText(std::string_view bytes, std::string_view encoding, Text& text,
                       std::string& used, Findings& findings);

/// Encodes a file, piece by piece. A character that the encoding lacks becomes "?": who reads the
/// bytes back sees it.
class TextEncoder {
 public:
  /// @param encoding  one that IsKnownEncoding knows
  explicit TextEncoder(std::string_view encoding);
  TextEncoder(const TextEncoder&) = delete;
  TextEncoder& operator=(const TextEncoder&) = delete;
  ~TextEncoder();

  /// Appends the next piece of the text, whole characters of UTF-8, to the file's bytes.
  void Append(std::string_view utf8, std::string& bytes);
  /// Appends what some encodings need behind the last piece.
  void End(std::string& bytes);

 private:
  bool m_marked;
  bool m_begun = false;
  std::unique_ptr<EncodingConverter> m_converter;  ///< none for UTF-8
};

/// True for a name that these know. The system's orders behind a name ("//IGNORE") are none.
bool IsKnownEncoding(std::string_view encoding);
