#include "base/DiskNames.h"

#include "base/LetterCase.h"
#include "base/Paths.h"
#include "base/SystemFile.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <dirent.h>
#include <sys/stat.h>

namespace {

constexpr int MaxLinks = 40;  // as many as the system itself follows

/// True for the errors that say that no other name can be found in a folder: it is not there, or
/// may not be looked into.
bool HidesNothing(int errorNumber) {
  return errorNumber == ENOENT || errorNumber == ENOTDIR || errorNumber == EACCES ||
         errorNumber == ELOOP || errorNumber == ENAMETOOLONG;
}

/// Puts the one name in `folder` that equals `name` but for letter case into its place; `name`
/// stays when there are none or several.
FileStatus FindCaseVariant(const std::string& folder, std::string& name) {
  std::vector<std::string> candidates;
  const int errorNumber = NamesIn(folder, candidates);
  if (errorNumber != 0 && !HidesNothing(errorNumber)) return StatusOfSystemError(errorNumber);
  const Text wanted = DecodePath(name);
  const auto isVariant = [&](const std::string& candidate) {
    return EqualIgnoringCase(DecodePath(candidate), wanted);
  };
  const auto first = std::find_if(candidates.begin(), candidates.end(), isVariant);
  if (first == candidates.end()) return FileStatus::Ok;
  if (std::none_of(first + 1, candidates.end(), isVariant)) name = *first;
  return FileStatus::Ok;
}

bool IsThere(const std::string& path) {
  struct stat info {};
  return ::lstat(path.c_str(), &info) == 0;
}

}  // namespace

bool NamesNoFile(TextView path) { return path.find(u'\0') != TextView::npos; }

int NamesIn(const std::string& folder, std::vector<std::string>& names) {
  names.clear();
  DIR* const stream = ::opendir(folder.c_str());
  if (stream == nullptr) return errno;
  errno = 0;
  while (const dirent* const entry = ::readdir(stream)) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
    errno = 0;
  }
  const int errorNumber = errno;
  ::closedir(stream);
  return errorNumber;
}

FileStatus FindOnDisk(const Text& path, std::string& found) {
  const std::string exact = EncodePath(path);
  found = exact;
  if (exact.empty() || IsThere(exact)) return FileStatus::Ok;
  std::string resolved;
  std::string part;
  const auto addPart = [&] {
    if (part.empty()) return FileStatus::Ok;
    if (!IsThere(resolved + part)) {
      const FileStatus status = FindCaseVariant(resolved.empty() ? "." : resolved, part);
      if (status != FileStatus::Ok) return status;
    }
    resolved += std::exchange(part, {});
    return FileStatus::Ok;
  };
  for (const char byte : exact) {
    if (byte != '/' && byte != '\\') {
      part += byte;
      continue;
    }
    if (const FileStatus status = addPart(); status != FileStatus::Ok) return status;
    if (!resolved.ends_with('/')) resolved += '/';
  }
  if (const FileStatus status = addPart(); status != FileStatus::Ok) return status;
  found = resolved;
  return FileStatus::Ok;
}

FileStatus FollowLinks(std::string& path) {
  std::array<char, PATH_MAX> link{};
  for (int links = 0; links < MaxLinks; ++links) {
    const ssize_t length = ::readlink(path.c_str(), link.data(), link.size());
    // "Invalid" is what is there but is no link.
    if (length < 0 && errno != EINVAL && errno != ENOENT) return StatusForPath(path, errno);
    if (length <= 0) break;
    const std::string next(link.data(), static_cast<std::size_t>(length));
    path = next.starts_with('/') ? next : FolderOf(path).append("/").append(next);
  }
  return FileStatus::Ok;
}

bool RealPath(std::string& path) {
  char* const real = ::realpath(path.c_str(), nullptr);
  if (real == nullptr) return false;
  path = real;
  std::free(real);
  return true;
}

FileStatus FollowToTarget(std::string& path) {
  return RealPath(path) ? FileStatus::Ok : FollowLinks(path);
}

FileFacts FactsOf(const std::string& name) {
  FileFacts facts;
  struct stat info {};
  if (::lstat(name.c_str(), &info) != 0) return facts;
  facts.isLink = S_ISLNK(info.st_mode);
  std::string real = name;
  if (!RealPath(real) || ::lstat(real.c_str(), &info) != 0) return facts;
  facts.realPath = DecodePath(real);
  facts.isThere = true;
  facts.isRegular = S_ISREG(info.st_mode);
  facts.device = info.st_dev;
  facts.number = info.st_ino;
  return facts;
}
