#pragma once

#include "base/FileStatus.h"
#include "base/Files.h"
#include "base/Text.h"
#include "cards/SaveRecord.h"
#include "cards/StackOrigin.h"

#include <memory>
#include <utility>

/// A stack file that is being written. The lines are kept until Close, which replaces the file as a
/// whole; an object that goes without Close leaves the file as it was.
class StackFile {
 public:
  /// @param path    of the file, as it is found on disk
  /// @param record  told how the save ends, unless it is null
  StackFile(std::unique_ptr<FileReplacement> replacement, Text path, SaveRecord* record = nullptr)
      : m_replacement(std::move(replacement)), m_path(std::move(path)), m_record(record) {}

  /// A CR or LF in a one-line value would shift every card of the file, so it becomes a blank.
  void WriteHeader(TextView topicName, TextView description);
  void WriteLine(TextView line) { m_content.append(line).append(LineBreak); }

  /// Encodes one side, front and back in turn, and writes its line; `text` changes as
  /// EncodeSideLine says. `OutOfMemory` where there is none left for it, here and in Close.
  FileStatus WriteSide(Text& text, TextView soundPath, TextView picturePath);

  /// @param origin  becomes this file and what it now holds; after a failure it stays
  FileStatus Close(StackOrigin& origin);

  /// Gives up after a failure. A file that was there keeps its content; under a new name the cards
  /// written so far stay, for they may be the only copy. A front without its back goes: it would
  /// keep the file from being loaded.
  void Abandon();

 private:
  std::unique_ptr<FileReplacement> m_replacement;
  Text m_path;
  SaveRecord* m_record;
  Text m_content;
  bool m_frontAlone = false;     // the last line is a front whose back is still missing
  std::size_t m_wholeCards = 0;  // where that line begins
};
