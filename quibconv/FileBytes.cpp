#include "quibconv/FileBytes.h"

#include "base/CodePage.h"

#include <algorithm>
#include <fmt/format.h>

namespace {

constexpr char EndMark = 26;

bool IsOpenCode(unsigned char byte) {
  return byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
}

/// The number of the program's line in which `at` stands: where there is any CR LF, only that ends
/// a line.
int LineOf(std::string_view bytes, std::size_t at, bool crLf) {
  int line = 1;
  for (std::size_t end = bytes.find('\n'); end < at; end = bytes.find('\n', end + 1)) {
    if (!crLf || (end > 0 && bytes[end - 1] == '\r')) ++line;
  }
  return line;
}

void CheckEncoding(std::string_view bytes, bool crLf, Findings& findings) {
  const bool plain = std::all_of(bytes.begin(), bytes.end(),
                                 [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
  if (plain || EncodingOf(bytes) == FileEncoding::MarkedUtf8) return;
  if (bytes.starts_with(Utf8Mark)) {
    const std::size_t bad = ValidUtf8Length(bytes);
    findings.push_back(Found(FindingKind::Encoding, LineOf(bytes, bad, crLf),
                             fmt::format("marked as UTF-8, but byte {} is none; the program reads "
                                         "the whole file as Windows-1252",
                                         bad + 1)));
    return;
  }
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    findings.push_back(
        Found(FindingKind::Encoding, 1, "marked as UTF-16; the program reads it as Windows-1252"));
    return;
  }
  const auto isHigh = [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; };
  if (ValidUtf8Length(bytes) == bytes.size()) {
    const auto first =
        static_cast<std::size_t>(std::find_if(bytes.begin(), bytes.end(), isHigh) - bytes.begin());
    findings.push_back(Found(FindingKind::Encoding, LineOf(bytes, first, crLf),
                             "looks like UTF-8 without its mark; the program reads it as "
                             "Windows-1252, and such letters turn out wrong"));
    return;
  }
  const auto open = std::find_if(bytes.begin(), bytes.end(), [](char byte) {
    return IsOpenCode(static_cast<unsigned char>(byte));
  });
  if (open == bytes.end()) return;
  const auto at = static_cast<std::size_t>(open - bytes.begin());
  findings.push_back(Found(FindingKind::Encoding, LineOf(bytes, at, crLf),
                           fmt::format("byte {} stands for no letter in Windows-1252, as which the "
                                       "program reads the file",
                                       static_cast<unsigned char>(*open))));
}

void CheckControlCharacters(std::string_view bytes, bool crLf, Findings& findings) {
  if (bytes.ends_with(EndMark)) bytes.remove_suffix(1);
  const auto isControl = [](char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return (code < ' ' && code != '\r' && code != '\n' && code != '\t') || code == 0x7F;
  };
  const auto first = std::find_if(bytes.begin(), bytes.end(), isControl);
  if (first == bytes.end()) return;
  const auto count = std::count_if(first, bytes.end(), isControl);
  findings.push_back(Found(FindingKind::ControlCharacter,
                           LineOf(bytes, static_cast<std::size_t>(first - bytes.begin()), crLf),
                           fmt::format("{} control character{}, the first is byte {:#04x}", count,
                                       count == 1 ? "" : "s", static_cast<unsigned char>(*first))));
}

}  // namespace

LineEndCounts CountLineEnds(std::string_view bytes) {
  LineEndCounts counts;
  const bool hasCrLf = bytes.find("\r\n") != std::string_view::npos;
  int line = 1;
  for (std::size_t at = bytes.find_first_of("\r\n"); at != std::string_view::npos;
       at = bytes.find_first_of("\r\n", at + 1)) {
    if (bytes.substr(at, 2) == "\r\n") {
      ++counts.crLf;
      ++line;
      ++at;
    } else if (bytes[at] == '\n') {
      if (counts.lf++ == 0) counts.firstLf = line;
      if (!hasCrLf) ++line;
    } else if (counts.cr++ == 0) {
      counts.firstCr = line;
    }
  }
  return counts;
}

std::string LineEndWords(const LineEndCounts& counts) {
  std::string words;
  const auto add = [&](int count, std::string_view name) {
    if (count > 0) words.append(words.empty() ? "" : " and ").append(name);
  };
  add(counts.crLf, "CR LF");
  add(counts.lf, "LF");
  add(counts.cr, "CR");
  return words.empty() ? "none" : words;
}

void CheckBytes(std::string_view bytes, Findings& findings) {
  const LineEndCounts ends = CountLineEnds(bytes);
  const bool crLf = ends.crLf > 0;
  CheckEncoding(bytes, crLf, findings);
  CheckControlCharacters(bytes, crLf, findings);
  if (crLf && ends.lf > 0) {
    findings.push_back(
        Found(FindingKind::LineEnds, ends.firstLf,
              fmt::format("{} of {} line ends are LF alone; beside CR LF they end no "
                          "line, and stay in the texts",
                          ends.lf, ends.lf + ends.crLf)));
  }
  if (ends.cr > 0) {
    findings.push_back(
        Found(FindingKind::LineEnds, ends.firstCr,
              fmt::format("{} CR without LF; it ends no line, and stays in the text", ends.cr)));
  }
}
