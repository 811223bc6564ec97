#pragma once

#include <cstdint>
#include <string_view>

enum class PictureFormat { Bmp, Jpeg, Gif };

/// Why a picture file is not given to a decoder, or none is shown of it.
enum class PictureFault {
  None,
  Unreadable,  ///< no regular file, none of the formats, broken, or cut off
  TooLarge,    ///< above one of the limits below
  TooSlow,     ///< not decoded within the time that there is for it
};

/// Width times height. Above it lies nothing that a camera makes or a card needs.
constexpr std::uint64_t MaxPicturePixels = 100'000'000;

/// Bytes that decoding may take, the decoded picture included and the file not.
constexpr std::uint64_t MaxPictureMemory = std::uint64_t{768} << 20;

/// A progressive JPEG is drawn whole by each of its scans. Encoders write about 10, at most 20 or
/// so; a file with thousands of empty ones keeps a decoder busy for minutes.
constexpr int MaxPictureScans = 64;

/// What a picture file says of itself.
struct PictureHeader {
  PictureFormat format = PictureFormat::Bmp;
  std::uint64_t width = 0;  ///< pixels, before any turning that the file asks for
  std::uint64_t height = 0;
  std::uint64_t memory = 0;  ///< bytes that decoding it takes at most
};

/// Looks through a whole file, by its content and not its name, without decoding anything.
/// @return None when it may be decoded: it is a BMP, JPEG or GIF, within all limits, and reaches to
///         its end (a GIF: to that of its first picture). `header` is meaningful then only.
PictureFault ReadPictureHeader(std::string_view file, PictureHeader& header);
