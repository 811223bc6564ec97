#include "settings/TopicSettings.h"

#include <cmath>

namespace {

constexpr TextView FrontFontKey = u"FRONTFONT";
constexpr TextView FrontSizeKey = u"FRONTSIZE";
constexpr TextView BackFontKey = u"BACKFONT";
constexpr TextView BackSizeKey = u"BACKSIZE";
constexpr TextView KeysKey = u"KEYS";
constexpr std::size_t LongestFontName = 50;
constexpr std::size_t LongestSize = 8;

Text FontName(ProfileFile& profile, TextView topicName, TextView key) {
  Text name = profile.GetString(topicName, key, u"", LongestFontName);
  if (!name.empty()) return name;
  profile.WriteString(topicName, key, DefaultFontName);
  return Text(DefaultFontName);
}

float FontSize(ProfileFile& profile, TextView topicName, TextView key) {
  const Text text = profile.GetString(topicName, key, u"", LongestSize);
  if (text.empty()) {
    profile.WriteString(topicName, key, NumberText(DefaultFontSize));
    return DefaultFontSize;
  }
  const auto size = static_cast<float>(LeadingNumber(text));
  return std::isfinite(size) && size > 0 ? size : DefaultFontSize;
}

}  // namespace

void InitSettings(ProfileFile& profile) {
  if (profile.GetInt(TopicsSection, DefaultTopicKey, -1) != -1) return;
  profile.WriteString(TopicsSection, DefaultTopicKey, u"0");
  profile.WriteString(TopicsSection, u"0", DefaultTopicName);
  SaveTopicFonts(profile, DefaultTopicName, TopicFonts());
}

TopicSettings LoadTopicSettings(ProfileFile& profile, TextView topicName) {
  TopicSettings settings;
  settings.Fonts.FrontFont = FontName(profile, topicName, FrontFontKey);
  settings.Fonts.FrontSize = FontSize(profile, topicName, FrontSizeKey);
  settings.Fonts.BackFont = FontName(profile, topicName, BackFontKey);
  settings.Fonts.BackSize = FontSize(profile, topicName, BackSizeKey);
  settings.Keys = ParseKeysText(profile.GetString(topicName, KeysKey, u"", KeysTextWidth));
  return settings;
}

void SaveTopicFonts(ProfileFile& profile, TextView topicName, const TopicFonts& fonts) {
  profile.WriteString(topicName, FrontFontKey, fonts.FrontFont);
  profile.WriteString(topicName, FrontSizeKey, NumberText(fonts.FrontSize));
  profile.WriteString(topicName, BackFontKey, fonts.BackFont);
  profile.WriteString(topicName, BackSizeKey, NumberText(fonts.BackSize));
}

bool SaveTopicAndKeys(ProfileFile& profile, TopicList& topics, TextView topicName,
                      const TopicFonts& fonts, const KeyTable& keys) {
  if (FindTopic(topics, topicName) < 0) {
    if (topics.TopicCount >= MaxTopics) return false;
    ++topics.TopicCount;
    topics.CurrentTopic = topics.TopicCount;
    topics.Names[static_cast<std::size_t>(topics.TopicCount)] = topicName;
    profile.WriteString(TopicsSection, NumberText(topics.TopicCount), topicName);
    SaveTopicFonts(profile, topicName, fonts);
  }
  profile.WriteString(topicName, KeysKey, KeysText(keys));
  return true;
}

void SelectTopic(TopicList& topics, TopicSettings& settings, ProfileFile& profile, int index) {
  topics.CurrentTopic = topics.Effective(index);
  settings = topics.TopicCount < 0 ? TopicSettings()
                                   : LoadTopicSettings(profile, topics.Name(topics.CurrentTopic));
}
