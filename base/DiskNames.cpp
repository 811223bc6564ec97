#include "base/DiskNames.h"

#include "base/LetterCase.h"
#include "base/Paths.h"
#include "base/SystemFile.h"

#include <array>
#include <climits>
#include <dirent.h>
#include <optional>
#include <sys/stat.h>

namespace {

constexpr int MaxLinks = 40;  // as many as the system itself follows

/// The one name in `folder` that equals `name` but for letter case; nothing when there are none or
/// several.
std::optional<std::string> CaseVariant(const std::string& folder, const std::string& name) {
  const Text wanted = DecodePath(name);
  std::optional<std::string> found;
  for (std::string& candidate : NamesIn(folder)) {
    if (!EqualIgnoringCase(DecodePath(candidate), wanted)) continue;
    if (found) return std::nullopt;
    found = std::move(candidate);
  }
  return found;
}

bool IsThere(const std::string& path) {
  struct stat info {};
  return ::lstat(path.c_str(), &info) == 0;
}

}  // namespace

bool NamesNoFile(TextView path) { return path.find(u'\0') != TextView::npos; }

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  DIR* const stream = ::opendir(folder.c_str());
  if (stream == nullptr) return names;
  while (const dirent* const entry = ::readdir(stream)) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  ::closedir(stream);
  return names;
}

std::string FindOnDisk(const Text& path) {
  std::string exact = EncodePath(path);
  if (exact.empty() || IsThere(exact)) return exact;
  std::string resolved;
  std::string part;
  const auto addPart = [&] {
    if (part.empty()) return;
    if (!IsThere(resolved + part)) {
      const std::string folder = resolved.empty() ? "." : resolved;
      part = CaseVariant(folder, part).value_or(part);
    }
    resolved += std::exchange(part, {});
  };
  for (const char byte : exact) {
    if (byte != '/' && byte != '\\') {
      part += byte;
      continue;
    }
    addPart();
    if (!resolved.ends_with('/')) resolved += '/';
  }
  addPart();
  return resolved;
}

std::string BehindLinks(std::string path) {
  std::array<char, PATH_MAX> link{};
  for (int links = 0; links < MaxLinks; ++links) {
    const ssize_t length = ::readlink(path.c_str(), link.data(), link.size());
    if (length <= 0) break;
    const std::string next(link.data(), static_cast<std::size_t>(length));
    path = next.starts_with('/') ? next : FolderOf(path).append("/").append(next);
  }
  return path;
}
