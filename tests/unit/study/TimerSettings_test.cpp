#include "study/TimerSettings.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

TEST(TimerSettings, BeginWithoutTimerAndWithEverythingShown) {
  const TimerSettings settings;
  EXPECT_EQ(settings.TimerInterval, 0);
  EXPECT_FALSE(settings.HideWord);
  EXPECT_FALSE(settings.NoSound);
  EXPECT_FALSE(settings.NoPicture);
  EXPECT_FALSE(settings.TimerSettingsConfirmed);
}

TEST(OptionOf, KnowsFourIntervalsAndCallsEveryOtherOther) {
  EXPECT_EQ(OptionOf(0), IntervalOption::None);
  EXPECT_EQ(OptionOf(250), IntervalOption::Quarter);
  EXPECT_EQ(OptionOf(500), IntervalOption::Half);
  EXPECT_EQ(OptionOf(1000), IntervalOption::One);
  for (const int other : {1, 249, 251, 750, 999, 1001, 2000, 32'767}) {
    EXPECT_EQ(OptionOf(other), IntervalOption::Other) << other;
  }
}

TEST(IntervalOf, IsTheInverseOfOptionOf) {
  for (const int interval : {0, 250, 500, 1000}) {
    EXPECT_EQ(IntervalOf(OptionOf(interval)), Int16(interval));
  }
  EXPECT_EQ(IntervalOf(IntervalOption::Other), std::nullopt);
}

TEST(SecondsText, ShowsSecondsWithAPoint) {
  const std::pair<int, TextView> table[] = {{750, u"0.75"},      {2000, u"2"},   {1500, u"1.5"},
                                            {1, u"0.001"},       {10, u"0.01"},  {300, u"0.3"},
                                            {32'767, u"32.767"}, {10'000, u"10"}};
  for (const auto& [interval, text] : table) EXPECT_EQ(SecondsText(interval), text);
}

TEST(SecondsText, EveryIntervalReadsBack) {
  for (int interval = 0; interval <= INT16_MAX; ++interval) {
    ASSERT_EQ(IntervalOfSeconds(SecondsText(interval)), Int16(interval)) << interval;
  }
}

TEST(IntervalOfSeconds, FollowsTheTable) {
  const std::pair<TextView, int> table[] = {
      {u"2", 2000},     {u"0.3", 300},  {u"0.0004", 0}, {u"0.0006", 1},      {u"0.0005", 0},
      {u"0.0015", 2},   {u"0.0025", 2}, {u"0.0035", 4}, {u"32.767", 32'767}, {u"32.7674", 32'767},
      {u"abc", 0},      {u"", 0},       {u"-1", 0},     {u" 2", 2000},       {u"1,5", 1000},
      {u"1.5 s", 1500}, {u".5", 500},   {u"2.", 2000},  {u"+2", 2000},       {u"1e1", 10'000},
      {u"1e-3", 1},     {u"0", 0},      {u".", 0},      {u"1.5.5", 1500},    {u"-1e999", 0},
      {u"x2", 0},
  };
  for (const auto& [seconds, interval] : table) {
    EXPECT_EQ(IntervalOfSeconds(seconds), Int16(interval)) << ToUtf8(seconds);
  }
}

TEST(IntervalOfSeconds, ReadsNoHexadecimalNumber) {
  EXPECT_EQ(IntervalOfSeconds(u"0x10"), Int16(0));
  EXPECT_EQ(IntervalOfSeconds(u"&H10"), Int16(0));
}

TEST(IntervalOfSeconds, RefusesWhatDoesNotFit16Bits) {
  for (const TextView seconds :
       {u"32.768", u"32.7676", u"33", u"100000", u"1e999", u"9999999999999"}) {
    EXPECT_EQ(IntervalOfSeconds(seconds), std::nullopt) << ToUtf8(seconds);
  }
}
