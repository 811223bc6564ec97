#include "decks/CharacterReference.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::uint32_t NoCharacter = 0x110000;  // the first number behind the last character

struct CharacterName {
  TextView name;
  char16_t character;
};

// The names that old decks use. Source: the character entity sets of HTML 4.
constexpr std::array<CharacterName, 18> Names = {{{u"amp", u'&'},
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

/// The worth of a digit, or nothing.
std::optional<std::uint32_t> DigitOf(char16_t unit, bool hex) {
  if (unit >= u'0' && unit <= u'9') return unit - U'0';
  const auto small = static_cast<char16_t>(unit | 0x20U);
  if (hex && small >= u'a' && small <= u'f') return small - U'a' + 10;
  return std::nullopt;
}

}  // namespace

std::optional<std::uint32_t> NumberedCharacter(TextView digits) {
  const bool hex = digits.starts_with(u'x') || digits.starts_with(u'X');
  if (hex) digits.remove_prefix(1);
  if (digits.empty()) return std::nullopt;
  std::uint32_t number = 0;
  for (const char16_t unit : digits) {
    const std::optional<std::uint32_t> digit = DigitOf(unit, hex);
    if (!digit) return std::nullopt;
    number = std::min(number * (hex ? 16 : 10) + *digit, NoCharacter);
  }
  const bool half = number >= 0xD800 && number <= 0xDFFF;
  if (number == 0 || half || number >= NoCharacter) return std::nullopt;
  return number;
}

std::optional<std::uint32_t> NamedCharacter(TextView name) {
  const auto* const known = std::find_if(Names.begin(), Names.end(),
                                         [&](const CharacterName& c) { return c.name == name; });
  if (known != Names.end()) return known->character;
  const auto* const latin = std::find(Latin1Names.begin(), Latin1Names.end(), name);
  if (latin == Latin1Names.end()) return std::nullopt;
  return static_cast<std::uint32_t>(0xA0 + (latin - Latin1Names.begin()));
}

void AppendCharacter(Text& text, std::uint32_t character) {
  if (character < 0x10000) {
    text += static_cast<char16_t>(character);
  } else {
    text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
  }
}
