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
  return Text(FirstLine(StringIn(profile, topicName, key, u"", longest)));
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

bool IsNew(const ProfileText& profile) { return !profile.Value(TopicsSection, DefaultTopicKey); }

void MakeNew(ProfileText& profile) {
  profile.SetValue(TopicsSection, DefaultTopicKey, u"0");
  profile.SetValue(TopicsSection, u"0", DefaultTopicName);
  SetFonts(profile, DefaultTopicName, TopicFonts());
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
    if (IsNew(file)) MakeNew(file);  // unless another program was faster
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
  if (read) settings.TopicName = topicName;
  if (read && !isComplete) WriteMissing(profile, topicName);
  return settings;
}

bool SaveTopicFonts(ProfileFile& profile, TextView topicName, const TopicFonts& fonts) {
  return profile.Change([&](ProfileText& text) { SetFonts(text, topicName, fonts); });
}

TopicSave SaveTopicAndKeys(ProfileFile& profile, TopicList& topics, TextView topicName,
                           const TopicFonts& fonts, const KeyTable& keys) {
  TopicList now = topics;
  bool hasRoom = true;
  const bool written = profile.Change([&](ProfileText& text) {
    // Another program may have added topics since, whose numbers are taken, or the file may have
    // been made anew.
    if (IsNew(text)) MakeNew(text);
    ReadTopicNames(now, text);
    if (FindTopic(now, topicName) < 0) {
      hasRoom = now.TopicCount < MaxTopics;
      if (!hasRoom) return;
      ++now.TopicCount;
      now.CurrentTopic = now.TopicCount;
      now.Names[static_cast<std::size_t>(now.TopicCount)] = topicName;
      text.SetValue(TopicsSection, NumberText(now.TopicCount), topicName);
      SetFonts(text, topicName, fonts);
    }
    text.SetValue(topicName, KeysKey, KeysText(keys));
  });
  if (!written) {
    LoadTopicList(topics, profile);
    return TopicSave::NotWritten;
  }
  topics = now;
  return hasRoom ? TopicSave::Saved : TopicSave::NoRoom;
}

bool HoldsCurrentTopic(const TopicList& topics, const TopicSettings& settings) {
  return settings.TopicName == (topics.TopicCount < 0 ? Text() : topics.Name(topics.CurrentTopic));
}

void SelectTopic(TopicList& topics, TopicSettings& settings, ProfileFile& profile, int index) {
  topics.CurrentTopic = topics.Effective(index);
  settings = topics.TopicCount < 0 ? TopicSettings()
                                   : LoadTopicSettings(profile, topics.Name(topics.CurrentTopic));
}
