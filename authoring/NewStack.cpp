#include "authoring/NewStack.h"

#include <algorithm>

CardStack& BeginNewStack(StackStore& stacks, int topic) {
  CardStack& stack = stacks.Append();
  stack.TopicIndex = topic;
  return stack;
}

void DropNewStack(StackStore& stacks) {
  if (stacks.StackCount < 0) return;
  --stacks.StackCount;
  stacks.CurrentStack = std::max<int>(stacks.StackCount, 0);
  stacks.StackList.pop_back();
  if (stacks.StackList.empty()) stacks.StackList.emplace_back();
}
