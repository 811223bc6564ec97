#pragma once

#include "base/SystemFile.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

struct sf_private_tag;

/// A .wav file, decoded piece by piece: PCM, floating point, ADPCM, A-law, mu-law, GSM 6.10.
class SoundFile {
 public:
  /// Every window waits for a sound to end; one that is longer is not meant for a card.
  static constexpr int MaxSeconds = 600;

  /// Opens the file under that path. Left closed is what is no regular file, does not begin as a
  /// .wav file does, whatever its name, is longer than MaxSeconds, or of no use.
  explicit SoundFile(const std::string& path);

  bool IsOpen() const { return m_file != nullptr; }
  int Rate() const { return m_rate; }          ///< samples a second in each channel, 1000..200000
  int Channels() const { return m_channels; }  ///< 1..8

  /// The next samples, -1 to 1, the channels taking turns; nothing at the end. They stay valid
  /// until the next call.
  std::span<const float> Read();

 private:
  struct Closer {
    void operator()(sf_private_tag* file) const;
  };
  Descriptor m_descriptor;  // outlives what reads from it
  std::unique_ptr<sf_private_tag, Closer> m_file;
  std::int64_t m_left = 0;  // samples, over all channels, that may still be read
  int m_rate = 0;
  int m_channels = 0;
  std::vector<float> m_samples;
};
