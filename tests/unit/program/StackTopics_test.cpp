#include "program/StackTopics.h"

#include "tests/support/MemoryFiles.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

constexpr TextView File = u"QUIBCRDS.INI";
constexpr auto FourTopics =
    "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Spanish\r\n2=Greek\r\n3=Russian\r\n";

class StackTopicsTest : public testing::Test {
 protected:
  StackTopicsTest() {
    files.Put(Text(File), FourTopics);
    LoadTopicList(topics, profile);
    for (const int topic : {1, 2, 3, 0, 9}) stacks.Append().TopicIndex = topic;
    topics.CurrentTopic = 2;
  }

  std::vector<int> StackTopics() {
    std::vector<int> numbers;
    for (const CardStack& stack : stacks.StackList) numbers.push_back(stack.TopicIndex);
    return numbers;
  }
  Text Current() const { return topics.Name(topics.CurrentTopic); }
  bool Remove(int index) { return RemoveTopic(stacks, topics, profile, index); }

  MemoryFiles files;
  ProfileFile profile{files, Text(File)};
  ProfileFile other{files, Text(File)};  // of another program
  StackStore stacks;
  TopicList topics;
};

TEST_F(StackTopicsTest, StacksOfADeletedTopicFallBackAndTheOthersKeepTheirNumbers) {
  EXPECT_TRUE(Remove(1));
  EXPECT_EQ(StackTopics(), (std::vector{0, 2, 3, 0, 9}));
  EXPECT_EQ(Current(), u"Greek");
}

TEST_F(StackTopicsTest, TheDeletedTopicGivesWayToTheFirst) {
  EXPECT_TRUE(Remove(2));
  EXPECT_EQ(topics.CurrentTopic, 0);
  EXPECT_EQ(StackTopics(), (std::vector{1, 0, 3, 0, 9}));
}

TEST_F(StackTopicsTest, ADeletionThatIsNotWrittenDidNotHappen) {
  for (const bool early : {true, false}) {
    files.failReplace = early ? FileStatus::PathAccess : FileStatus::Ok;
    files.failCommit = early ? FileStatus::Ok : FileStatus::DiskFull;
    for (const int index : {1, 2, 3}) {
      EXPECT_FALSE(Remove(index));
      EXPECT_EQ(StackTopics(), (std::vector{1, 2, 3, 0, 9}));
      EXPECT_EQ(topics.TopicCount, 3);
      EXPECT_EQ(Current(), u"Greek");
      EXPECT_EQ(files.Content(Text(File)), FourTopics);
    }
  }
}

TEST_F(StackTopicsTest, StacksAndSelectionFollowTheirNamesWhenAnotherProgramDeletes) {
  TopicList others = topics;
  EXPECT_TRUE(DeleteTopic(others, other, 1).written);
  ReloadTopics(stacks, topics, profile);
  EXPECT_EQ(StackTopics(), (std::vector{0, 1, 2, 0, 9}));
  EXPECT_EQ(Current(), u"Greek");
}

TEST_F(StackTopicsTest, TheSelectionBecomesTheFirstWhenAnotherProgramDeletesItsTopic) {
  TopicList others = topics;
  EXPECT_TRUE(DeleteTopic(others, other, 2).written);
  ReloadTopics(stacks, topics, profile);
  EXPECT_EQ(StackTopics(), (std::vector{1, 0, 2, 0, 9}));
  EXPECT_EQ(topics.CurrentTopic, 0);
}

TEST_F(StackTopicsTest, ADeletionFollowsWhatAnotherProgramHasDeletedBefore) {
  TopicList others = topics;
  EXPECT_TRUE(DeleteTopic(others, other, 1).written);
  EXPECT_TRUE(Remove(3));  // Russian, which is 2 by now
  EXPECT_EQ(topics.TopicCount, 1);
  EXPECT_EQ(Current(), u"Greek");
  EXPECT_EQ(StackTopics(), (std::vector{0, 1, 0, 0, 9}));
}

TEST_F(StackTopicsTest, ADeletionThatIsNotWrittenStillFollowsTheFile) {
  TopicList others = topics;
  EXPECT_TRUE(DeleteTopic(others, other, 1).written);
  files.failCommit = FileStatus::DiskFull;
  EXPECT_FALSE(Remove(3));
  EXPECT_EQ(topics.TopicCount, 2);
  EXPECT_EQ(Current(), u"Greek");
  EXPECT_EQ(StackTopics(), (std::vector{0, 1, 2, 0, 9}));
}

TEST_F(StackTopicsTest, SavingFollowsWhatAnotherProgramHasDeletedBefore) {
  TopicList others = topics;
  EXPECT_TRUE(DeleteTopic(others, other, 1).written);
  EXPECT_EQ(SaveTopic(stacks, topics, profile, u"Latin", {}, {}), TopicSave::Saved);
  EXPECT_EQ(Current(), u"Latin");
  EXPECT_EQ(StackTopics(), (std::vector{0, 1, 2, 0, 9}));
}

TEST_F(StackTopicsTest, NothingMovesWhileTheFileCannotBeReadOrIsGone) {
  files.failRead = FileStatus::PathAccess;
  ReloadTopics(stacks, topics, profile);
  files.failRead = FileStatus::Ok;
  (void)files.Remove(Text(File));
  ReloadTopics(stacks, topics, profile);
  files.Put(Text(File), "");
  ReloadTopics(stacks, topics, profile);
  EXPECT_EQ(StackTopics(), (std::vector{1, 2, 3, 0, 9}));
  EXPECT_EQ(Current(), u"Greek");
}

}  // namespace
