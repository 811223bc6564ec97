#include "shell/TopicRemoval.h"

#include <gtest/gtest.h>

namespace {

class ForgetTopicTest : public testing::Test {
 protected:
  void Load(int topic) { stacks.Append().TopicIndex = topic; }

  StackStore stacks;
  TopicList topics;
};

TEST_F(ForgetTopicTest, StacksOfTheTopicFallBackAndTheOthersKeepTheirNumbers) {
  for (const int topic : {1, 2, 3, 0}) Load(topic);
  ForgetTopic(stacks, topics, 2);
  EXPECT_EQ(stacks.At(0).TopicIndex, 1);
  EXPECT_EQ(stacks.At(1).TopicIndex, 0);
  EXPECT_EQ(stacks.At(2).TopicIndex, 3);
  EXPECT_EQ(stacks.At(3).TopicIndex, 0);
}

TEST_F(ForgetTopicTest, TheSameTopicStaysSelected) {
  topics.CurrentTopic = 3;
  ForgetTopic(stacks, topics, 2);
  EXPECT_EQ(topics.CurrentTopic, 2);
  ForgetTopic(stacks, topics, 5);
  EXPECT_EQ(topics.CurrentTopic, 2);
}

TEST_F(ForgetTopicTest, TheDeletedTopicGivesWayToTheFirst) {
  topics.CurrentTopic = 2;
  ForgetTopic(stacks, topics, 2);
  EXPECT_EQ(topics.CurrentTopic, 0);
}

}  // namespace
