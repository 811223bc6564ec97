#pragma once

#include "windows/study/PictureDecoder.h"
#include "windows/study/PictureTime.h"

#include <chrono>
#include <memory>
#include <string>
#include <utility>

/// Reads and decodes picture files in a thread of its own, one at a time.
class PictureLoader {
 public:
  explicit PictureLoader(PictureTime time = {}) : m_time(std::move(time)) {}
  PictureLoader(const PictureLoader&) = delete;
  PictureLoader& operator=(const PictureLoader&) = delete;
  ~PictureLoader();

  /// Begins with a file; one that is under way is given up. See DecodePictureFile.
  void Start(const std::string& path, QSize bounds);
  void Cancel();

  /// From Start until the result was taken, or Cancel.
  bool IsLoading() const { return m_job != nullptr; }

  /// What has passed since Start; zero when nothing is loading.
  std::chrono::nanoseconds Age() const;

  /// Waits for the result, at most so long, and takes it.
  /// @return false when there is none yet
  bool Take(std::chrono::milliseconds wait, DecodedPicture& picture);

 private:
  struct Job;

  PictureTime m_time;
  std::shared_ptr<Job> m_job;   // null when nothing is wanted
  std::shared_ptr<Job> m_last;  // the last thread's, which may not have ended yet
};
