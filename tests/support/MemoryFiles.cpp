#include "tests/support/MemoryFiles.h"

#include "base/CodePage.h"
#include "base/LetterCase.h"
#include "base/Paths.h"

#include <gtest/gtest.h>

class MemoryFiles::Replacement : public FileReplacement {
 public:
  Replacement(MemoryFiles& files, Text path)
      : m_files(files), m_path(std::move(path)), m_existed(files.Has(m_path)) {
    ++m_files.openReplacements;
  }
  ~Replacement() override { --m_files.openReplacements; }

  bool ReplacesExisting() const override { return m_existed; }
  FileStatus Commit(std::string_view content) override {
    if (m_files.failCommit != FileStatus::Ok) return m_files.failCommit;
    ++m_files.commits;
    m_files.m_files[m_path] = content;
    return FileStatus::Ok;
  }

 private:
  MemoryFiles& m_files;
  Text m_path;
  bool m_existed;
};

std::string MemoryFiles::Content(const Text& path) const {
  const auto file = m_files.find(path);
  EXPECT_NE(file, m_files.end()) << "no file " << ToUtf8(path);
  return file == m_files.end() ? std::string() : file->second;
}

Text MemoryFiles::Resolve(const Text& path) const {
  if (m_files.contains(path)) return path;
  Text found = path;
  int matches = 0;
  for (const auto& [name, content] : m_files) {
    if (!EqualIgnoringCase(name, path)) continue;
    found = name;
    ++matches;
  }
  return matches == 1 ? found : path;
}

Text MemoryFiles::Find(const Text& path) {
  const Text found = Resolve(path);
  return m_files.contains(found) ? found : Text();
}

bool MemoryFiles::HasFolder(const Text& path) const {
  const Text prefix = WithSeparator(path);
  if (prefix.empty() || m_folders.contains(prefix)) return true;
  const auto first = m_files.lower_bound(prefix);
  return first != m_files.end() && first->first.starts_with(prefix);
}

FileStatus MemoryFiles::Read(const Text& path, std::string& content) {
  ++reads;
  if (failRead != FileStatus::Ok) return failRead;
  const auto file = m_files.find(Resolve(path));
  if (file == m_files.end()) {
    return HasFolder(Text(FolderPart(path))) ? FileStatus::FileNotFound : FileStatus::PathNotFound;
  }
  content = file->second;
  return FileStatus::Ok;
}

FileStatus MemoryFiles::Replace(const Text& path, std::unique_ptr<FileReplacement>& replacement) {
  if (failReplace != FileStatus::Ok) return failReplace;
  replacement = std::make_unique<Replacement>(*this, Resolve(path));
  return FileStatus::Ok;
}

GroupResult MemoryFiles::ReplaceTogether(const std::vector<NewFile>& files) {
  for (const FileStatus failure : {failReplace, failCommit}) {
    if (failure != FileStatus::Ok) return {failure, 0, {}};
  }
  for (const NewFile& file : files) Put(Resolve(file.path), std::string(file.content));
  ++commits;
  return {};
}

FileFacts MemoryFiles::Look(const Text& path) {
  FileFacts facts;
  const Text found = Resolve(path);
  const auto file = m_files.find(found);
  if (file != m_files.end()) {
    facts.realPath = found;
    facts.isThere = true;
    facts.isRegular = true;
    facts.number = reinterpret_cast<std::uintptr_t>(&file->second);
  } else if (HasFolder(path)) {
    facts.realPath = WithSeparator(path);
    if (!facts.realPath.empty()) facts.realPath.pop_back();
    facts.isThere = true;
  }
  return facts;
}

FileStatus MemoryFiles::Remove(const Text& path) {
  if (failRemove != FileStatus::Ok) return failRemove;
  return m_files.erase(Resolve(path)) == 1 ? FileStatus::Ok : FileStatus::FileNotFound;
}

FileStatus MemoryFiles::List(const Text& folder, FolderContent& content) {
  if (!HasFolder(folder)) return FileStatus::PathNotFound;
  content = {};
  const Text prefix = WithSeparator(folder);
  for (const auto& [name, bytes] : m_files) {
    if (!name.starts_with(prefix)) continue;
    const Text rest = name.substr(prefix.size());
    const std::size_t separator = rest.find(u'/');
    if (separator == Text::npos) {
      content.files.push_back(rest);
    } else if (const Text part = rest.substr(0, separator);
               content.folders.empty() || content.folders.back() != part) {
      content.folders.push_back(part);
    }
  }
  return FileStatus::Ok;
}

FileStatus MemoryFiles::MakeFolder(const Text& folder) {
  m_folders.insert(WithSeparator(folder));
  return FileStatus::Ok;
}
