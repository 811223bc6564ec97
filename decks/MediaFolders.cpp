#include "decks/MediaFolders.h"

#include "base/LetterCase.h"
#include "base/Paths.h"

#include <iterator>

const MediaFolders::Names& MediaFolders::NamesOf(TextView folder) {
  const auto [place, isNew] = m_folders.try_emplace(Text(folder));
  if (!isNew) return place->second;
  FolderContent content;
  if (m_files.List(Text(folder), content) == FileStatus::Ok) {
    for (const Text& name : content.files) {
      place->second.exact.insert(name);
      place->second.folded.emplace(UpperCase(name), name);
    }
  }
  return place->second;
}

MediaFolders::Presence MediaFolders::Look(TextView folder, TextView name, Text& found) {
  if (BaseName(name) != name) {
    const Text path = Text(folder).append(name);
    found = m_files.Find(path);
    if (found.empty()) return Presence::Missing;
    return found == path ? Presence::There : Presence::OtherCase;
  }
  const Names& names = NamesOf(folder);
  if (names.exact.contains(Text(name))) return Presence::There;
  const auto [first, last] = names.folded.equal_range(UpperCase(name));
  if (first == last) return Presence::Missing;
  if (std::next(first) != last) return Presence::Ambiguous;
  found = first->second;
  return Presence::OtherCase;
}
