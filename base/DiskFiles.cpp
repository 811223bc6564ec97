#include "base/DiskFiles.h"

#include "base/LetterCase.h"
#include "base/Paths.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

constexpr off_t LargestFile = off_t{256} << 20;
constexpr int MaxLinks = 40;  // as many as the system itself follows

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

Descriptor Open(const std::string& path, int flags, mode_t mode = 0666) {
  int number = -1;
  do {
    number = ::open(path.c_str(), flags | O_CLOEXEC, mode);
  } while (number < 0 && errno == EINTR);
  return Descriptor(number);
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

/// The status of the operation on `path` that has just failed: the missing file and the missing
/// folder, which share one errno, are told apart.
FileStatus StatusForPath(const std::string& path, int errorNumber) {
  const bool pathTooDeep = errorNumber == ENAMETOOLONG && !IsFolder(FolderOf(path));
  if (pathTooDeep || (errorNumber == ENOENT && !IsFolder(FolderOf(path)))) {
    return FileStatus::PathNotFound;
  }
  return StatusOfSystemError(errorNumber);
}

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  DIR* const stream = ::opendir(folder.c_str());
  if (stream == nullptr) return names;
  while (const dirent* const entry = ::readdir(stream)) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  ::closedir(stream);
  return names;
}

/// The one name in `folder` that equals `name` but for letter case; nothing when there are none or
/// several.
std::optional<std::string> CaseVariant(const std::string& folder, const std::string& name) {
  const Text wanted = DecodePath(name);
  std::optional<std::string> found;
  for (std::string& candidate : NamesIn(folder)) {
    if (!EqualIgnoringCase(DecodePath(candidate), wanted)) continue;
    if (found) return std::nullopt;
    found = std::move(candidate);
  }
  return found;
}

bool IsThere(const std::string& path) {
  struct stat info {};
  return ::lstat(path.c_str(), &info) == 0;
}

/// A name with a null character would reach the system cut there, as the name of another file.
bool NamesNoFile(TextView path) { return path.find(u'\0') != TextView::npos; }

/// The name under which `path` is found on disk; where some part is not there, that part and the
/// rest as given.
std::string Resolve(const Text& path) {
  std::string exact = EncodePath(path);
  if (exact.empty() || IsThere(exact)) return exact;
  std::string resolved;
  std::string part;
  const auto addPart = [&] {
    if (part.empty()) return;
    if (!IsThere(resolved + part)) {
      const std::string folder = resolved.empty() ? "." : resolved;
      part = CaseVariant(folder, part).value_or(part);
    }
    resolved += std::exchange(part, {});
  };
  for (const char byte : exact) {
    if (byte != '/' && byte != '\\') {
      part += byte;
      continue;
    }
    addPart();
    if (!resolved.ends_with('/')) resolved += '/';
  }
  addPart();
  return resolved;
}

/// Where a link to a file that is not there yet leads; `path` itself when it is no link.
std::string BehindLinks(std::string path) {
  std::array<char, PATH_MAX> link{};
  for (int links = 0; links < MaxLinks; ++links) {
    const ssize_t length = ::readlink(path.c_str(), link.data(), link.size());
    if (length <= 0) break;
    const std::string next(link.data(), static_cast<std::size_t>(length));
    path = next.starts_with('/') ? next : FolderOf(path).append("/").append(next);
  }
  return path;
}

FileStatus WriteAll(int file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(file, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return StatusOfSystemError(errno);
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return FileStatus::Ok;
}

FileStatus Flush(int file) {
  return ::fsync(file) == 0 || errno == EINVAL ? FileStatus::Ok : StatusOfSystemError(errno);
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
    const ssize_t got = ::read(file, content.data() + filled, content.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return StatusOfSystemError(errno);
    if (got == 0) break;  // the file became shorter meanwhile
    filled += static_cast<std::size_t>(got);
  }
  content.resize(filled);
  return FileStatus::Ok;
}

/// A new, empty file beside `target`, hidden, under a name of its own.
Descriptor MakeTemporary(const std::string& folder, std::string& path) {
  path = folder + "/.quib-XXXXXX";
  return Descriptor(::mkostemp(path.data(), O_CLOEXEC));
}

/// Writes `content` under a new name in `folder`, flushed.
FileStatus WriteTemporary(const std::string& folder, std::string_view content, std::string& path) {
  Descriptor file = MakeTemporary(folder, path);
  if (!file.IsOpen()) return StatusOfSystemError(errno);
  FileStatus status = WriteAll(file.Number(), content);
  if (status == FileStatus::Ok) status = Flush(file.Number());
  if (const FileStatus closed = file.Close(); status == FileStatus::Ok) status = closed;
  if (status != FileStatus::Ok) ::unlink(path.c_str());
  return status;
}

/// After a rename the folder itself must reach the disk; a file system that cannot is not asked.
void FlushFolder(const std::string& folder) {
  const Descriptor handle = Open(folder, O_RDONLY | O_DIRECTORY);
  if (handle.IsOpen()) (void)::fsync(handle.Number());
}

/// Replaces through a temporary file in the target's own folder.
class RenamingReplacement : public FileReplacement {
 public:
  RenamingReplacement(std::string target, std::optional<struct stat> old, std::string temporary,
                      Descriptor file)
      : m_target(std::move(target)),
        m_old(old),
        m_temporary(std::move(temporary)),
        m_file(std::move(file)) {}
  ~RenamingReplacement() override {
    if (!m_temporary.empty()) ::unlink(m_temporary.c_str());
  }

  bool ReplacesExisting() const override { return m_old.has_value(); }

  FileStatus Commit(std::string_view content) override {
    FileStatus status = WriteAll(m_file.Number(), content);
    KeepModeAndOwner();
    if (status == FileStatus::Ok) status = Flush(m_file.Number());
    if (const FileStatus closed = m_file.Close(); status == FileStatus::Ok) status = closed;
    if (status != FileStatus::Ok) return status;
    if (::rename(m_temporary.c_str(), m_target.c_str()) != 0) {
      return StatusForPath(m_target, errno);
    }
    m_temporary.clear();
    FlushFolder(FolderOf(m_target));
    return FileStatus::Ok;
  }

 private:
  void KeepModeAndOwner() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    if (m_old && ::fchown(m_file.Number(), m_old->st_uid, m_old->st_gid) != 0) {
      // Only the owner of everything may give files away; then the file is the writer's.
    }
    (void)::fchmod(m_file.Number(), m_old ? m_old->st_mode & 07777 : 0666 & ~mask);
  }

  std::string m_target;
  std::optional<struct stat> m_old;
  std::string m_temporary;
  Descriptor m_file;
};

/// Overwrites a file whose folder takes no new file. Both contents lie in the safe place before the
/// first byte changes, and stay there when neither could be written whole.
class OverwritingReplacement : public FileReplacement {
 public:
  OverwritingReplacement(Descriptor file, std::string old, std::string safePlace)
      : m_file(std::move(file)), m_oldContent(std::move(old)), m_safePlace(std::move(safePlace)) {}

  bool ReplacesExisting() const override { return true; }

  FileStatus Commit(std::string_view content) override {
    std::string oldCopy;
    std::string newCopy;
    FileStatus status = WriteTemporary(m_safePlace, m_oldContent, oldCopy);
    if (status != FileStatus::Ok) return status;
    status = WriteTemporary(m_safePlace, content, newCopy);
    bool whole = true;
    if (status == FileStatus::Ok) {
      status = Overwrite(content);
      whole = status == FileStatus::Ok || Overwrite(m_oldContent) == FileStatus::Ok;
      if (whole) ::unlink(newCopy.c_str());
    }
    if (whole) ::unlink(oldCopy.c_str());
    return status;
  }

 private:
  FileStatus Overwrite(std::string_view content) {
    if (::lseek(m_file.Number(), 0, SEEK_SET) < 0) return StatusOfSystemError(errno);
    const FileStatus status = WriteAll(m_file.Number(), content);
    if (status != FileStatus::Ok) return status;
    if (::ftruncate(m_file.Number(), static_cast<off_t>(content.size())) != 0) {
      return StatusOfSystemError(errno);
    }
    return Flush(m_file.Number());
  }

  Descriptor m_file;
  std::string m_oldContent;
  std::string m_safePlace;
};

class FolderLock : public FileLock {
 public:
  explicit FolderLock(Descriptor folder) : m_folder(std::move(folder)) {}

 private:
  Descriptor m_folder;  // closing it gives the lock back
};

}  // namespace

Text DiskFiles::Find(const Text& path) {
  if (path.empty() || NamesNoFile(path)) return {};
  const std::string name = Resolve(path);
  struct stat info {};
  if (::stat(name.c_str(), &info) != 0 || S_ISDIR(info.st_mode)) return {};
  return DecodePath(name);
}

bool DiskFiles::FolderExists(const Text& path) {
  return path.empty() || (!NamesNoFile(path) && IsFolder(Resolve(path)));
}

FileStatus DiskFiles::Read(const Text& path, std::string& content) {
  if (NamesNoFile(path)) return FileStatus::IllegalName;
  const std::string name = Resolve(path);
  // Not blocking: a pipe under a stack's name must not hold the program up.
  const Descriptor file = Open(name, O_RDONLY | O_NONBLOCK);
  if (!file.IsOpen()) return StatusForPath(name, errno);
  return ReadAll(file.Number(), content);
}

FileStatus DiskFiles::Replace(const Text& path, std::unique_ptr<FileReplacement>& replacement) {
  if (NamesNoFile(path)) return FileStatus::IllegalName;
  std::string target = Resolve(path);
  if (char* const real = ::realpath(target.c_str(), nullptr)) {
    target = real;
    std::free(real);
  }
  struct stat info {};
  std::optional<struct stat> old;
  if (::stat(target.c_str(), &info) == 0) {
    old = info;
    if (S_ISDIR(info.st_mode)) return FileStatus::PathAccess;
    if (!S_ISREG(info.st_mode)) return FileStatus::DeviceUnavailable;
    // A rename would replace a write-protected file without a word.
    if (::access(target.c_str(), W_OK) != 0) return StatusForPath(target, errno);
  } else if (errno != ENOENT) {
    return StatusForPath(target, errno);
  } else {
    target = BehindLinks(target);
  }
  if (BaseName(DecodePath(target)).size() > NAME_MAX) return FileStatus::IllegalName;

  std::string temporary;
  Descriptor file = MakeTemporary(FolderOf(target), temporary);
  if (file.IsOpen()) {
    replacement = std::make_unique<RenamingReplacement>(std::move(target), old,
                                                        std::move(temporary), std::move(file));
    return FileStatus::Ok;
  }
  const FileStatus refusal = StatusForPath(target, errno);
  if (!old) return refusal;

  Descriptor inPlace = Open(target, O_RDWR | O_NONBLOCK);
  if (!inPlace.IsOpen()) return StatusForPath(target, errno);
  std::string content;
  if (const FileStatus status = ReadAll(inPlace.Number(), content); status != FileStatus::Ok) {
    return status;
  }
  if (MakeFolder(m_safePlace) != FileStatus::Ok) return refusal;
  replacement = std::make_unique<OverwritingReplacement>(std::move(inPlace), std::move(content),
                                                         EncodePath(m_safePlace));
  return FileStatus::Ok;
}

FileStatus DiskFiles::Remove(const Text& path) {
  if (NamesNoFile(path)) return FileStatus::IllegalName;
  const std::string name = Resolve(path);
  if (IsFolder(name)) return FileStatus::PathAccess;
  if (::access(name.c_str(), W_OK) != 0 && errno != ENOENT) return StatusForPath(name, errno);
  if (::unlink(name.c_str()) != 0) return StatusForPath(name, errno);
  return FileStatus::Ok;
}

FileStatus DiskFiles::List(const Text& folder, FolderContent& content) {
  if (NamesNoFile(folder)) return FileStatus::IllegalName;
  const std::string name = Resolve(folder.empty() ? Text(u".") : folder);
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
  const std::string path = EncodePath(folder);
  for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
    const std::string part = path.substr(0, end);
    if (::mkdir(part.c_str(), 0777) != 0) {
      const int errorNumber = errno;
      if (!IsFolder(part)) return StatusForPath(part, errorNumber);
    }
    if (end == std::string::npos) return FileStatus::Ok;
  }
}

std::unique_ptr<FileLock> DiskFiles::Lock(const Text& path) {
  using namespace std::chrono_literals;
  // The folder is locked, not the file: the file itself changes its identity with every rename.
  Descriptor folder = Open(FolderOf(Resolve(path)), O_RDONLY | O_DIRECTORY);
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
