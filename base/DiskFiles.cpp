#include "base/DiskFiles.h"

#include "base/DiskNames.h"
#include "base/DiskReplacement.h"
#include "base/LetterCase.h"
#include "base/Paths.h"
#include "base/SystemFile.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace {

class FolderLock : public FileLock {
 public:
  explicit FolderLock(Descriptor folder) : m_folder(std::move(folder)) {}

 private:
  Descriptor m_folder;  // closing it gives the lock back
};

}  // namespace

Text DiskFiles::Find(const Text& path) {
  if (path.empty() || NamesNoFile(path)) return {};
  const std::string name = FindOnDisk(path);
  struct stat info {};
  if (::stat(name.c_str(), &info) != 0 || S_ISDIR(info.st_mode)) return {};
  return DecodePath(name);
}

bool DiskFiles::FolderExists(const Text& path) {
  return path.empty() || (!NamesNoFile(path) && IsFolder(FindOnDisk(path)));
}

FileStatus DiskFiles::Read(const Text& path, std::string& content) {
  if (NamesNoFile(path)) return FileStatus::IllegalName;
  const std::string name = FindOnDisk(path);
  // Not blocking: a pipe under a stack's name must not hold the program up.
  const Descriptor file = OpenFile(name, O_RDONLY | O_NONBLOCK);
  if (!file.IsOpen()) return StatusForPath(name, errno);
  return ReadAll(file.Number(), content);
}

FileStatus DiskFiles::Replace(const Text& path, std::unique_ptr<FileReplacement>& replacement) {
  if (NamesNoFile(path)) return FileStatus::IllegalName;
  std::string target = FindOnDisk(path);
  if (char* const real = ::realpath(target.c_str(), nullptr)) {
    target = real;
    std::free(real);
  } else {
    target = BehindLinks(target);
  }
  return BeginReplacement(std::move(target), EncodePath(m_safePlace), replacement);
}

FileStatus DiskFiles::Remove(const Text& path) {
  if (NamesNoFile(path)) return FileStatus::IllegalName;
  const std::string name = FindOnDisk(path);
  if (IsFolder(name)) return FileStatus::PathAccess;
  if (::access(name.c_str(), W_OK) != 0 && errno != ENOENT) return StatusForPath(name, errno);
  if (::unlink(name.c_str()) != 0) return StatusForPath(name, errno);
  return FileStatus::Ok;
}

FileStatus DiskFiles::List(const Text& folder, FolderContent& content) {
  if (NamesNoFile(folder)) return FileStatus::IllegalName;
  const std::string name = FindOnDisk(folder.empty() ? Text(u".") : folder);
  DIR* const stream = ::opendir(name.c_str());
  if (stream == nullptr) {
    return errno == ENOENT ? FileStatus::PathNotFound : StatusOfSystemError(errno);
  }
  ::closedir(stream);
  content = {};
  for (const std::string& entry : NamesIn(name)) {
    if (entry.front() == '.') continue;  // hidden
    struct stat info {};
    if (::stat(std::string(name).append("/").append(entry).c_str(), &info) != 0) continue;
    (S_ISDIR(info.st_mode) ? content.folders : content.files).push_back(DecodePath(entry));
  }
  const auto byName = [](const Text& a, const Text& b) {
    const int order = UpperCase(a).compare(UpperCase(b));
    return order != 0 ? order < 0 : a < b;
  };
  std::sort(content.folders.begin(), content.folders.end(), byName);
  std::sort(content.files.begin(), content.files.end(), byName);
  return FileStatus::Ok;
}

FileStatus DiskFiles::MakeFolder(const Text& folder) {
  if (NamesNoFile(folder)) return FileStatus::IllegalName;
  return MakeFolders(EncodePath(folder));
}

std::unique_ptr<FileLock> DiskFiles::Lock(const Text& path) {
  using namespace std::chrono_literals;
  // The folder is locked, not the file: the file itself changes its identity with every rename.
  Descriptor folder = OpenFile(FolderOf(FindOnDisk(path)), O_RDONLY | O_DIRECTORY);
  if (!folder.IsOpen()) return nullptr;
  for (auto waited = 0ms; waited < 2000ms; waited += 5ms) {
    if (::flock(folder.Number(), LOCK_EX | LOCK_NB) == 0) {
      return std::make_unique<FolderLock>(std::move(folder));
    }
    if (errno != EWOULDBLOCK && errno != EINTR) return nullptr;
    std::this_thread::sleep_for(5ms);
  }
  return nullptr;
}
