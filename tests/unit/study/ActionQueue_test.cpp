#include "study/ActionQueue.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace {

TEST(ActionQueue, AnActionHappensAtOnce) {
  ActionQueue queue;
  int done = 0;
  queue.Do([&] { ++done; });
  queue.Do([&] { ++done; });
  EXPECT_EQ(done, 2);
}

TEST(ActionQueue, WhatArrivesMeanwhileHappensAfterwardsInItsOrder) {
  ActionQueue queue;
  std::string order;
  queue.Do([&] {
    order += "a";
    queue.Do([&] {
      order += "c";
      queue.Do([&] { order += "e"; });
    });
    queue.Do([&] { order += "d"; });
    order += "b";
  });
  EXPECT_EQ(order, "abcde");
}

TEST(ActionQueue, AFaultLeavesItUsable) {
  ActionQueue queue;
  std::string order;
  const auto fails = [&] {
    queue.Do([&] { order += "a"; });
    throw std::runtime_error("fault");
  };
  EXPECT_THROW(queue.Do(fails), std::runtime_error);
  queue.Do([&] { order += "b"; });
  EXPECT_EQ(order, "ab");
}

TEST(ActionQueue, MayBeDestroyedByAnAction) {
  auto queue = std::make_unique<ActionQueue>();
  bool late = false;
  queue->Do([&] {
    queue->Do([&] { late = true; });
    queue.reset();
  });
  EXPECT_FALSE(late);
}

}  // namespace
