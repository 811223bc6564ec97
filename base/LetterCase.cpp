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

// Source: the simple case mappings of the Unicode character database, version 15.
constexpr std::array CaseRanges = {
    CaseRange{u'a', u'z', 32, 1},
    CaseRange{0x00E0, 0x00F6, 32, 1},
    CaseRange{0x00F8, 0x00FE, 32, 1},
    CaseRange{0x00FF, 0x00FF, -121, 1},  // y with diaeresis: its capital is at 0178
    CaseRange{0x0101, 0x012F, 1, 2},     // Latin Extended-A
    CaseRange{0x0133, 0x0137, 1, 2},
    CaseRange{0x013A, 0x0148, 1, 2},
    CaseRange{0x014B, 0x0177, 1, 2},
    CaseRange{0x017A, 0x017E, 1, 2},
    CaseRange{0x0180, 0x0180, -195, 1},  // Latin Extended-B
    CaseRange{0x01A1, 0x01A5, 1, 2},
    CaseRange{0x01B0, 0x01B0, 1, 1},
    CaseRange{0x01CE, 0x01DC, 1, 2},
    CaseRange{0x01DF, 0x01EF, 1, 2},
    CaseRange{0x01F5, 0x01F5, 1, 1},
    CaseRange{0x01F9, 0x021F, 1, 2},
    CaseRange{0x0223, 0x0233, 1, 2},
    CaseRange{0x03AC, 0x03AC, 38, 1},  // Greek
    CaseRange{0x03AD, 0x03AF, 37, 1},
    CaseRange{0x03B1, 0x03C1, 32, 1},
    CaseRange{0x03C2, 0x03C2, 31, 1},
    CaseRange{0x03C3, 0x03CB, 32, 1},
    CaseRange{0x03CC, 0x03CC, 64, 1},
    CaseRange{0x03CD, 0x03CE, 63, 1},
    CaseRange{0x0430, 0x044F, 32, 1},  // Cyrillic
    CaseRange{0x0450, 0x045F, 80, 1},
    CaseRange{0x0461, 0x0481, 1, 2},
    CaseRange{0x048B, 0x04BF, 1, 2},
    CaseRange{0x04C2, 0x04CE, 1, 2},
    CaseRange{0x04CF, 0x04CF, 15, 1},
    CaseRange{0x04D1, 0x052F, 1, 2},
    CaseRange{0x0561, 0x0586, 48, 1},  // Armenian
    CaseRange{0x1E01, 0x1E95, 1, 2},   // Latin Extended Additional
    CaseRange{0x1EA1, 0x1EFF, 1, 2},
    CaseRange{0xFF41, 0xFF5A, 32, 1},  // full-width Latin
};

}  // namespace

char16_t ToUpper(char16_t unit) {
  if (unit < u'a') return unit;
  const auto range =
      std::find_if(CaseRanges.begin(), CaseRanges.end(),
                   [unit](const CaseRange& candidate) { return unit <= candidate.last; });
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
