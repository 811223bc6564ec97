#include "study/RandomSource.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>

TEST(ClockRandom, GivesMultiplesOfTheSmallestStepBelowOne) {
  ClockRandom random;
  for (int i = 0; i < 10'000; ++i) {
    const double number = random.Next();
    EXPECT_GE(number, 0.0);
    EXPECT_LT(number, 1.0);
    const double scaled = number * (1 << 24);
    EXPECT_EQ(scaled, std::floor(scaled));
  }
}

TEST(ClockRandom, IsUniform) {
  constexpr int Numbers = 100'000;
  std::array<int, 10> tenths{};
  ClockRandom random;
  for (int i = 0; i < Numbers; ++i) ++tenths.at(static_cast<std::size_t>(random.Next() * 10));
  // Ten standard deviations: the seed is the clock, and this must never fail by chance.
  for (const int count : tenths) EXPECT_NEAR(count, Numbers / 10, 950);
}

TEST(ClockRandom, TwoOfThemGiveDifferentNumbers) {
  ClockRandom first;
  ClockRandom second;
  int equal = 0;
  for (int i = 0; i < 100; ++i) {
    if (first.Next() == second.Next()) ++equal;
  }
  EXPECT_LT(equal, 3);
}
