#include "convert/Finding.h"

#include "base/CodePage.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t LongestQuote = 40;

char16_t VisibleUnit(char16_t unit) {
  if (unit < u' ') return static_cast<char16_t>(0x2400 + unit);  // the signs for control codes
  if (unit == 0x7F) return 0x2421;
  const bool otherControl = unit >= 0x80 && unit < 0xA0;
  // Marks that turn the direction of writing would mix up a whole report.
  const bool direction = (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
  return otherControl || direction ? 0xFFFD : unit;
}

}  // namespace

std::string_view KindName(FindingKind kind) {
  switch (kind) {
    case FindingKind::Unreadable:
      return "unreadable";
    case FindingKind::Malformed:
      return "malformed";
    case FindingKind::ExtraCards:
      return "extra-cards";
    case FindingKind::LongText:
      return "long-text";
    case FindingKind::Caret:
      return "caret";
    case FindingKind::MediaWord:
      return "media-word";
    case FindingKind::MediaName:
      return "media-name";
    case FindingKind::MissingMedia:
      return "missing-media";
    case FindingKind::MediaCase:
      return "media-case";
    case FindingKind::Topic:
      return "topic";
    case FindingKind::Description:
      return "description";
    case FindingKind::TrailingBlanks:
      return "trailing-blanks";
    case FindingKind::LineEnds:
      return "line-ends";
    case FindingKind::Encoding:
      return "encoding";
    case FindingKind::ControlCharacter:
      return "control-character";
    case FindingKind::EmptyCard:
      return "empty-card";
    case FindingKind::IgnoredLine:
      return "ignored-line";
    case FindingKind::UnequalSides:
      return "unequal-sides";
    case FindingKind::LostField:
      return "lost-field";
    case FindingKind::ChangedText:
      return "changed-text";
    case FindingKind::Remark:
      break;
  }
  return "remark";
}

std::string_view SeverityName(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return "error";
    case Severity::Finding:
      return "finding";
    case Severity::Remark:
      break;
  }
  return "remark";
}

Finding Found(FindingKind kind, int line, std::string message) {
  return FoundAt(kind, line, 0, -1, std::move(message));
}

Finding Failed(FindingKind kind, int line, std::string message) {
  Finding finding = Found(kind, line, std::move(message));
  finding.severity = Severity::Error;
  return finding;
}

Finding Remarked(int line, std::string message) {
  Finding finding = Found(FindingKind::Remark, line, std::move(message));
  finding.severity = Severity::Remark;
  return finding;
}

Finding FoundAt(FindingKind kind, int line, int card, int side, std::string message) {
  return {kind, Severity::Finding, line, card, side, std::move(message)};
}

Severity WorstOf(const Findings& findings) {
  Severity worst = Severity::Remark;
  for (const Finding& finding : findings) worst = std::max(worst, finding.severity);
  return worst;
}

void SortByLine(Findings& findings) {
  std::stable_sort(findings.begin(), findings.end(),
                   [](const Finding& a, const Finding& b) { return a.line < b.line; });
}

std::string Printable(TextView text) {
  Text visible = ReplaceAll(text, LineBreak, u"\u23CE");
  std::transform(visible.begin(), visible.end(), visible.begin(), VisibleUnit);
  return ToUtf8(visible);
}

std::string Quoted(TextView text) {
  const TextView cut = CutText(text, LongestQuote);
  return "“" + Printable(cut) + (cut.size() < text.size() ? "…”" : "”");
}
