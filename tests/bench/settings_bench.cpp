#include "base/DiskFiles.h"
#include "settings/TopicSettings.h"

#include <benchmark/benchmark.h>

namespace {

constexpr auto SettingsName = u"bench-settings.INI";

/// A settings file of 11 topics with 30 key assignments each, on disk.
class SettingsOfElevenTopics : public benchmark::Fixture {
 public:
  using benchmark::Fixture::SetUp;
  using benchmark::Fixture::TearDown;
  void SetUp(benchmark::State&) override {
    InitSettings(profile);
    LoadTopicList(topics, profile);
    KeyTable keys;
    for (int i = 0; i < MaxKeyAssignments; ++i) {
      ++keys.KeyCount;
      keys.Slots[static_cast<std::size_t>(keys.KeyCount)] = {BothSidesMark, CharCode{u'2'},
                                                             static_cast<CharCode>('A' + i % 26),
                                                             static_cast<CharCode>(192 + i)};
    }
    for (int i = 1; i <= MaxTopics; ++i) {
      SaveTopicAndKeys(profile, topics, u"Topic " + NumberText(i), TopicFonts(), keys);
    }
  }
  void TearDown(benchmark::State&) override { (void)files.Remove(SettingsName); }

  DiskFiles files{u""};
  ProfileFile profile{files, SettingsName};
  TopicList topics;
};

BENCHMARK_F(SettingsOfElevenTopics, ReadOneValue)(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(profile.GetString(u"Topic 10", u"BACKSIZE", u"", 8));
  }
}

BENCHMARK_F(SettingsOfElevenTopics, WriteOneValue)(benchmark::State& state) {
  int size = 0;
  for (auto _ : state) {
    profile.WriteString(u"Topic 10", u"BACKSIZE", NumberText(++size));
  }
}

BENCHMARK_F(SettingsOfElevenTopics, SelectTopic)(benchmark::State& state) {
  TopicSettings settings;
  for (auto _ : state) SelectTopic(topics, settings, profile, 10);
}

}  // namespace
