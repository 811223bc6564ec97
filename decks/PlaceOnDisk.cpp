#include "decks/PlaceOnDisk.h"

#include "base/Paths.h"

Text FolderOnDisk(Files& files, const Text& path) {
  const Text folder(FolderPart(path));
  if (folder.empty()) return folder;
  const FileFacts facts = files.Look(folder);
  return facts.isThere ? WithSeparator(facts.realPath) : folder;
}

Text PlaceOnDisk(Files& files, const Text& path) {
  const FileFacts facts = files.Look(path);
  if (facts.isThere && !facts.isLink) return facts.realPath;
  return FolderOnDisk(files, path).append(BaseName(path));
}
