#pragma once

#include "base/FileStatus.h"

#include <cerrno>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <unistd.h>
#include <utility>

// The system's calls for files, as the rest of this folder uses them. Paths are bytes here.

/// Makes a call again for as long as signals interrupt it.
template <class Call>
auto Uninterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result >= 0 || errno != EINTR) return result;
  }
}

/// A file descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : m_number(number) {}
  Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(m_number, other.m_number);
    return *this;
  }
  ~Descriptor() { (void)Close(); }

  int Number() const { return m_number; }
  bool IsOpen() const { return m_number >= 0; }

  /// A full disk may show only here.
  FileStatus Close() {
    const int number = std::exchange(m_number, -1);
    if (number >= 0 && ::close(number) != 0 && errno != EINTR) return StatusOfSystemError(errno);
    return FileStatus::Ok;
  }

 private:
  int m_number;
};

/// Opens a file; the result is not open when the system refuses, and errno says why.
Descriptor OpenFile(const std::string& path, int flags);

/// The folder of a path, "." for a bare name.
std::string FolderOf(const std::string& path);

bool IsFolder(const std::string& path);

/// The status of the operation on `path` that has just failed: the missing file and the missing
/// folder, which share one errno, are told apart.
FileStatus StatusForPath(const std::string& path, int errorNumber);

FileStatus WriteAll(int file, std::string_view content);

/// Waits until what was written is on the device.
FileStatus Flush(int file);

/// Reads a regular file whole; a folder, a device and a file of more than 256 MiB fail, and so does
/// one that ends early: its first part must not pass for the whole.
FileStatus ReadAll(int file, std::string& content);

/// Makes a folder and those above it; one that is there already is no failure.
FileStatus MakeFolders(const std::string& path);
