#include "decks/Finding.h"

#include "base/CodePage.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace {

constexpr std::size_t LongestQuote = 40;

char16_t VisibleUnit(char16_t unit) {
  if (unit < u' ') return static_cast<char16_t>(0x2400 + unit);  // the signs for control codes
  if (unit == 0x7F) return 0x2421;
  const bool otherControl = unit >= 0x80 && unit < 0xA0;
  // Marks that turn the direction of writing would mix up a whole report.
  const bool direction = (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
  // Nobody sees these, and two of them turn the direction as well.
  const bool unseen =
      unit == 0x200B || unit == 0x200E || unit == 0x200F || unit == 0x061C || unit == 0xFEFF;
  const bool breaksLine = unit == 0x2028 || unit == 0x2029;
  return otherControl || direction || unseen || breaksLine ? 0xFFFD : unit;
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

Finding NoCards() { return Failed(FindingKind::Malformed, 0, "no cards in it"); }

Finding Remarked(int line, std::string message) {
  Finding finding = Found(FindingKind::Remark, line, std::move(message));
  finding.severity = Severity::Remark;
  return finding;
}

Finding FoundAt(FindingKind kind, int line, int card, int side, std::string message) {
  return {kind, Severity::Finding, line, card, side, std::move(message)};
}

void Findings::push_back(Finding finding) {
  std::size_t& count = m_counts[static_cast<std::size_t>(finding.kind)];
  const bool kept = finding.severity == Severity::Error || ++count <= MostOfAKind;
  if (kept) m_list.push_back(std::move(finding));
}

void Findings::Append(const Findings& others) {
  for (const Finding& finding : others) push_back(finding);
  CountOnly(others);
}

void Findings::CountOnly(const Findings& others) {
  for (std::size_t kind = 0; kind < Kinds; ++kind) {
    m_counts[kind] += others.CountedOnly(static_cast<FindingKind>(kind));
  }
}

std::size_t Findings::CountedOnly(FindingKind kind) const {
  const std::size_t count = m_counts[static_cast<std::size_t>(kind)];
  return count - std::min(count, MostOfAKind);
}

std::size_t Findings::CountedOnly() const {
  std::size_t all = 0;
  for (std::size_t kind = 0; kind < Kinds; ++kind) {
    all += CountedOnly(static_cast<FindingKind>(kind));
  }
  return all;
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

std::string PrintableLines(std::string_view utf8) {
  Text visible = FromUtf8(utf8);
  std::transform(visible.begin(), visible.end(), visible.begin(),
                 [](char16_t unit) { return unit == u'\n' ? unit : VisibleUnit(unit); });
  return ToUtf8(visible);
}

std::string WithoutControls(std::string_view json) {
  Text escaped;
  for (const char16_t unit : FromUtf8(json)) {
    if (unit >= 0x7F && VisibleUnit(unit) != unit) {
      escaped += FromUtf8(fmt::format("\\u{:04x}", static_cast<unsigned>(unit)));
    } else {
      escaped += unit;
    }
  }
  return ToUtf8(escaped);
}

std::string Quoted(TextView text) {
  const TextView cut = CutText(text, LongestQuote);
  return "“" + Printable(cut) + (cut.size() < text.size() ? "…”" : "”");
}
