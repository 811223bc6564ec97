#include "keys/KeyCodes.h"

#include <gtest/gtest.h>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace {

constexpr char32_t DeadGrave = 0x300, DeadAcute = 0x301, DeadCircumflex = 0x302, DeadTilde = 0x303,
                   DeadDiaeresis = 0x308;

/// A key that types a sign or a letter beyond A to Z.
struct Cap {
  unsigned scanCode;
  char32_t plain;
  char32_t shifted;
  int code;
  int shiftedCode = 0;  ///< where it is not `code`: that of the same sign elsewhere
};

/// A keyboard layout as X11 has it.
struct Layout {
  std::string name;
  std::u32string digits;         ///< of the keys 10 to 19
  std::u32string shiftedDigits;  ///< the same with Shift
  std::u32string letters;        ///< of the 26 keys that have letters on the US layout, in rows
  std::vector<Cap> caps;
};

void PrintTo(const Layout& layout, std::ostream* out) { *out << layout.name; }

constexpr unsigned LetterPlaces[] = {24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 38, 39, 40,
                                     41, 42, 43, 44, 45, 46, 52, 53, 54, 55, 56, 57, 58};
constexpr std::u32string_view UsLetters = U"QWERTYUIOPASDFGHJKLZXCVBNM";

const Layout Layouts[] = {
    {"US",
     U"1234567890",
     U"!@#$%^&*()",
     std::u32string(UsLetters),
     {{20, U'-', U'_', 189},
      {21, U'=', U'+', 187},
      {34, U'[', U'{', 219},
      {35, U']', U'}', 221},
      {47, U';', U':', 186},
      {48, U'\'', U'"', 222},
      {49, U'`', U'~', 192},
      {51, U'\\', U'|', 220},
      {59, U',', U'<', 188},
      {60, U'.', U'>', 190},
      {61, U'/', U'?', 191},
      {94, U'<', U'>', 226}}},
    {"UK",
     U"1234567890",
     U"!\"£$%^&*()",
     std::u32string(UsLetters),
     {{20, U'-', U'_', 189},
      {21, U'=', U'+', 187},
      {34, U'[', U'{', 219},
      {35, U']', U'}', 221},
      {47, U';', U':', 186},
      {48, U'\'', U'@', 222},
      {49, U'`', U'¬', 192},
      {51, U'#', U'~', 223},
      {59, U',', U'<', 188},
      {60, U'.', U'>', 190},
      {61, U'/', U'?', 191},
      {94, U'\\', U'|', 220}}},
    {"Polish",
     U"1234567890",
     U"!@#$%^&*()",
     std::u32string(UsLetters),
     {{20, U'-', U'_', 189},
      {21, U'=', U'+', 187},
      {34, U'[', U'{', 219},
      {35, U']', U'}', 221},
      {47, U';', U':', 186},
      {48, U'\'', U'"', 222},
      {49, U'`', U'~', 192},
      {51, U'\\', U'|', 220},
      {59, U',', U'<', 188},
      {60, U'.', U'>', 190},
      {61, U'/', U'?', 191},
      {94, U'<', U'>', 226}}},
    {"German",
     U"1234567890",
     U"!\"§$%&/()=",
     U"QWERTZUIOPASDFGHJKLYXCVBNM",
     {{20, U'ß', U'?', 191},
      {21, DeadAcute, DeadGrave, 187},
      {34, U'Ü', U'Ü', 219},
      {35, U'+', U'*', 221},
      {47, U'Ö', U'Ö', 186},
      {48, U'Ä', U'Ä', 222},
      {49, DeadCircumflex, U'°', 192},
      {51, U'#', U'\'', 223},
      {59, U',', U';', 188},
      {60, U'.', U':', 190},
      {61, U'-', U'_', 189},
      {94, U'<', U'>', 226}}},
    {"German without dead keys",
     U"1234567890",
     U"!\"§$%&/()=",
     U"QWERTZUIOPASDFGHJKLYXCVBNM",
     {{20, U'ß', U'?', 191},
      {21, U'´', U'`', 187},
      {34, U'Ü', U'Ü', 219},
      {35, U'+', U'*', 221},
      {47, U'Ö', U'Ö', 186},
      {48, U'Ä', U'Ä', 222},
      {49, U'^', U'°', 192},
      {51, U'#', U'\'', 223},
      {59, U',', U';', 188},
      {60, U'.', U':', 190},
      {61, U'-', U'_', 189},
      {94, U'<', U'>', 226}}},
    {"French",
     U"&É\"'(-È_ÇÀ",
     U"1234567890",
     U"AZERTYUIOPQSDFGHJKLWXCVBN,",
     {{20, U')', U'°', 189},
      {21, U'=', U'+', 187},
      {34, DeadCircumflex, DeadDiaeresis, 219},
      {35, U'$', U'£', 221},
      {48, U'Ù', U'%', 222},
      {49, U'²', U'~', 192},
      {51, U'*', U'µ', 220},
      {58, U',', U'?', 188},
      {59, U';', U'.', 186},
      {60, U':', U'/', 190},
      {61, U'!', U'§', 191},
      {94, U'<', U'>', 226}}},
    {"Spanish",
     U"1234567890",
     U"!\"·$%&/()=",
     std::u32string(UsLetters),
     {{20, U'\'', U'?', 222, 191},
      {21, U'¡', U'¿', 187},
      {34, DeadGrave, DeadCircumflex, 219},
      {35, U'+', U'*', 221},
      {47, U'Ñ', U'Ñ', 186},
      {48, DeadAcute, DeadDiaeresis, 191},
      {49, U'º', U'ª', 192},
      {51, U'Ç', U'Ç', 220},
      {59, U',', U';', 188},
      {60, U'.', U':', 190},
      {61, U'-', U'_', 189},
      {94, U'<', U'>', 226}}},
    {"Italian",
     U"1234567890",
     U"!\"£$%&/()=",
     std::u32string(UsLetters),
     {{20, U'\'', U'?', 222, 191},
      {21, U'Ì', U'^', 187},
      {34, U'È', U'É', 219},
      {35, U'+', U'*', 221},
      {47, U'Ò', U'Ç', 186},
      {48, U'À', U'°', 191},
      {49, U'\\', U'|', 220},
      {51, U'Ù', U'§', 192},
      {59, U',', U';', 188},
      {60, U'.', U':', 190},
      {61, U'-', U'_', 189},
      {94, U'<', U'>', 226}}},
    {"Portuguese",
     U"1234567890",
     U"!\"#$%&/()=",
     std::u32string(UsLetters),
     {{20, U'\'', U'?', 222, 191},
      {21, U'«', U'»', 187},
      {34, U'+', U'*', 219},
      {35, DeadAcute, DeadGrave, 221},
      {47, U'Ç', U'Ç', 186},
      {48, U'º', U'ª', 191},
      {49, U'\\', U'|', 220},
      {51, DeadTilde, DeadCircumflex, 192},
      {59, U',', U';', 188},
      {60, U'.', U':', 190},
      {61, U'-', U'_', 189},
      {94, U'<', U'>', 226}}},
    {"Swedish",
     U"1234567890",
     U"!\"#¤%&/()=",
     std::u32string(UsLetters),
     {{20, U'+', U'?', 191},
      {21, DeadAcute, DeadGrave, 187},
      {34, U'Å', U'Å', 219},
      {35, DeadDiaeresis, DeadCircumflex, 221},
      {47, U'Ö', U'Ö', 186},
      {48, U'Ä', U'Ä', 222},
      {49, U'§', U'½', 192},
      {51, U'\'', U'*', 220},
      {59, U',', U';', 188},
      {60, U'.', U':', 190},
      {61, U'-', U'_', 189},
      {94, U'<', U'>', 226}}},
    {"Dvorak",
     U"1234567890",
     U"!@#$%^&*()",
     U"',.PYFGCRLAOEUIDHTN;QJKXBM",
     {{20, U'[', U'{', 219},
      {21, U']', U'}', 221},
      {24, U'\'', U'"', 222},
      {25, U',', U'<', 188},
      {26, U'.', U'>', 190},
      {34, U'/', U'?', 191},
      {35, U'=', U'+', 187},
      {48, U'-', U'_', 189},
      {49, U'`', U'~', 192},
      {51, U'\\', U'|', 220},
      {52, U';', U':', 186},
      {94, U'<', U'>', 226}}},
    {"Russian",
     U"1234567890",
     U"!\"№;%:?*()",
     U"ЙЦУКЕНГШЩЗФЫВАПРОЛДЯЧСМИТЬ",
     {{20, U'-', U'_', 189},
      {21, U'=', U'+', 187},
      {34, U'Х', U'Х', 219},
      {35, U'Ъ', U'Ъ', 221},
      {47, U'Ж', U'Ж', 186},
      {48, U'Э', U'Э', 222},
      {49, U'Ё', U'Ё', 192},
      {51, U'\\', U'/', 220},
      {59, U'Б', U'Б', 188},
      {60, U'Ю', U'Ю', 226},
      {61, U'.', U',', 190}}},
};

class EveryLayout : public testing::TestWithParam<Layout> {};

TEST_P(EveryLayout, HasItsDigitRowByPlace) {
  const Layout& layout = GetParam();
  for (unsigned i = 0; i < 10; ++i) {
    const int digit = i == 9 ? 0 : static_cast<int>(i) + 1;
    for (const bool shift : {false, true}) {
      const char32_t symbol = (shift ? layout.shiftedDigits : layout.digits).at(i);
      EXPECT_EQ(CodeOfTypingKey({symbol, 10 + i, shift}), '0' + digit);
      EXPECT_EQ(DigitOfTypingKey({symbol, 10 + i, shift}), digit);
    }
  }
}

TEST_P(EveryLayout, HasItsLettersByWhatIsOnTheKey) {
  const Layout& layout = GetParam();
  for (std::size_t i = 0; i < UsLetters.size(); ++i) {
    const char32_t symbol = layout.letters.at(i);
    const bool latin = symbol >= U'A' && symbol <= U'Z';
    if (!latin && symbol < 0x370) continue;  // a sign; see below
    const auto expected = static_cast<int>(latin ? symbol : UsLetters.at(i));
    for (const bool shift : {false, true}) {
      EXPECT_EQ(CodeOfTypingKey({symbol, LetterPlaces[i], shift}), expected);
      EXPECT_FALSE(DigitOfTypingKey({symbol, LetterPlaces[i], shift}));
    }
  }
}

TEST_P(EveryLayout, HasItsFurtherKeysBySymbolOrPlace) {
  for (const Cap& cap : GetParam().caps) {
    EXPECT_EQ(CodeOfTypingKey({cap.plain, cap.scanCode, false}), cap.code) << cap.scanCode;
    const int shifted = cap.shiftedCode == 0 ? cap.code : cap.shiftedCode;
    EXPECT_EQ(CodeOfTypingKey({cap.shifted, cap.scanCode, true}), shifted) << cap.scanCode;
  }
}

TEST_P(EveryLayout, GivesNoTwoKeysOneCode) {
  const Layout& layout = GetParam();
  std::map<int, unsigned> places;
  const auto add = [&](char32_t symbol, unsigned scanCode) {
    const int code = CodeOfTypingKey({symbol, scanCode, false});
    EXPECT_NE(code, 0) << scanCode;
    const auto [entry, added] = places.emplace(code, scanCode);
    EXPECT_TRUE(added || entry->second == scanCode)
        << code << " is the key at " << scanCode << " and the one at " << entry->second;
  };
  for (unsigned i = 0; i < 10; ++i) add(layout.digits.at(i), 10 + i);
  for (std::size_t i = 0; i < UsLetters.size(); ++i) add(layout.letters.at(i), LetterPlaces[i]);
  for (const auto& [name, letter] : {std::pair{"French", U'M'}, std::pair{"Dvorak", U'S'}}) {
    if (layout.name == name) add(letter, 47);
  }
  for (const Cap& cap : layout.caps) add(cap.plain, cap.scanCode);
}

INSTANTIATE_TEST_SUITE_P(KeyCodes, EveryLayout, testing::ValuesIn(Layouts), [](const auto& layout) {
  std::string name = layout.param.name;
  std::erase(name, ' ');
  return name;
});

TEST(CodeOfTypingKey, KeepsCommaAndMApartOnAFrenchKeyboard) {
  EXPECT_EQ(CodeOfTypingKey({U',', 58}), 188);
  EXPECT_EQ(CodeOfTypingKey({U'?', 58, true}), 188);
  EXPECT_EQ(CodeOfTypingKey({U'M', 47}), 'M');
}

TEST(CodeOfTypingKey, FindsEachSignOfTheTableWhereverItIs) {
  const std::map<char32_t, int> signs = {{U',', 188}, {U'-', 189}, {U'.', 190}, {U'/', 191},
                                         {U';', 186}, {U'=', 187}, {U'[', 219}, {U'\\', 220},
                                         {U']', 221}, {U'`', 192}};
  for (const auto& [symbol, code] : signs) {
    for (const unsigned scanCode : {24U, 30U, 49U, 52U, 58U, 94U}) {
      EXPECT_EQ(CodeOfTypingKey({symbol, scanCode}), code) << scanCode;
    }
  }
}

TEST(CodeOfTypingKey, GivesASignOrAnAccentedLetterNoLettersCode) {
  EXPECT_EQ(CodeOfTypingKey({U'!', 58}), 0) << "where the US layout has M";
  EXPECT_EQ(CodeOfTypingKey({U'É', 25}), 0) << "where it has W, which is on another key";
  EXPECT_EQ(CodeOfTypingKey({U'Ω', 55}), 'V') << "a Greek letter";
}

TEST(CodeOfTypingKey, TakesTheUsSymbolsWithoutAPlace) {
  EXPECT_EQ(CodeOfTypingKey({U'&'}), '7');
  EXPECT_EQ(CodeOfTypingKey({U'5'}), '5');
  EXPECT_EQ(CodeOfTypingKey({U'?', 0, true}), 191);
  EXPECT_EQ(CodeOfTypingKey({U'É'}), 0);
  EXPECT_EQ(CodeOfTypingKey({}), 0);
}

TEST(DigitOfTypingKey, IsNothingForOtherKeys) {
  EXPECT_FALSE(DigitOfTypingKey({U'-', 20}));
  EXPECT_FALSE(DigitOfTypingKey({U'Q', 24}));
  EXPECT_FALSE(DigitOfTypingKey({U'<', 94}));
}

}  // namespace
