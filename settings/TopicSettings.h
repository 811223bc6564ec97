#pragma once

#include "keys/KeyTable.h"
#include "settings/ProfileFile.h"
#include "settings/TopicList.h"

/// The font of topics that name none. A name of the settings file, not of this system: it is
/// stored, compared and written as it is, and drawn with the desktop's own sans-serif font.
inline constexpr TextView DefaultFontName = u"MS Sans Serif";
inline constexpr float DefaultFontSize = 8.25F;  ///< points

/// The display fonts of a topic; sizes in points, always positive.
struct TopicFonts {
  Text FrontFont{DefaultFontName};
  float FrontSize = DefaultFontSize;
  Text BackFont{DefaultFontName};
  float BackSize = DefaultFontSize;

  friend bool operator==(const TopicFonts&, const TopicFonts&) = default;
};

/// Fonts and key assignments of the selected topic, shared by all windows.
struct TopicSettings {
  TopicFonts Fonts;
  KeyTable Keys;
};

/// Makes a new settings file: topic 0 "General" with the default fonts. Does nothing when the file
/// holds a default topic.
void InitSettings(ProfileFile& profile);

/// Reads a topic's section. A font or size that is missing or empty is written back as the default;
/// a size that is no positive number is read as the default and left in the file.
TopicSettings LoadTopicSettings(ProfileFile& profile, TextView topicName);

void SaveTopicFonts(ProfileFile& profile, TextView topicName, const TopicFonts& fonts);

/// Writes a topic's key assignments. A topic that does not exist yet is added behind the others
/// with `fonts` and becomes the current one; `topics` stays where the file cannot be written.
/// @return false when there is no number left for another topic; then nothing is written.
bool SaveTopicAndKeys(ProfileFile& profile, TopicList& topics, TextView topicName,
                      const TopicFonts& fonts, const KeyTable& keys);

/// Makes topic `index` the current one (topic 0 when it names none) and reads its settings. Without
/// any topic the settings are the defaults, and nothing is written.
void SelectTopic(TopicList& topics, TopicSettings& settings, ProfileFile& profile, int index);
