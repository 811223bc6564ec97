#pragma once

#include "base/FileStatus.h"
#include "base/Text.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// What lies under a path, links followed.
struct FileFacts {
  Text realPath;           ///< absolute and free of links
  bool isThere = false;    ///< else nothing but isLink says anything
  bool isRegular = false;  ///< a file with a content, unlike a folder, a device or a pipe
  bool isLink = false;     ///< the path itself is a link, perhaps to nothing
  std::uint64_t device = 0;
  std::uint64_t number = 0;  ///< with `device`: which file it is, whatever it is called

  bool IsSameFile(const FileFacts& other) const {
    return isThere && other.isThere && device == other.device && number == other.number;
  }
};

/// A file that is being replaced. Until Commit succeeds the target keeps its old content; an
/// unfinished replacement that is destroyed leaves no trace.
class FileReplacement {
 public:
  FileReplacement() = default;
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;
  virtual ~FileReplacement() = default;

  /// True when the target held a file when the replacement began.
  virtual bool ReplacesExisting() const = 0;

  /// Makes `content` the whole content of the target, flushed to the device. On failure the old
  /// content stands (but see Rescued). Called once.
  virtual FileStatus Commit(std::string_view content) = 0;

  /// The one case in which a failed Commit does not leave the old content: it could be neither
  /// replaced nor put back. Then the folder in which both contents lie, under names made of the
  /// file's own; else empty.
  virtual Text Rescued() const { return {}; }

  /// The file that Commit wrote; nothing before it succeeded.
  virtual FileFacts Written() const { return {}; }
};

/// Held while a file is read, changed and written back, so that a second program does not lose a
/// change in between.
class FileLock {
 public:
  FileLock() = default;
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  virtual ~FileLock() = default;
};

struct FolderContent {
  std::vector<Text> folders;  ///< names without separators, sorted without regard to letter case
  std::vector<Text> files;
};

/// What a new file may take the place of.
enum class Takes {
  Target,   ///< of the file that the path leads to, links followed; its mode is kept
  Name,     ///< of whatever file or link is called so: a link is replaced, never written through
  FreeName  ///< of nothing: a name that is there, if only since a moment, is FileAlreadyExists
};

/// One of several files that are written together. The content stays the caller's.
struct NewFile {
  Text path;  ///< as the disk has it: neither letter case nor separators are searched for
  std::string_view content;
  Takes takes = Takes::Target;
};

/// How writing several files together ended.
struct GroupResult {
  FileStatus status = FileStatus::Ok;
  std::size_t failed = 0;       ///< index of the file that could not be written
  std::vector<Text> notUndone;  ///< what could not be put back as it was, after a failure
};

/// The file system as the program uses it. A path is found under its exact name first, else under
/// the one name that differs in letter case only, part by part; both separators are understood.
class Files {
 public:
  virtual ~Files() = default;

  /// The path under which a file (no folder) is there, which may differ from `path` in letter case
  /// and separators; empty when there is none.
  virtual Text Find(const Text& path) = 0;

  bool Exists(const Text& path) { return !Find(path).empty(); }

  /// Reads a whole file. `content` is meaningless after a failure. A file above 256 MiB, which no
  /// stack can be, fails with OutOfMemory, and so does one that the memory does not hold.
  virtual FileStatus Read(const Text& path, std::string& content) = 0;

  /// Begins to replace a file, or to make one: finds out at once what can go wrong before the
  /// content is known. A symbolic link is followed, the file's mode is kept.
  virtual FileStatus Replace(const Text& path, std::unique_ptr<FileReplacement>& replacement) = 0;

  /// Writes all of the files or none: every content lies on the disk before the first one takes its
  /// place, and what was there is put back when a later one cannot. What a file may take the place
  /// of, it says itself (Takes). The folders must take new files.
  virtual GroupResult ReplaceTogether(const std::vector<NewFile>& files) = 0;

  virtual FileStatus Remove(const Text& path) = 0;

  /// What the path leads to. Nothing is opened; what cannot be looked at counts as not there.
  virtual FileFacts Look(const Text& path) = 0;

  virtual FileStatus List(const Text& folder, FolderContent& content) = 0;

  /// Makes a folder and those above it; one that is there already is no failure.
  virtual FileStatus MakeFolder(const Text& folder) = 0;

  /// Waits for the lock on a file that need not exist, for two seconds at most: then, or when the
  /// file system knows no locks, the caller goes on without.
  virtual std::unique_ptr<FileLock> Lock(const Text& path) = 0;
};
