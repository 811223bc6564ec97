#pragma once

#include "base/Files.h"

/// The real file system, through POSIX calls. A file is replaced through a temporary file in its
/// own folder and a rename. Where the folder refuses that, the new content goes to `safePlace`
/// first and the file is then overwritten where it stands; what is in `safePlace` is removed once
/// that worked, or once the old content was put back.
class DiskFiles : public Files {
 public:
  /// @param safePlace  folder for copies made before a file is overwritten in place
  explicit DiskFiles(Text safePlace) : m_safePlace(std::move(safePlace)) {}

  Text Find(const Text& path) override;
  FileStatus Read(const Text& path, std::string& content) override;
  FileStatus Replace(const Text& path, std::unique_ptr<FileReplacement>& replacement) override;
  GroupResult ReplaceTogether(const std::vector<NewFile>& files) override;
  FileStatus Remove(const Text& path) override;
  FileFacts Look(const Text& path) override;
  FileStatus List(const Text& folder, FolderContent& content) override;
  FileStatus MakeFolder(const Text& folder) override;
  std::unique_ptr<FileLock> Lock(const Text& path) override;

 private:
  Text m_safePlace;
};
