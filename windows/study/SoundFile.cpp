#include "windows/study/SoundFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fcntl.h>
#include <iterator>
#include <sndfile.h>
#include <string_view>
#include <sys/stat.h>

namespace {

constexpr std::size_t FramesAtOnce = 4096;

/// False for what only claims to be a sound: no device plays at such a rate.
bool IsPlayable(const SF_INFO& info) {
  const int container = info.format & SF_FORMAT_TYPEMASK;
  return (container == SF_FORMAT_WAV || container == SF_FORMAT_WAVEX) && info.samplerate >= 1000 &&
         info.samplerate <= 200000 && info.channels >= 1 && info.channels <= 8 &&
         info.frames <= sf_count_t{info.samplerate} * SoundFile::MaxSeconds;
}

/// The library knows many formats by their content; none but this one is to be read.
bool BeginsAsWav(int file) {
  std::array<char, 12> start{};
  if (::pread(file, start.data(), start.size(), 0) != ssize_t{start.size()}) return false;
  const std::string_view text(start.data(), start.size());
  return (text.starts_with("RIFF") || text.starts_with("RIFX")) && text.ends_with("WAVE");
}

bool IsRegular(int file) {
  struct stat info {};
  return ::fstat(file, &info) == 0 && S_ISREG(info.st_mode);
}

/// Floating point files may hold anything; what is no number becomes silence.
float Audible(float sample) { return std::isnan(sample) ? 0 : std::clamp(sample, -1.0F, 1.0F); }

}  // namespace

void SoundFile::Closer::operator()(SNDFILE* file) const { sf_close(file); }

SoundFile::SoundFile(const std::string& path)
    // Not blocking: a pipe under a sound's name would wait for its other end.
    : m_descriptor(OpenFile(path, O_RDONLY | O_NONBLOCK)) {
  const int file = m_descriptor.Number();
  if (!m_descriptor.IsOpen() || !IsRegular(file) || !BeginsAsWav(file)) return;
  SF_INFO info{};
  m_file.reset(sf_open_fd(file, SFM_READ, &info, SF_FALSE));
  if (m_file == nullptr) return;
  if (!IsPlayable(info)) {
    m_file.reset();
    return;
  }
  m_rate = info.samplerate;
  m_channels = info.channels;
  // The number of frames is the file's word, and for some codings a guess.
  m_left = std::int64_t{m_rate} * m_channels * MaxSeconds;
  m_samples.resize(FramesAtOnce * static_cast<std::size_t>(m_channels));
}

std::span<const float> SoundFile::Read() {
  const sf_count_t wanted = std::min<sf_count_t>(std::ssize(m_samples), m_left);
  const sf_count_t count =
      std::clamp<sf_count_t>(sf_read_float(m_file.get(), m_samples.data(), wanted), 0, wanted);
  m_left -= count;
  const std::span samples(m_samples.data(), static_cast<std::size_t>(count));
  std::transform(samples.begin(), samples.end(), samples.begin(), Audible);
  return samples;
}
