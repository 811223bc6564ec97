#include "base/RescueCopy.h"

#include "base/SystemFile.h"

#include <climits>
#include <fcntl.h>
#include <utility>

namespace {

constexpr mode_t OwnerOnly = 0600;

/// A file name as the beginning and the extension of another one: short enough for what is put in
/// between, and not cut within a character.
std::pair<std::string, std::string> Parts(const std::string& fileName) {
  constexpr std::size_t Longest = NAME_MAX - 40;
  constexpr std::size_t LongestExtension = 16;
  const std::size_t dot = fileName.rfind('.');
  const bool extended =
      dot != std::string::npos && dot > 0 && fileName.size() - dot <= LongestExtension;
  std::string stem = extended ? fileName.substr(0, dot) : fileName;
  if (stem.size() > Longest) {
    std::size_t end = Longest;
    while (end > 0 && (static_cast<unsigned char>(stem[end]) & 0xC0) == 0x80) --end;
    stem.resize(end);
  }
  return {stem, extended ? fileName.substr(dot) : std::string()};
}

}  // namespace

FileStatus WriteCopy(const std::string& folder, const std::string& fileName, std::string_view mark,
                     std::string_view content, std::string& path) {
  constexpr int MostCopies = 1000;
  const auto [stem, extension] = Parts(fileName);
  Descriptor file;
  for (int number = 1; !file.IsOpen() && number <= MostCopies; ++number) {
    path = folder + "/" + stem + " (" + std::string(mark);
    if (number > 1) path += " " + std::to_string(number);
    path += ")" + extension;
    file = Descriptor(Uninterrupted(
        [&] { return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, OwnerOnly); }));
    if (!file.IsOpen() && errno != EEXIST) break;
  }
  if (!file.IsOpen()) return StatusOfSystemError(errno);
  FileStatus status = WriteAll(file.Number(), content);
  if (status == FileStatus::Ok) status = Flush(file.Number());
  if (const FileStatus closed = file.Close(); status == FileStatus::Ok) status = closed;
  if (status != FileStatus::Ok) ::unlink(path.c_str());
  return status;
}
