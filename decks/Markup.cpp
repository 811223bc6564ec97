#include "decks/Markup.h"

#include "base/LetterCase.h"
#include "decks/CharacterReference.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace {

constexpr TextView SoundMark = u"[sound:";
constexpr TextView RemarkEnd = u"-->";

constexpr bool IsLetter(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}
constexpr bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
constexpr bool IsSpace(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

/// True for "0" and "xD800": a number, whether it is a character's or not.
bool LooksLikeNumber(TextView digits) {
  const bool hex = digits.starts_with(u'x') || digits.starts_with(u'X');
  if (hex) digits.remove_prefix(1);
  return !digits.empty() && digits.find_first_not_of(hex ? u"0123456789abcdefABCDEF"
                                                         : u"0123456789") == TextView::npos;
}

/// Takes a character reference from the front of `rest`; another "&" is itself.
/// @param wrong  receives a number of no character as it is written, once there is one
void TakeReference(TextView& rest, Text& text, Text& wrong) {
  constexpr std::size_t Longest = 12;
  const std::size_t end = rest.substr(0, Longest).find(u';');
  if (end != TextView::npos) {
    const TextView name = rest.substr(1, end - 1);
    const std::optional<std::uint32_t> character =
        name.starts_with(u'#') ? NumberedCharacter(name.substr(1)) : NamedCharacter(name);
    if (character) {
      AppendCharacter(text, *character);
      rest.remove_prefix(end + 1);
      return;
    }
    const TextView digits = name.substr(std::min<std::size_t>(name.size(), 1));
    if (name.starts_with(u'#') && LooksLikeNumber(digits)) wrong = rest.substr(0, end + 1);
  }
  text += u'&';
  rest.remove_prefix(1);
}

Text Unescaped(TextView rest) {
  Text text;
  Text wrong;  // stays in the value
  while (!rest.empty()) {
    if (rest.front() == u'&') {
      TakeReference(rest, text, wrong);
    } else {
      text += rest.front();
      rest.remove_prefix(1);
    }
  }
  return text;
}

/// Where something that ends a mark stands next, asked for at ascending places. What was found once
/// is not looked for again: a text full of marks without an end would take its length squared.
class NextPlace {
 public:
  NextPlace(TextView text, TextView wanted) : m_text(text), m_wanted(wanted) {}
  /// The first one at or behind `from`, or npos.
  std::size_t From(std::size_t from) {
    if (m_next != TextView::npos && (!m_isKnown || m_next < from)) {
      m_next = m_text.find(m_wanted, from);
    }
    m_isKnown = true;
    return m_next;
  }

 private:
  TextView m_text;
  TextView m_wanted;
  std::size_t m_next = 0;
  bool m_isKnown = false;
};

/// The ">" that ends the attributes which begin at a place, one in quotes being none; asked for at
/// ascending places. A text is walked through at most four times, however many marks it has: what
/// a quote does to "outside", "in double" and "in single quotes" is to exchange two of them, so of
/// all walks from whatever places only three differ, and each is walked but once.
class MarkEnds {
 public:
  explicit MarkEnds(TextView text) : m_text(text) {}

  std::size_t From(std::size_t from) {
    for (; m_at < from; ++m_at) {
      for (Walk& walk : m_walks) Quote(m_text[m_at], walk.quote);
    }
    Walk& walk = *std::find_if(m_walks.begin(), m_walks.end(),
                               [](const Walk& candidate) { return candidate.quote == 0; });
    if (!walk.isKnown || (walk.end != TextView::npos && walk.end < from)) {
      walk.end = Find(from);
      walk.isKnown = true;
    }
    return walk.end;
  }

 private:
  struct Walk {
    char16_t quote = 0;  ///< in which it stands at m_at; 0 outside
    std::size_t end = 0;
    bool isKnown = false;
  };

  static void Quote(char16_t unit, char16_t& quote) {
    if (unit != u'"' && unit != u'\'') return;
    if (quote == unit) {
      quote = 0;
    } else if (quote == 0) {
      quote = unit;
    }
  }

  std::size_t Find(std::size_t at) const {
    char16_t quote = 0;
    for (; at < m_text.size(); ++at) {
      if (quote == 0 && m_text[at] == u'>') return at;
      Quote(m_text[at], quote);
    }
    return TextView::npos;
  }

  TextView m_text;
  std::size_t m_at = 0;
  std::array<Walk, 3> m_walks = {{{0}, {u'"'}, {u'\''}}};
};

/// Calls `use` with the name, as it is written, and the value of each attribute of a mark.
template <class Use>
void ForEachAttribute(TextView attributes, Use use) {
  const auto takeUntil = [&](auto ends) {
    const auto* const end = std::find_if(attributes.begin(), attributes.end(), ends);
    const auto length = static_cast<std::size_t>(end - attributes.begin());
    const TextView taken = attributes.substr(0, length);
    attributes.remove_prefix(length);
    return taken;
  };
  const auto isNoSpace = [](char16_t unit) { return !IsSpace(unit); };
  while (true) {
    takeUntil([](char16_t unit) { return !IsSpace(unit) && unit != u'/'; });
    if (attributes.empty()) return;
    // Whatever stands first is part of a name: so each turn takes something.
    const std::size_t nameEnd =
        std::min(attributes.find_first_of(u"=/ \t\r\n", 1), attributes.size());
    const TextView name = attributes.substr(0, nameEnd);
    attributes.remove_prefix(nameEnd);
    takeUntil(isNoSpace);
    if (!attributes.starts_with(u'=')) {
      use(name, Text());
      continue;
    }
    attributes.remove_prefix(1);
    takeUntil(isNoSpace);
    if (attributes.starts_with(u'"') || attributes.starts_with(u'\'')) {
      const char16_t quote = attributes.front();
      attributes.remove_prefix(1);
      const TextView value = takeUntil([&](char16_t unit) { return unit == quote; });
      attributes.remove_prefix(std::min<std::size_t>(attributes.size(), 1));
      use(name, Unescaped(value));
    } else {
      use(name, Unescaped(takeUntil(IsSpace)));
    }
  }
}

bool IsBlock(TextView name) {
  constexpr std::array<TextView, 14> Blocks = {u"DIV", u"P",     u"LI",         u"UL", u"OL",
                                               u"TR",  u"TABLE", u"H1",         u"H2", u"H3",
                                               u"H4",  u"TBODY", u"BLOCKQUOTE", u"HR"};
  return std::find(Blocks.begin(), Blocks.end(), name) != Blocks.end();
}

class Decoder {
 public:
  Decoder(TextView field, bool html, MarkupLosses& losses)
      : m_field(field), m_html(html), m_losses(losses) {}

  DeckSide Decode() {
    while (m_at < m_field.size()) {
      if (TakeSound()) continue;
      if (m_html && m_field[m_at] == u'<' && TakeElement()) continue;
      FlushBreak();
      if (m_html && m_field[m_at] == u'&') {
        TextView rest = m_field.substr(m_at);
        Text wrong;
        TakeReference(rest, m_side.text, wrong);
        if (!wrong.empty()) {
          m_losses.others.Add(Quoted(wrong) + " stands for no character; it stays as it is", 0);
        }
        m_at = m_field.size() - rest.size();
      } else {
        m_side.text += m_field[m_at++];
      }
    }
    m_side.text = WithCrLf(m_side.text);
    if (!m_side.sound.empty() || !m_side.picture.empty()) TrimEnds();
    return std::move(m_side);
  }

 private:
  bool TakeSound() {
    if (!m_field.substr(m_at).starts_with(SoundMark)) return false;
    const std::size_t end = m_soundEnds.From(m_at);
    if (end == TextView::npos) return false;
    const std::size_t start = m_at + SoundMark.size();
    const TextView name = m_field.substr(start, end - start);
    Keep(m_side.sound, m_html ? Unescaped(name) : Text(name));
    m_at = end + 1;
    return true;
  }

  bool TakeRemark() {
    const std::size_t end = m_remarkEnds.From(m_at);
    if (end == TextView::npos) return false;
    m_at = end + RemarkEnd.size();
    return true;
  }

  /// Takes a mark; false when it is none.
  bool TakeElement() {
    if (m_field.substr(m_at).starts_with(u"<!--")) return TakeRemark();
    std::size_t at = m_at + 1;
    if (at < m_field.size() && m_field[at] == u'/') ++at;
    if (at >= m_field.size() || !IsLetter(m_field[at])) return false;
    const std::size_t nameStart = at;
    while (at < m_field.size() && (IsLetter(m_field[at]) || IsDigit(m_field[at]))) ++at;
    const std::size_t end = m_markEnds.From(at);
    if (end == TextView::npos) return false;
    TakeMark(UpperCase(m_field.substr(nameStart, at - nameStart)), m_field.substr(at, end - at));
    m_at = end + 1;
    return true;
  }

  void TakeMark(const Text& name, TextView attributes) {
    if (name == u"BR") {
      FlushBreak();
      m_side.text.append(LineBreak);
    } else if (name == u"IMG") {
      TakePicture(attributes);
    } else if (IsBlock(name)) {
      m_breakDue = !m_side.text.empty() && !m_side.text.ends_with(LineBreak);
    } else {
      m_losses.formatting = true;
      ListAddresses(name, attributes);
    }
  }

  void TakePicture(TextView attributes) {
    Text source;
    ForEachAttribute(attributes, [&](TextView attribute, Text value) {
      if (value.empty()) return;
      if (EqualIgnoringCase(attribute, u"src")) {
        if (source.empty()) source = std::move(value);
      } else if (EqualIgnoringCase(attribute, u"alt") || EqualIgnoringCase(attribute, u"title")) {
        m_losses.others.Add("the words " + Quoted(value) + " of a picture are left out", 0);
      }
    });
    if (source.empty()) m_losses.formatting = true;
    Keep(m_side.picture, std::move(source));
  }

  /// Lists where links and media of other marks lead.
  void ListAddresses(const Text& name, TextView attributes) {
    constexpr std::array<TextView, 5> Addresses = {u"href", u"src", u"data", u"poster", u"srcset"};
    ForEachAttribute(attributes, [&](TextView attribute, const Text& value) {
      const bool isAddress = std::any_of(Addresses.begin(), Addresses.end(), [&](TextView known) {
        return EqualIgnoringCase(attribute, known);
      });
      if (!isAddress || value.empty()) return;
      m_losses.others.Add(
          "where a mark " + Quoted(name) + " leads, " + Quoted(value) + ", is left out", 0);
    });
  }

  void Keep(Text& place, Text name) {
    if (name.empty()) return;
    if (place.empty()) {
      place = std::move(name);
    } else if (m_losses.media.size() < MarkupLosses::MostMedia) {
      m_losses.media.push_back(std::move(name));
    } else {
      ++m_losses.moreMedia;
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

  TextView m_field;
  bool m_html;
  MarkupLosses& m_losses;
  std::size_t m_at = 0;
  NextPlace m_soundEnds{m_field, u"]"};
  NextPlace m_remarkEnds{m_field, RemarkEnd};
  MarkEnds m_markEnds{m_field};
  DeckSide m_side;
  bool m_breakDue = false;
};

Text Escaped(TextView text) {
  Text escaped = ReplaceAll(ReplaceAll(text, u"&", u"&amp;"), u"<", u"&lt;");
  return ReplaceAll(ReplaceAll(escaped, u">", u"&gt;"), u"\"", u"&quot;");
}

}  // namespace

DeckSide DecodeMarkup(TextView field, bool html, MarkupLosses& losses) {
  return Decoder(field, html, losses).Decode();
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
