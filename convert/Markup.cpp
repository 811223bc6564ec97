#include "convert/Markup.h"

#include "base/LetterCase.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace {

constexpr TextView SoundMark = u"[sound:";

constexpr bool IsLetter(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}
constexpr bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
constexpr bool IsSpace(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

void AppendCharacter(Text& text, std::uint32_t character) {
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (character == 0 || surrogate || character > 0x10FFFF) {
    text += u'\uFFFD';
  } else if (character < 0x10000) {
    text += static_cast<char16_t>(character);
  } else {
    text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
  }
}

/// The character that "&#...;" names, `digits` being what stands between.
std::optional<std::uint32_t> NumericEntity(TextView digits) {
  const bool hex = digits.starts_with(u'x') || digits.starts_with(u'X');
  if (hex) digits.remove_prefix(1);
  if (digits.empty() || digits.size() > 8) return std::nullopt;
  std::uint32_t number = 0;
  for (const char16_t unit : digits) {
    if (IsDigit(unit)) {
      number = number * (hex ? 16 : 10) + (unit - U'0');
    } else if (hex && ((unit | 0x20) >= u'a' && (unit | 0x20) <= u'f')) {
      number = number * 16 + ((unit | 0x20U) - U'a' + 10);
    } else {
      return std::nullopt;
    }
  }
  return number;
}

struct NamedCharacter {
  TextView name;
  char16_t character;
};

// The names that old decks use. Source: the character entity sets of HTML 4.
constexpr std::array<NamedCharacter, 18> Names = {{{u"amp", u'&'},
                                                   {u"lt", u'<'},
                                                   {u"gt", u'>'},
                                                   {u"quot", u'"'},
                                                   {u"apos", u'\''},
                                                   {u"OElig", u'\u0152'},
                                                   {u"oelig", u'\u0153'},
                                                   {u"ndash", u'\u2013'},
                                                   {u"mdash", u'\u2014'},
                                                   {u"lsquo", u'\u2018'},
                                                   {u"rsquo", u'\u2019'},
                                                   {u"sbquo", u'\u201A'},
                                                   {u"ldquo", u'\u201C'},
                                                   {u"rdquo", u'\u201D'},
                                                   {u"bdquo", u'\u201E'},
                                                   {u"hellip", u'\u2026'},
                                                   {u"euro", u'\u20AC'},
                                                   {u"rarr", u'\u2192'}}};
// The characters 160 to 255 in their order.
constexpr std::array<TextView, 96> Latin1Names = {
    u"nbsp",   u"iexcl",  u"cent",   u"pound",  u"curren", u"yen",    u"brvbar", u"sect",
    u"uml",    u"copy",   u"ordf",   u"laquo",  u"not",    u"shy",    u"reg",    u"macr",
    u"deg",    u"plusmn", u"sup2",   u"sup3",   u"acute",  u"micro",  u"para",   u"middot",
    u"cedil",  u"sup1",   u"ordm",   u"raquo",  u"frac14", u"frac12", u"frac34", u"iquest",
    u"Agrave", u"Aacute", u"Acirc",  u"Atilde", u"Auml",   u"Aring",  u"AElig",  u"Ccedil",
    u"Egrave", u"Eacute", u"Ecirc",  u"Euml",   u"Igrave", u"Iacute", u"Icirc",  u"Iuml",
    u"ETH",    u"Ntilde", u"Ograve", u"Oacute", u"Ocirc",  u"Otilde", u"Ouml",   u"times",
    u"Oslash", u"Ugrave", u"Uacute", u"Ucirc",  u"Uuml",   u"Yacute", u"THORN",  u"szlig",
    u"agrave", u"aacute", u"acirc",  u"atilde", u"auml",   u"aring",  u"aelig",  u"ccedil",
    u"egrave", u"eacute", u"ecirc",  u"euml",   u"igrave", u"iacute", u"icirc",  u"iuml",
    u"eth",    u"ntilde", u"ograve", u"oacute", u"ocirc",  u"otilde", u"ouml",   u"divide",
    u"oslash", u"ugrave", u"uacute", u"ucirc",  u"uuml",   u"yacute", u"thorn",  u"yuml"};

/// The character that "&name;" stands for.
std::optional<std::uint32_t> NamedEntity(TextView name) {
  const auto* const known = std::find_if(Names.begin(), Names.end(),
                                         [&](const NamedCharacter& c) { return c.name == name; });
  if (known != Names.end()) return known->character;
  const auto* const latin = std::find(Latin1Names.begin(), Latin1Names.end(), name);
  if (latin == Latin1Names.end()) return std::nullopt;
  return static_cast<std::uint32_t>(0xA0 + (latin - Latin1Names.begin()));
}

/// Takes a character reference from the front of `rest`; another "&" is itself.
void TakeReference(TextView& rest, Text& text) {
  constexpr std::size_t Longest = 12;
  const std::size_t end = rest.substr(0, Longest).find(u';');
  if (end != TextView::npos) {
    const TextView name = rest.substr(1, end - 1);
    const std::optional<std::uint32_t> character =
        name.starts_with(u'#') ? NumericEntity(name.substr(1)) : NamedEntity(name);
    if (character) {
      AppendCharacter(text, *character);
      rest.remove_prefix(end + 1);
      return;
    }
  }
  text += u'&';
  rest.remove_prefix(1);
}

Text Unescaped(TextView rest) {
  Text text;
  while (!rest.empty()) {
    if (rest.front() == u'&') {
      TakeReference(rest, text);
    } else {
      text += rest.front();
      rest.remove_prefix(1);
    }
  }
  return text;
}

/// An element's mark without its angle brackets.
struct Tag {
  bool closing = false;
  Text name;  ///< in capital letters
  TextView attributes;
};

/// Takes a mark from the front of `rest`, which begins with "<"; nothing when it is no mark.
std::optional<Tag> TakeTag(TextView& rest) {
  if (rest.starts_with(u"<!--")) {
    const std::size_t end = rest.find(u"-->");
    if (end == TextView::npos) return std::nullopt;
    rest.remove_prefix(end + 3);
    return Tag{};
  }
  std::size_t at = 1;
  Tag tag;
  if (at < rest.size() && rest[at] == u'/') {
    tag.closing = true;
    ++at;
  }
  if (at >= rest.size() || !IsLetter(rest[at])) return std::nullopt;
  const std::size_t nameStart = at;
  while (at < rest.size() && (IsLetter(rest[at]) || IsDigit(rest[at]))) ++at;
  tag.name = UpperCase(rest.substr(nameStart, at - nameStart));
  const std::size_t attributesStart = at;
  char16_t quote = 0;
  for (; at < rest.size(); ++at) {
    const char16_t unit = rest[at];
    if (quote != 0) {
      if (unit == quote) quote = 0;
    } else if (unit == u'"' || unit == u'\'') {
      quote = unit;
    } else if (unit == u'>') {
      tag.attributes = rest.substr(attributesStart, at - attributesStart);
      rest.remove_prefix(at + 1);
      return tag;
    }
  }
  return std::nullopt;
}

/// The value of the attribute "src".
Text SourceOf(TextView attributes) {
  std::size_t at = FindIgnoringCase(attributes, u"src");
  while (at != TextView::npos && at > 0 && !IsSpace(attributes[at - 1])) {
    at = FindIgnoringCase(attributes, u"src", at + 1);
  }
  if (at == TextView::npos) return {};
  TextView value = attributes.substr(at + 3);
  while (!value.empty() && IsSpace(value.front())) value.remove_prefix(1);
  if (!value.starts_with(u'=')) return {};
  value.remove_prefix(1);
  while (!value.empty() && IsSpace(value.front())) value.remove_prefix(1);
  if (value.starts_with(u'"') || value.starts_with(u'\'')) {
    const char16_t quote = value.front();
    value.remove_prefix(1);
    value = value.substr(0, value.find(quote));
  } else {
    const auto* const end = std::find_if(value.begin(), value.end(), IsSpace);
    value = value.substr(0, static_cast<std::size_t>(end - value.begin()));
  }
  return Unescaped(value);
}

bool IsBlock(TextView name) {
  constexpr std::array<TextView, 14> Blocks = {u"DIV", u"P",     u"LI",         u"UL", u"OL",
                                               u"TR",  u"TABLE", u"H1",         u"H2", u"H3",
                                               u"H4",  u"TBODY", u"BLOCKQUOTE", u"HR"};
  return std::find(Blocks.begin(), Blocks.end(), name) != Blocks.end();
}

class Decoder {
 public:
  explicit Decoder(MarkupLosses& losses) : m_losses(losses) {}

  DeckSide Decode(TextView rest, bool html) {
    while (!rest.empty()) {
      if (TakeSound(rest, html)) continue;
      if (html && rest.front() == u'<' && TakeElement(rest)) continue;
      FlushBreak();
      if (html && rest.front() == u'&') {
        TakeReference(rest, m_side.text);
      } else {
        m_side.text += rest.front();
        rest.remove_prefix(1);
      }
    }
    m_side.text = WithCrLf(m_side.text);
    if (!m_side.sound.empty() || !m_side.picture.empty()) TrimEnds();
    return std::move(m_side);
  }

 private:
  bool TakeSound(TextView& rest, bool html) {
    if (!rest.starts_with(SoundMark)) return false;
    const std::size_t end = rest.find(u']');
    if (end == TextView::npos) return false;
    const TextView name = rest.substr(SoundMark.size(), end - SoundMark.size());
    Keep(m_side.sound, html ? Unescaped(name) : Text(name));
    rest.remove_prefix(end + 1);
    return true;
  }

  bool TakeElement(TextView& rest) {
    const std::optional<Tag> tag = TakeTag(rest);
    if (!tag) return false;
    if (tag->name == u"BR") {
      FlushBreak();
      m_side.text.append(LineBreak);
    } else if (tag->name == u"IMG") {
      Keep(m_side.picture, SourceOf(tag->attributes));
    } else if (IsBlock(tag->name)) {
      m_breakDue = !m_side.text.empty() && !m_side.text.ends_with(LineBreak);
    } else if (!tag->name.empty()) {
      m_losses.formatting = true;
    }
    return true;
  }

  void Keep(Text& place, Text name) {
    if (name.empty()) return;
    if (place.empty()) {
      place = std::move(name);
    } else {
      m_losses.media.push_back(std::move(name));
    }
  }

  void FlushBreak() {
    if (std::exchange(m_breakDue, false)) m_side.text.append(LineBreak);
  }

  void TrimEnds() {
    const std::size_t first = m_side.text.find_first_not_of(u" \r\n");
    if (first == Text::npos) {
      m_side.text.clear();
      return;
    }
    m_side.text.erase(m_side.text.find_last_not_of(u" \r\n") + 1);
    m_side.text.erase(0, first);
  }

  MarkupLosses& m_losses;
  DeckSide m_side;
  bool m_breakDue = false;
};

Text Escaped(TextView text) {
  Text escaped = ReplaceAll(ReplaceAll(text, u"&", u"&amp;"), u"<", u"&lt;");
  return ReplaceAll(ReplaceAll(escaped, u">", u"&gt;"), u"\"", u"&quot;");
}

}  // namespace

DeckSide DecodeMarkup(TextView field, bool html, MarkupLosses& losses) {
  return Decoder(losses).Decode(field, html);
}

Text EncodeMarkup(const DeckSide& side) {
  Text field = ReplaceAll(Escaped(WithCrLf(side.text)), LineBreak, u"<br>");
  field = ReplaceAll(field, SoundMark, u"&#91;sound:");
  if (!side.picture.empty())
    field.append(u"<img src=\"").append(Escaped(side.picture)).append(u"\">");
  if (!side.sound.empty()) {
    field.append(SoundMark).append(ReplaceAll(Escaped(side.sound), u"]", u"&#93;")).append(u"]");
  }
  return field;
}

bool LooksMarkedUp(TextView text) {
  constexpr std::array<TextView, 8> Marks = {u"<br", u"<div",   u"<img",  u"<b>",
                                             u"<i>", u"&nbsp;", u"&amp;", u"&lt;"};
  return std::any_of(Marks.begin(), Marks.end(),
                     [&](TextView mark) { return ContainsIgnoringCase(text, mark); });
}
