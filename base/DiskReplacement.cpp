#include "base/DiskReplacement.h"

#include "base/DiskNames.h"
#include "base/Paths.h"
#include "base/RescueCopy.h"
#include "base/SystemFile.h"
#include "base/TemporaryFile.h"

#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

namespace {

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
    const FileStatus status = FillTemporary(m_file, content, m_old);
    if (status != FileStatus::Ok) return status;
    if (::rename(m_temporary.c_str(), m_target.c_str()) != 0) {
      return StatusForPath(m_target, errno);
    }
    m_temporary.clear();
    RemoveLeftovers(FolderOf(m_target));
    FlushFolder(FolderOf(m_target));
    m_written = FactsOf(m_target);
    return FileStatus::Ok;
  }

  FileFacts Written() const override { return m_written; }

 private:
  std::string m_target;
  std::optional<struct stat> m_old;
  std::string m_temporary;
  Descriptor m_file;
  FileFacts m_written;
};

/// Overwrites a file whose folder takes no new file. Both contents lie in the safe place before the
/// first byte changes, and stay there when neither could be written whole.
class OverwritingReplacement : public FileReplacement {
 public:
  OverwritingReplacement(std::string target, Descriptor file, std::string old,
                         std::string safePlace)
      : m_target(std::move(target)),
        m_file(std::move(file)),
        m_oldContent(std::move(old)),
        m_safePlace(std::move(safePlace)) {}

  bool ReplacesExisting() const override { return true; }

  FileStatus Commit(std::string_view content) override {
    std::string oldCopy;
    std::string newCopy;
    const std::string name = m_target.substr(m_target.rfind('/') + 1);
    FileStatus status = WriteCopy(m_safePlace, name, "old", m_oldContent, oldCopy);
    if (status != FileStatus::Ok) return status;
    status = WriteCopy(m_safePlace, name, "new", content, newCopy);
    bool whole = true;
    if (status == FileStatus::Ok) {
      status = Overwrite(content);
      whole = status == FileStatus::Ok || Overwrite(m_oldContent) == FileStatus::Ok;
      if (whole) ::unlink(newCopy.c_str());
    }
    if (whole) {
      ::unlink(oldCopy.c_str());
    } else {
      m_rescued = DecodePath(m_safePlace);
    }
    if (status == FileStatus::Ok) m_written = FactsOf(m_target);
    return status;
  }

  Text Rescued() const override { return m_rescued; }
  FileFacts Written() const override { return m_written; }

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

  std::string m_target;
  Descriptor m_file;
  std::string m_oldContent;
  std::string m_safePlace;
  Text m_rescued;
  FileFacts m_written;
};

}  // namespace

FileStatus BeginReplacement(std::string target, const std::string& safePlace,
                            std::unique_ptr<FileReplacement>& replacement) {
  std::optional<struct stat> old;
  if (const FileStatus status = LookAtTarget(target, old); status != FileStatus::Ok) return status;

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
  replacement = std::make_unique<OverwritingReplacement>(std::move(target), std::move(inPlace),
                                                         std::move(content), safePlace);
  return FileStatus::Ok;
}
