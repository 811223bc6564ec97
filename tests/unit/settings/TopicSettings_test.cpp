#include "settings/TopicSettings.h"

#include "tests/support/MemoryFiles.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* FirstRun =
    "[TOPICS]\r\n"
    "DEFAULT=0\r\n"
    "0=General\r\n"
    "[General]\r\n"
    "FRONTFONT=MS Sans Serif\r\n"
    "FRONTSIZE=8.25\r\n"
    "BACKFONT=MS Sans Serif\r\n"
    "BACKSIZE=8.25\r\n";

class TopicSettingsTest : public testing::Test {
 protected:
  void Put(std::string content) { files.Put(u"QUIBCRDS.INI", std::move(content)); }
  std::string Content() const { return files.Content(u"QUIBCRDS.INI"); }
  /// As the program starts.
  void Start() {
    InitSettings(profile);
    LoadTopicList(topics, profile);
  }

  MemoryFiles files;
  ProfileFile profile{files, u"QUIBCRDS.INI"};
  TopicList topics;
};

KeyTable OneKey() {
  KeyTable keys;
  keys.KeyCount = 1;
  keys.Slots[1] = {CharCode{'1'}, CharCode{'2'}, CharCode{'E'}, CharCode{0xE9}};
  return keys;
}

// First run

TEST_F(TopicSettingsTest, TheFirstRunWritesTopic0) {
  InitSettings(profile);
  EXPECT_EQ(Content(), FirstRun);
}

TEST_F(TopicSettingsTest, ALaterRunWritesNothing) {
  InitSettings(profile);
  const int commits = files.commits;
  InitSettings(profile);
  EXPECT_EQ(files.commits, commits);
}

TEST_F(TopicSettingsTest, ADefaultTopicOfAnyKindMakesTheFileAnOldOne) {
  for (const char* const value :
       {"0", "7", "abc", "-2", "2147483647", "-1", "", "0xFFFFFFFF", "4294967295"}) {
    const std::string content = "[topics]\r\ndefault=" + std::string(value) + "\r\n";
    Put(content);
    InitSettings(profile);
    EXPECT_EQ(Content(), content);
  }
}

TEST_F(TopicSettingsTest, AMissingDefaultMakesTheFileANewOne) {
  Put("[TOPICS]\r\n0=Mine\r\n");
  InitSettings(profile);
  EXPECT_EQ(profile.GetString(u"TOPICS", u"DEFAULT", u"", 9), u"0");
  EXPECT_EQ(profile.GetString(u"TOPICS", u"0", u"", 20), u"General");
  EXPECT_EQ(profile.GetString(u"General", u"BACKSIZE", u"", 9), u"8.25");
}

TEST_F(TopicSettingsTest, AFileThatCannotBeReadIsNotMadeANewOne) {
  Put("[TOPICS]\r\nDEFAULT=0\r\n0=Mine\r\n");
  files.failRead = FileStatus::PathAccess;
  InitSettings(profile);
  EXPECT_EQ(Content(), "[TOPICS]\r\nDEFAULT=0\r\n0=Mine\r\n");
}

TEST_F(TopicSettingsTest, TheFirstRunKeepsForeignLines) {
  Put("; mine\r\n[Spanish]\r\nKEYS=x\r\n");
  InitSettings(profile);
  EXPECT_EQ(Content(), "; mine\r\n[Spanish]\r\nKEYS=x\r\n" + std::string(FirstRun));
}

// Loading a topic

TEST_F(TopicSettingsTest, ReadsFontsSizesAndKeys) {
  Put("[Greek]\r\nFRONTFONT=Symbol\r\nFRONTSIZE=12\r\nBACKFONT=Arial\r\nBACKSIZE=9.75\r\n"
      "KEYS=12E\xE9" +
      std::string(116, ' ') + "\r\n");
  const TopicSettings settings = LoadTopicSettings(profile, u"Greek");
  EXPECT_EQ(settings.Fonts, (TopicFonts{u"Symbol", 12.0F, u"Arial", 9.75F}));
  EXPECT_EQ(settings.Keys.KeyCount, 1);
  EXPECT_EQ(settings.Keys.Slot(1), OneKey().Slot(1));
  EXPECT_EQ(files.commits, 0);
}

TEST_F(TopicSettingsTest, FindsTheSectionInAnyLetterCase) {
  Put("[GREEK]\r\nFRONTFONT=Symbol\r\nFRONTSIZE=12\r\nBACKFONT=Arial\r\nBACKSIZE=9.75\r\n");
  EXPECT_EQ(LoadTopicSettings(profile, u"Greek").Fonts.FrontFont, u"Symbol");
}

TEST_F(TopicSettingsTest, WritesMissingValuesBack) {
  Put("[Greek]\r\nBACKFONT=Arial\r\n");
  const TopicSettings settings = LoadTopicSettings(profile, u"Greek");
  EXPECT_EQ(settings.Fonts, (TopicFonts{u"MS Sans Serif", 8.25F, u"Arial", 8.25F}));
  EXPECT_EQ(settings.Keys.KeyCount, 0);
  EXPECT_EQ(Content(),
            "[Greek]\r\nBACKFONT=Arial\r\nFRONTFONT=MS Sans Serif\r\nFRONTSIZE=8.25\r\n"
            "BACKSIZE=8.25\r\n");
}

TEST_F(TopicSettingsTest, WritesEmptyValuesBack) {
  Put("[Greek]\r\nFRONTFONT=\r\nFRONTSIZE=\r\nBACKFONT=\"\"\r\nBACKSIZE=  \r\nKEYS=\r\n");
  EXPECT_EQ(LoadTopicSettings(profile, u"Greek").Fonts, TopicFonts());
  EXPECT_EQ(Content(),
            "[Greek]\r\nFRONTFONT=MS Sans Serif\r\nFRONTSIZE=8.25\r\nBACKFONT=MS Sans Serif\r\n"
            "BACKSIZE=8.25\r\nKEYS=\r\n");
}

TEST_F(TopicSettingsTest, MakesASectionForATopicWithoutOne) {
  Put("[TOPICS]\r\n0=General\r\n1=Greek\r\n");
  EXPECT_EQ(LoadTopicSettings(profile, u"Greek").Fonts, TopicFonts());
  EXPECT_EQ(Content(),
            "[TOPICS]\r\n0=General\r\n1=Greek\r\n[Greek]\r\nFRONTFONT=MS Sans Serif\r\n"
            "FRONTSIZE=8.25\r\nBACKFONT=MS Sans Serif\r\nBACKSIZE=8.25\r\n");
}

TEST_F(TopicSettingsTest, UsesTheDefaultsWhereTheyCannotBeWritten) {
  files.failReplace = FileStatus::PathAccess;
  EXPECT_EQ(LoadTopicSettings(profile, u"Greek").Fonts, TopicFonts());
}

TEST_F(TopicSettingsTest, ASizeThatIsNoPositiveNumberIsTheDefaultAndStaysInTheFile) {
  for (const std::string size :
       {"abc", "0", "-3", ".", "1e300", "-1e300", "1e-60", "1e999", ",5"}) {
    const std::string content = "[Greek]\r\nFRONTFONT=A\r\nFRONTSIZE=" + size +
                                "\r\nBACKFONT=B\r\nBACKSIZE=" + size + "\r\n";
    Put(content);
    const TopicFonts fonts = LoadTopicSettings(profile, u"Greek").Fonts;
    EXPECT_EQ(fonts.FrontSize, 8.25F) << size;
    EXPECT_EQ(fonts.BackSize, 8.25F) << size;
    EXPECT_EQ(Content(), content);
  }
}

struct SizeCase {
  const char* text;
  float size;
};

TEST_F(TopicSettingsTest, ASizeIsTheNumberAtTheStart) {
  constexpr SizeCase Table[] = {
      {"10", 10.0F},  {"12pt", 12.0F},           {"9,75", 9.0F}, {".5", 0.5F}, {"1e1", 10.0F},
      {"+8.5", 8.5F}, {"12.34567890", 12.34567F}};
  for (const auto& [text, size] : Table) {
    Put("[G]\r\nFRONTFONT=A\r\nFRONTSIZE=" + std::string(text) +
        "\r\nBACKFONT=A\r\nBACKSIZE=1\r\n");
    EXPECT_EQ(LoadTopicSettings(profile, u"G").Fonts.FrontSize, size) << text;
  }
}

TEST_F(TopicSettingsTest, CutsAFontNameAt50Characters) {
  Put("[G]\r\nFRONTFONT=" + std::string(60, 'x') + "\r\nBACKFONT=" + std::string(50, 'y') +
      "\r\nFRONTSIZE=8\r\nBACKSIZE=8\r\n");
  const TopicFonts fonts = LoadTopicSettings(profile, u"G").Fonts;
  EXPECT_EQ(fonts.FrontFont, Text(50, u'x'));
  EXPECT_EQ(fonts.BackFont, Text(50, u'y'));
}

TEST_F(TopicSettingsTest, ReadsThirtyKeysAtMost) {
  std::string keys;
  for (int i = 0; i < 35; ++i) keys += "12Ee";
  Put("[G]\r\nKEYS=" + keys + "\r\n");
  EXPECT_EQ(LoadTopicSettings(profile, u"G").Keys.KeyCount, 30);
}

// Saving

TEST_F(TopicSettingsTest, SavesFonts) {
  Put("[Greek]\r\nFRONTFONT=A\r\nKEYS=x\r\n");
  SaveTopicFonts(profile, u"Greek", {u"Symbol", 12.0F, u"Arial", 9.75F});
  EXPECT_EQ(Content(),
            "[Greek]\r\nFRONTFONT=Symbol\r\nKEYS=x\r\nFRONTSIZE=12\r\nBACKFONT=Arial\r\n"
            "BACKSIZE=9.75\r\n");
}

TEST_F(TopicSettingsTest, ReadsBackTheSizesThatItWrites) {
  for (const float size : {8.25F, 10.0F, 0.5F, 32.0F, 12.3F, 999.9F}) {
    SaveTopicFonts(profile, u"G", {u"A", size, u"B", size});
    EXPECT_EQ(LoadTopicSettings(profile, u"G").Fonts, (TopicFonts{u"A", size, u"B", size}));
  }
}

TEST_F(TopicSettingsTest, SavingTheKeysOfATopicWritesThemOnly) {
  Start();
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"General", {u"X", 20.0F, u"Y", 20.0F}, OneKey()),
            TopicSave::Saved);
  EXPECT_EQ(Content(), std::string(FirstRun) + "KEYS=12E\xE9" + std::string(116, ' ') + "\r\n");
  EXPECT_EQ(topics.TopicCount, 0);
  EXPECT_EQ(topics.CurrentTopic, 0);
}

TEST_F(TopicSettingsTest, SavingNoKeysWrites120Blanks) {
  Start();
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"General", {}, {}), TopicSave::Saved);
  EXPECT_EQ(Content(), std::string(FirstRun) + "KEYS=" + std::string(120, ' ') + "\r\n");
}

TEST_F(TopicSettingsTest, SavingLeavesTheCurrentTopicWhereTheTopicExists) {
  Put("[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Greek\r\n");
  Start();
  topics.CurrentTopic = 1;
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"General", {}, {}), TopicSave::Saved);
  EXPECT_EQ(topics.CurrentTopic, 1);
}

TEST_F(TopicSettingsTest, SavingAddsANewTopicAtTheEnd) {
  Start();
  EXPECT_EQ(
      SaveTopicAndKeys(profile, topics, u"Spanish", {u"Arial", 12.0F, u"Times", 9.5F}, OneKey()),
      TopicSave::Saved);
  EXPECT_EQ(Content(),
            "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Spanish\r\n"
            "[General]\r\nFRONTFONT=MS Sans Serif\r\nFRONTSIZE=8.25\r\n"
            "BACKFONT=MS Sans Serif\r\nBACKSIZE=8.25\r\n"
            "[Spanish]\r\nFRONTFONT=Arial\r\nFRONTSIZE=12\r\nBACKFONT=Times\r\nBACKSIZE=9.5\r\n"
            "KEYS=12E\xE9" +
                std::string(116, ' ') + "\r\n");
}

TEST_F(TopicSettingsTest, ANewTopicBecomesTheCurrentOne) {
  Start();
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"Spanish", {}, {}), TopicSave::Saved);
  EXPECT_EQ(topics.TopicCount, 1);
  EXPECT_EQ(topics.CurrentTopic, 1);
  EXPECT_EQ(topics.Name(1), u"Spanish");
}

TEST_F(TopicSettingsTest, ANewTopicIsThereAfterLoadingTheListAgain) {
  Start();
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"Espa\u00F1ol", {}, OneKey()), TopicSave::Saved);
  LoadTopicList(topics, profile);
  EXPECT_EQ(FindTopic(topics, u"Espa\u00F1ol"), 1);
  EXPECT_EQ(LoadTopicSettings(profile, u"Espa\u00F1ol").Keys.KeyCount, 1);
}

TEST_F(TopicSettingsTest, ANewTopicNeverFillsAGap) {
  Put("[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n2=Greek\r\n");
  Start();
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"Spanish", {}, {}), TopicSave::Saved);
  EXPECT_EQ(topics.TopicCount, 3);
  EXPECT_EQ(profile.GetString(u"TOPICS", u"1", u"absent", 20), u"absent");
  EXPECT_EQ(profile.GetString(u"TOPICS", u"3", u"absent", 20), u"Spanish");
}

TEST_F(TopicSettingsTest, ANewTopicInAnotherLetterCaseSharesTheSection) {
  Put("[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Greek\r\n[Greek]\r\nKEYS=x\r\n");
  Start();
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"GREEK", {u"A", 8.0F, u"B", 8.0F}, OneKey()),
            TopicSave::Saved);
  EXPECT_EQ(topics.TopicCount, 2);
  EXPECT_EQ(LoadTopicSettings(profile, u"Greek").Fonts.FrontFont, u"A");
}

TEST_F(TopicSettingsTest, RefusesATwelfthTopic) {
  std::string content = "[TOPICS]\r\nDEFAULT=0\r\n";
  for (int i = 0; i <= 10; ++i) content += std::to_string(i) + "=T" + std::to_string(i) + "\r\n";
  Put(content);
  Start();
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"New", {}, OneKey()), TopicSave::NoRoom);
  EXPECT_EQ(Content(), content);
  EXPECT_EQ(topics.TopicCount, 10);
  EXPECT_EQ(topics.CurrentTopic, 0);
}

TEST_F(TopicSettingsTest, SavesKeysOfAnyTopicOfAFullList) {
  std::string content = "[TOPICS]\r\nDEFAULT=0\r\n";
  for (int i = 0; i <= 10; ++i) content += std::to_string(i) + "=T" + std::to_string(i) + "\r\n";
  Put(content);
  Start();
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"T10", {}, OneKey()), TopicSave::Saved);
  EXPECT_EQ(LoadTopicSettings(profile, u"T10").Keys.KeyCount, 1);
}

TEST_F(TopicSettingsTest, AddsTheEleventhTopic) {
  std::string content = "[TOPICS]\r\nDEFAULT=0\r\n";
  for (int i = 0; i <= 9; ++i) content += std::to_string(i) + "=T" + std::to_string(i) + "\r\n";
  Put(content);
  Start();
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"New", {}, {}), TopicSave::Saved);
  EXPECT_EQ(profile.GetString(u"TOPICS", u"10", u"", 20), u"New");
}

TEST_F(TopicSettingsTest, KeepsEveryCharacterCodeOfAKey) {
  Start();
  for (int code = 1; code < 256; ++code) {
    if (code == ' ') continue;  // a last record that types a blank is lost
    KeyTable keys = OneKey();
    keys.Slots[1].character = static_cast<CharCode>(code);
    EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"General", {}, keys), TopicSave::Saved);
    const KeyTable read = LoadTopicSettings(profile, u"General").Keys;
    ASSERT_EQ(read.KeyCount, 1) << code;
    EXPECT_EQ(read.Slot(1), keys.Slot(1));
  }
}

TEST_F(TopicSettingsTest, KeepsEveryCharacterCodeOfTheThirtiethKey) {
  Start();
  KeyTable keys;
  for (int i = 1; i <= 30; ++i) keys.Slots[static_cast<std::size_t>(i)] = OneKey().Slot(1);
  keys.KeyCount = 30;
  for (int code = 1; code < 256; ++code) {
    if (code == ' ') continue;
    keys.Slots[30].character = static_cast<CharCode>(code);
    EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"General", {}, keys), TopicSave::Saved);
    const KeyTable read = LoadTopicSettings(profile, u"General").Keys;
    ASSERT_EQ(read.KeyCount, 30) << code;
    EXPECT_EQ(read.Slot(30), keys.Slot(30));
  }
}

TEST_F(TopicSettingsTest, KeepsEveryKeyCode) {
  Start();
  for (int code = 1; code < 256; ++code) {
    KeyTable keys = OneKey();
    keys.Slots[1].key = static_cast<CharCode>(code);
    EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"General", {}, keys), TopicSave::Saved);
    const KeyTable read = LoadTopicSettings(profile, u"General").Keys;
    ASSERT_EQ(read.KeyCount, 1) << code;
    EXPECT_EQ(read.Slot(1), keys.Slot(1));
  }
}

TEST_F(TopicSettingsTest, AHandMadeNameWithABracketFindsItsSectionAgain) {
  Put("[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=a]b\r\n");
  Start();
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"a]b", {}, OneKey()), TopicSave::Saved);
  EXPECT_EQ(LoadTopicSettings(profile, u"a]b").Keys.KeyCount, 1);
  const std::string content = Content();
  EXPECT_EQ(LoadTopicSettings(profile, u"a]b").Fonts, TopicFonts());
  EXPECT_EQ(Content(), content) << "lines were added by looking";
}

// Beside another program

TEST_F(TopicSettingsTest, ANewTopicTakesNoNumberThatAnotherProgramHasUsed) {
  Start();
  TopicList others = topics;
  EXPECT_EQ(SaveTopicAndKeys(profile, others, u"Greek", {}, OneKey()), TopicSave::Saved);
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"Latin", {}, {}), TopicSave::Saved);
  EXPECT_EQ(topics.Name(1), u"Greek");
  EXPECT_EQ(topics.Name(2), u"Latin");
  EXPECT_EQ(topics.CurrentTopic, 2);
  EXPECT_EQ(profile.GetString(u"TOPICS", u"1", u"", 20), u"Greek");
  EXPECT_EQ(LoadTopicSettings(profile, u"Greek").Keys.KeyCount, 1);
}

TEST_F(TopicSettingsTest, ATopicThatAnotherProgramHasAddedIsNotAddedTwice) {
  Start();
  TopicList others = topics;
  EXPECT_EQ(SaveTopicAndKeys(profile, others, u"Greek", {}, {}), TopicSave::Saved);
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"Greek", {}, OneKey()), TopicSave::Saved);
  EXPECT_EQ(topics.TopicCount, 1);
  EXPECT_EQ(LoadTopicSettings(profile, u"Greek").Keys.KeyCount, 1);
}

TEST_F(TopicSettingsTest, ATopicThatCannotBeWrittenIsNotInTheListEither) {
  Start();
  files.failCommit = FileStatus::DiskFull;
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"Greek", {}, {}), TopicSave::NotWritten);
  EXPECT_EQ(topics.TopicCount, 0);
  EXPECT_EQ(topics.CurrentTopic, 0);
}

TEST_F(TopicSettingsTest, AFailedSaveLeavesTheListAsTheFileIs) {
  Start();
  TopicList others = topics;
  EXPECT_EQ(SaveTopicAndKeys(profile, others, u"Greek", {}, {}), TopicSave::Saved);
  files.failReplace = FileStatus::PathAccess;
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"Latin", {}, {}), TopicSave::NotWritten);
  EXPECT_EQ(topics.TopicCount, 1);
  EXPECT_EQ(topics.Name(1), u"Greek");
  EXPECT_EQ(topics.CurrentTopic, 0);
  EXPECT_FALSE(SaveTopicFonts(profile, u"Greek", {u"Arial", 12.0F, u"Times", 9.5F}));
}

TEST_F(TopicSettingsTest, ATopicThatAnotherProgramHasDeletedIsAddedAgainWithItsKeys) {
  Start();
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"Greek", {}, {}), TopicSave::Saved);
  TopicList others = topics;
  EXPECT_TRUE(DeleteTopic(others, profile, 1).written);
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"Greek", {}, OneKey()), TopicSave::Saved);
  LoadTopicList(topics, profile);
  EXPECT_EQ(FindTopic(topics, u"Greek"), 1);
  EXPECT_EQ(LoadTopicSettings(profile, u"Greek").Keys.KeyCount, 1);
}

TEST_F(TopicSettingsTest, ATopicSavedInAFileWithoutAnyIsThereAtTheNextStart) {
  Put("; nothing yet\r\n");
  LoadTopicList(topics, profile);
  EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"Greek", {}, OneKey()), TopicSave::Saved);
  Start();
  EXPECT_EQ(FindTopic(topics, u"General"), 0);
  EXPECT_EQ(FindTopic(topics, u"Greek"), 1);
}

TEST_F(TopicSettingsTest, ANameInQuotesKeepsItsFontsAndKeys) {
  for (const Text& name : {Text(u"\"Latin\""), Text(u"'Latin'"), Text(u"\"\""), Text(u"''A''"),
                           Text(u"\"") + Text(18, u'x') + u"\"", Text(u"\"half"), Text(u"'")}) {
    Put("; nothing yet\r\n");
    Start();
    const TopicFonts fonts{u"Arial", 12.0F, u"Times", 9.5F};
    EXPECT_EQ(SaveTopicAndKeys(profile, topics, name, fonts, OneKey()), TopicSave::Saved);
    EXPECT_EQ(SaveTopicAndKeys(profile, topics, u"Last", {}, {}), TopicSave::Saved);
    LoadTopicList(topics, profile);
    ASSERT_EQ(FindTopic(topics, name), 1);
    const TopicSettings settings = LoadTopicSettings(profile, topics.Name(1));
    EXPECT_EQ(settings.Fonts, fonts);
    EXPECT_EQ(settings.Keys.KeyCount, 1);
    EXPECT_TRUE(DeleteTopic(topics, profile, 1).written);
    EXPECT_EQ(topics.Name(1), u"Last");
    EXPECT_EQ(Content().find("Arial"), std::string::npos) << "its section is still there";
  }
}

TEST_F(TopicSettingsTest, AFontNameInQuotesIsReadAsItWasWritten) {
  const TopicFonts fonts{u"\"A\"", 12.0F, u"'B'", 9.5F};
  EXPECT_TRUE(SaveTopicFonts(profile, u"Greek", fonts));
  EXPECT_EQ(LoadTopicSettings(profile, u"Greek").Fonts, fonts);
}

TEST_F(TopicSettingsTest, ALoneLineFeedEndsNoNameLate) {
  Put("[TOPICS]\r\nDEFAULT=0\n0=General\n1=Greek\r\n[Greek]\nFRONTFONT=Arial\nFRONTSIZE=9\r\n"
      "BACKFONT=Times\rBACKSIZE=10\n\nKEYS=12E\n\r\n");
  Start();
  EXPECT_EQ(topics.Name(0), u"General");
  EXPECT_EQ(topics.Name(1), u"Greek");
  const TopicSettings settings = LoadTopicSettings(profile, u"Greek");
  EXPECT_EQ(settings.Fonts, (TopicFonts{u"Arial", 9.0F, u"Times", 10.0F}));
  EXPECT_EQ(settings.Keys.Slot(1).character, CharCode{'\n'});
}

TEST_F(TopicSettingsTest, TheSelectedTopicsSettingsAreKnownByItsName) {
  Put("[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Spanish\r\n2=Greek\r\n");
  Start();
  TopicSettings settings;
  EXPECT_FALSE(HoldsCurrentTopic(topics, settings));
  SelectTopic(topics, settings, profile, 2);
  EXPECT_TRUE(HoldsCurrentTopic(topics, settings));
  EXPECT_TRUE(DeleteTopic(topics, profile, 1).written);
  EXPECT_TRUE(HoldsCurrentTopic(topics, settings)) << "Greek, though it is 1 now";
  EXPECT_TRUE(DeleteTopic(topics, profile, 1).written);
  EXPECT_FALSE(HoldsCurrentTopic(topics, settings));
}

TEST_F(TopicSettingsTest, SettingsThatCouldNotBeReadAreNotThoseOfTheTopic) {
  Start();
  TopicSettings settings;
  files.failRead = FileStatus::PathAccess;
  SelectTopic(topics, settings, profile, 0);
  EXPECT_FALSE(HoldsCurrentTopic(topics, settings));
  topics = {};
  SelectTopic(topics, settings, profile, 0);
  EXPECT_TRUE(HoldsCurrentTopic(topics, settings)) << "without any topic the defaults are right";
}

/// Fails to read once, as a disk or a busy system may.
class StumblingFiles : public MemoryFiles {
 public:
  FileStatus Read(const Text& path, std::string& content) override {
    const FileStatus status = MemoryFiles::Read(path, content);
    return std::exchange(stumble, false) ? FileStatus::TooManyFiles : status;
  }
  bool stumble = false;
};

TEST(TopicSettings, WhatCouldNotBeReadForAMomentIsNotMissing) {
  const std::string content =
      "[TOPICS]\r\nDEFAULT=1\r\n0=Mine\r\n1=Greek\r\n[Greek]\r\nFRONTFONT=A\r\nFRONTSIZE=12\r\n"
      "BACKFONT=B\r\nBACKSIZE=12\r\n";
  StumblingFiles files;
  files.Put(u"QUIBCRDS.INI", content);
  ProfileFile profile(files, u"QUIBCRDS.INI");
  files.stumble = true;
  InitSettings(profile);
  EXPECT_EQ(files.Content(u"QUIBCRDS.INI"), content);
  files.stumble = true;
  EXPECT_EQ(LoadTopicSettings(profile, u"Greek").Fonts, TopicFonts());
  EXPECT_EQ(files.Content(u"QUIBCRDS.INI"), content);
}

// Selecting

TEST_F(TopicSettingsTest, SelectingReadsTheTopic) {
  Put("[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Greek\r\n[Greek]\r\nFRONTFONT=Symbol\r\n"
      "FRONTSIZE=12\r\nBACKFONT=Arial\r\nBACKSIZE=10\r\nKEYS=12Ee\r\n");
  Start();
  TopicSettings settings;
  SelectTopic(topics, settings, profile, 1);
  EXPECT_EQ(topics.CurrentTopic, 1);
  EXPECT_EQ(settings.Fonts, (TopicFonts{u"Symbol", 12.0F, u"Arial", 10.0F}));
  EXPECT_EQ(settings.Keys.KeyCount, 1);
}

TEST_F(TopicSettingsTest, SelectingANumberOutsideSelectsTopic0) {
  Start();
  for (const int index : {-1, 1, 10, 11, 32767}) {
    TopicSettings settings;
    SelectTopic(topics, settings, profile, index);
    EXPECT_EQ(topics.CurrentTopic, 0) << index;
  }
  EXPECT_EQ(Content(), FirstRun);
}

TEST_F(TopicSettingsTest, SelectingReplacesTheKeysOfTheTopicBefore) {
  Start();
  TopicSettings settings;
  settings.Keys = OneKey();
  SelectTopic(topics, settings, profile, 0);
  EXPECT_EQ(settings.Keys.KeyCount, 0);
}

TEST_F(TopicSettingsTest, SelectingWithoutAnyTopicWritesNothing) {
  TopicSettings settings;
  settings.Fonts.FrontFont = u"Arial";
  settings.Keys = OneKey();
  SelectTopic(topics, settings, profile, 3);
  EXPECT_EQ(topics.CurrentTopic, 0);
  EXPECT_EQ(settings.Fonts, TopicFonts());
  EXPECT_EQ(settings.Keys.KeyCount, 0);
  EXPECT_FALSE(files.Has(u"QUIBCRDS.INI"));
}

}  // namespace
