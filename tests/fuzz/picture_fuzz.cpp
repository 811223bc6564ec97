#include "tests/fuzz/Require.h"
#include "windows/study/PictureDecoder.h"

#include <QCoreApplication>

#include <cstdint>
#include <string>

namespace {

constexpr QSize Bounds(640, 480);
constexpr std::uint64_t QuickPixels = 1'000'000;  // what is larger is only looked through

void CheckDecoding(const std::string& bytes, const PictureHeader& header, int steps) {
  int left = steps;
  const DecodedPicture picture = DecodePicture(bytes, Bounds, [&] { return left-- > 0; });
  REQUIRE(picture.image.isNull() == (picture.fault != PictureFault::None));
  REQUIRE(picture.fault != PictureFault::TooLarge);
  REQUIRE((picture.fault == PictureFault::TooSlow) == (left < 0));
  if (picture.image.isNull()) return;
  REQUIRE(picture.image.width() <= Bounds.width() && picture.image.height() <= Bounds.height());
  const auto width = static_cast<std::uint64_t>(picture.fullSize.width());
  const auto height = static_cast<std::uint64_t>(picture.fullSize.height());
  REQUIRE((width == header.width && height == header.height) ||
          (width == header.height && height == header.width));
}

}  // namespace

// The bytes are a picture file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static int argc = 1;
  static char name[] = "picture";
  static char* argv[] = {name, nullptr};
  static const QCoreApplication application(argc, argv);  // it finds the decoders

  const std::string bytes(reinterpret_cast<const char*>(data), size);
  PictureHeader header;
  const PictureFault fault = ReadPictureHeader(bytes, header);
  if (fault != PictureFault::None) {
    REQUIRE(DecodePicture(bytes, Bounds, [] { return true; }).fault == fault);
    return 0;
  }
  REQUIRE(header.width > 0 && header.height > 0);
  REQUIRE(header.width * header.height <= MaxPicturePixels);
  REQUIRE(header.memory <= MaxPictureMemory);
  if (header.width * header.height > QuickPixels) return 0;
  for (const int steps : {0, 20, 1'000'000}) CheckDecoding(bytes, header, steps);
  return 0;
}
