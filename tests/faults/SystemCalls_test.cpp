#include "cards/StackFileOperations.h"
#include "program/StackTopics.h"
#include "tests/faults/Scenario.h"

#include <gtest/gtest.h>
#include <iostream>

namespace {

const std::string Old = "Spanish\r\nAnimals" + std::string(57, ' ') +
                        "\r\ndog perro.wav \r\nel^perro  \r\ncat  \r\ngato  \r\n";
const std::string Marked = "\xEF\xBB\xBFRussian\r\n" + std::string(64, ' ') +
                           "\r\ncat  \r\n\xD0\xBA\xD0\xBE\xD1\x82  \r\n";
const std::string Import = "[WinQuib]\r\nQ1=house\r\nA1=Haus\r\nQ2=cat\r\nA2=Katze\r\n";
const std::string Fonts = "FRONTFONT=Arial\r\nFRONTSIZE=12\r\nBACKFONT=Arial\r\nBACKSIZE=12\r\n";
const std::string Settings =
    "; mine\r\n[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Spanish\r\n2=Greek\r\n[General]\r\n" +
    Fonts + "[Spanish]\r\n" + Fonts + "[Greek]\r\n" + Fonts;
const char* const SettingsFile = "config/QUIBCRDS.INI";

FileStatus StatusOf(bool written) { return written ? FileStatus::Ok : FileStatus::DeviceError; }

void LoadAndEdit(FaultWorld& world) {
  world.Put("cards/words.QBC", Old);
  EXPECT_EQ(world.Load("words.QBC"), FileStatus::Ok);
  world.Edit();
}

void PutSettings(FaultWorld& world) {
  world.Put(SettingsFile, Settings);
  LoadTopicList(world.topics, world.profile);
}

FileStatus WriteParts(FaultWorld& world) {
  const GroupResult result =
      world.files.ReplaceTogether({{world.PathOf("cards/part-1.QBC"), "new 1"},
                                   {world.PathOf("cards/part-2.QBC"), "new 2"},
                                   {world.PathOf("cards/part-3.QBC"), "new 3"}});
  EXPECT_TRUE(result.notUndone.empty());
  return result.status;
}

/// A stack of each topic; the last topic is selected.
void PutStacksOfTopics(FaultWorld& world) {
  PutSettings(world);
  for (int topic = 0; topic < 3; ++topic) world.stacks.Append().TopicIndex = topic;
  world.topics.CurrentTopic = 2;
}

FileStatus SaveTopicOf(FaultWorld& world, TextView name) {
  return StatusOf(SaveTopic(world.stacks, world.topics, world.profile, name, {}, {}) ==
                  TopicSave::Saved);
}

const Scenario Scenarios[] = {
    {"SaveANewStack", 165, [](FaultWorld& world) { world.MakeStack(); },
     [](FaultWorld& world) { return world.SaveNew("words.QBC"); }},
    {"SaveANewStackOverAFile", 105,
     [](FaultWorld& world) {
       world.MakeStack();
       world.Put("cards/words.QBC", "something else");
     },
     [](FaultWorld& world) { return world.SaveNew("words.QBC"); }},
    {"SaveAnEditedStack", 130, LoadAndEdit,
     [](FaultWorld& world) { return world.SaveEdited("words.QBC"); }},
    {"SaveAnEditedStackASecondTime", 130,
     [](FaultWorld& world) {
       LoadAndEdit(world);
       EXPECT_EQ(world.SaveEdited("words.QBC"), FileStatus::Ok);
       world.Edit();
     },
     [](FaultWorld& world) { return world.SaveEdited("words.QBC"); }},
    {"SaveAnEditedStackUnderANewName", 170, LoadAndEdit,
     [](FaultWorld& world) { return world.SaveEdited("more words.QBC"); }},
    {"SaveInAnotherLetterCase", 200, LoadAndEdit,
     [](FaultWorld& world) { return world.SaveEdited("WORDS.qbc"); }},
    {"SaveThroughALink", 130,
     [](FaultWorld& world) {
       world.Put("safe/words.QBC", Old);
       std::filesystem::create_symlink("../safe/words.QBC", world.On("cards/words.QBC"));
       EXPECT_EQ(world.Load("words.QBC"), FileStatus::Ok);
       world.Edit();
     },
     [](FaultWorld& world) { return world.SaveEdited("words.QBC"); }},
    {"SaveThroughALinkToNothing", 105,
     [](FaultWorld& world) {
       world.MakeStack();
       std::filesystem::create_symlink("../safe/words.QBC", world.On("cards/words.QBC"));
     },
     [](FaultWorld& world) { return world.SaveNew("words.QBC"); }},
    {"SaveInAFolderThatTakesNoNewFile", 210,
     [](FaultWorld& world) {
       world.ProtectFolder("config");
       LoadAndEdit(world);
       world.ProtectFolder("cards");
     },
     [](FaultWorld& world) { return world.SaveEdited("words.QBC"); }, true},
    {"WriteSeveralNewFiles", 100, [](FaultWorld&) {},
     [](FaultWorld& world) { return WriteParts(world); }},
    {"WriteSeveralFilesOverOthers", 150,
     [](FaultWorld& world) {
       world.Put("cards/part-1.QBC", "old 1");
       world.Put("safe/part-2.QBC", "old 2");
       std::filesystem::create_symlink("../safe/part-2.QBC", world.On("cards/part-2.QBC"));
     },
     [](FaultWorld& world) { return WriteParts(world); }},
    {"DeleteAStack", 15, [](FaultWorld& world) { world.Put("cards/words.QBC", Old); },
     [](FaultWorld& world) {
       return DeleteStack(world.files, world.prompts, world.PathOf("cards"), u"words.QBC");
     }},
    {"DeleteInAnotherLetterCase", 50, [](FaultWorld& world) { world.Put("cards/words.QBC", Old); },
     [](FaultWorld& world) {
       return DeleteStack(world.files, world.prompts, world.PathOf("cards"), u"WORDS.qbc");
     }},
    {"Load", 35, [](FaultWorld& world) { world.Put("cards/words.QBC", Old); },
     [](FaultWorld& world) { return world.Load("words.QBC"); }},
    {"LoadInAnotherLetterCase", 100, [](FaultWorld& world) { world.Put("cards/words.QBC", Old); },
     [](FaultWorld& world) { return world.Load("Words.qbc"); }},
    {"LoadASecondStackWithItsMark", 35,
     [](FaultWorld& world) {
       world.MakeStack();
       world.Put("cards/words.QBC", Marked);
     },
     [](FaultWorld& world) { return world.Load("words.QBC"); }},
    {"Import", 35, [](FaultWorld& world) { world.Put("cards/words.QBS", Import); },
     [](FaultWorld& world) { return world.Load("words.QBS"); }},
    {"ShowADescription", 25,
     [](FaultWorld& world) {
       world.MakeStack();
       world.Put("cards/words.QBC", Old);
     },
     [](FaultWorld& world) {
       Text description;
       const FileStatus status = ReadDescription(world.stacks, world.files, world.prompts,
                                                 world.PathOf("cards"), u"words.QBC", description);
       EXPECT_EQ(description, status == FileStatus::Ok ? u"Animals" : u"");
       EXPECT_EQ(world.stacks.StackDescription, u"Animals");
       return status;
     }},
    {"ListAFolder", 20, [](FaultWorld& world) { world.Put("cards/words.QBC", Old); },
     [](FaultWorld& world) {
       FolderContent content;
       const FileStatus status = world.files.List(world.PathOf("cards"), content);
       if (status == FileStatus::Ok) {
         EXPECT_EQ(content.files, std::vector<Text>{u"words.QBC"});
       }
       return status;
     }},
    {"MakeFolders", 40, [](FaultWorld&) {},
     [](FaultWorld& world) { return world.files.MakeFolder(world.PathOf("config/a/b")); }},
    {"FirstStart", 275, [](FaultWorld&) {},
     [](FaultWorld& world) {
       InitSettings(world.profile);
       return std::optional<FileStatus>();
     }},
    {"LaterStart", 50, PutSettings,
     [](FaultWorld& world) {
       InitSettings(world.profile);
       LoadTopicList(world.topics, world.profile);
       EXPECT_EQ(world.topics.TopicCount, 2);
       return std::optional<FileStatus>();
     }},
    {"ChangeASetting", 140, PutSettings,
     [](FaultWorld& world) {
       return StatusOf(world.profile.WriteString(u"Spanish", u"FRONTSIZE", u"14"));
     }},
    {"AddASection", 140, PutSettings,
     [](FaultWorld& world) { return StatusOf(world.profile.WriteString(u"New", u"key", u"1")); }},
    {"ChangeASettingInAFileInAnotherLetterCase", 240,
     [](FaultWorld& world) { world.Put("config/quibcrds.ini", Settings); },
     [](FaultWorld& world) {
       return StatusOf(world.profile.WriteString(u"Spanish", u"FRONTSIZE", u"14"));
     }},
    {"RemoveASetting", 140, PutSettings,
     [](FaultWorld& world) { return StatusOf(world.profile.DeleteKey(u"Spanish", u"FRONTSIZE")); }},
    {"RemoveASection", 140, PutSettings,
     [](FaultWorld& world) { return StatusOf(world.profile.DeleteSection(u"Spanish")); }},
    {"SelectATopic", 25, PutSettings,
     [](FaultWorld& world) {
       SelectTopic(world.topics, world.settings, world.profile, 1);
       return std::optional<FileStatus>();
     }},
    {"SelectATopicWithMissingValues", 165,
     [](FaultWorld& world) {
       world.Put(SettingsFile,
                 "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n[General]\r\nBACKSIZE=12\r\n");
       LoadTopicList(world.topics, world.profile);
     },
     [](FaultWorld& world) {
       SelectTopic(world.topics, world.settings, world.profile, 0);
       return std::optional<FileStatus>();
     }},
    {"SaveFonts", 140, PutSettings,
     [](FaultWorld& world) {
       return StatusOf(SaveTopicFonts(world.profile, u"Greek", TopicFonts()));
     }},
    {"SaveKeys", 140, PutStacksOfTopics,
     [](FaultWorld& world) { return SaveTopicOf(world, u"Greek"); }},
    {"AddATopic", 140, PutStacksOfTopics,
     [](FaultWorld& world) { return SaveTopicOf(world, u"Latin"); }},
    {"DeleteATopic", 140, PutStacksOfTopics,
     [](FaultWorld& world) {
       return StatusOf(RemoveTopic(world.stacks, world.topics, world.profile, 1));
     }},
    {"DeleteTheSelectedTopic", 140, PutStacksOfTopics,
     [](FaultWorld& world) {
       return StatusOf(RemoveTopic(world.stacks, world.topics, world.profile, 2));
     }},
};

constexpr std::size_t LeastCases = 3500;
std::size_t allCases = 0;

/// Says how many cases there were, where ctest shows it.
class CaseCount : public testing::Environment {
 public:
  void TearDown() override {
    const auto& tests = *testing::UnitTest::GetInstance();
    if (tests.test_to_run_count() == tests.total_test_count()) {
      EXPECT_GE(allCases, LeastCases);
    }
    std::cout << "<CTestMeasurement type=\"numeric/integer\" name=\"cases\">" << allCases
              << "</CTestMeasurement>\n"
              << allCases << " cases\n";
  }
};

const testing::Environment* const caseCount =
    testing::AddGlobalTestEnvironment(new CaseCount);  // GoogleTest deletes it

class SystemCalls : public testing::TestWithParam<Scenario> {};

TEST_P(SystemCalls, MayFailAtAnyTime) {
  const std::size_t cases = CheckEveryFault(GetParam());
  EXPECT_GE(cases, GetParam().leastCases);
  RecordProperty("cases", std::to_string(cases));
  std::cout << cases << " cases\n";
  allCases += cases;
}

INSTANTIATE_TEST_SUITE_P(Saving, SystemCalls, testing::ValuesIn(Scenarios),
                         [](const auto& scenario) { return scenario.param.name; });

}  // namespace
