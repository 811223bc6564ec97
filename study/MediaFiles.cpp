#include "study/MediaFiles.h"

#include "base/Paths.h"

#include <algorithm>

Text FindMedia(Files& files, const Text& name, TextView folder) {
  if (name.empty()) return {};
  const bool bare = std::none_of(name.begin(), name.end(), IsSeparator);
  if (bare) {
    if (Text beside = files.Find(WithSeparator(folder) + name); !beside.empty()) return beside;
  }
  return files.Find(name);
}
