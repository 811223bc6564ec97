#include "base/DiskFiles.h"

#include "base/DiskGroup.h"
#include "base/DiskNames.h"
#include "base/DiskReplacement.h"
#include "base/LetterCase.h"
#include "base/Paths.h"
#include "base/SystemFile.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <new>
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
  std::string name;
  struct stat info {};
  if (path.empty() || NamesNoFile(path) || FindOnDisk(path, name) != FileStatus::Ok) return {};
  if (::stat(name.c_str(), &info) != 0 || S_ISDIR(info.st_mode)) return {};
  return DecodePath(name);
}

FileStatus DiskFiles::Read(const Text& path, std::string& content) try {
  if (NamesNoFile(path)) return FileStatus::IllegalName;
  std::string name;
  if (const FileStatus status = FindOnDisk(path, name); status != FileStatus::Ok) return status;
  // Not blocking: a pipe under a stack's name must not hold the program up.
  const Descriptor file = OpenFile(name, O_RDONLY | O_NONBLOCK);
  if (!file.IsOpen()) return StatusForPath(name, errno);
  return ReadAll(file.Number(), content);
} catch (const std::bad_alloc&) {
  return FileStatus::OutOfMemory;
}

FileStatus DiskFiles::Replace(const Text& path, std::unique_ptr<FileReplacement>& replacement) try {
  if (NamesNoFile(path)) return FileStatus::IllegalName;
  std::string target;
  FileStatus status = FindOnDisk(path, target);
  if (status != FileStatus::Ok) return status;
  if (status = FollowToTarget(target); status != FileStatus::Ok) return status;
  return BeginReplacement(std::move(target), EncodePath(m_safePlace), replacement);
} catch (const std::bad_alloc&) {  // the old content is read where the folder takes no new file
  return FileStatus::OutOfMemory;
}

GroupResult DiskFiles::ReplaceTogether(const std::vector<NewFile>& files) {
  return ReplaceGroup(files);
}

FileFacts DiskFiles::Look(const Text& path) {
  std::string name;
  if (NamesNoFile(path) || FindOnDisk(path.empty() ? Text(u".") : path, name) != FileStatus::Ok) {
    return {};
  }
  return FactsOf(name);
}

FileStatus DiskFiles::Remove(const Text& path) {
  if (NamesNoFile(path)) return FileStatus::IllegalName;
  std::string name;
  if (const FileStatus status = FindOnDisk(path, name); status != FileStatus::Ok) return status;
  if (IsFolder(name)) return FileStatus::PathAccess;
  if (::access(name.c_str(), W_OK) != 0 && errno != ENOENT) return StatusForPath(name, errno);
  if (::unlink(name.c_str()) != 0) return StatusForPath(name, errno);
  return FileStatus::Ok;
}

FileStatus DiskFiles::List(const Text& folder, FolderContent& content) {
  if (NamesNoFile(folder)) return FileStatus::IllegalName;
  std::string name;
  const FileStatus status = FindOnDisk(folder.empty() ? Text(u".") : folder, name);
  if (status != FileStatus::Ok) return status;
  std::vector<std::string> entries;
  if (const int errorNumber = NamesIn(name, entries); errorNumber != 0) {
    return errorNumber == ENOENT ? FileStatus::PathNotFound : StatusOfSystemError(errorNumber);
  }
  content = {};
  for (const std::string& entry : entries) {
    if (entry.front() == '.') continue;  // hidden
    struct stat info {};
    // A link to nothing is no file; what else cannot be looked at is shown, and says why when it is
    // opened.
    const bool known = ::stat(std::string(name).append("/").append(entry).c_str(), &info) == 0;
    if (!known && (errno == ENOENT || errno == ENOTDIR || errno == ELOOP)) continue;
    (known && S_ISDIR(info.st_mode) ? content.folders : content.files).push_back(DecodePath(entry));
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
  std::string name;
  if (FindOnDisk(path, name) != FileStatus::Ok) return nullptr;
  Descriptor folder = OpenFile(FolderOf(name), O_RDONLY | O_DIRECTORY);
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
