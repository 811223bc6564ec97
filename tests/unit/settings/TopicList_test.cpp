#include "settings/TopicList.h"

#include "tests/support/MemoryFiles.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

class TopicListTest : public testing::Test {
 protected:
  void Put(std::string content) {
    files.Put(u"QUIBCRDS.INI", std::move(content));
    LoadTopicList(topics, profile);
  }
  std::string Content() const { return files.Content(u"QUIBCRDS.INI"); }
  std::vector<Text> Names() const { return {topics.Names.begin(), topics.Names.end()}; }
  static std::vector<Text> Eleven(std::initializer_list<Text> names) {
    std::vector<Text> all(names);
    all.resize(11);
    return all;
  }

  MemoryFiles files;
  ProfileFile profile{files, u"QUIBCRDS.INI"};
  TopicList topics;
};

constexpr const char* FourTopics =
    "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Spanish\r\n2=Greek\r\n3=Russian\r\n"
    "[General]\r\nKEYS=g\r\n[Spanish]\r\nKEYS=s\r\n[Greek]\r\nKEYS=k\r\n[Russian]\r\nKEYS=r\r\n";

/// A settings file with the topics 0 to 10.
std::string ElevenTopics() {
  std::string content = "[TOPICS]\r\n";
  for (int i = 0; i <= 10; ++i) {
    content += std::to_string(i) + "=Topic" + std::to_string(i) + "\r\n";
  }
  return content;
}

// Loading

TEST_F(TopicListTest, ReadsTheNames) {
  Put(FourTopics);
  EXPECT_EQ(topics.TopicCount, 3);
  EXPECT_EQ(Names(), Eleven({u"General", u"Spanish", u"Greek", u"Russian"}));
}

TEST_F(TopicListTest, AGapDoesNotEndTheList) {
  Put("[TOPICS]\r\n0=General\r\n1=Spanish\r\n3=Russian\r\n");
  EXPECT_EQ(topics.TopicCount, 3);
  EXPECT_EQ(Names(), Eleven({u"General", u"Spanish", u"", u"Russian"}));
  EXPECT_TRUE(topics.IsTopic(3));
  EXPECT_FALSE(topics.IsTopic(2));
}

TEST_F(TopicListTest, APresentButEmptyNameIsAGap) {
  Put("[TOPICS]\r\n0=General\r\n1=\r\n2=Greek\r\n3=\"  \"\r\n");
  EXPECT_EQ(topics.TopicCount, 2);
  EXPECT_FALSE(topics.IsTopic(1));
}

TEST_F(TopicListTest, CutsANameAt20Characters) {
  Put("[TOPICS]\r\n0=12345678901234567890\r\n1=123456789012345678901\r\n");
  EXPECT_EQ(topics.Name(0), u"12345678901234567890");
  EXPECT_EQ(topics.Name(1), u"12345678901234567890");
}

TEST_F(TopicListTest, CutsTheBlanksThatTheCutLeavesAtTheEnd) {
  Put("[TOPICS]\r\n0=Modern spoken Greek a course\r\n1=123456789012345678 0 "
      "\r\n2=1234567890123456789 1\r\n");
  EXPECT_EQ(topics.Name(0), u"Modern spoken Greek");
  EXPECT_EQ(topics.Name(1), u"123456789012345678 0");
  EXPECT_EQ(topics.Name(2), u"1234567890123456789");
}

TEST_F(TopicListTest, KeepsTheLastLetterOfAName) {
  Put("[TOPICS]\r\n0=G\r\n");
  EXPECT_EQ(topics.Name(0), u"G");
}

TEST_F(TopicListTest, ReadsTheNumbers0To10Only) {
  Put(ElevenTopics() + "11=Eleven\r\n-1=Minus\r\n");
  EXPECT_EQ(topics.TopicCount, 10);
  EXPECT_EQ(topics.Name(10), u"Topic10");
}

TEST_F(TopicListTest, KnowsNoLeadingZeros) {
  Put("[TOPICS]\r\n0=General\r\n01=Spanish\r\n");
  EXPECT_EQ(topics.TopicCount, 0);
}

TEST_F(TopicListTest, IsEmptyWithoutSettings) {
  LoadTopicList(topics, profile);
  EXPECT_EQ(topics.TopicCount, -1);
  EXPECT_EQ(topics.Name(0), u"General");
  EXPECT_FALSE(topics.IsTopic(0));
  EXPECT_FALSE(files.Has(u"QUIBCRDS.INI"));
}

TEST_F(TopicListTest, ForgetsWhatWasThereBefore) {
  Put(FourTopics);
  Put("[TOPICS]\r\n0=General\r\n");
  EXPECT_EQ(topics.TopicCount, 0);
  EXPECT_EQ(Names(), Eleven({u"General"}));
}

TEST_F(TopicListTest, KeepsTheCurrentTopicWhenItLoads) {
  topics.CurrentTopic = 2;
  Put(FourTopics);
  EXPECT_EQ(topics.CurrentTopic, 2);
}

TEST_F(TopicListTest, TakesANumberThatNamesNoTopicForTopic0) {
  Put("[TOPICS]\r\n0=General\r\n1=Spanish\r\n3=Russian\r\n");
  for (const int index : {-32768, -1, 2, 4, 10, 11, 32767}) {
    EXPECT_EQ(topics.Effective(index), 0) << index;
    EXPECT_EQ(topics.Name(index), u"General") << index;
  }
  EXPECT_EQ(topics.Effective(3), 3);
  EXPECT_EQ(topics.Name(3), u"Russian");
}

struct DefaultCase {
  const char* line;
  int topic;
};

TEST_F(TopicListTest, SelectsTheDefaultTopicWhereItNamesOne) {
  constexpr DefaultCase Table[] = {
      {"DEFAULT=2", 2}, {"DEFAULT=0", 0},  {"default=3", 3},     {"DEFAULT=3 x", 3},
      {"DEFAULT=4", 0}, {"DEFAULT=-1", 0}, {"DEFAULT=-7", 0},    {"DEFAULT=abc", 0},
      {"DEFAULT=", 0},  {"X=1", 0},        {"DEFAULT=99999", 0}, {"DEFAULT=2147483647", 0},
  };
  for (const auto& [line, topic] : Table) {
    Put("[TOPICS]\r\n" + std::string(line) + "\r\n0=A\r\n1=B\r\n2=C\r\n3=D\r\n");
    EXPECT_EQ(DefaultTopic(topics, profile), topic) << line;
  }
  EXPECT_EQ(files.commits, 0) << "the default topic is never written";
}

// Finding

TEST_F(TopicListTest, FindsATopicByItsName) {
  Put(FourTopics);
  EXPECT_EQ(FindTopic(topics, u"General"), 0);
  EXPECT_EQ(FindTopic(topics, u"Russian"), 3);
  EXPECT_EQ(FindTopic(topics, u"French"), -1);
}

TEST_F(TopicListTest, LetterCaseCounts) {
  Put("[TOPICS]\r\n0=General\r\n1=Spanish\r\n2=SPANISH\r\n");
  EXPECT_EQ(FindTopic(topics, u"SPANISH"), 2);
  EXPECT_EQ(FindTopic(topics, u"spanish"), -1);
}

TEST_F(TopicListTest, IgnoresBlanksAtTheRightEndOnly) {
  Put(FourTopics);
  EXPECT_EQ(FindTopic(topics, u"Spanish   "), 1);
  EXPECT_EQ(FindTopic(topics, u" Spanish"), -1);
  EXPECT_EQ(FindTopic(topics, u"Spanish\t"), -1);
}

TEST_F(TopicListTest, FindsTheFirstOfTwoEqualNames) {
  Put("[TOPICS]\r\n0=General\r\n1=Greek\r\n2=Greek\r\n");
  EXPECT_EQ(FindTopic(topics, u"Greek"), 1);
}

TEST_F(TopicListTest, NeverFindsAGap) {
  Put("[TOPICS]\r\n0=General\r\n2=Greek\r\n");
  EXPECT_EQ(FindTopic(topics, u""), -1);
  EXPECT_EQ(FindTopic(topics, u"   "), -1);
  EXPECT_EQ(FindTopic(topics, u"Greek"), 2);
}

TEST_F(TopicListTest, FindsGeneralAloneInAnEmptyList) {
  EXPECT_EQ(FindTopic(topics, u"General  "), 0);
  EXPECT_EQ(FindTopic(topics, u"general"), -1);
  EXPECT_EQ(FindTopic(topics, u"Greek"), -1);
}

TEST_F(TopicListTest, FindsATopicThatShallShareItsSection) {
  Put("[TOPICS]\r\n0=General\r\n2=Greek\r\n3=Old]x\r\n");
  EXPECT_EQ(TopicSharingSection(topics, u"GREEK"), 2);
  EXPECT_EQ(TopicSharingSection(topics, u"old"), 3);
  EXPECT_EQ(TopicSharingSection(topics, u"Greeks"), -1);
  EXPECT_EQ(TopicSharingSection(topics, u""), -1);
}

// Following

TEST_F(TopicListTest, ANumberFollowsTheNameOfItsTopic) {
  Put(FourTopics);
  const TopicList before = topics;
  Put("[TOPICS]\r\n0=General\r\n1=Latin\r\n3=Russian\r\n5=Spanish\r\n");
  const std::array now{0, 5, 0, 3};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(FollowTopic(before, i, topics), now.at(static_cast<std::size_t>(i)));
  }
  for (const int none : {-1, 4, 10, 11, 32767}) EXPECT_EQ(FollowTopic(before, none, topics), none);
}

TEST_F(TopicListTest, OfTwoEqualNamesEachKeepsItsNumber) {
  Put("[TOPICS]\r\n0=General\r\n1=Greek\r\n2=Greek\r\n");
  EXPECT_EQ(FollowTopic(topics, 2, topics), 2);
}

TEST_F(TopicListTest, TheSelectedTopicFollowsItsNameWhenTheListIsReadAnew) {
  Put(FourTopics);
  topics.CurrentTopic = 3;
  Put("[TOPICS]\r\n0=General\r\n1=Greek\r\n2=Russian\r\n");
  EXPECT_EQ(topics.CurrentTopic, 2);
  Put("[TOPICS]\r\n0=General\r\n1=Greek\r\n");
  EXPECT_EQ(topics.CurrentTopic, 0);
}

// Deleting

TEST_F(TopicListTest, DeletingClosesTheListUp) {
  Put(FourTopics);
  DeleteTopic(topics, profile, 1);
  EXPECT_EQ(topics.TopicCount, 2);
  EXPECT_EQ(Names(), Eleven({u"General", u"Greek", u"Russian"}));
  EXPECT_EQ(Content(),
            "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Greek\r\n2=Russian\r\n"
            "[General]\r\nKEYS=g\r\n[Greek]\r\nKEYS=k\r\n[Russian]\r\nKEYS=r\r\n");
}

TEST_F(TopicListTest, DeletingTheLastTopicMovesNothing) {
  Put(FourTopics);
  DeleteTopic(topics, profile, 3);
  EXPECT_EQ(Content(),
            "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Spanish\r\n2=Greek\r\n"
            "[General]\r\nKEYS=g\r\n[Spanish]\r\nKEYS=s\r\n[Greek]\r\nKEYS=k\r\n");
}

TEST_F(TopicListTest, DeletingKeepsTheSelectedTopic) {
  Put(FourTopics);
  topics.CurrentTopic = 3;
  DeleteTopic(topics, profile, 1);
  EXPECT_EQ(topics.CurrentTopic, 2);
  DeleteTopic(topics, profile, 2);
  EXPECT_EQ(topics.CurrentTopic, 0);
}

TEST_F(TopicListTest, DeletingOneOfTwoEqualNamesSelectsTheFirstWhereItWasSelected) {
  Put("[TOPICS]\r\n0=General\r\n1=Greek\r\n2=Greek\r\n");
  topics.CurrentTopic = 1;
  EXPECT_EQ(DeleteTopic(topics, profile, 1).number, 1);
  EXPECT_EQ(topics.CurrentTopic, 0);
}

TEST_F(TopicListTest, ADeletionThatIsNotWrittenLeavesTheListAsTheFileIs) {
  Put(FourTopics);
  topics.CurrentTopic = 3;
  files.failCommit = FileStatus::DiskFull;
  const TopicDeletion deletion = DeleteTopic(topics, profile, 1);
  EXPECT_FALSE(deletion.written);
  EXPECT_EQ(deletion.number, -1);
  EXPECT_EQ(Names(), Eleven({u"General", u"Spanish", u"Greek", u"Russian"}));
  EXPECT_EQ(topics.CurrentTopic, 3);
  EXPECT_EQ(Content(), FourTopics);
}

TEST_F(TopicListTest, DeletingCopiesAGapDown) {
  Put("[TOPICS]\r\n0=General\r\n1=Spanish\r\n2=Greek\r\n4=Russian\r\n");
  DeleteTopic(topics, profile, 1);
  EXPECT_EQ(topics.TopicCount, 3);
  EXPECT_EQ(Names(), Eleven({u"General", u"Greek", u"", u"Russian"}));
}

TEST_F(TopicListTest, DeletingAGapTakesNoSection) {
  Put("[TOPICS]\r\n0=General\r\n2=Greek\r\n[]\r\nk=1\r\n[Greek]\r\nKEYS=k\r\n");
  DeleteTopic(topics, profile, 1);
  EXPECT_EQ(Names(), Eleven({u"General", u"Greek"}));
  EXPECT_EQ(Content(), "[TOPICS]\r\n0=General\r\n1=Greek\r\n[]\r\nk=1\r\n[Greek]\r\nKEYS=k\r\n");
}

TEST_F(TopicListTest, DeletingTakesTheSectionInAnyLetterCase) {
  Put("[TOPICS]\r\n0=General\r\n1=Greek\r\n[GREEK]\r\nKEYS=k\r\n");
  DeleteTopic(topics, profile, 1);
  EXPECT_EQ(Content(), "[TOPICS]\r\n0=General\r\n");
}

TEST_F(TopicListTest, DeletingATopicCalledLikeTheListKeepsTheOthers) {
  for (const std::string name : {"TOPICS", "Topics"}) {
    Put("[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=" + name + "\r\n2=Greek\r\n");
    DeleteTopic(topics, profile, 1);
    EXPECT_EQ(Content(), "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Greek\r\n");
  }
}

TEST_F(TopicListTest, DeletingWhatIsNotInTheListChangesNothing) {
  Put(FourTopics);
  for (const int index : {-1, 4, 10, 11}) DeleteTopic(topics, profile, index);
  EXPECT_EQ(Content(), FourTopics);
  EXPECT_EQ(topics.TopicCount, 3);
}

TEST_F(TopicListTest, DeletingFromAFullListMakesRoom) {
  Put(ElevenTopics());
  DeleteTopic(topics, profile, 10);
  EXPECT_EQ(topics.TopicCount, 9);
}

TEST_F(TopicListTest, DeletingFindsTheTopicWhereAnotherProgramHasPutIt) {
  Put(FourTopics);
  TopicList others = topics;
  DeleteTopic(others, profile, 1);  // Spanish: Greek and Russian move down
  DeleteTopic(topics, profile, 3);
  EXPECT_EQ(Names(), Eleven({u"General", u"Greek"}));
  EXPECT_EQ(Content(),
            "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Greek\r\n"
            "[General]\r\nKEYS=g\r\n[Greek]\r\nKEYS=k\r\n");
}

TEST_F(TopicListTest, DeletingWhatAnotherProgramHasDeletedTakesNoOtherTopic) {
  Put(FourTopics);
  TopicList others = topics;
  DeleteTopic(others, profile, 1);
  const std::string content = Content();
  DeleteTopic(topics, profile, 1);
  EXPECT_EQ(Content(), content);
  EXPECT_EQ(Names(), Eleven({u"General", u"Greek", u"Russian"}));
}

TEST_F(TopicListTest, DeletingKeepsTheTopicsThatAnotherProgramHasAdded) {
  Put(FourTopics);
  profile.WriteString(u"TOPICS", u"4", u"Latin");
  DeleteTopic(topics, profile, 2);
  EXPECT_EQ(Names(), Eleven({u"General", u"Spanish", u"Russian", u"Latin"}));
}

TEST_F(TopicListTest, DeletingAHandMadeNameTakesNoSectionOfOthers) {
  for (const std::string name : {"Topics]x", "Greek]x", "]"}) {
    Put("[TOPICS]\r\n0=General\r\n1=" + name + "\r\n2=Greek\r\n[]\r\nk=1\r\n[Greek]\r\nk=2\r\n");
    DeleteTopic(topics, profile, 1);
    EXPECT_EQ(Content(), "[TOPICS]\r\n0=General\r\n1=Greek\r\n[]\r\nk=1\r\n[Greek]\r\nk=2\r\n");
  }
}

TEST_F(TopicListTest, StaysAsItIsWhileTheFileCannotBeRead) {
  Put(FourTopics);
  files.failRead = FileStatus::DeviceError;
  LoadTopicList(topics, profile);
  EXPECT_EQ(topics.TopicCount, 3);
  EXPECT_EQ(topics.Name(3), u"Russian");
}

// The topic of a stack file

class ResolveFileTopicTest : public TopicListTest {
 protected:
  ResolveFileTopicTest() { Put(FourTopics); }

  /// Adds the proposed name as the dialog does.
  AddTopic Adding() {
    return [this](const Text& name) {
      proposed.push_back(name);
      ++topics.TopicCount;
      topics.Names.at(static_cast<std::size_t>(topics.TopicCount)) = name;
      topics.CurrentTopic = topics.TopicCount;
    };
  }
  AddTopic Cancelling() {
    return [this](const Text& name) { proposed.push_back(name); };
  }
  static AddTopic Never() {
    return [](const Text&) { ADD_FAILURE() << "the topic dialog was opened"; };
  }

  std::vector<Text> proposed;
};

TEST_F(ResolveFileTopicTest, TellsWhenTheFileNamesNone) {
  for (const Text& name : {Text(), Text(20, u' ')}) {
    ScriptedPrompts prompts({Answer::Ok});
    EXPECT_EQ(ResolveFileTopic(name, topics, prompts, Never()), 0);
    ASSERT_EQ(prompts.shown.size(), 1U);
    ExpectPrompt(prompts.shown[0],
                 u"No Topic for this file.\r\nAdd one with the Edit CardStack Function.",
                 PromptIcon::Question, PromptButtons::Ok, u"Quib!Cards 5.50");
  }
}

TEST_F(ResolveFileTopicTest, TellsWhenTheFileNamesNoneEvenWhereNoneCanBeAdded) {
  ScriptedPrompts prompts({Answer::Ok});
  EXPECT_EQ(ResolveFileTopic(u"", topics, prompts, {}), 0);
}

TEST_F(ResolveFileTopicTest, FindsAConfiguredTopicWithoutAWord) {
  ScriptedPrompts prompts;
  EXPECT_EQ(ResolveFileTopic(u"Greek", topics, prompts, Never()), 2);
  EXPECT_EQ(ResolveFileTopic(u"Greek    ", topics, prompts, Never()), 2);
  EXPECT_EQ(ResolveFileTopic(u"General", topics, prompts, Never()), 0);
}

TEST_F(ResolveFileTopicTest, AsksAboutAnUnknownOne) {
  ScriptedPrompts prompts({Answer::No});
  EXPECT_EQ(ResolveFileTopic(u"French   ", topics, prompts, Never()), 0);
  ExpectPrompt(prompts.shown.at(0), u"French is not a configured Topic.  Add it?",
               PromptIcon::Question, PromptButtons::YesNo, u"Quib!Cards 5.50");
}

TEST_F(ResolveFileTopicTest, AsksAboutANameInAnotherLetterCase) {
  ScriptedPrompts prompts({Answer::No});
  EXPECT_EQ(ResolveFileTopic(u"GREEK", topics, prompts, Never()), 0);
}

TEST_F(ResolveFileTopicTest, GivesTheNewTopicAfterYes) {
  ScriptedPrompts prompts({Answer::Yes});
  EXPECT_EQ(ResolveFileTopic(u"French   ", topics, prompts, Adding()), 4);
  EXPECT_EQ(proposed, std::vector<Text>{u"French"});
}

TEST_F(ResolveFileTopicTest, RestoresTheCurrentTopic) {
  ScriptedPrompts prompts({Answer::Yes});
  topics.CurrentTopic = 2;
  EXPECT_EQ(ResolveFileTopic(u"French", topics, prompts, Adding()), 4);
  EXPECT_EQ(topics.CurrentTopic, 2);
}

TEST_F(ResolveFileTopicTest, GivesTheLastTopicWhenTheDialogWasCancelled) {
  ScriptedPrompts prompts({Answer::Yes});
  EXPECT_EQ(ResolveFileTopic(u"French", topics, prompts, Cancelling()), 3);
}

TEST_F(ResolveFileTopicTest, GivesTopic0WhenThereIsStillNone) {
  topics = {};
  ScriptedPrompts prompts({Answer::Yes});
  EXPECT_EQ(ResolveFileTopic(u"French", topics, prompts, Cancelling()), 0);
}

TEST_F(ResolveFileTopicTest, RefusesATwelfthTopicAfterYes) {
  Put(ElevenTopics());
  ScriptedPrompts prompts({Answer::Yes, Answer::Ok});
  EXPECT_EQ(ResolveFileTopic(u"French", topics, prompts, Never()), 0);
  ASSERT_EQ(prompts.shown.size(), 2U);
  ExpectPrompt(prompts.shown[1], u"Cannot Add.  Maximum of 10 Topics", PromptIcon::Exclamation,
               PromptButtons::Ok, u"Quib!Cards 5.50");
}

TEST_F(ResolveFileTopicTest, AsksBeforeItRefusesATwelfthTopic) {
  Put(ElevenTopics());
  ScriptedPrompts prompts({Answer::No});
  EXPECT_EQ(ResolveFileTopic(u"French", topics, prompts, Never()), 0);
}

TEST_F(ResolveFileTopicTest, AsksNothingWhereTopicsCannotBeAdded) {
  ScriptedPrompts prompts;
  EXPECT_EQ(ResolveFileTopic(u"French", topics, prompts, {}), 0);
}

TEST(TooManyTopicsPrompt, NamesTheLimit) {
  ExpectPrompt(TooManyTopicsPrompt(), u"Cannot Add.  Maximum of 10 Topics", PromptIcon::Exclamation,
               PromptButtons::Ok, u"Quib!Cards 5.50");
}

// Names

TEST(CleanTopicName, LeavesOutWhatWouldBreakTheLineOfTheSection) {
  EXPECT_EQ(CleanTopicName(u"a[b]c"), u"abc");
  EXPECT_EQ(CleanTopicName(u"a\r\nb\tc\u0085d\u007Fe"), u"abcde");
}

TEST(CleanTopicName, CutsBlanksAtBothEndsAlsoWhereTheCutMadeThem) {
  EXPECT_EQ(CleanTopicName(u"  Old Norse "), u"Old Norse");
  EXPECT_EQ(CleanTopicName(Text(19, u'x') + u" yz"), Text(19, u'x'));
}

TEST(CleanTopicName, KeepsTwentyCharactersAndNoHalfOfOne) {
  EXPECT_EQ(CleanTopicName(Text(21, u'x')), Text(20, u'x'));
  EXPECT_EQ(CleanTopicName(Text(19, u'x') + u"\U0001F600"), Text(19, u'x'));
}

TEST(WithoutSectionMarks, CutsNothingElse) {
  EXPECT_EQ(WithoutSectionMarks(u" [a]\tlonger name than a topic may have "),
            u"alonger name than a topic may have");
}

TEST(CleanTopicName, MayLeaveNothing) { EXPECT_EQ(CleanTopicName(u" [ ] "), u""); }

TEST(IsTakenTopicName, MindsLetterCaseButForTheListsOwnSection) {
  TopicList topics;
  topics.Names[0] = u"General";
  topics.TopicCount = 0;
  EXPECT_TRUE(IsTakenTopicName(topics, u"General"));
  EXPECT_FALSE(IsTakenTopicName(topics, u"general"));
  EXPECT_TRUE(IsTakenTopicName(topics, u"Topics"));
}

}  // namespace
