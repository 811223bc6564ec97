#include "study/PictureHeader.h"

#include "tests/support/PictureBytes.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

using namespace std::string_literals;

namespace {

constexpr int Baseline = 0xC0;
constexpr int Progressive = 0xC2;

PictureFault FaultOf(std::string_view file) {
  PictureHeader header;
  return ReadPictureHeader(file, header);
}

PictureHeader HeaderOf(std::string_view file) {
  PictureHeader header;
  EXPECT_EQ(ReadPictureHeader(file, header), PictureFault::None);
  return header;
}

void ExpectHeader(std::string_view file, PictureFormat format, std::uint64_t width,
                  std::uint64_t height) {
  const PictureHeader header = HeaderOf(file);
  EXPECT_EQ(header.format, format);
  EXPECT_EQ(header.width, width);
  EXPECT_EQ(header.height, height);
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST(ReadPictureHeader, KnowsThreeFormatsByTheirContent) {
  ExpectHeader(Bmp(7, 5), PictureFormat::Bmp, 7, 5);
  ExpectHeader(Gif(7, 5), PictureFormat::Gif, 7, 5);
  ExpectHeader(Jpeg(Frame(Baseline, 7, 5) + Scan()), PictureFormat::Jpeg, 7, 5);
}

TEST(ReadPictureHeader, KnowsEverySamplePicture) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(QUIB_SOURCE_DIR "/samples")) {
    const std::string extension = entry.path().extension();
    if (extension != ".bmp" && extension != ".jpg" && extension != ".gif") continue;
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(FaultOf(content), PictureFault::None) << entry.path();
    ++count;
  }
  EXPECT_GT(count, 10);
}

TEST(ReadPictureHeader, RefusesEveryOtherFormat) {
  for (const std::string& file :
       {""s, "B"s, "no picture"s, "<svg xmlns='http://www.w3.org/2000/svg'/>"s,
        "<?xml version='1.0'?><svg/>"s, "\x89PNG\r\n\x1A\n"s, "GIF88a"s, "II*\0"s,
        "RIFF\0\0\0\0WEBP"s, "/* XPM */"s, "P6 1 1 255 abc"s, "\x1F\x8B"s}) {
    EXPECT_EQ(FaultOf(file), PictureFault::Unreadable) << file;
  }
}

TEST(ReadPictureHeader, BmpMayStandOnItsHeadOrBeOld) {
  std::string upsideDown = Bmp(7, 5);
  upsideDown.replace(22, 4, LittleEndian(static_cast<std::uint64_t>(-5), 4));
  ExpectHeader(upsideDown, PictureFormat::Bmp, 7, 5);
  const std::string old = "BM" + LittleEndian(0, 8) + LittleEndian(26, 4) + LittleEndian(12, 4) +
                          LittleEndian(7, 2) + LittleEndian(5, 2) + LittleEndian(1, 2) +
                          LittleEndian(24, 2) + std::string(24 * 5, 'x');
  ExpectHeader(old, PictureFormat::Bmp, 7, 5);
}

TEST(ReadPictureHeader, NoSideMayBeEmpty) {
  for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {0, 0}}) {
    const auto across = static_cast<std::uint64_t>(width);
    const auto down = static_cast<std::uint64_t>(height);
    EXPECT_EQ(FaultOf(Bmp(across, down)), PictureFault::Unreadable);
    EXPECT_EQ(FaultOf(Gif(across, down)), PictureFault::Unreadable);
    EXPECT_EQ(FaultOf(Jpeg(Frame(Baseline, across, down) + Scan())), PictureFault::Unreadable);
  }
}

TEST(ReadPictureHeader, EveryPartOfAHeaderIsMissed) {
  const std::string bmp = Bmp(7, 5);
  const std::string gif = Gif(7, 5);
  const std::string jpeg = Jpeg(Frame(Baseline, 7, 5) + Scan());
  // A BMP's last line may lack the bytes that fill it up; a GIF ends with its first picture.
  for (std::size_t size = 0; size < bmp.size() - 3; ++size) {
    EXPECT_EQ(FaultOf(bmp.substr(0, size)), PictureFault::Unreadable) << size;
  }
  for (std::size_t size = 0; size < gif.size() - 1; ++size) {
    EXPECT_EQ(FaultOf(gif.substr(0, size)), PictureFault::Unreadable) << size;
  }
  for (std::size_t size = 0; size < jpeg.size(); ++size) {
    EXPECT_EQ(FaultOf(jpeg.substr(0, size)), PictureFault::Unreadable) << size;
  }
  EXPECT_EQ(FaultOf(bmp.substr(0, bmp.size() - 3)), PictureFault::None);
  EXPECT_EQ(FaultOf(gif.substr(0, gif.size() - 1)), PictureFault::None);
}

TEST(ReadPictureHeader, WhatFollowsAPictureIsNotLookedAt) {
  EXPECT_EQ(FaultOf(Bmp(7, 5) + "more"), PictureFault::None);
  EXPECT_EQ(FaultOf(Gif(7, 5) + "more"), PictureFault::None);
  EXPECT_EQ(FaultOf(Jpeg(Frame(Baseline, 7, 5) + Scan()) + "\xFF\xC0more"), PictureFault::None);
}

TEST(ReadPictureHeader, ABmpOf6000By6000IsGood) {
  const PictureHeader header = HeaderOf(Bmp(6000, 6000));
  EXPECT_EQ(header.memory, 6000U * 6000U * 4U);
}

TEST(ReadPictureHeader, OneHundredMegapixelsAreTheLimit) {
  EXPECT_EQ(FaultOf(BmpHeader(10000, 10000, 8, 1)), PictureFault::None);
  EXPECT_EQ(FaultOf(BmpHeader(10001, 10000, 8, 1)), PictureFault::TooLarge);
  EXPECT_EQ(FaultOf(Gif(10000, 10000)), PictureFault::None);
  EXPECT_EQ(FaultOf(Gif(10000, 10001)), PictureFault::TooLarge);
  EXPECT_EQ(FaultOf(Jpeg(Frame(Baseline, 10000, 10000) + Scan())), PictureFault::None);
  EXPECT_EQ(FaultOf(Jpeg(Frame(Baseline, 10001, 10000) + Scan())), PictureFault::TooLarge);
}

TEST(ReadPictureHeader, TheLargestNumbersOfEveryHeaderAreTooLarge) {
  EXPECT_EQ(FaultOf(BmpHeader(0x7FFFFFFF, 0x7FFFFFFF)), PictureFault::TooLarge);
  EXPECT_EQ(FaultOf(BmpHeader(0x80000000, 0x80000000)), PictureFault::TooLarge);
  EXPECT_EQ(FaultOf(BmpHeader(0xFFFFFFFF, 0x80000000)), PictureFault::TooLarge);
  EXPECT_EQ(FaultOf(Gif(65535, 65535)), PictureFault::TooLarge);
  EXPECT_EQ(FaultOf(Jpeg(Frame(Baseline, 65535, 65535) + Scan())), PictureFault::TooLarge);
}

TEST(ReadPictureHeader, AGifsPictureMayReachBeyondItsScreen) {
  std::string gif = Gif(7, 5);
  gif.replace(6, 4, LittleEndian(0, 4));
  ExpectHeader(gif, PictureFormat::Gif, 7, 5);
  gif.replace(20, 4, LittleEndian(0xFFFF'FFFF, 4));  // left and top
  EXPECT_EQ(FaultOf(gif), PictureFault::TooLarge);
}

TEST(ReadPictureHeader, AProgressiveJpegCountsWhatItsDecoderKeeps) {
  constexpr std::uint64_t Pixels = 4096 * 2048;
  const auto memory = [](int frame, bool halved) {
    return HeaderOf(Jpeg(Frame(frame, 4096, 2048, halved) + Scan())).memory;
  };
  EXPECT_EQ(memory(Baseline, false), Pixels * 4);
  EXPECT_NEAR(static_cast<double>(memory(Progressive, false)), Pixels * (4 + 6.0), Pixels * 0.1);
  EXPECT_NEAR(static_cast<double>(memory(Progressive, true)), Pixels * (4 + 3.0), Pixels * 0.1);
  EXPECT_EQ(FaultOf(Jpeg(Frame(Progressive, 10000, 10000) + Scan())), PictureFault::TooLarge);
  EXPECT_EQ(FaultOf(Jpeg(Frame(Progressive, 10000, 10000, true) + Scan())), PictureFault::None);
}

TEST(ReadPictureHeader, ComponentsInScansOfTheirOwnAreKeptToo) {
  const std::string single = Segment(0xDA, "\x01\x01\x00\x00\x3F\x00"s);
  EXPECT_EQ(FaultOf(Jpeg(Frame(Baseline, 10000, 10000) + Repeated(single, 3))),
            PictureFault::TooLarge);
}

TEST(ReadPictureHeader, AJpegWithTooManyScansIsTooLarge) {
  const std::string frame = Frame(Progressive, 7, 5);
  EXPECT_EQ(FaultOf(Jpeg(frame + Repeated(Scan(), MaxPictureScans))), PictureFault::None);
  EXPECT_EQ(FaultOf(Jpeg(frame + Repeated(Scan(), MaxPictureScans + 1))), PictureFault::TooLarge);
}

TEST(ReadPictureHeader, AJpegHasOneFrameAndThenAScan) {
  const std::string frame = Frame(Baseline, 7, 5);
  EXPECT_EQ(FaultOf(Jpeg("")), PictureFault::Unreadable);
  EXPECT_EQ(FaultOf(Jpeg(frame)), PictureFault::Unreadable);
  EXPECT_EQ(FaultOf(Jpeg(Scan())), PictureFault::Unreadable);
  EXPECT_EQ(FaultOf(Jpeg(Scan() + frame)), PictureFault::Unreadable);
  EXPECT_EQ(FaultOf(Jpeg(frame + Frame(Baseline, 60000, 60000) + Scan())),
            PictureFault::Unreadable);
}

TEST(ReadPictureHeader, AThumbnailWithinAJpegIsNotTheJpeg) {
  const std::string thumbnail = Segment(0xE1, Jpeg(Frame(Baseline, 1, 1) + Scan()));
  ExpectHeader(Jpeg(thumbnail + Frame(Baseline, 7, 5) + Scan()), PictureFormat::Jpeg, 7, 5);
}

TEST(ReadPictureHeader, BytesThatFillUpAndRestartsAreNoMarkers) {
  const std::string scan = Scan() + "\xFF\xD0\x11\xFF\xD7\x22";
  ExpectHeader(Jpeg("\xFF\xFF\xFF" + Frame(Baseline, 7, 5).substr(1) + "junk" + scan),
               PictureFormat::Jpeg, 7, 5);
}

}  // namespace
