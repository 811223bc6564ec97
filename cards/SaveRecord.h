#pragma once

#include "cards/StackOrigin.h"

#include <vector>

/// What the saves of this run did, for the words of later questions and messages.
struct SaveRecord {
  /// Notes a file that was saved, in place of what was saved there before.
  void Note(const StackOrigin& file);

  /// True when the file at `path` still holds what this run saved there last.
  bool IsOurs(const Text& path, const FileFacts& file, std::string_view content) const;

  /// After a save that left a torn file: the folder in which its old and its new content lie. Empty
  /// after any other.
  Text rescueFolder;

 private:
  std::vector<StackOrigin> m_saved;  // one for each file
};
