#include "keys/KeyAssignmentEditing.h"

#include "keys/KeyNames.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TextPrinters.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

constexpr TickedSides FrontOnly{.front = true, .back = false};
constexpr TickedSides BackOnly{.front = false, .back = true};
constexpr TickedSides BothSides{.front = true, .back = true};

constexpr CharCode Code(int number) { return static_cast<CharCode>(number); }
constexpr CharCode EAcute = Code(233);

KeyAssignment Assignment(char side, char modifiers, int key, int character) {
  return {Code(side), Code(modifiers), Code(key), Code(character)};
}

/// Front Ctrl+A, Ctrl+B, ... with the characters 192, 193, ...
KeyTable TableOf(int count) {
  KeyTable table;
  for (int i = 1; i <= count; ++i) {
    table.Slots.at(static_cast<std::size_t>(i)) = Assignment('1', '2', 'A' + i - 1, 191 + i);
  }
  table.KeyCount = count;
  return table;
}

KeyAssignmentEditing EditingOf(std::initializer_list<KeyAssignment> assignments) {
  KeyTable table;
  for (const KeyAssignment& assignment : assignments) {
    ++table.KeyCount;
    table.Slots.at(static_cast<std::size_t>(table.KeyCount)) = assignment;
  }
  return KeyAssignmentEditing(table);
}

TEST(SideMark, AddsOneForTheFrontAndTwoForTheBack) {
  EXPECT_EQ(SideMark(FrontOnly), FrontSideMark);
  EXPECT_EQ(SideMark(BackOnly), BackSideMark);
  EXPECT_EQ(SideMark(BothSides), BothSidesMark);
}

TEST(FontOfSides, IsThatOfTheOnlyTickedSide) {
  EXPECT_EQ(FontOfSides(FrontOnly), KeyFont::Front);
  EXPECT_EQ(FontOfSides(BackOnly), KeyFont::Back);
  EXPECT_EQ(FontOfSides(BothSides), KeyFont::Default);
}

TEST(FontOfAssignment, FollowsTheBoxesOnlyForBothSides) {
  for (const TickedSides sides : {FrontOnly, BackOnly, BothSides}) {
    EXPECT_EQ(FontOfAssignment(Assignment('1', '2', 'E', 233), sides), KeyFont::Front);
    EXPECT_EQ(FontOfAssignment(Assignment('2', '2', 'E', 233), sides), KeyFont::Back);
    EXPECT_EQ(FontOfAssignment(Assignment('3', '2', 'E', 233), sides), FontOfSides(sides));
  }
}

TEST(AssignableCharacters, AreAllCodesButZeroOnce) {
  const auto characters = AssignableCharacters();
  const std::set<CharCode> different(characters.begin(), characters.end());
  EXPECT_EQ(different.size(), 255U);
  EXPECT_FALSE(different.contains(Code(0)));
}

TEST(AssignableCharacters, BeginWithAccentedLettersAndEndWithControlCodes) {
  std::vector<int> expected;
  const auto add = [&](int first, int last) {
    for (int code = first; code <= last; ++code) expected.push_back(code);
  };
  add(192, 214);
  add(216, 246);
  add(248, 255);
  add(188, 190);
  for (const int code : {215, 247, 177, 176, 185, 178, 179, 145, 146}) expected.push_back(code);
  add(161, 172);
  for (const int code : {174, 175, 180, 181, 182, 183, 184, 186, 187, 191, 173}) {
    expected.push_back(code);
  }
  add(147, 160);
  for (int code = 144; code >= 1; --code) expected.push_back(code);
  std::vector<int> actual;
  for (const CharCode character : AssignableCharacters()) {
    actual.push_back(static_cast<int>(character));
  }
  EXPECT_EQ(actual, expected);
}

TEST(KeystrokeSuggestions, AreTheVowelsUnderEachCombinationWithCtrlOrAlt) {
  const std::vector<Text> expected = {u"Ctrl+A",
                                      u"Ctrl+E",
                                      u"Ctrl+I",
                                      u"Ctrl+O",
                                      u"Ctrl+U",
                                      u"Shift+Ctrl+A",
                                      u"Shift+Ctrl+E",
                                      u"Shift+Ctrl+I",
                                      u"Shift+Ctrl+O",
                                      u"Shift+Ctrl+U",
                                      u"Alt+A",
                                      u"Alt+E",
                                      u"Alt+I",
                                      u"Alt+O",
                                      u"Alt+U",
                                      u"Shift+Alt+A",
                                      u"Shift+Alt+E",
                                      u"Shift+Alt+I",
                                      u"Shift+Alt+O",
                                      u"Shift+Alt+U",
                                      u"Ctrl+Alt+A",
                                      u"Ctrl+Alt+E",
                                      u"Ctrl+Alt+I",
                                      u"Ctrl+Alt+O",
                                      u"Ctrl+Alt+U",
                                      u"Shift+Ctrl+Alt+A",
                                      u"Shift+Ctrl+Alt+E",
                                      u"Shift+Ctrl+Alt+I",
                                      u"Shift+Ctrl+Alt+O",
                                      u"Shift+Ctrl+Alt+U"};
  EXPECT_EQ(KeystrokeSuggestions(), expected);
}

TEST(KeystrokeSuggestions, AreAllReadAsKeystrokes) {
  for (const Text& suggestion : KeystrokeSuggestions()) {
    EXPECT_TRUE(ParseKeystroke(suggestion)) << ToUtf8(suggestion);
  }
}

TEST(IsAssignableKey, NeedsACodeAbove48) {
  for (int key = 0; key <= 255; ++key) {
    EXPECT_EQ(IsAssignableKey(key, CtrlModifier), key > 48 && key != 190) << key;
  }
  EXPECT_FALSE(IsAssignableKey(256, CtrlModifier));
}

TEST(IsAssignableKey, NeedsCtrlOrAlt) {
  for (int shift = 0; shift <= 7; ++shift) EXPECT_EQ(IsAssignableKey('E', shift), shift > 1);
}

TEST(PressedKeyText, NamesModifiersAndKey) {
  EXPECT_EQ(PressedKeyText('E', CtrlModifier), u"Ctrl+E");
  EXPECT_EQ(PressedKeyText(219, 7), u"Shift+Ctrl+Alt+[");
}

TEST(ParseKeystroke, ReadsTheKeyFromTheLastCharacter) {
  EXPECT_EQ(ParseKeystroke(u"Ctrl+E"), (Keystroke{Code('2'), Code('E')}));
  EXPECT_EQ(ParseKeystroke(u"Alt+["), (Keystroke{Code('4'), Code(219)}));
  EXPECT_EQ(ParseKeystroke(u"Ctrl++"), std::nullopt);  // code 43: no key that can be assigned
}

TEST(ParseKeystroke, ScoresTheModifiersThatItContains) {
  for (int modifiers = 1; modifiers <= 7; ++modifiers) {
    EXPECT_EQ(ParseKeystroke(ModifierName(modifiers) + u"E"),
              (Keystroke{Code('0' + modifiers), Code('E')}));
  }
  EXPECT_EQ(ParseKeystroke(u"Alt and Ctrl E"), (Keystroke{Code('6'), Code('E')}));
}

TEST(ParseKeystroke, LeavesTheLastTwoCharactersOutOfTheModifiers) {
  EXPECT_EQ(ParseKeystroke(u"Shift+Ctrl"), (Keystroke{Code('1'), Code('l')}));
}

TEST(ParseKeystroke, RefusesTextsWithoutModifierOrKey) {
  for (const TextView text : {u"", u"E", u"+E", u"plain E", u"ctrl+E", u"Ctrl+\u0101"}) {
    EXPECT_EQ(ParseKeystroke(text), std::nullopt) << ToUtf8(text);
  }
}

TEST(ParseKeystroke, ReadsEveryAssignableKeyOrRefusesIt) {
  for (int code = 0; code <= 255; ++code) {
    const Text text = u"Ctrl+" + Text(1, CharOfCode(Code(code)));
    const CharCode key = CharToKeyCode(Code(code));
    const auto expected =
        static_cast<int>(key) > 48 ? std::optional(Keystroke{Code('2'), key}) : std::nullopt;
    EXPECT_EQ(ParseKeystroke(text), expected) << code;
  }
}

TEST(CodeText, HasFourDigits) {
  EXPECT_EQ(CodeText(Code(1)), u"0001");
  EXPECT_EQ(CodeText(Code(42)), u"0042");
  EXPECT_EQ(CodeText(Code(255)), u"0255");
}

TEST(KeyRowText, MarksAssignmentsOfOneSide) {
  EXPECT_EQ(KeyRowText(Assignment('1', '2', 'E', 233)), u"[F] Ctrl+E");
  EXPECT_EQ(KeyRowText(Assignment('2', '5', 222, 233)), u"[B] Shift+Alt+'");
  EXPECT_EQ(KeyRowText(Assignment('3', '6', 'N', 241)), u"Ctrl+Alt+N");
}

TEST(ActionCaptions, SayWhatWouldHappen) {
  EXPECT_EQ(NoActionCaption, u"Action: None");
  EXPECT_EQ(AddCaption(u"0233", u""), u"ADD - 0233 = ");
  EXPECT_EQ(AddCaption(u"0233", u"Ctrl+E"), u"ADD - 0233 = Ctrl+E");
  EXPECT_EQ(DeleteCaption(Assignment('1', '2', 'E', 233)), u"DELETE - 0233 = [F] Ctrl+E");
}

TEST(ActionOf, ReadsTheCaption) {
  EXPECT_EQ(ActionOf(NoActionCaption), KeyAction::None);
  EXPECT_EQ(ActionOf(AddCaption(u"0233", u"Ctrl+E")), KeyAction::Add);
  EXPECT_EQ(ActionOf(DeleteCaption(Assignment('1', '2', 'E', 233))), KeyAction::Delete);
}

TEST(TakesTypedCharacters, EndsWithTheNineteenthCharacterOfTheCaption) {
  EXPECT_TRUE(TakesTypedCharacters(NoActionCaption));
  EXPECT_TRUE(TakesTypedCharacters(AddCaption(u"0233", u"")));
  EXPECT_TRUE(TakesTypedCharacters(AddCaption(u"0233", u"Alt+E")));
  EXPECT_FALSE(TakesTypedCharacters(AddCaption(u"0233", u"Ctrl+E")));
}

TEST(ScrollAtStart, IsOffBelowEightAssignments) {
  EXPECT_EQ(ScrollAtStart(0), (KeyScroll{false, 1, 1}));
  EXPECT_EQ(ScrollAtStart(7), (KeyScroll{false, 7, 1}));
}

TEST(ScrollAtStart, ReachesTheLastAssignment) {
  EXPECT_EQ(ScrollAtStart(8), (KeyScroll{true, 8, 1}));
  EXPECT_EQ(ScrollAtStart(30), (KeyScroll{true, 30, 1}));
}

TEST(ScrollAfterAdd, StaysOffWhileAllRowsFit) {
  EXPECT_EQ(ScrollAfterAdd(ScrollAtStart(6), 7), (KeyScroll{false, 6, 1}));
}

TEST(ScrollAfterAdd, ShowsTheNewAssignmentInTheLastRow) {
  EXPECT_EQ(ScrollAfterAdd({false, 1, 1}, 8), (KeyScroll{true, 2, 2}));
  EXPECT_EQ(ScrollAfterAdd({true, 29, 1}, 30), (KeyScroll{true, 24, 24}));
}

TEST(ScrollAfterDelete, GoesOffWhenAllRowsFit) {
  EXPECT_EQ(ScrollAfterDelete({true, 2, 2}, 7), (KeyScroll{false, 2, 1}));
}

TEST(ScrollAfterDelete, GoesBackByOneRow) {
  EXPECT_EQ(ScrollAfterDelete({true, 4, 3}, 9), (KeyScroll{true, 3, 2}));
  EXPECT_EQ(ScrollAfterDelete({true, 4, 1}, 9), (KeyScroll{true, 3, 1}));
}

TEST(ScrollAfterDelete, StaysInsideTheNewRange) {
  EXPECT_EQ(ScrollAfterDelete({true, 10, 10}, 9), (KeyScroll{true, 3, 3}));
}

TEST(KeyAssignmentEditing, BeginsWithTheUsedSlotsAndNoChange) {
  KeyTable table = TableOf(2);
  table.Slots[3] = Assignment('3', '7', 'Z', 200);
  const KeyAssignmentEditing editing(table);
  EXPECT_EQ(editing.WorkCount(), 2);
  EXPECT_EQ(editing.Assignment(1), table.Slot(1));
  EXPECT_EQ(editing.Assignment(2), table.Slot(2));
  EXPECT_EQ(editing.Assignment(0), std::nullopt);
  EXPECT_EQ(editing.Assignment(3), std::nullopt);
  EXPECT_EQ(editing.AcceptedKeys().Slot(3), KeyAssignment());
  EXPECT_FALSE(editing.Changed());
}

TEST(KeyAssignmentEditing, AppendsAnAssignment) {
  KeyAssignmentEditing editing(TableOf(1));
  EXPECT_EQ(editing.Add(u"Ctrl+Alt+E", BackOnly, EAcute), AddKeyResult::Added);
  EXPECT_EQ(editing.WorkCount(), 2);
  EXPECT_EQ(editing.Assignment(2), Assignment('2', '6', 'E', 233));
  EXPECT_TRUE(editing.Changed());
}

TEST(KeyAssignmentEditing, TakesTheThirtiethAssignmentAndNoMore) {
  KeyAssignmentEditing editing(TableOf(29));
  EXPECT_EQ(editing.Add(u"Alt+E", FrontOnly, EAcute), AddKeyResult::Added);
  EXPECT_EQ(editing.Add(u"Alt+A", FrontOnly, EAcute), AddKeyResult::TooMany);
  EXPECT_EQ(editing.WorkCount(), 30);
}

TEST(KeyAssignmentEditing, AddsNothingWithoutACharacter) {
  KeyAssignmentEditing editing{KeyTable()};
  EXPECT_EQ(editing.Add(u"Ctrl+E", BothSides, std::nullopt), AddKeyResult::Incomplete);
  EXPECT_EQ(editing.WorkCount(), 0);
  EXPECT_FALSE(editing.Changed());
}

TEST(KeyAssignmentEditing, AddsNothingWithoutAKeystroke) {
  KeyAssignmentEditing editing{KeyTable()};
  EXPECT_EQ(editing.Add(u"", BothSides, EAcute), AddKeyResult::Incomplete);
  EXPECT_EQ(editing.WorkCount(), 0);
}

TEST(KeyAssignmentEditing, TakesAKeystrokeOnceForEachSide) {
  KeyAssignmentEditing editing{KeyTable()};
  EXPECT_EQ(editing.Add(u"Ctrl+E", FrontOnly, EAcute), AddKeyResult::Added);
  EXPECT_EQ(editing.Add(u"Ctrl+E", BackOnly, EAcute), AddKeyResult::Added);
  EXPECT_EQ(editing.Add(u"Ctrl+E", FrontOnly, Code(200)), AddKeyResult::Exists);
  EXPECT_EQ(editing.Add(u"Ctrl+E", BackOnly, Code(200)), AddKeyResult::Exists);
  EXPECT_EQ(editing.Add(u"Ctrl+E", BothSides, Code(200)), AddKeyResult::Exists);
  EXPECT_EQ(editing.WorkCount(), 2);
}

TEST(KeyAssignmentEditing, TakesAKeystrokeForBothSidesOnlyOnce) {
  for (const TickedSides sides : {FrontOnly, BackOnly, BothSides}) {
    KeyAssignmentEditing editing = EditingOf({Assignment('3', '2', 'E', 233)});
    EXPECT_EQ(editing.Add(u"Ctrl+E", sides, EAcute), AddKeyResult::Exists);
    EXPECT_FALSE(editing.Changed());
  }
}

TEST(KeyAssignmentEditing, TellsKeysAndModifiersApart) {
  KeyAssignmentEditing editing = EditingOf({Assignment('3', '2', 'E', 233)});
  EXPECT_EQ(editing.Add(u"Ctrl+A", BothSides, EAcute), AddKeyResult::Added);
  EXPECT_EQ(editing.Add(u"Shift+Ctrl+E", BothSides, EAcute), AddKeyResult::Added);
}

TEST(KeyAssignmentEditing, FindsADuplicateInTheLastSlot) {
  KeyAssignmentEditing editing(TableOf(3));
  EXPECT_EQ(editing.Add(u"Ctrl+C", FrontOnly, EAcute), AddKeyResult::Exists);
}

TEST(KeyAssignmentEditing, ClosesUpAfterADeletion) {
  const KeyTable table = TableOf(4);
  KeyAssignmentEditing editing(table);
  EXPECT_TRUE(editing.Delete(2));
  EXPECT_EQ(editing.WorkCount(), 3);
  EXPECT_EQ(editing.Assignment(1), table.Slot(1));
  EXPECT_EQ(editing.Assignment(2), table.Slot(3));
  EXPECT_EQ(editing.Assignment(3), table.Slot(4));
  EXPECT_TRUE(editing.Changed());
}

TEST(KeyAssignmentEditing, DeletesTheLastOfThirty) {
  KeyAssignmentEditing editing(TableOf(30));
  EXPECT_TRUE(editing.Delete(30));
  EXPECT_EQ(editing.WorkCount(), 29);
  EXPECT_EQ(editing.Assignment(29), TableOf(30).Slot(29));
}

TEST(KeyAssignmentEditing, DeletesNothingOutsideTheUsedSlots) {
  for (const int slot : {-1, 0, 3}) {
    KeyAssignmentEditing editing(TableOf(2));
    EXPECT_FALSE(editing.Delete(slot));
    EXPECT_EQ(editing.WorkCount(), 2);
    EXPECT_FALSE(editing.Changed());
  }
}

TEST(KeyAssignmentEditing, IsChangedEvenWhenADeletionUndoesAnAddition) {
  KeyAssignmentEditing editing(TableOf(1));
  EXPECT_EQ(editing.Add(u"Alt+E", BothSides, EAcute), AddKeyResult::Added);
  EXPECT_TRUE(editing.Delete(2));
  EXPECT_TRUE(editing.Changed());
}

TEST(KeyAssignmentEditing, StoresOnlyTheUsedSlots) {
  KeyAssignmentEditing editing(TableOf(3));
  EXPECT_TRUE(editing.Delete(1));
  const KeyTable accepted = editing.AcceptedKeys();
  EXPECT_EQ(accepted.KeyCount, 2);
  EXPECT_EQ(accepted.Slot(2), TableOf(3).Slot(3));
  EXPECT_EQ(accepted.Slot(3), KeyAssignment());
  EXPECT_EQ(TrimRight(KeysText(accepted)), u"12BÁ12CÂ");
}

TEST(KeyAssignmentEditing, NeverStoresALineBreakAsKeyAndCharacter) {
  KeyAssignmentEditing editing{KeyTable()};
  EXPECT_EQ(editing.Add(u"Ctrl+\r", BothSides, Code(10)), AddKeyResult::Incomplete);
  EXPECT_EQ(editing.Add(u"Ctrl+E", BothSides, Code(10)), AddKeyResult::Added);
  EXPECT_EQ(KeysText(editing.AcceptedKeys()).find(LineBreak), Text::npos);
}

TEST(KeyPrompts, HaveTheirTextsIconsAndButtons) {
  ExpectPrompt(TooManyKeysPrompt(), u"Maximum of 30 Key Assignments!", PromptIcon::Exclamation,
               PromptButtons::Ok);
  ExpectPrompt(KeyExistsPrompt(), u"This Control Key Assignment Already Exists!",
               PromptIcon::Exclamation, PromptButtons::Ok);
  ExpectPrompt(SaveKeysPrompt(u"General  "), u"Save These Key Assignments for General?",
               PromptIcon::Question, PromptButtons::YesNo);
  ExpectPrompt(AddTopicAndKeysPrompt(u"Spanish "), u"Add Spanish and keys to File?",
               PromptIcon::Question, PromptButtons::YesNo);
}

}  // namespace
