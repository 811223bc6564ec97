#include "base/SystemFile.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace {

constexpr off_t LargestFile = off_t{256} << 20;
constexpr mode_t AnyoneMay = 0666;  // less what the user's mask takes away

}  // namespace

Descriptor OpenFile(const std::string& path, int flags) {
  return Descriptor(
      Uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, AnyoneMay); }));
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

bool IsFolder(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

FileStatus StatusForPath(const std::string& path, int errorNumber) {
  const bool pathTooDeep = errorNumber == ENAMETOOLONG && !IsFolder(FolderOf(path));
  if (pathTooDeep || (errorNumber == ENOENT && !IsFolder(FolderOf(path)))) {
    return FileStatus::PathNotFound;
  }
  return StatusOfSystemError(errorNumber);
}

FileStatus WriteAll(int file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written =
        Uninterrupted([&] { return ::write(file, content.data(), content.size()); });
    if (written < 0) return StatusOfSystemError(errno);
    if (written == 0) return FileStatus::DeviceError;  // asking again could go on for ever
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return FileStatus::Ok;
}

FileStatus Flush(int file) {
  const bool flushed = Uninterrupted([&] { return ::fsync(file); }) == 0;
  return flushed || errno == EINVAL ? FileStatus::Ok : StatusOfSystemError(errno);
}

FileStatus ReadAll(int file, std::string& content) {
  struct stat info {};
  if (::fstat(file, &info) != 0) return StatusOfSystemError(errno);
  if (S_ISDIR(info.st_mode)) return FileStatus::PathAccess;
  if (!S_ISREG(info.st_mode)) return FileStatus::DeviceUnavailable;
  if (info.st_size > LargestFile) return FileStatus::OutOfMemory;
  content.resize(static_cast<std::size_t>(info.st_size));
  std::size_t filled = 0;
  while (filled < content.size()) {
    const ssize_t got = Uninterrupted(
        [&] { return ::read(file, content.data() + filled, content.size() - filled); });
    if (got < 0) return StatusOfSystemError(errno);
    if (got == 0) return FileStatus::DeviceError;  // somebody is writing it
    filled += static_cast<std::size_t>(got);
  }
  return FileStatus::Ok;
}

FileStatus MakeFolders(const std::string& path) {
  for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
    const std::string part = path.substr(0, end);
    if (::mkdir(part.c_str(), 0777) != 0) {
      const int errorNumber = errno;
      if (!IsFolder(part)) return StatusForPath(part, errorNumber);
    }
    if (end == std::string::npos) return FileStatus::Ok;
  }
}
