#include "settings/ProfileText.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

/// The value of key "k" in section "S".
std::optional<Text> ValueIn(TextView content) { return ProfileText(content).Value(u"S", u"k"); }

/// The value of key "k" on a line of its own.
std::optional<Text> ValueOfLine(TextView line) {
  return ValueIn(u"[S]\r\n" + Text(line) + u"\r\n");
}

Text AfterSetting(TextView content, TextView section, TextView key, TextView value) {
  ProfileText profile(content);
  profile.SetValue(section, key, value);
  return profile.Content();
}

Text AfterRemovingKey(TextView content, TextView section, TextView key) {
  ProfileText profile(content);
  profile.RemoveKey(section, key);
  return profile.Content();
}

Text AfterRemovingSection(TextView content, TextView section) {
  ProfileText profile(content);
  profile.RemoveSection(section);
  return profile.Content();
}

// Lines

TEST(ProfileTextLines, EndAtCrLf) {
  const ProfileText profile(u"[S]\r\na=1\r\nb=2\r\n");
  EXPECT_EQ(profile.Value(u"S", u"a"), u"1");
  EXPECT_EQ(profile.Value(u"S", u"b"), u"2");
}

TEST(ProfileTextLines, EndAtLfWhereThereIsNoCrLf) {
  const ProfileText profile(u"[S]\na=1\nb=2\n");
  EXPECT_EQ(profile.Value(u"S", u"a"), u"1");
  EXPECT_EQ(profile.Value(u"S", u"b"), u"2");
}

TEST(ProfileTextLines, EndAtALoneBreakTooButForTheValueOfKeyAssignments) {
  const ProfileText profile(u"[S]\r\na=1\nb=2\rc=3\n\n keys = 12E\n36N\r\r\nd=4\r\n");
  EXPECT_EQ(profile.Value(u"S", u"a"), u"1");
  EXPECT_EQ(profile.Value(u"S", u"b"), u"2");
  EXPECT_EQ(profile.Value(u"S", u"c"), u"3");
  EXPECT_EQ(profile.Value(u"S", u"KEYS"), u"12E\n36N\r");
  EXPECT_EQ(profile.Value(u"S", u"d"), u"4");
  EXPECT_EQ(profile.Content(), u"[S]\r\na=1\r\nb=2\r\nc=3\r\n\r\n keys = 12E\n36N\r\r\nd=4\r\n");
}

TEST(ProfileTextLines, EndAtALoneCrToo) {
  const ProfileText profile(u"[S]\nk=a\rl=b\nKEYS=12E\r\t\nm=c\r");
  EXPECT_EQ(profile.Value(u"S", u"k"), u"a");
  EXPECT_EQ(profile.Value(u"S", u"l"), u"b");
  EXPECT_EQ(profile.Value(u"S", u"KEYS"), u"12E\r\t");
  EXPECT_EQ(ProfileText(profile.Content()).Content(), profile.Content());
}

TEST(ProfileTextLines, NeedNoEndAtTheEndOfTheFile) { EXPECT_EQ(ValueIn(u"[S]\r\nk=1"), u"1"); }

TEST(ProfileTextLines, AreAlwaysWrittenWithCrLf) {
  EXPECT_EQ(ProfileText(u"[S]\n\na=1\n;c").Content(), u"[S]\r\n\r\na=1\r\n;c\r\n");
}

TEST(ProfileTextLines, SurviveUntouched) {
  constexpr TextView Content =
      u"junk\r\n\r\n ; note\r\n[ S ] more\r\n\t K = \"v\" \r\n\r\nnothing\r\n[S]\r\n=x\r\n\r\n";
  EXPECT_EQ(ProfileText(Content).Content(), Content);
}

TEST(ProfileTextLines, OfNothingAreNone) {
  EXPECT_EQ(ProfileText(u"").Content(), u"");
  EXPECT_EQ(ValueIn(u""), std::nullopt);
}

// Reading values

struct ValueCase {
  TextView line;
  TextView value;
};

TEST(ProfileTextValue, IsWhatStandsBehindTheFirstEqualsSign) {
  constexpr ValueCase Table[] = {
      {u"k=1", u"1"},         {u"k = a=b ", u"a=b"}, {u"  k  =  v  ", u"v"},
      {u"\tk\t=\tv", u"v"},   {u"k=a;b", u"a;b"},    {u"k=[x]", u"[x]"},
      {u"k=", u""},           {u"k=   ", u""},       {u"k=a\tb", u"a\tb"},
      {u"k==", u"="},         {u"K=v", u"v"},        {u"k=\u00A0v\u00A0", u"\u00A0v\u00A0"},
      {u"\fk\v=\x1Av", u"v"},
  };
  for (const auto& [line, value] : Table)
    EXPECT_EQ(ValueOfLine(line), value) << testing::PrintToString(line);
}

TEST(ProfileTextValue, LosesBlanksAtTheRightEndButNoOtherControlCharacter) {
  for (const TextView end : {u"\t", u"\n", u"\v", u"\f", u"\r", u"\x1A"}) {
    const Text value = u"12E" + Text(end);
    for (const Text& line : {u"KEYS=" + value, u"KEYS=" + value + u"   "}) {
      EXPECT_EQ(ProfileText(u"[S]\r\n" + line + u"\r\n").Value(u"S", u"KEYS"), value);
    }
  }
}

TEST(ProfileTextValue, LosesOnePairOfEnclosingQuotes) {
  constexpr ValueCase Table[] = {
      {u"k=\"  x \"", u"  x "}, {u"k='x'", u"x"},         {u"k=\"\"x\"\"", u"\"x\""},
      {u"k=\"\"", u""},         {u"k=''", u""},           {u"k= \"x\" ", u"x"},
      {u"k=\"x'", u"\"x'"},     {u"k='x\"", u"'x\""},     {u"k=\"", u"\""},
      {u"k='", u"'"},           {u"k=\"x", u"\"x"},       {u"k=x\"", u"x\""},
      {u"k=a\"b\"", u"a\"b\""}, {u"k='\"x\"'", u"\"x\""},
  };
  for (const auto& [line, value] : Table)
    EXPECT_EQ(ValueOfLine(line), value) << testing::PrintToString(line);
}

TEST(ProfileTextValue, IsAbsentOnLinesThatAreNoKeyLines) {
  for (const TextView line : {u"k", u";k=1", u"  ;k=1", u"[k=1", u"xk=1", u"kx=1", u"=k"}) {
    EXPECT_EQ(ValueOfLine(line), std::nullopt) << testing::PrintToString(line);
  }
}

TEST(ProfileTextValue, CanNeverBeFetchedFromAComment) {
  EXPECT_EQ(ProfileText(u"[S]\r\n;k=1\r\n").Value(u"S", u";k"), std::nullopt);
}

TEST(ProfileTextValue, CanHaveAKeyThatBeginsLikeOtherComments) {
  const ProfileText profile(u"[S]\r\n#k=1\r\n//k=2\r\n");
  EXPECT_EQ(profile.Value(u"S", u"#k"), u"1");
  EXPECT_EQ(profile.Value(u"S", u"//k"), u"2");
}

TEST(ProfileTextValue, IsFoundWithoutRegardToLetterCase) {
  const ProfileText profile(u"[Espa\u00F1ol]\r\nFrontFont=x\r\n");
  EXPECT_EQ(profile.Value(u"ESPA\u00D1OL", u"FRONTFONT"), u"x");
  EXPECT_EQ(profile.Value(u"espa\u00F1ol", u"frontfont"), u"x");
}

TEST(ProfileTextValue, IsFoundUnderANameWithBlanksAround) {
  EXPECT_EQ(ProfileText(u"[S]\r\nk=1\r\n").Value(u"  s ", u" k  "), u"1");
}

TEST(ProfileTextValue, IsNotFoundUnderANameWithTabsAround) {
  EXPECT_EQ(ProfileText(u"[S]\r\nk=1\r\n").Value(u"S\t", u"k"), std::nullopt);
  EXPECT_EQ(ProfileText(u"[S]\r\nk=1\r\n").Value(u"S", u"\tk"), std::nullopt);
}

TEST(ProfileTextValue, ComesFromTheFirstKeyOfTheName) {
  EXPECT_EQ(ValueIn(u"[S]\r\nk=1\r\nK=2\r\n"), u"1");
}

TEST(ProfileTextValue, ComesFromTheFirstSectionOfTheName) {
  EXPECT_EQ(ValueIn(u"[S]\r\nk=1\r\n[T]\r\nk=2\r\n[s]\r\nk=3\r\n"), u"1");
  EXPECT_EQ(ValueIn(u"[S]\r\nj=1\r\n[T]\r\nk=2\r\n[s]\r\nk=3\r\n"), std::nullopt);
}

TEST(ProfileTextValue, OfAnotherSectionIsNotTaken) {
  EXPECT_EQ(ValueIn(u"[S]\r\n[T]\r\nk=2\r\n"), std::nullopt);
}

TEST(ProfileTextValue, BeforeTheFirstHeaderIsOutOfReach) {
  EXPECT_EQ(ValueIn(u"k=1\r\n[S]\r\n"), std::nullopt);
  EXPECT_EQ(ProfileText(u"k=1\r\n").Value(u"", u"k"), std::nullopt);
}

// Headers

TEST(ProfileTextHeader, IsNamedUpToTheFirstClosingBracket) {
  constexpr ValueCase Table[] = {
      {u"[a]b]", u"a"},       {u"[a] ; note", u"a"}, {u"[ a ]", u"a"},
      {u" \t[a]", u"a"},      {u"[a b]", u"a b"},    {u"[[a]", u"[a"},
      {u"[\"a\"]", u"\"a\""}, {u"[a", u"a"},         {u"[ a ", u"a"},
      {u"[]", u""},           {u"[", u""},
  };
  for (const auto& [line, name] : Table) {
    EXPECT_EQ(ProfileText(Text(line) + u"\r\nk=1\r\n").Value(name, u"k"), u"1")
        << testing::PrintToString(line);
  }
}

TEST(ProfileTextHeader, DefinesNoKeyOnItsLine) {
  EXPECT_EQ(ProfileText(u"[a]k=1\r\n").Value(u"a", u"k"), std::nullopt);
  EXPECT_EQ(ProfileText(u"[a]k=1\r\n").Value(u"a", u"[a]k"), std::nullopt);
}

TEST(ProfileTextHeader, IsFoundUnderANameThatGoesOnBehindABracket) {
  ProfileText profile(u"[a]b]\r\nk=1\r\n");
  EXPECT_EQ(profile.Value(u"a]b", u"k"), u"1");
  profile.SetValue(u"a]b", u"k", u"2");
  EXPECT_EQ(profile.Content(), u"[a]b]\r\nk=2\r\n");
}

TEST(ProfileTextHeader, MustStartItsLine) {
  EXPECT_EQ(ProfileText(u"x[S]\r\nk=1\r\n").Value(u"S", u"k"), std::nullopt);
}

TEST(ProfileTextHeader, InACommentIsNone) { EXPECT_EQ(ValueIn(u"[S]\r\n;[T]\r\nk=1\r\n"), u"1"); }

// Writing values

TEST(ProfileTextSetValue, ReplacesTheValueOnItsLine) {
  EXPECT_EQ(AfterSetting(u"; top\r\n\r\n[ s ]x\r\na=1\r\n K = old ; x\r\n;end\r\n[T]\r\n", u"S",
                         u"k", u"new"),
            u"; top\r\n\r\n[ s ]x\r\na=1\r\n K =new\r\n;end\r\n[T]\r\n");
}

TEST(ProfileTextSetValue, ReplacesTheFirstOfEqualKeysInTheFirstOfEqualSections) {
  EXPECT_EQ(AfterSetting(u"[S]\r\nk=1\r\nk=2\r\n[S]\r\nk=3\r\n", u"S", u"k", u"x"),
            u"[S]\r\nk=x\r\nk=2\r\n[S]\r\nk=3\r\n");
}

TEST(ProfileTextSetValue, AddsAKeyBehindTheLastKeyOfItsSection) {
  EXPECT_EQ(AfterSetting(u"[S]\r\na=1\r\n\r\n; note\r\n\r\n[T]\r\n", u"S", u"k", u"v"),
            u"[S]\r\na=1\r\nk=v\r\n\r\n; note\r\n\r\n[T]\r\n");
}

TEST(ProfileTextSetValue, AddsTheFirstKeyBehindTheHeader) {
  EXPECT_EQ(AfterSetting(u"[S]\r\n; note\r\n[T]\r\nk=1\r\n", u"S", u"k", u"v"),
            u"[S]\r\nk=v\r\n; note\r\n[T]\r\nk=1\r\n");
}

TEST(ProfileTextSetValue, AddsToTheFirstSectionOfTheName) {
  EXPECT_EQ(AfterSetting(u"[S]\r\na=1\r\n[s]\r\nk=3\r\n", u"S", u"k", u"v"),
            u"[S]\r\na=1\r\nk=v\r\n[s]\r\nk=3\r\n");
}

TEST(ProfileTextSetValue, KeepsTheOrderOfWriting) {
  ProfileText profile(u"");
  profile.SetValue(u"S", u"b", u"1");
  profile.SetValue(u"S", u"a", u"2");
  profile.SetValue(u"T", u"c", u"3");
  profile.SetValue(u"S", u"d", u"4");
  EXPECT_EQ(profile.Content(), u"[S]\r\nb=1\r\na=2\r\nd=4\r\n[T]\r\nc=3\r\n");
}

TEST(ProfileTextSetValue, AddsASectionAtTheEndWithoutABlankLine) {
  EXPECT_EQ(AfterSetting(u"[S]\r\na=1", u"T", u"k", u"v"), u"[S]\r\na=1\r\n[T]\r\nk=v\r\n");
}

TEST(ProfileTextSetValue, CutsBlanksFromTheNamesItWrites) {
  EXPECT_EQ(AfterSetting(u"", u" a ] ", u"  k ", u"v"), u"[a ]]\r\nk=v\r\n");
}

TEST(ProfileTextSetValue, GivesAValueInQuotesASecondPair) {
  EXPECT_EQ(AfterSetting(u"[S]\r\nk=1\r\n", u"S", u"k", u"\"a\""), u"[S]\r\nk=\"\"a\"\"\r\n");
  for (const TextView value :
       {u"\"a\"", u"'a'", u"\"\"", u"''", u"\"'a'\"", u"\"", u"'a\"", u"\"a"}) {
    ProfileText profile(u"");
    profile.SetValue(u"S", u"k", value);
    EXPECT_EQ(profile.Value(u"S", u"k"), value);
  }
}

TEST(ProfileTextSetValue, WritesTheValueRaw) {
  EXPECT_EQ(AfterSetting(u"[S]\r\nk=1\r\n", u"S", u"k", u" \"a\"\t\r "),
            u"[S]\r\nk= \"a\"\t\r \r\n");
  EXPECT_EQ(AfterSetting(u"[S]\r\n", u"S", u"k", u" v "), u"[S]\r\nk= v \r\n");
}

TEST(ProfileTextSetValue, CanWriteAnEmptyValue) {
  EXPECT_EQ(AfterSetting(u"[S]\r\nk=1\r\n", u"S", u"k", u""), u"[S]\r\nk=\r\n");
  EXPECT_EQ(ValueIn(u"[S]\r\nk=\r\n"), u"");
}

TEST(ProfileTextSetValue, WithTheSameValueChangesNothing) {
  EXPECT_EQ(AfterSetting(u"[S]\r\nk=v\r\n", u"s", u"K", u"v"), u"[S]\r\nk=v\r\n");
}

TEST(ProfileTextSetValue, KeepsLoneLineBreakCharactersForTheNextReading) {
  for (int code = 1; code < 256; ++code) {
    if (code == ' ') continue;
    const Text value{u'3', u'2', u'K', static_cast<char16_t>(code)};
    EXPECT_EQ(
        ProfileText(AfterSetting(u"", u"S", u"KEYS", value + Text(116, u' '))).Value(u"S", u"KEYS"),
        value)
        << code;
  }
}

// Removing

TEST(ProfileTextRemoveKey, RemovesItsLine) {
  EXPECT_EQ(AfterRemovingKey(u"[S]\r\na=1\r\n K = 2\r\n;x\r\n", u"s", u"k"),
            u"[S]\r\na=1\r\n;x\r\n");
}

TEST(ProfileTextRemoveKey, LeavesTheHeaderOfAnEmptySection) {
  EXPECT_EQ(AfterRemovingKey(u"[S]\r\nk=1\r\n[T]\r\n", u"S", u"k"), u"[S]\r\n[T]\r\n");
}

TEST(ProfileTextRemoveKey, RemovesTheFirstOfEqualKeys) {
  EXPECT_EQ(AfterRemovingKey(u"[S]\r\nk=1\r\nk=2\r\n", u"S", u"k"), u"[S]\r\nk=2\r\n");
}

TEST(ProfileTextRemoveKey, ChangesNothingWhereKeyOrSectionIsMissing) {
  constexpr TextView Content = u"[S]\r\na=1\r\n;k=1\r\n[T]\r\nk=1\r\n";
  EXPECT_EQ(AfterRemovingKey(Content, u"S", u"k"), Content);
  EXPECT_EQ(AfterRemovingKey(Content, u"U", u"k"), Content);
}

TEST(ProfileTextRemoveSection, RemovesHeaderAndKeys) {
  EXPECT_EQ(AfterRemovingSection(u"[R]\r\na=1\r\n[ s ] x\r\nk=1\r\n l = 2\r\n[T]\r\nk=1\r\n", u"S"),
            u"[R]\r\na=1\r\n[T]\r\nk=1\r\n");
}

TEST(ProfileTextRemoveSection, LeavesItsCommentsAndOtherLines) {
  EXPECT_EQ(AfterRemovingSection(u"[R]\r\n[S]\r\n; a=1\r\nk=1\r\n\r\njunk\r\n[T]\r\n", u"S"),
            u"[R]\r\n; a=1\r\n\r\njunk\r\n[T]\r\n");
}

TEST(ProfileTextRemoveSection, RemovesTheFirstOfTheName) {
  EXPECT_EQ(AfterRemovingSection(u"[S]\r\na=1\r\n[s]\r\nb=2\r\n", u"S"), u"[s]\r\nb=2\r\n");
}

TEST(ProfileTextRemoveSection, ChangesNothingWhereItIsMissing) {
  EXPECT_EQ(AfterRemovingSection(u"[S]\r\na=1\r\n", u"T"), u"[S]\r\na=1\r\n");
}

}  // namespace
