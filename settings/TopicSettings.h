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
  Text TopicName;  ///< whose these are; empty where they are the defaults for want of settings
};

/// Makes a new settings file: topic 0 "General" with the default fonts. Does nothing when the file
/// holds a DEFAULT key, whatever its value.
void InitSettings(ProfileFile& profile);

/// Reads a topic's section. A font or size that is missing or empty is written back as the default;
/// a size that is no positive number is read as the default and left in the file.
TopicSettings LoadTopicSettings(ProfileFile& profile, TextView topicName);

/// @return false when they could not be written
bool SaveTopicFonts(ProfileFile& profile, TextView topicName, const TopicFonts& fonts);

enum class TopicSave {
  Saved,
  NoRoom,     ///< no number is left for another topic; nothing is written
  NotWritten  ///< the file could not be written
};

/// Writes a topic's key assignments. A topic that is not in the file yet, or no more, is added
/// behind the others with `fonts` and becomes the current one. Afterwards `topics` is as the file
/// is, whether it was written or not.
TopicSave SaveTopicAndKeys(ProfileFile& profile, TopicList& topics, TextView topicName,
                           const TopicFonts& fonts, const KeyTable& keys);

/// True when `settings` are those of the current topic, so that they need not be read again.
bool HoldsCurrentTopic(const TopicList& topics, const TopicSettings& settings);

/// Makes topic `index` the current one (topic 0 when it names none) and reads its settings. Without
/// any topic the settings are the defaults, and nothing is written.
void SelectTopic(TopicList& topics, TopicSettings& settings, ProfileFile& profile, int index);
