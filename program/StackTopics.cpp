#include "program/StackTopics.h"

namespace {

void FollowTopics(StackStore& stacks, const TopicList& before, const TopicList& now) {
  for (CardStack& stack : stacks.StackList) {
    stack.TopicIndex = FollowTopic(before, stack.TopicIndex, now);
  }
}

}  // namespace

void ReloadTopics(StackStore& stacks, TopicList& topics, const ProfileFile& profile) {
  const TopicList before = topics;
  LoadTopicList(topics, profile);
  FollowTopics(stacks, before, topics);
}

bool RemoveTopic(StackStore& stacks, TopicList& topics, ProfileFile& profile, int index) {
  const TopicList before = topics;
  const TopicDeletion deletion = DeleteTopic(topics, profile, index);
  FollowTopics(stacks, before, deletion.found);
  for (CardStack& stack : stacks.StackList) {
    if (deletion.number >= 0 && stack.TopicIndex == deletion.number) stack.TopicIndex = 0;
  }
  return deletion.written;
}

TopicSave SaveTopic(StackStore& stacks, TopicList& topics, ProfileFile& profile, TextView topicName,
                    const TopicFonts& fonts, const KeyTable& keys) {
  const TopicList before = topics;
  const TopicSave result = SaveTopicAndKeys(profile, topics, topicName, fonts, keys);
  FollowTopics(stacks, before, topics);
  return result;
}
