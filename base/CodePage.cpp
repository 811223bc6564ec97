#include "base/CodePage.h"

#include <algorithm>
#include <array>

namespace {

constexpr char16_t Replacement = 0xFFFD;

// Codes 128..159. Source: the vendor's table of code page 1252, the five open codes mapped to
// themselves.
constexpr std::array<char16_t, 32> UpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// Length of the valid UTF-8 sequence at the start of `bytes` (not empty) and its character; length
/// 0 when there is none. Over-long forms, surrogates and numbers above 10FFFF are not valid.
struct Sequence {
  std::size_t length = 0;
  char32_t character = 0;
};

Sequence FirstSequence(std::string_view bytes) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  if (byte(0) < 0x80) return {1, byte(0)};
  const std::size_t length = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
  if (byte(0) < 0xC2 || byte(0) > 0xF4 || bytes.size() < length) return {};
  char32_t character = byte(0) & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return {};
    character = character << 6 | (byte(i) & 0x3F);
  }
  constexpr std::array<char32_t, 5> Smallest = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (character < Smallest[length] || surrogate || character > 0x10FFFF) return {};
  return {length, character};
}

void AppendCharacter(Text& text, char32_t character) {
  if (character < 0x10000) {
    text += static_cast<char16_t>(character);
    return;
  }
  character -= 0x10000;
  text += static_cast<char16_t>(0xD800 + (character >> 10));
  text += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
}

void AppendUtf8(std::string& bytes, char32_t character) {
  const auto add = [&](char32_t byte) { bytes += static_cast<char>(byte); };
  if (character < 0x80) {
    add(character);
  } else if (character < 0x800) {
    add(0xC0 | character >> 6);
    add(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    add(0xE0 | character >> 12);
    add(0x80 | (character >> 6 & 0x3F));
    add(0x80 | (character & 0x3F));
  } else {
    add(0xF0 | character >> 18);
    add(0x80 | (character >> 12 & 0x3F));
    add(0x80 | (character >> 6 & 0x3F));
    add(0x80 | (character & 0x3F));
  }
}

/// The bytes in Windows-1252, or nothing when a character has no code there.
std::optional<std::string> EncodeWindows1252(TextView text) {
  std::string bytes(text.size(), '\0');
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] < 0x80) {
      bytes[i] = static_cast<char>(text[i]);
      continue;
    }
    const std::optional<CharCode> code = CodeOfChar(text[i]);
    if (!code) return std::nullopt;
    bytes[i] = static_cast<char>(*code);
  }
  return bytes;
}

}  // namespace

char16_t CharOfCode(CharCode code) {
  const auto number = static_cast<std::uint8_t>(code);
  if (number < 0x80 || number >= 0xA0) return number;
  return UpperControls[number - 0x80U];
}

std::optional<CharCode> CodeOfChar(char16_t unit) {
  if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return static_cast<CharCode>(unit);
  const auto* const found = std::find(UpperControls.begin(), UpperControls.end(), unit);
  if (found == UpperControls.end()) return std::nullopt;
  return static_cast<CharCode>(0x80 + (found - UpperControls.begin()));
}

FileEncoding EncodingOf(std::string_view bytes) {
  return bytes.starts_with(Utf8Mark) && ValidUtf8Length(bytes) == bytes.size()
             ? FileEncoding::MarkedUtf8
             : FileEncoding::Windows1252;
}

void AppendDecoded(Text& text, std::string_view bytes, FileEncoding encoding) {
  if (encoding == FileEncoding::Windows1252) {
    const std::size_t start = text.size();
    text.resize(start + bytes.size());
    std::transform(bytes.begin(), bytes.end(), text.begin() + static_cast<std::ptrdiff_t>(start),
                   [](char byte) { return CharOfCode(static_cast<CharCode>(byte)); });
    return;
  }
  while (!bytes.empty()) {
    const Sequence sequence = FirstSequence(bytes);
    if (sequence.length == 0) {
      text += CharOfCode(static_cast<CharCode>(bytes.front()));
      bytes.remove_prefix(1);
      continue;
    }
    AppendCharacter(text, sequence.character);
    bytes.remove_prefix(sequence.length);
  }
}

Text DecodeFileText(std::string_view bytes) {
  const FileEncoding encoding = EncodingOf(bytes);
  if (encoding == FileEncoding::MarkedUtf8) bytes.remove_prefix(Utf8Mark.size());
  Text text;
  AppendDecoded(text, bytes, encoding);
  return text;
}

std::string EncodeFileText(TextView text) {
  // Three Windows-1252 characters look like the mark of UTF-8. A file that began with them and
  // happened to be valid UTF-8 would be read back as something else, so it is marked as well.
  if (std::optional<std::string> bytes = EncodeWindows1252(text);
      bytes && EncodingOf(*bytes) == FileEncoding::Windows1252) {
    return *std::move(bytes);
  }
  return std::string(Utf8Mark) + ToUtf8(text);
}

std::size_t ValidUtf8Length(std::string_view bytes) {
  std::size_t valid = 0;
  while (valid < bytes.size()) {
    const std::size_t length = FirstSequence(bytes.substr(valid)).length;
    if (length == 0) break;
    valid += length;
  }
  return valid;
}

std::string ToUtf8(TextView text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit < 0xD800 || unit > 0xDFFF) {
      AppendUtf8(bytes, unit);
    } else if (unit <= 0xDBFF && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00) {
      AppendUtf8(bytes, 0x10000U + ((unit - 0xD800U) << 10) + (text[++i] - 0xDC00U));
    } else {
      AppendUtf8(bytes, Replacement);
    }
  }
  return bytes;
}

Text FromUtf8(std::string_view bytes) {
  Text text;
  AppendDecoded(text, bytes, FileEncoding::MarkedUtf8);
  return text;
}
