#include "settings/ProfileText.h"

#include "base/LetterCase.h"

namespace {

constexpr TextView SpaceCharacters = u"\t\n\v\f\r\x1A ";

TextView TrimSpaceInFront(TextView text) {
  const std::size_t first = text.find_first_not_of(SpaceCharacters);
  return first == TextView::npos ? TextView() : text.substr(first);
}

TextView TrimSpace(TextView text) {
  text = TrimSpaceInFront(text);
  const std::size_t last = text.find_last_not_of(SpaceCharacters);
  return last == TextView::npos ? TextView() : text.substr(0, last + 1);
}

/// Section name of a header line, or nothing. The name runs to the first "]" or the end of the
/// line.
std::optional<TextView> HeaderName(TextView line) {
  line = TrimSpace(line);
  if (!line.starts_with(u'[')) return std::nullopt;
  return TrimSpace(line.substr(1, line.find(u']', 1) - 1));
}

struct KeyLine {
  TextView key;
  std::size_t valueStart;  // position behind the "="
};

std::optional<KeyLine> ParseKeyLine(TextView line) {
  const TextView trimmed = TrimSpaceInFront(line);
  if (trimmed.starts_with(u';') || trimmed.starts_with(u'[')) return std::nullopt;
  const std::size_t equals = line.find(u'=');
  if (equals == TextView::npos) return std::nullopt;
  return KeyLine{TrimSpace(line.substr(0, equals)), equals + 1};
}

bool IsQuoted(TextView value) {
  return value.size() >= 2 && value.front() == value.back() &&
         (value.front() == u'"' || value.front() == u'\'');
}

/// Tabs and other control characters at the right end may be a key assignment's last character, so
/// only blanks are cut there.
TextView Unquoted(TextView value) {
  value = TrimRight(TrimSpaceInFront(value));
  return IsQuoted(value) ? value.substr(1, value.size() - 2) : value;
}

/// Reading takes one pair of quotes away, so a value that has a pair of its own gets another.
Text Quoted(TextView value) { return IsQuoted(value) ? u'"' + Text(value) + u'"' : Text(value); }

/// True for the one value in which a lone CR or LF may be a character: that of a key assignment.
bool HoldsKeyAssignments(TextView line) {
  const std::optional<KeyLine> key = ParseKeyLine(line);
  return key && EqualIgnoringCase(key->key, u"KEYS");
}

/// Length of the line at the start of `content`, which `lineEnd` ends at the latest.
std::size_t LineLength(TextView content, TextView lineEnd) {
  const TextView line = content.substr(0, content.find(lineEnd));
  const std::size_t loneBreak = line.find_first_of(LineBreak);
  if (loneBreak == TextView::npos || HoldsKeyAssignments(line.substr(0, loneBreak))) {
    return line.size();
  }
  return loneBreak;
}

}  // namespace

TextView SectionName(TextView name) { return TrimBlanks(name.substr(0, name.find(u']'))); }

ProfileText::ProfileText(TextView content) {
  const TextView lineEnd = content.find(LineBreak) != TextView::npos ? LineBreak : u"\n";
  while (!content.empty()) {
    const std::size_t length = LineLength(content, lineEnd);
    m_lines.emplace_back(content.substr(0, length));
    content.remove_prefix(length);
    content.remove_prefix(content.starts_with(LineBreak) ? LineBreak.size() : !content.empty());
  }
}

Text ProfileText::Content() const {
  Text content;
  for (const Text& line : m_lines) content.append(line).append(LineBreak);
  return content;
}

std::optional<ProfileText::Range> ProfileText::FindSection(TextView section) const {
  section = SectionName(section);
  std::optional<Range> found;
  for (std::size_t i = 0; i < m_lines.size(); ++i) {
    const std::optional<TextView> name = HeaderName(m_lines[i]);
    if (!name) continue;
    if (found) return Range{found->header, i};
    if (EqualIgnoringCase(*name, section)) found = Range{i, m_lines.size()};
  }
  return found;
}

std::optional<std::size_t> ProfileText::FindKey(const Range& section, TextView key) const {
  key = TrimBlanks(key);
  for (std::size_t i = section.header + 1; i < section.end; ++i) {
    const std::optional<KeyLine> line = ParseKeyLine(m_lines[i]);
    if (line && EqualIgnoringCase(line->key, key)) return i;
  }
  return std::nullopt;
}

std::optional<Text> ProfileText::Value(TextView section, TextView key) const {
  const std::optional<Range> range = FindSection(section);
  if (!range) return std::nullopt;
  const std::optional<std::size_t> at = FindKey(*range, key);
  if (!at) return std::nullopt;
  const Text& line = m_lines[*at];
  return Text(Unquoted(TextView(line).substr(ParseKeyLine(line)->valueStart)));
}

void ProfileText::SetValue(TextView section, TextView key, TextView value) {
  const Text newValue = Quoted(value);
  const Text newLine = Text(TrimBlanks(key)) + u"=" + newValue;
  const std::optional<Range> range = FindSection(section);
  if (!range) {
    m_lines.push_back(u"[" + Text(TrimBlanks(section)) + u"]");
    m_lines.push_back(newLine);
    return;
  }
  if (const std::optional<std::size_t> at = FindKey(*range, key)) {
    m_lines[*at].replace(ParseKeyLine(m_lines[*at])->valueStart, Text::npos, newValue);
    return;
  }
  std::size_t last = range->header;
  for (std::size_t i = range->header + 1; i < range->end; ++i) {
    if (ParseKeyLine(m_lines[i])) last = i;
  }
  m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(last) + 1, newLine);
}

void ProfileText::RemoveKey(TextView section, TextView key) {
  const std::optional<Range> range = FindSection(section);
  if (!range) return;
  if (const std::optional<std::size_t> at = FindKey(*range, key)) {
    m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(*at));
  }
}

void ProfileText::RemoveSection(TextView section) {
  const std::optional<Range> range = FindSection(section);
  if (!range) return;
  std::size_t line = 0;
  std::erase_if(m_lines, [&](const Text& text) {
    const std::size_t i = line++;
    return i == range->header || (i > range->header && i < range->end && ParseKeyLine(text));
  });
}
