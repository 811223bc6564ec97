#include "study/PictureHeader.h"

#include <algorithm>
#include <cstdlib>

namespace {

using std::uint64_t;

/// Numbers of a file by their places. What lies behind the end reads as 0; `Has` tells.
class Bytes {
 public:
  explicit Bytes(std::string_view file) : m_file(file) {}

  uint64_t Size() const { return m_file.size(); }
  bool Has(uint64_t place, uint64_t count) const {
    return place <= Size() && count <= Size() - place;
  }
  uint64_t At(uint64_t place) const {
    return Has(place, 1) ? static_cast<unsigned char>(m_file[static_cast<std::size_t>(place)]) : 0;
  }
  uint64_t Little16(uint64_t place) const { return At(place) | At(place + 1) << 8; }
  uint64_t Little32(uint64_t place) const { return Little16(place) | Little16(place + 2) << 16; }
  uint64_t Big16(uint64_t place) const { return At(place) << 8 | At(place + 1); }
  /// The next byte of this value; the size of the file when there is none.
  uint64_t Next(char value, uint64_t place) const {
    return std::min<uint64_t>(m_file.find(value, static_cast<std::size_t>(place)), Size());
  }
  bool StartsWith(std::string_view start) const { return m_file.starts_with(start); }

 private:
  std::string_view m_file;
};

/// A length that the file writes as a signed number: the sign tells the direction of the rows.
uint64_t Magnitude32(uint64_t bits) {
  const auto number = static_cast<std::int32_t>(static_cast<std::uint32_t>(bits));
  return static_cast<uint64_t>(std::llabs(number));
}

PictureFault Judge(const PictureHeader& header) {
  if (header.width == 0 || header.height == 0) return PictureFault::Unreadable;
  // Neither side is above 2^32, so that the product has room.
  const bool fits = header.width * header.height <= MaxPicturePixels;
  return fits && header.memory <= MaxPictureMemory ? PictureFault::None : PictureFault::TooLarge;
}

PictureFault ReadBmp(const Bytes& file, PictureHeader& header) {
  constexpr uint64_t FileHeader = 14;
  constexpr uint64_t OldInfo = 12;  // the size of OS/2's information, whose numbers have 16 bits
  constexpr uint64_t Info = 40;
  const uint64_t infoSize = file.Little32(FileHeader);
  const bool old = infoSize == OldInfo;
  if ((!old && infoSize < Info) || !file.Has(FileHeader, infoSize)) return PictureFault::Unreadable;
  const uint64_t width = old ? file.Little16(18) : Magnitude32(file.Little32(18));
  const uint64_t height = old ? file.Little16(20) : Magnitude32(file.Little32(22));
  const uint64_t bits = file.Little16(old ? 24 : 28);
  if (bits > 32) return PictureFault::Unreadable;
  header = {PictureFormat::Bmp, width, height, 0};
  // Beyond the limit the products below would have no room.
  if (const PictureFault fault = Judge(header); fault != PictureFault::None) return fault;
  header.memory = width * height * 4;

  const uint64_t compression = old ? 0 : file.Little32(30);
  const bool runs = compression == 1 || compression == 2;
  const uint64_t start = file.Little32(10);
  const uint64_t line = (width * bits + 31) / 32 * 4;
  // The last line may lack what fills it up.
  const uint64_t content = line * (height - 1) + (width * bits + 7) / 8;
  if (!runs && start != 0 && !file.Has(start, content)) return PictureFault::Unreadable;
  return Judge(header);
}

/// The place behind a chain of blocks, each with its length before it, which ends with an empty
/// one; 0 when the file ends first.
uint64_t BehindBlocks(const Bytes& file, uint64_t place) {
  while (file.Has(place, 1)) {
    const uint64_t length = file.At(place);
    place += 1 + length;
    if (length == 0) return place;
  }
  return 0;
}

/// Bytes of a colour table, from the byte of flags that announces it.
uint64_t ColourTable(uint64_t flags) {
  return (flags & 0x80) != 0 ? uint64_t{3} << ((flags & 7) + 1) : 0;
}

PictureFault ReadGif(const Bytes& file, PictureHeader& header) {
  constexpr uint64_t ScreenEnd = 13;
  if (!file.Has(0, ScreenEnd)) return PictureFault::Unreadable;
  uint64_t place = ScreenEnd + ColourTable(file.At(10));
  while (file.At(place) == 0x21) {  // extensions; all of them end with a chain of blocks
    place = BehindBlocks(file, place + 2);
    if (place == 0) return PictureFault::Unreadable;
  }
  constexpr uint64_t ImageHeader = 10;
  if (file.At(place) != 0x2C || !file.Has(place, ImageHeader)) return PictureFault::Unreadable;
  // The first picture may reach beyond the screen that the file begins with.
  const uint64_t right = file.Little16(place + 1) + file.Little16(place + 5);
  const uint64_t bottom = file.Little16(place + 3) + file.Little16(place + 7);
  const uint64_t width = std::max(file.Little16(6), right);
  const uint64_t height = std::max(file.Little16(8), bottom);
  // The decoder keeps what was there before a picture was drawn over it.
  header = {PictureFormat::Gif, width, height, width * height * 4 * 2};
  const uint64_t codeSize = place + ImageHeader + ColourTable(file.At(place + 9));
  if (BehindBlocks(file, codeSize + 1) == 0) return PictureFault::Unreadable;
  return Judge(header);
}

/// Goes through a JPEG from marker to marker.
class JpegWalk {
 public:
  explicit JpegWalk(const Bytes& file) : m_file(file) {}

  PictureFault Read(PictureHeader& header) {
    for (m_place = 2; FindMarker();) {
      const uint64_t marker = m_file.At(m_place++);
      if (marker == EndOfImage) return Conclude(header);
      if (marker == Temporary || IsRestart(marker)) continue;
      const uint64_t length = m_file.Big16(m_place);
      if (length < 2 || !m_file.Has(m_place, length)) break;
      if (IsFrame(marker) && !ReadFrame(length)) break;
      if (marker == StartOfScan && !ReadScan()) break;
      if (m_scans > MaxPictureScans) return PictureFault::TooLarge;
      m_place += length;
    }
    return PictureFault::Unreadable;
  }

 private:
  static constexpr uint64_t Temporary = 0x01, StartOfImage = 0xD8, EndOfImage = 0xD9,
                            StartOfScan = 0xDA;

  static bool IsRestart(uint64_t marker) { return marker >= 0xD0 && marker <= 0xD7; }
  static bool IsFrame(uint64_t marker) {
    constexpr uint64_t Huffman = 0xC4, Extension = 0xC8, Arithmetic = 0xCC;
    return marker >= 0xC0 && marker <= 0xCF && marker != Huffman && marker != Extension &&
           marker != Arithmetic;
  }
  static bool IsProgressive(uint64_t marker) { return (marker & 3) == 2; }

  /// The code of the next marker; what is no marker is passed over, a scan's data too. False at the
  /// end of the file.
  bool FindMarker() {
    for (;; ++m_place) {
      m_place = m_file.Next('\xFF', m_place);
      if (!m_file.Has(m_place, 2)) return false;
      const uint64_t code = m_file.At(m_place + 1);
      if (code == 0x00 || code == 0xFF) continue;
      ++m_place;
      return code != StartOfImage;
    }
  }

  bool ReadFrame(uint64_t length) {
    const uint64_t marker = m_file.At(m_place - 1);
    if (m_width != 0 || length < 8) return false;  // there is one frame
    m_height = m_file.Big16(m_place + 3);
    m_width = m_file.Big16(m_place + 5);
    m_components = m_file.At(m_place + 7);
    if (m_components == 0 || m_components > 4 || length < 8 + 3 * m_components) return false;
    m_keepsAll = IsProgressive(marker);
    uint64_t across = 0;
    uint64_t down = 0;
    for (uint64_t i = 0; i < m_components; ++i) {
      const uint64_t sampling = m_file.At(m_place + 9 + 3 * i);
      across = std::max(across, sampling >> 4);
      down = std::max(down, sampling & 15);
      m_samples += (sampling >> 4) * (sampling & 15);
    }
    m_unit = across * down;
    return m_width != 0 && m_height != 0 && m_unit != 0;
  }

  bool ReadScan() {
    if (m_width == 0) return false;
    ++m_scans;
    // Components that come one after the other are kept until the last is there.
    if (m_file.At(m_place + 2) < m_components) m_keepsAll = true;
    return true;
  }

  PictureFault Conclude(PictureHeader& header) const {
    if (m_scans == 0) return PictureFault::Unreadable;
    constexpr uint64_t Block = 8;
    const uint64_t pixels = (m_width + 2 * Block) * (m_height + 2 * Block);  // with what fills up
    const uint64_t kept = m_keepsAll ? pixels * 2 * m_samples / m_unit : 0;
    header = {PictureFormat::Jpeg, m_width, m_height, m_width * m_height * 4 + kept};
    return Judge(header);
  }

  const Bytes& m_file;
  uint64_t m_place = 0;
  uint64_t m_width = 0;  // 0 before the frame
  uint64_t m_height = 0;
  uint64_t m_components = 0;
  uint64_t m_samples = 0;  // of all components for each `m_unit` pixels
  uint64_t m_unit = 0;
  bool m_keepsAll = false;  // the decoder keeps all coefficients
  int m_scans = 0;
};

}  // namespace

PictureFault ReadPictureHeader(std::string_view content, PictureHeader& header) {
  const Bytes file(content);
  if (file.StartsWith("BM")) return ReadBmp(file, header);
  if (file.StartsWith("GIF87a") || file.StartsWith("GIF89a")) return ReadGif(file, header);
  if (file.StartsWith("\xFF\xD8\xFF")) return JpegWalk(file).Read(header);
  return PictureFault::Unreadable;
}
