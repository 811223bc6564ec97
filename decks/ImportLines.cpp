#include "decks/ImportLines.h"

#include "base/LetterCase.h"
#include "cards/FileLines.h"

#include <algorithm>
#include <fmt/format.h>

namespace {

/// True for a line that looks as if it were a front or a back.
bool LooksLikeImportData(TextView line) {
  line = TrimBlanks(line);
  if (line.empty() || UpperCase(line.substr(0, 1)).find_first_of(u"QA") != 0) return false;
  const std::size_t equals = line.find_first_not_of(u"0123456789", 1);
  return equals != TextView::npos && equals > 1 && line[equals] == u'=';
}

}  // namespace

void ListIgnoredImportLines(std::string_view bytes, const std::vector<int>& heard,
                            Findings& findings) {
  FileLines lines(bytes);
  Text line;
  while (lines.Read(line) == FileStatus::Ok) {
    const bool used = std::binary_search(heard.begin(), heard.end(), lines.LineNumber());
    if (used || !LooksLikeImportData(line)) continue;
    findings.push_back(
        Found(FindingKind::IgnoredLine, lines.LineNumber(),
              fmt::format("{} is skipped: not the next number of its side, or behind "
                          "the last card that is read",
                          Quoted(line))));
  }
}
