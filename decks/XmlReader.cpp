#include "decks/XmlReader.h"

#include "base/CodePage.h"
#include "decks/CharacterReference.h"
#include "decks/Finding.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <optional>

namespace {

constexpr std::string_view RemarkStart = "<!--";
constexpr std::string_view CDataStart = "<![CDATA[";
constexpr std::string_view Spaces = " \t\r\n";
constexpr std::size_t LongestName = 200;  // of which a message quotes the beginning

bool IsNameByte(char byte) {
  const bool letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
  const bool digit = byte >= '0' && byte <= '9';
  return letter || digit || static_cast<unsigned char>(byte) >= 0x80 || byte == '_' ||
         byte == ':' || byte == '.' || byte == '-';
}

bool StartsName(char byte) {
  return IsNameByte(byte) && !(byte >= '0' && byte <= '9') && byte != '.' && byte != '-';
}

std::string InQuotes(std::string_view words) {
  return Quoted(FromUtf8(words.substr(0, LongestName)));
}

struct Reference {
  std::size_t length = 0;                  ///< as it is written
  std::optional<std::uint32_t> character;  ///< nothing for one that XML does not know
};

/// The reference at the start of `text`, which begins with "&".
Reference FirstReference(std::string_view text) {
  struct Known {
    std::string_view name;
    char character;
  };
  constexpr std::array<Known, 5> KnownNames = {
      {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};
  std::size_t end = 1;
  if (end < text.size() && text[end] == '#') ++end;
  while (end < text.size() && IsNameByte(text[end])) ++end;
  if (end == text.size() || text[end] != ';') return {1, std::nullopt};
  const std::string_view name = text.substr(1, end - 1);
  if (name.starts_with('#')) {
    const auto number = NumberedCharacter(FromUtf8(name.substr(1)));
    if (number) return {end + 1, number};
  }
  for (const Known& known : KnownNames) {
    if (known.name == name) return {end + 1, static_cast<std::uint32_t>(known.character)};
  }
  return {end + 1, std::nullopt};
}

std::string Utf8Of(std::uint32_t character) {
  Text text;
  AppendCharacter(text, character);
  return ToUtf8(text);
}

/// The value of an attribute, its references resolved.
std::string ValueOf(std::string_view written) {
  std::string value;
  while (!written.empty()) {
    const std::size_t plain = std::min(written.find('&'), written.size());
    value += written.substr(0, plain);
    written.remove_prefix(plain);
    if (written.empty()) break;
    const Reference reference = FirstReference(written);
    value += reference.character ? Utf8Of(*reference.character)
                                 : std::string(written.substr(0, reference.length));
    written.remove_prefix(reference.length);
  }
  return value;
}

}  // namespace

void XmlReader::Advance(std::size_t count) {
  const auto from = m_text.begin() + static_cast<std::ptrdiff_t>(m_at);
  m_line += static_cast<int>(std::count(from, from + static_cast<std::ptrdiff_t>(count), '\n'));
  m_at += count;
}

std::string_view XmlReader::TakeName() {
  const std::size_t start = m_at;
  if (!AtEnd() && StartsName(m_text[m_at])) {
    while (!AtEnd() && IsNameByte(m_text[m_at])) ++m_at;
  }
  return m_text.substr(start, m_at - start);
}

void XmlReader::TakeSpace() {
  MoveTo(std::min(m_text.find_first_not_of(Spaces, m_at), m_text.size()));
}

XmlReader::Event XmlReader::Break(std::string problem) {
  m_problem = std::move(problem);
  m_eventLine = m_line;
  return Event::Broken;
}

XmlReader::Event XmlReader::Next() {
  if (!m_problem.empty()) return Event::Broken;
  m_attributes = {};
  if (m_isEmptyElement) {
    m_isEmptyElement = false;
    m_name = m_open.back();
    m_open.pop_back();
    return Event::End;
  }
  while (true) {
    if (m_open.empty()) TakeSpace();
    m_eventLine = m_line;
    if (AtEnd()) return Finish();
    if (Follows("<?")) {
      if (!SkipPast("?>")) return Break("what “<?” begins has no end");
    } else if (Follows(RemarkStart)) {
      MoveTo(m_at + RemarkStart.size());
      if (!SkipPast("-->")) return Break("a comment has no end");
    } else if (Follows("<!DOCTYPE") && !m_hadRoot) {
      if (!SkipDocumentType()) return Break("the document type has no end");
    } else {
      return ReadMark();
    }
  }
}

XmlReader::Event XmlReader::Finish() {
  if (!m_open.empty()) {
    return Break(fmt::format("the element {} has no end", InQuotes(m_open.back())));
  }
  return m_hadRoot ? Event::Done : Break("it has no element");
}

XmlReader::Event XmlReader::ReadMark() {
  if (m_open.empty() && (m_hadRoot || m_text[m_at] != '<')) {
    return Break(m_hadRoot ? "something stands behind the last element"
                           : "something stands before the first element");
  }
  if (m_text[m_at] == '&') return ReadReference();
  if (m_text[m_at] != '<') return ReadTextRun();
  if (!m_open.empty() && Follows(CDataStart)) return ReadCData();
  return Follows("</") ? ReadEndTag() : ReadTag();
}

XmlReader::Event XmlReader::ReadTextRun() {
  const std::size_t end = std::min(m_text.find_first_of("<&", m_at), m_text.size());
  m_piece = m_text.substr(m_at, end - m_at);
  MoveTo(end);
  return Event::Words;
}

XmlReader::Event XmlReader::ReadCData() {
  const std::size_t start = m_at + CDataStart.size();
  const std::size_t end = m_text.find("]]>", start);
  if (end == std::string_view::npos) return Break("“<![CDATA[” has no end");
  m_piece = m_text.substr(start, end - start);
  MoveTo(end + 3);
  return Event::Words;
}

XmlReader::Event XmlReader::ReadReference() {
  const std::string_view rest = m_text.substr(m_at);
  const Reference reference = FirstReference(rest);
  m_piece = rest.substr(0, reference.length);
  if (reference.character) {
    m_character = Utf8Of(*reference.character);
    m_piece = m_character;
  } else if (m_unresolved.count++ == 0) {
    m_unresolved.line = m_line;
    m_unresolved.first = InQuotes(m_piece);
  }
  Advance(reference.length);
  return Event::Words;
}

XmlReader::Event XmlReader::ReadTag() {
  ++m_at;
  m_name = TakeName();
  if (m_name.empty()) return Break("“<” begins nothing; in a text it is written “&lt;”");
  if (!ReadAttributes()) {
    return Break(fmt::format("the mark of the element {} is not in order", InQuotes(m_name)));
  }
  if (m_open.size() >= MostLevels) {
    return Break(fmt::format("more than {} elements in one another", MostLevels));
  }
  m_hadRoot = true;
  m_open.push_back(m_name);
  return Event::Start;
}

bool XmlReader::ReadAttributes() {
  const std::size_t start = m_at;
  while (true) {
    const std::size_t before = m_at;
    TakeSpace();
    if (AtEnd()) return false;
    if (m_text[m_at] == '>' || Follows("/>")) break;
    const bool parted = m_at > before;
    if (!parted || TakeName().empty()) return false;
    TakeSpace();
    if (!Follows("=")) return false;
    ++m_at;
    TakeSpace();
    if (!Follows("\"") && !Follows("'")) return false;
    const std::size_t end = m_text.find(m_text[m_at], m_at + 1);
    if (end == std::string_view::npos) return false;
    MoveTo(end + 1);
  }
  m_attributes = m_text.substr(start, m_at - start);
  m_attributes.remove_prefix(std::min(m_attributes.find_first_not_of(Spaces), m_attributes.size()));
  m_isEmptyElement = m_text[m_at] == '/';
  m_at += m_isEmptyElement ? 2 : 1;
  return true;
}

void XmlReader::ForEachAttribute(
    const std::function<void(std::string_view name, const std::string& value)>& use) const {
  std::string_view rest = m_attributes;  // known to be in order
  while (!rest.empty()) {
    const std::string_view name = rest.substr(0, rest.find_first_of("= \t\r\n"));
    rest.remove_prefix(rest.find_first_of("\"'"));
    const std::size_t end = rest.find(rest.front(), 1);
    use(name, ValueOf(rest.substr(1, end - 1)));
    rest.remove_prefix(end + 1);
    rest.remove_prefix(std::min(rest.find_first_not_of(Spaces), rest.size()));
  }
}

XmlReader::Event XmlReader::ReadEndTag() {
  m_at += 2;
  m_name = TakeName();
  TakeSpace();
  if (m_open.empty() || m_open.back() != m_name || !Follows(">")) {
    return Break(m_open.empty() ? fmt::format("nothing is open that {} could end", InQuotes(m_name))
                                : fmt::format("the element {} ends as {}", InQuotes(m_open.back()),
                                              InQuotes(m_name)));
  }
  ++m_at;
  m_open.pop_back();
  return Event::End;
}

bool XmlReader::SkipPast(std::string_view end) {
  const std::size_t found = m_text.find(end, m_at);
  if (found == std::string_view::npos) return false;
  MoveTo(found + end.size());
  return true;
}

bool XmlReader::SkipDocumentType() {
  const int line = m_line;
  bool inside = false;  // of the brackets with declarations
  while (!AtEnd()) {
    const char byte = m_text[m_at];
    if (Follows(RemarkStart)) {
      MoveTo(m_at + RemarkStart.size());
      if (!SkipPast("-->")) return false;
    } else if (Follows("<?")) {
      if (!SkipPast("?>")) return false;
    } else if (byte == '"' || byte == '\'') {
      Advance(1);
      if (!SkipPast({&byte, 1})) return false;
    } else {
      Advance(1);
      if (byte == '[') inside = true;
      if (byte == ']') inside = false;
      if (inside && byte == '<') m_declarationsLine = line;
      if (!inside && byte == '>') return true;
    }
  }
  return false;
}
