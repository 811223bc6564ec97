#pragma once

#include "windows/study/PictureDecoder.h"

#include <chrono>
#include <memory>
#include <string>

/// Reads and decodes picture files in a thread of its own, one at a time.
class PictureLoader {
 public:
  /// What a picture may take from Start on; it is left out then.
  static constexpr std::chrono::milliseconds TimeLimit{5000};

  explicit PictureLoader(std::chrono::milliseconds timeLimit = TimeLimit)
      : m_timeLimit(timeLimit) {}
  PictureLoader(const PictureLoader&) = delete;
  PictureLoader& operator=(const PictureLoader&) = delete;
  ~PictureLoader();

  /// Begins with a file; one that is under way is given up. See DecodePictureFile.
  void Start(const std::string& path, QSize bounds);
  void Cancel();

  /// From Start until the result was taken, or Cancel.
  bool IsLoading() const { return m_job != nullptr; }

  /// Waits for the result, at most so long, and takes it.
  /// @return false when there is none yet
  bool Take(std::chrono::milliseconds wait, DecodedPicture& picture);

 private:
  struct Job;

  std::chrono::milliseconds m_timeLimit;
  std::shared_ptr<Job> m_job;   // null when nothing is wanted
  std::shared_ptr<Job> m_last;  // the last thread's, which may not have ended yet
};
