#include "base/DiskReplacement.h"

#include "base/DiskNames.h"
#include "base/SystemFile.h"

#include <climits>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

namespace {

/// A new, empty file beside `target`, hidden, under a name of its own.
Descriptor MakeTemporary(const std::string& folder, std::string& path) {
  return Descriptor(Uninterrupted([&] {
    path = folder + "/.quib-XXXXXX";
    return ::mkostemp(path.data(), O_CLOEXEC);
  }));
}

/// Removes the temporary files of programs that were killed during a save. A save takes seconds;
/// one that began an hour ago is nobody's any more.
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
  const Descriptor handle = OpenFile(folder, O_RDONLY | O_DIRECTORY);
  if (handle.IsOpen()) (void)Flush(handle.Number());
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
    RemoveLeftovers(FolderOf(m_target));
    FlushFolder(FolderOf(m_target));
    return FileStatus::Ok;
  }

 private:
  void KeepModeAndOwner() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    // Only the owner of everything may give files away; otherwise the file is the writer's.
    if (m_old) {
      (void)Uninterrupted([&] { return ::fchown(m_file.Number(), m_old->st_uid, m_old->st_gid); });
    }
    const mode_t mode = m_old ? m_old->st_mode & 07777 : 0666 & ~mask;
    (void)Uninterrupted([&] { return ::fchmod(m_file.Number(), mode); });
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
    const auto length = static_cast<off_t>(content.size());
    if (Uninterrupted([&] { return ::ftruncate(m_file.Number(), length); }) != 0) {
      return StatusOfSystemError(errno);
    }
    return Flush(m_file.Number());
  }

  Descriptor m_file;
  std::string m_oldContent;
  std::string m_safePlace;
};

}  // namespace

FileStatus BeginReplacement(std::string target, const std::string& safePlace,
                            std::unique_ptr<FileReplacement>& replacement) {
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
  }
  if (target.size() - (target.rfind('/') + 1) > NAME_MAX) return FileStatus::IllegalName;

  std::string temporary;
  Descriptor file = MakeTemporary(FolderOf(target), temporary);
  if (file.IsOpen()) {
    replacement = std::make_unique<RenamingReplacement>(std::move(target), old,
                                                        std::move(temporary), std::move(file));
    return FileStatus::Ok;
  }
  const FileStatus refusal = StatusForPath(target, errno);
  if (!old) return refusal;

  Descriptor inPlace = OpenFile(target, O_RDWR | O_NONBLOCK);
  if (!inPlace.IsOpen()) return StatusForPath(target, errno);
  std::string content;
  if (const FileStatus status = ReadAll(inPlace.Number(), content); status != FileStatus::Ok) {
    return status;
  }
  if (MakeFolders(safePlace) != FileStatus::Ok) return refusal;
  replacement =
      std::make_unique<OverwritingReplacement>(std::move(inPlace), std::move(content), safePlace);
  return FileStatus::Ok;
}
