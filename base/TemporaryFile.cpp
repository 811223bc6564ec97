#include "base/TemporaryFile.h"

#include "base/DiskNames.h"

#include <climits>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <vector>

Descriptor MakeTemporary(const std::string& folder, std::string& path) {
  return Descriptor(Uninterrupted([&] {
    path = folder + "/.quib-XXXXXX";
    return ::mkostemp(path.data(), O_CLOEXEC);
  }));
}

FileStatus WriteTemporary(const std::string& folder, std::string_view content, std::string& path) {
  Descriptor file = MakeTemporary(folder, path);
  if (!file.IsOpen()) return StatusOfSystemError(errno);
  FileStatus status = WriteAll(file.Number(), content);
  if (status == FileStatus::Ok) status = Flush(file.Number());
  if (const FileStatus closed = file.Close(); status == FileStatus::Ok) status = closed;
  if (status != FileStatus::Ok) ::unlink(path.c_str());
  return status;
}

FileStatus FillTemporary(Descriptor& file, std::string_view content,
                         const std::optional<struct stat>& old) {
  FileStatus status = WriteAll(file.Number(), content);
  const mode_t mask = ::umask(0);
  ::umask(mask);
  // Only the owner of everything may give files away; otherwise the file is the writer's.
  if (old) {
    (void)Uninterrupted([&] { return ::fchown(file.Number(), old->st_uid, old->st_gid); });
  }
  const mode_t mode = old ? old->st_mode & 07777 : 0666 & ~mask;
  (void)Uninterrupted([&] { return ::fchmod(file.Number(), mode); });
  if (status == FileStatus::Ok) status = Flush(file.Number());
  if (const FileStatus closed = file.Close(); status == FileStatus::Ok) status = closed;
  return status;
}

void RemoveLeftovers(const std::string& folder) {
  constexpr std::string_view Prefix = ".quib-";
  constexpr std::time_t Hour = 3600;
  std::vector<std::string> names;
  (void)NamesIn(folder, names);  // what was not listed waits for the next save
  for (const std::string& name : names) {
    if (!name.starts_with(Prefix) || name.size() != Prefix.size() + 6) continue;
    const std::string path = std::string(folder).append("/").append(name);
    struct stat info {};
    const bool old = ::lstat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) &&
                     info.st_mtime < std::time(nullptr) - Hour;
    if (old) ::unlink(path.c_str());
  }
}

void FlushFolder(const std::string& folder) {
  const Descriptor handle = OpenFile(folder, O_RDONLY | O_DIRECTORY);
  if (handle.IsOpen()) (void)Flush(handle.Number());
}

FileStatus LookAtTarget(const std::string& target, std::optional<struct stat>& old) {
  struct stat info {};
  old.reset();
  if (::stat(target.c_str(), &info) == 0) {
    if (S_ISDIR(info.st_mode)) return FileStatus::PathAccess;
    if (!S_ISREG(info.st_mode)) return FileStatus::DeviceUnavailable;
    // A rename would replace a write-protected file without a word.
    if (::access(target.c_str(), W_OK) != 0) return StatusForPath(target, errno);
    old = info;
  } else if (errno != ENOENT) {
    return StatusForPath(target, errno);
  }
  const bool tooLong = target.size() - (target.rfind('/') + 1) > NAME_MAX;
  return tooLong ? FileStatus::IllegalName : FileStatus::Ok;
}
