#include "settings/TopicSettings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace {

constexpr TextView FrontFontKey = u"FRONTFONT";
constexpr TextView FrontSizeKey = u"FRONTSIZE";
constexpr TextView BackFontKey = u"BACKFONT";
constexpr TextView BackSizeKey = u"BACKSIZE";
constexpr TextView KeysKey = u"KEYS";
constexpr std::size_t LongestFontName = 50;
constexpr std::size_t LongestSize = 8;

constexpr std::array FontKeys{FrontFontKey, FrontSizeKey, BackFontKey, BackSizeKey};

Text DefaultOf(TextView key) {
  const bool isFont = key == FrontFontKey || key == BackFontKey;
  return isFont ? Text(DefaultFontName) : NumberText(DefaultFontSize);
}

bool IsMissing(const ProfileText& profile, TextView topicName, TextView key) {
  return profile.Value(topicName, key).value_or(u"").empty();
}

/// The value, or the default where it is missing.
Text FontValue(const ProfileText& profile, TextView topicName, TextView key, std::size_t longest) {
  if (IsMissing(profile, topicName, key)) return DefaultOf(key);
  return StringIn(profile, topicName, key, u"", longest);
}

float FontSize(const ProfileText& profile, TextView topicName, TextView key) {
  const auto size =
      static_cast<float>(LeadingNumber(FontValue(profile, topicName, key, LongestSize)));
  return std::isfinite(size) && size > 0 ? size : DefaultFontSize;
}

void SetFonts(ProfileText& profile, TextView topicName, const TopicFonts& fonts) {
  profile.SetValue(topicName, FrontFontKey, fonts.FrontFont);
  profile.SetValue(topicName, FrontSizeKey, NumberText(fonts.FrontSize));
  profile.SetValue(topicName, BackFontKey, fonts.BackFont);
  profile.SetValue(topicName, BackSizeKey, NumberText(fonts.BackSize));
}

bool IsNew(const ProfileText& profile) {
  return IntegerIn(profile, TopicsSection, DefaultTopicKey, -1) == -1;
}

/// Adds what is missing. Looks again at the file as it is by then: a value that could not be read
/// before is not missing.
void WriteMissing(ProfileFile& profile, TextView topicName) {
  profile.Change([&](ProfileText& text) {
    for (const TextView key : FontKeys) {
      if (IsMissing(text, topicName, key)) text.SetValue(topicName, key, DefaultOf(key));
    }
  });
}

}  // namespace

void InitSettings(ProfileFile& profile) {
  const std::optional<ProfileText> text = profile.Read();
  if (!text || !IsNew(*text)) return;
  profile.Change([](ProfileText& file) {
    if (!IsNew(file)) return;  // another program was faster
    file.SetValue(TopicsSection, DefaultTopicKey, u"0");
    file.SetValue(TopicsSection, u"0", DefaultTopicName);
    SetFonts(file, DefaultTopicName, TopicFonts());
  });
}

TopicSettings LoadTopicSettings(ProfileFile& profile, TextView topicName) {
  const std::optional<ProfileText> read = profile.Read();
  const ProfileText text = read.value_or(ProfileText(u""));
  TopicSettings settings;
  settings.Fonts.FrontFont = FontValue(text, topicName, FrontFontKey, LongestFontName);
  settings.Fonts.FrontSize = FontSize(text, topicName, FrontSizeKey);
  settings.Fonts.BackFont = FontValue(text, topicName, BackFontKey, LongestFontName);
  settings.Fonts.BackSize = FontSize(text, topicName, BackSizeKey);
  settings.Keys = ParseKeysText(StringIn(text, topicName, KeysKey, u"", KeysTextWidth));
  const bool isComplete = std::none_of(FontKeys.begin(), FontKeys.end(), [&](TextView key) {
    return IsMissing(text, topicName, key);
  });
  if (read && !isComplete) WriteMissing(profile, topicName);
  return settings;
}

void SaveTopicFonts(ProfileFile& profile, TextView topicName, const TopicFonts& fonts) {
  profile.Change([&](ProfileText& text) { SetFonts(text, topicName, fonts); });
}

bool SaveTopicAndKeys(ProfileFile& profile, TopicList& topics, TextView topicName,
                      const TopicFonts& fonts, const KeyTable& keys) {
  const TopicList before = topics;
  bool hasRoom = true;
  const bool written = profile.Change([&](ProfileText& text) {
    // Another program may have added topics since: their numbers are taken.
    if (FindTopic(topics, topicName) < 0) ReadTopicNames(topics, text);
    if (FindTopic(topics, topicName) < 0) {
      hasRoom = topics.TopicCount < MaxTopics;
      if (!hasRoom) return;
      ++topics.TopicCount;
      topics.CurrentTopic = topics.TopicCount;
      topics.Names[static_cast<std::size_t>(topics.TopicCount)] = topicName;
      text.SetValue(TopicsSection, NumberText(topics.TopicCount), topicName);
      SetFonts(text, topicName, fonts);
    }
    text.SetValue(topicName, KeysKey, KeysText(keys));
  });
  if (!written) topics = before;  // no topic of the file, so none of ours
  return hasRoom;
}

void SelectTopic(TopicList& topics, TopicSettings& settings, ProfileFile& profile, int index) {
  topics.CurrentTopic = topics.Effective(index);
  settings = topics.TopicCount < 0 ? TopicSettings()
                                   : LoadTopicSettings(profile, topics.Name(topics.CurrentTopic));
}
