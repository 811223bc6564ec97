#include "study/SoundFile.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sndfile.h>
#include <system_error>

namespace {

constexpr std::size_t FramesAtOnce = 4096;

/// False for what only claims to be a sound: no device plays at such a rate.
bool IsPlayable(const SF_INFO& info) {
  const int container = info.format & SF_FORMAT_TYPEMASK;
  return (container == SF_FORMAT_WAV || container == SF_FORMAT_WAVEX) && info.samplerate >= 1000 &&
         info.samplerate <= 200000 && info.channels >= 1 && info.channels <= 8;
}

/// Floating point files may hold anything; what is no number becomes silence.
float Audible(float sample) { return std::isnan(sample) ? 0 : std::clamp(sample, -1.0F, 1.0F); }

}  // namespace

void SoundFile::Closer::operator()(SNDFILE* file) const { sf_close(file); }

SoundFile::SoundFile(const std::string& path) {
  // Opening a pipe would wait for its other end.
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return;
  SF_INFO info{};
  m_file.reset(sf_open(path.c_str(), SFM_READ, &info));
  if (m_file == nullptr) return;
  if (!IsPlayable(info)) {
    m_file.reset();
    return;
  }
  m_rate = info.samplerate;
  m_channels = info.channels;
  m_samples.resize(FramesAtOnce * static_cast<std::size_t>(m_channels));
}

std::span<const float> SoundFile::Read() {
  const auto wanted = static_cast<sf_count_t>(m_samples.size());
  const sf_count_t count =
      std::clamp<sf_count_t>(sf_read_float(m_file.get(), m_samples.data(), wanted), 0, wanted);
  const std::span samples(m_samples.data(), static_cast<std::size_t>(count));
  std::transform(samples.begin(), samples.end(), samples.begin(), Audible);
  return samples;
}
