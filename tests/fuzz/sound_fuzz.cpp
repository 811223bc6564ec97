#include "tests/fuzz/Require.h"
#include "windows/study/SoundFile.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <sys/mman.h>

namespace {

constexpr std::int64_t Quick = 1'000'000;  // samples; reading more tells nothing new

void CheckSamples(SoundFile& sound) {
  const std::int64_t most = std::int64_t{sound.Rate()} * sound.Channels() * SoundFile::MaxSeconds;
  std::int64_t count = 0;
  for (;;) {
    const std::span<const float> samples = sound.Read();
    if (samples.empty()) break;
    for (const float sample : samples) REQUIRE(sample >= -1 && sample <= 1);
    count += std::ssize(samples);
    REQUIRE(count <= most);
    if (count > Quick) break;
  }
}

}  // namespace

// The bytes are a sound file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const Descriptor file(memfd_create("sound", MFD_CLOEXEC));
  REQUIRE(file.IsOpen() && WriteAll(file.Number(), bytes) == FileStatus::Ok);
  SoundFile sound("/proc/self/fd/" + std::to_string(file.Number()));
  if (!sound.IsOpen()) return 0;
  REQUIRE(bytes.starts_with("RIFF") || bytes.starts_with("RIFX"));
  REQUIRE(bytes.substr(8).starts_with("WAVE"));
  REQUIRE(sound.Rate() >= 1000 && sound.Rate() <= 200000);
  REQUIRE(sound.Channels() >= 1 && sound.Channels() <= 8);
  CheckSamples(sound);
  return 0;
}
