#include "base/Paths.h"

#include "base/CodePage.h"

namespace {

constexpr char16_t ForeignByte = 0xDC00;  // a lone second unit: no valid UTF-8 decodes to it

bool IsForeignByte(char16_t unit) {
  return unit >= ForeignByte + 0x80 && unit <= ForeignByte + 0xFF;
}

/// The marks that embed, override or isolate a direction of writing, and the ends of line and
/// paragraph.
bool DisturbsALine(char16_t unit) {
  return (unit >= 0x2028 && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
}

std::size_t FolderLength(TextView path) {
  std::size_t length = path.size();
  while (length > 0 && !IsSeparator(path[length - 1])) --length;
  return length;
}

}  // namespace

TextView BaseName(TextView path) { return path.substr(FolderLength(path)); }

TextView FolderPart(TextView path) { return path.substr(0, FolderLength(path)); }

Text WithSeparator(TextView folder) {
  Text result(folder);
  if (!result.empty() && !IsSeparator(result.back())) result += u'/';
  return result;
}

bool LiesIn(TextView inner, TextView folder) {
  const Text prefix = WithSeparator(folder);
  return inner == folder || TextView(inner).starts_with(prefix);
}

Text ShownName(TextView name) {
  constexpr char16_t FirstControlPicture = 0x2400;
  constexpr char16_t DeletePicture = 0x2421;
  constexpr char16_t Unknown = 0xFFFD;
  Text shown(name);
  for (char16_t& unit : shown) {
    if (unit < 0x20) {
      unit = static_cast<char16_t>(FirstControlPicture + unit);
    } else if (unit == 0x7F) {
      unit = DeletePicture;
    } else if ((unit >= 0x80 && unit < 0xA0) || DisturbsALine(unit)) {
      unit = Unknown;
    }
  }
  return shown;
}

Text DecodePath(std::string_view bytes) {
  Text path;
  while (!bytes.empty()) {
    const std::size_t valid = ValidUtf8Length(bytes);
    path += FromUtf8(bytes.substr(0, valid));
    bytes.remove_prefix(valid);
    if (bytes.empty()) break;
    path += static_cast<char16_t>(ForeignByte + static_cast<unsigned char>(bytes.front()));
    bytes.remove_prefix(1);
  }
  return path;
}

std::string EncodePath(TextView path) {
  std::string bytes;
  std::size_t start = 0;
  for (std::size_t i = 0; i < path.size(); ++i) {
    const bool secondOfPair = i > 0 && (path[i - 1] & 0xFC00) == 0xD800;
    if (!IsForeignByte(path[i]) || secondOfPair) continue;
    bytes += ToUtf8(path.substr(start, i - start));
    bytes += static_cast<char>(path[i] - ForeignByte);
    start = i + 1;
  }
  return bytes + ToUtf8(path.substr(start));
}
