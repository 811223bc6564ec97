#include "study/MediaFiles.h"

#include "base/Paths.h"

#include <algorithm>

Text FindMedia(Files& files, const Text& name, TextView folder) {
  if (name.empty()) return {};
  const bool bare = std::none_of(name.begin(), name.end(), IsSeparator);
  if (bare) {
    if (Text beside = WithSeparator(folder) + name; files.Exists(beside)) return beside;
  }
  return files.Exists(name) ? name : Text();
}
