#include "base/Int16.h"

#include "tests/support/TextPrinters.h"

#include <climits>
#include <functional>
#include <gtest/gtest.h>

namespace {

FileStatus FaultOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Fault& fault) {
    return fault.Number();
  }
  return FileStatus::Ok;
}

TEST(Int16, HoldsEveryNumberOf16Bits) {
  for (int number = -32768; number <= 32767; ++number) ASSERT_EQ(Int16(number), number);
}

TEST(Int16, IsZeroAtFirst) { EXPECT_EQ(Int16(), 0); }

TEST(Int16, RefusesNumbersOutside) {
  for (const int number : {32768, -32769, 65536, INT_MAX, INT_MIN}) {
    EXPECT_EQ(FaultOf([=] { (void)Int16(number); }), FileStatus::Overflow) << number;
  }
}

TEST(Int16, NeverWrapsWhenItCounts) {
  Int16 top = 32767;
  Int16 bottom = -32768;
  EXPECT_EQ(FaultOf([&] { ++top; }), FileStatus::Overflow);
  EXPECT_EQ(FaultOf([&] { --bottom; }), FileStatus::Overflow);
  EXPECT_EQ(top, 32767);
  EXPECT_EQ(bottom, -32768);
}

TEST(Int16, CountsUpAndDown) {
  Int16 number = 5;
  EXPECT_EQ(++number, 6);
  EXPECT_EQ(--number, 5);
  EXPECT_EQ(number += 10, 15);
  EXPECT_EQ(number -= 20, -5);
}

TEST(Int16, RefusesSumsThatDoNotEvenFitAnInt) {
  Int16 number = 1;
  EXPECT_EQ(FaultOf([&] { number += INT_MAX; }), FileStatus::Overflow);
  EXPECT_EQ(FaultOf([&] { number -= INT_MIN; }), FileStatus::Overflow);
  EXPECT_EQ(number, 1);
}

TEST(Int16, ReachesItsEdgesByAddition) {
  Int16 number = 32000;
  EXPECT_EQ(number += 767, 32767);
  EXPECT_EQ(number -= 65535, -32768);
}

}  // namespace
