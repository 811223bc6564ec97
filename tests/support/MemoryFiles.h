#pragma once

#include "base/Files.h"

#include <map>
#include <set>

/// A file system in memory, with failures on demand. Folders exist where a file lies in them or
/// where they were made; names are found as on the real one, letter case last.
class MemoryFiles : public Files {
 public:
  void Put(const Text& path, std::string content) { m_files[path] = std::move(content); }
  bool Has(const Text& path) const { return m_files.contains(path); }
  /// The content under the exact path; fails the test when there is none.
  std::string Content(const Text& path) const;

  /// From now on, the operation on any file ends with this status.
  FileStatus failRead = FileStatus::Ok;
  FileStatus failReplace = FileStatus::Ok;
  FileStatus failCommit = FileStatus::Ok;
  FileStatus failRemove = FileStatus::Ok;

  int reads = 0;
  int commits = 0;
  int openReplacements = 0;

  Text Find(const Text& path) override;
  FileStatus Read(const Text& path, std::string& content) override;
  FileStatus Replace(const Text& path, std::unique_ptr<FileReplacement>& replacement) override;
  GroupResult ReplaceTogether(const std::vector<NewFile>& files) override;
  FileStatus Remove(const Text& path) override;
  /// Paths are as real as they are; a file is told by where its content lies.
  FileFacts Look(const Text& path) override;
  FileStatus List(const Text& folder, FolderContent& content) override;
  FileStatus MakeFolder(const Text& folder) override;
  std::unique_ptr<FileLock> Lock(const Text&) override { return nullptr; }

 private:
  class Replacement;
  Text Resolve(const Text& path) const;
  bool HasFolder(const Text& path) const;

  std::map<Text, std::string> m_files;
  std::set<Text> m_folders;
};
