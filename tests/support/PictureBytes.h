#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Picture files made byte by byte, so that a test says what is wrong with one.

inline std::string LittleEndian(std::uint64_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i & 0xFF);
  return text;
}

inline std::string BigEndian16(std::uint64_t value) {
  return {static_cast<char>(value >> 8 & 0xFF), static_cast<char>(value & 0xFF)};
}

/// A BMP's two headers; `bits` is 24 or 32 here, `compression` 0 is none.
inline std::string BmpHeader(std::uint64_t width, std::uint64_t height, int bits = 24,
                             int compression = 0) {
  constexpr int Headers = 54;
  return "BM" + LittleEndian(0, 8) + LittleEndian(Headers, 4) + LittleEndian(40, 4) +
         LittleEndian(width, 4) + LittleEndian(height, 4) + LittleEndian(1, 2) +
         LittleEndian(static_cast<unsigned>(bits), 2) +
         LittleEndian(static_cast<unsigned>(compression), 4) + LittleEndian(0, 20);
}

/// A whole BMP of 24 bits, every byte of its pixels the same.
inline std::string Bmp(std::uint64_t width, std::uint64_t height, char shade = '\x80') {
  return BmpHeader(width, height) + std::string((width * 3 + 3) / 4 * 4 * height, shade);
}

/// A GIF whose screen and picture have this size, with data that ends before the pixels do.
inline std::string Gif(std::uint64_t width, std::uint64_t height) {
  const std::string size = LittleEndian(width, 2) + LittleEndian(height, 2);
  using namespace std::string_literals;
  return "GIF89a" + size + "\x80\x00\x00"s + "\xFF\x00\x00\x00\x00\xFF"s + "\x2C"s +
         LittleEndian(0, 4) + size + "\x00"s + "\x02\x02\x44\x01\x00\x3B"s;
}

/// A marker of a JPEG with its content.
inline std::string Segment(int marker, std::string_view content) {
  return "\xFF" + std::string(1, static_cast<char>(marker)) + BigEndian16(content.size() + 2) +
         std::string(content);
}

/// A frame of three components, all as large as the picture, or two of them halved both ways.
inline std::string Frame(int marker, std::uint64_t width, std::uint64_t height,
                         bool halved = false) {
  using namespace std::string_literals;
  return Segment(marker, "\x08"s + BigEndian16(height) + BigEndian16(width) + "\x03\x01"s +
                             (halved ? "\x22" : "\x11") + "\x00\x02\x11\x00\x03\x11\x00"s);
}

/// A scan over all three components, with next to no data.
inline std::string Scan() {
  using namespace std::string_literals;
  return Segment(0xDA, "\x03\x01\x00\x02\x00\x03\x00\x00\x3F\x00"s) + "\x12\x34\xFF\x00\x56"s;
}

/// A JPEG of these parts, from its first marker to its last.
inline std::string Jpeg(std::string_view parts) {
  return "\xFF\xD8" + std::string(parts) + "\xFF\xD9";
}
