#include "quibconv/StackFolders.h"

#include "base/LetterCase.h"
#include "base/Paths.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

bool IsStackName(TextView name) {
  const TextView extension = name.substr(name.size() - std::min<std::size_t>(name.size(), 4));
  return EqualIgnoringCase(extension, u".QBC") || EqualIgnoringCase(extension, u".QBS");
}

void Walk(const std::filesystem::path& folder, std::vector<Text>& stacks,
          std::vector<FolderTrouble>& troubles) {
  std::error_code error;
  std::vector<std::filesystem::path> below;
  for (auto entry = std::filesystem::directory_iterator(folder, error);
       !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    std::error_code ignored;
    if (name.starts_with('.')) continue;
    if (entry->is_directory(ignored)) {
      if (!entry->is_symlink(ignored)) below.push_back(entry->path());
    } else if (const Text decoded = DecodePath(name); IsStackName(decoded)) {
      stacks.push_back(DecodePath(entry->path().string()));
    }
  }
  if (error) troubles.push_back({DecodePath(folder.string()), StatusOfSystemError(error.value())});
  for (const std::filesystem::path& path : below) Walk(path, stacks, troubles);
}

}  // namespace

std::vector<Text> StacksBelow(const Text& folder, std::vector<FolderTrouble>& troubles) {
  std::vector<Text> stacks;
  Walk(EncodePath(folder), stacks, troubles);
  std::sort(stacks.begin(), stacks.end());
  return stacks;
}
