#include "base/LetterCase.h"

#include <algorithm>
#include <array>

namespace {

/// Letters first..last have their capital at a fixed distance below them; with `step` 2 only every
/// second one, counted from `first`, is a small letter.
struct CaseRange {
  char16_t first;
  char16_t last;
  int distance;
  int step;
};

// Source: the simple upper-case mappings of the Unicode character database, version 15. Left out,
// because Windows-1252 pairs them with nothing: micro sign and florin; because it is another letter
// than i, whose capital is the same: the dotless i.
constexpr std::array CaseRanges = {
    // Basic Latin
    CaseRange{u'a', u'z', 32, 1},
    // Latin-1
    CaseRange{0x00E0, 0x00F6, 32, 1},
    CaseRange{0x00F8, 0x00FE, 32, 1},
    CaseRange{0x00FF, 0x00FF, -121, 1},
    // Latin Extended-A
    CaseRange{0x0101, 0x012F, 1, 2},
    CaseRange{0x0133, 0x0137, 1, 2},
    CaseRange{0x013A, 0x0148, 1, 2},
    CaseRange{0x014B, 0x0177, 1, 2},
    CaseRange{0x017A, 0x017E, 1, 2},
    CaseRange{0x017F, 0x017F, 300, 1},
    // Latin Extended-B
    CaseRange{0x0180, 0x0180, -195, 1},
    CaseRange{0x0183, 0x0185, 1, 2},
    CaseRange{0x0188, 0x0188, 1, 1},
    CaseRange{0x018C, 0x018C, 1, 1},
    CaseRange{0x0195, 0x0195, -97, 1},
    CaseRange{0x0199, 0x0199, 1, 1},
    CaseRange{0x019A, 0x019A, -163, 1},
    CaseRange{0x019E, 0x019E, -130, 1},
    CaseRange{0x01A1, 0x01A5, 1, 2},
    CaseRange{0x01A8, 0x01A8, 1, 1},
    CaseRange{0x01AD, 0x01AD, 1, 1},
    CaseRange{0x01B0, 0x01B0, 1, 1},
    CaseRange{0x01B4, 0x01B6, 1, 2},
    CaseRange{0x01B9, 0x01B9, 1, 1},
    CaseRange{0x01BD, 0x01BD, 1, 1},
    CaseRange{0x01BF, 0x01BF, -56, 1},
    CaseRange{0x01C5, 0x01C5, 1, 1},
    CaseRange{0x01C6, 0x01C6, 2, 1},
    CaseRange{0x01C8, 0x01C8, 1, 1},
    CaseRange{0x01C9, 0x01C9, 2, 1},
    CaseRange{0x01CB, 0x01CB, 1, 1},
    CaseRange{0x01CC, 0x01CC, 2, 1},
    CaseRange{0x01CE, 0x01DC, 1, 2},
    CaseRange{0x01DD, 0x01DD, 79, 1},
    CaseRange{0x01DF, 0x01EF, 1, 2},
    CaseRange{0x01F2, 0x01F2, 1, 1},
    CaseRange{0x01F3, 0x01F3, 2, 1},
    CaseRange{0x01F5, 0x01F5, 1, 1},
    CaseRange{0x01F9, 0x021F, 1, 2},
    CaseRange{0x0223, 0x0233, 1, 2},
    CaseRange{0x023C, 0x023C, 1, 1},
    CaseRange{0x023F, 0x0240, -10815, 1},
    CaseRange{0x0242, 0x0242, 1, 1},
    CaseRange{0x0247, 0x024F, 1, 2},
    // letters of African and other alphabets
    CaseRange{0x0250, 0x0250, -10783, 1},
    CaseRange{0x0251, 0x0251, -10780, 1},
    CaseRange{0x0252, 0x0252, -10782, 1},
    CaseRange{0x0253, 0x0253, 210, 1},
    CaseRange{0x0254, 0x0254, 206, 1},
    CaseRange{0x0256, 0x0257, 205, 1},
    CaseRange{0x0259, 0x0259, 202, 1},
    CaseRange{0x025B, 0x025B, 203, 1},
    CaseRange{0x025C, 0x025C, -42319, 1},
    CaseRange{0x0260, 0x0260, 205, 1},
    CaseRange{0x0261, 0x0261, -42315, 1},
    CaseRange{0x0263, 0x0263, 207, 1},
    CaseRange{0x0265, 0x0265, -42280, 1},
    CaseRange{0x0266, 0x0266, -42308, 1},
    CaseRange{0x0268, 0x0268, 209, 1},
    CaseRange{0x0269, 0x0269, 211, 1},
    CaseRange{0x026A, 0x026A, -42308, 1},
    CaseRange{0x026B, 0x026B, -10743, 1},
    CaseRange{0x026C, 0x026C, -42305, 1},
    CaseRange{0x026F, 0x026F, 211, 1},
    CaseRange{0x0271, 0x0271, -10749, 1},
    CaseRange{0x0272, 0x0272, 213, 1},
    CaseRange{0x0275, 0x0275, 214, 1},
    CaseRange{0x027D, 0x027D, -10727, 1},
    CaseRange{0x0280, 0x0280, 218, 1},
    CaseRange{0x0282, 0x0282, -42307, 1},
    CaseRange{0x0283, 0x0283, 218, 1},
    CaseRange{0x0287, 0x0287, -42282, 1},
    CaseRange{0x0288, 0x0288, 218, 1},
    CaseRange{0x0289, 0x0289, 69, 1},
    CaseRange{0x028A, 0x028B, 217, 1},
    CaseRange{0x028C, 0x028C, 71, 1},
    CaseRange{0x0292, 0x0292, 219, 1},
    CaseRange{0x029D, 0x029D, -42261, 1},
    CaseRange{0x029E, 0x029E, -42258, 1},
    // Greek
    CaseRange{0x0371, 0x0373, 1, 2},
    CaseRange{0x0377, 0x0377, 1, 1},
    CaseRange{0x037B, 0x037D, -130, 1},
    CaseRange{0x03AC, 0x03AC, 38, 1},
    CaseRange{0x03AD, 0x03AF, 37, 1},
    CaseRange{0x03B1, 0x03C1, 32, 1},
    CaseRange{0x03C2, 0x03C2, 31, 1},
    CaseRange{0x03C3, 0x03CB, 32, 1},
    CaseRange{0x03CC, 0x03CC, 64, 1},
    CaseRange{0x03CD, 0x03CE, 63, 1},
    CaseRange{0x03D0, 0x03D0, 62, 1},
    CaseRange{0x03D1, 0x03D1, 57, 1},
    CaseRange{0x03D5, 0x03D5, 47, 1},
    CaseRange{0x03D6, 0x03D6, 54, 1},
    CaseRange{0x03D7, 0x03D7, 8, 1},
    CaseRange{0x03D9, 0x03EF, 1, 2},
    CaseRange{0x03F0, 0x03F0, 86, 1},
    CaseRange{0x03F1, 0x03F1, 80, 1},
    CaseRange{0x03F2, 0x03F2, -7, 1},
    CaseRange{0x03F3, 0x03F3, 116, 1},
    CaseRange{0x03F5, 0x03F5, 96, 1},
    CaseRange{0x03F8, 0x03F8, 1, 1},
    CaseRange{0x03FB, 0x03FB, 1, 1},
    // Cyrillic
    CaseRange{0x0430, 0x044F, 32, 1},
    CaseRange{0x0450, 0x045F, 80, 1},
    CaseRange{0x0461, 0x0481, 1, 2},
    CaseRange{0x048B, 0x04BF, 1, 2},
    CaseRange{0x04C2, 0x04CE, 1, 2},
    CaseRange{0x04CF, 0x04CF, 15, 1},
    CaseRange{0x04D1, 0x052F, 1, 2},
    // Armenian
    CaseRange{0x0561, 0x0586, 48, 1},
    // Latin Extended Additional
    CaseRange{0x1E01, 0x1E95, 1, 2},
    CaseRange{0x1E9B, 0x1E9B, 59, 1},
    CaseRange{0x1EA1, 0x1EFF, 1, 2},
    // Greek with the old accents
    CaseRange{0x1F00, 0x1F07, -8, 1},
    CaseRange{0x1F10, 0x1F15, -8, 1},
    CaseRange{0x1F20, 0x1F27, -8, 1},
    CaseRange{0x1F30, 0x1F37, -8, 1},
    CaseRange{0x1F40, 0x1F45, -8, 1},
    CaseRange{0x1F51, 0x1F57, -8, 2},
    CaseRange{0x1F60, 0x1F67, -8, 1},
    CaseRange{0x1F70, 0x1F71, -74, 1},
    CaseRange{0x1F72, 0x1F75, -86, 1},
    CaseRange{0x1F76, 0x1F77, -100, 1},
    CaseRange{0x1F78, 0x1F79, -128, 1},
    CaseRange{0x1F7A, 0x1F7B, -112, 1},
    CaseRange{0x1F7C, 0x1F7D, -126, 1},
    CaseRange{0x1F80, 0x1F87, -8, 1},
    CaseRange{0x1F90, 0x1F97, -8, 1},
    CaseRange{0x1FA0, 0x1FA7, -8, 1},
    CaseRange{0x1FB0, 0x1FB1, -8, 1},
    CaseRange{0x1FB3, 0x1FB3, -9, 1},
    CaseRange{0x1FBE, 0x1FBE, 7205, 1},
    CaseRange{0x1FC3, 0x1FC3, -9, 1},
    CaseRange{0x1FD0, 0x1FD1, -8, 1},
    CaseRange{0x1FE0, 0x1FE1, -8, 1},
    CaseRange{0x1FE5, 0x1FE5, -7, 1},
    CaseRange{0x1FF3, 0x1FF3, -9, 1},
    // full-width Latin
    CaseRange{0xFF41, 0xFF5A, 32, 1},
};

}  // namespace

char16_t ToUpper(char16_t unit) {
  if (unit < u'a') return unit;
  const auto* const range = std::lower_bound(
      CaseRanges.begin(), CaseRanges.end(), unit,
      [](const CaseRange& candidate, char16_t wanted) { return candidate.last < wanted; });
  if (range == CaseRanges.end() || unit < range->first) return unit;
  if ((unit - range->first) % range->step != 0) return unit;
  return static_cast<char16_t>(unit - range->distance);
}

Text UpperCase(TextView text) {
  Text result(text);
  std::transform(result.begin(), result.end(), result.begin(), ToUpper);
  return result;
}

bool EqualIgnoringCase(TextView a, TextView b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char16_t x, char16_t y) { return x == y || ToUpper(x) == ToUpper(y); });
}

std::size_t FindIgnoringCase(TextView text, TextView pattern, std::size_t from) {
  if (from > text.size()) return TextView::npos;
  const auto found = std::search(
      text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), pattern.begin(), pattern.end(),
      [](char16_t x, char16_t y) { return x == y || ToUpper(x) == ToUpper(y); });
  if (found == text.end() && !pattern.empty()) return TextView::npos;
  return static_cast<std::size_t>(found - text.begin());
}

bool ContainsIgnoringCase(TextView text, TextView pattern) {
  return FindIgnoringCase(text, pattern) != TextView::npos;
}
