#include "cards/StackStore.h"

#include <algorithm>
#include <utility>

namespace {

CardStack Placeholder() {
  CardStack none;
  none.StackName = NoStackName;
  return none;
}

}  // namespace

StackStore::StackStore() { StackList.push_back(Placeholder()); }

const CardStack& StackStore::At(int index) const {
  if (index < 0 || index >= static_cast<int>(StackList.size())) {
    throw Fault(FileStatus::SubscriptOutOfRange);
  }
  return StackList[static_cast<std::size_t>(index)];
}

CardStack& StackStore::At(int index) {
  return const_cast<CardStack&>(std::as_const(*this).At(index));
}

CardStack& StackStore::Current() { return At(CurrentStack); }

const CardStack& StackStore::Current() const { return At(CurrentStack); }

CardStack& StackStore::Append() {
  ++StackCount;
  if (StackCount == 0) StackList.clear();
  CurrentStack = StackCount;
  return StackList.emplace_back();
}

void StackStore::RemoveCurrentStack() {
  if (StackCount >= 0) {
    (void)At(CurrentStack);  // a selection outside the list is a fault here as well
    StackList.erase(StackList.begin() + CurrentStack);
    --StackCount;
  }
  if (StackCount < 0) {
    StackList.clear();
    StackList.push_back(Placeholder());
  }
  CurrentStack = std::min<int>(CurrentStack, std::max<int>(StackCount, 0));
}
