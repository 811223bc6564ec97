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

/// Takes a character reference from the front of `rest`; another "&" is itself.
void TakeReference(TextView& rest, Text& text) {
  struct Named {
    TextView name;
    char16_t character;
  };
  constexpr std::array<Named, 6> KnownNames = {{{u"amp", u'&'},
                                                {u"lt", u'<'},
                                                {u"gt", u'>'},
                                                {u"quot", u'"'},
                                                {u"apos", u'\''},
                                                {u"nbsp", u'\u00A0'}}};
  constexpr std::size_t Longest = 12;
  const std::size_t end = rest.substr(0, Longest).find(u';');
  if (end != TextView::npos) {
    const TextView name = rest.substr(1, end - 1);
    const auto* const known = std::find_if(KnownNames.begin(), KnownNames.end(),
                                           [&](const Named& named) { return named.name == name; });
    std::optional<std::uint32_t> character;
    if (known != KnownNames.end()) character = known->character;
    if (name.starts_with(u'#')) character = NumericEntity(name.substr(1));
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
