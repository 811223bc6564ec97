#pragma once

#include "base/Files.h"

#include <map>
#include <set>

/// What lies in the folders of stacks; each folder is listed once.
class MediaFolders {
 public:
  enum class Presence {
    There,
    OtherCase,  ///< under a name that differs in letter case: the program finds it
    Ambiguous,  ///< several names that differ in letter case: the program takes none
    Missing,
  };

  explicit MediaFolders(Files& files) : m_files(files) {}

  /// Looks for a picture or sound as the program does.
  /// @param folder  ends in a separator, or is empty for the current one
  /// @param found   receives the name on disk where it is OtherCase
  Presence Look(TextView folder, TextView name, Text& found);

 private:
  struct Names {
    std::set<Text> exact;
    std::multimap<Text, Text> folded;  ///< in capital letters, with the names on disk
  };
  const Names& NamesOf(TextView folder);

  Files& m_files;
  std::map<Text, Names> m_folders;
};
