#include "shell/TopicRemoval.h"

void ForgetTopic(StackStore& stacks, TopicList& topics, int deleted) {
  for (CardStack& stack : stacks.StackList) {
    if (stack.TopicIndex == deleted) stack.TopicIndex = 0;
  }
  // The topics behind the deleted one moved down. Without this the next save would write another
  // topic's name into the user's file.
  if (topics.CurrentTopic == deleted) {
    topics.CurrentTopic = 0;
  } else if (topics.CurrentTopic > deleted) {
    --topics.CurrentTopic;
  }
}
