#include "base/CodePage.h"
#include "settings/ProfileFile.h"
#include "settings/ProfileText.h"
#include "settings/TopicList.h"
#include "settings/TopicSettings.h"
#include "tests/fuzz/Require.h"
#include "tests/support/MemoryFiles.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>

namespace {

using Place = std::pair<Text, Text>;  // section and key

/// Every value that the program reads, and some that it does not.
std::map<Place, std::optional<Text>> ValuesOf(const ProfileText& profile) {
  std::map<Place, std::optional<Text>> values;
  const auto add = [&](const Text& section, const Text& key) {
    values[{section, key}] = profile.Value(section, key);
  };
  for (int i = 0; i <= MaxTopics; ++i) add(Text(TopicsSection), NumberText(i));
  add(Text(TopicsSection), Text(DefaultTopicKey));
  for (const TextView section : {u"General", u"Spanish", u"a", u"x y", u""}) {
    for (const TextView key :
         {u"FRONTFONT", u"FRONTSIZE", u"BACKFONT", u"BACKSIZE", u"KEYS", u""}) {
      add(Text(section), Text(key));
    }
  }
  return values;
}

/// A value that is written, saved and read again is there, and every other one is what it was.
void RequireSetValueTouchesOneValue(const Text& content, const Text& section, const Text& key) {
  ProfileText profile(content);
  auto expected = ValuesOf(profile);
  profile.SetValue(section, key, u"new = value");
  expected[{section, key}] = u"new = value";
  REQUIRE(ValuesOf(profile) == expected);
  REQUIRE(ValuesOf(ProfileText(profile.Content())) == expected);
}

void RequireRemovalTouchesOneSection(const Text& content, const Text& section, const Text& key) {
  ProfileText withoutKey(content);
  const auto before = ValuesOf(withoutKey);
  withoutKey.RemoveKey(section, key);
  ProfileText withoutSection(content);
  withoutSection.RemoveSection(section);
  const auto afterKey = ValuesOf(withoutKey);
  const auto afterSection = ValuesOf(withoutSection);
  for (const auto& [place, value] : before) {
    // Behind what was removed, a second one of the same name may come to light.
    if (place != Place(section, key)) REQUIRE(afterKey.at(place) == value);
    if (place.first != section) REQUIRE(afterSection.at(place) == value);
  }
}

void CheckText(const Text& content) {
  const ProfileText profile(content);
  const Text written = profile.Content();
  REQUIRE(ProfileText(written).Content() == written);
  REQUIRE(ValuesOf(ProfileText(written)) == ValuesOf(profile));
  // One place for each file, in turn with its length: all four would take most of the time.
  const std::array places = {Place(u"TOPICS", u"3"), Place(u"General", u"KEYS"),
                             Place(u"Spanish", u"FRONTFONT"), Place(u"x y", u"BACKSIZE")};
  const auto& [section, key] = places.at(content.size() % places.size());
  RequireSetValueTouchesOneValue(content, section, key);
  RequireRemovalTouchesOneSection(content, section, key);
}

void RequireTopicList(const TopicList& topics) {
  REQUIRE(topics.TopicCount >= -1 && topics.TopicCount <= MaxTopics);
  for (int i = 0; i <= MaxTopics; ++i) {
    const Text& name = topics.Names[static_cast<std::size_t>(i)];
    REQUIRE(name.size() <= MaxTopicName);
    REQUIRE(name == TrimRight(name));
    REQUIRE(topics.IsTopic(i) == !name.empty());
    REQUIRE(!topics.Name(i).empty());
  }
}

void RequireUsableSettings(const TopicSettings& settings) {
  for (const float size : {settings.Fonts.FrontSize, settings.Fonts.BackSize}) {
    REQUIRE(std::isfinite(size) && size > 0);
  }
  REQUIRE(!settings.Fonts.FrontFont.empty() && !settings.Fonts.BackFont.empty());
  REQUIRE(settings.Keys.KeyCount >= 0 && settings.Keys.KeyCount <= MaxKeyAssignments);
}

/// What the program does with the file at its start and in its topic dialogs.
void CheckProgramRun(const std::string& bytes) {
  MemoryFiles files;
  files.Put(u"s.INI", bytes);
  ProfileFile profile(files, u"s.INI");
  InitSettings(profile);
  TopicList topics;
  LoadTopicList(topics, profile);
  RequireTopicList(topics);
  const int start = DefaultTopic(topics, profile);
  REQUIRE(start == 0 || topics.IsTopic(start));

  TopicSettings settings;
  for (int i = -1; i <= MaxTopics + 1; ++i) {
    const bool missing = i > 0 && i <= MaxTopics && !topics.IsTopic(i);
    if (missing && i != MaxTopics) continue;  // one of those is enough
    SelectTopic(topics, settings, profile, i);
    RequireUsableSettings(settings);
    const TopicFonts fonts = settings.Fonts;
    SelectTopic(topics, settings, profile, i);
    REQUIRE(settings.Fonts == fonts);
  }
  for (const TextView name : {u"Added", u"\"quoted\"", u"''"}) {
    const bool room = topics.TopicCount < MaxTopics || FindTopic(topics, name) >= 0;
    REQUIRE(SaveTopicAndKeys(profile, topics, name, settings.Fonts, settings.Keys) ==
            (room ? TopicSave::Saved : TopicSave::NoRoom));
    LoadTopicList(topics, profile);
    RequireTopicList(topics);
    REQUIRE((FindTopic(topics, name) >= 0) == room);
  }
  // A number that a hand-made file gives twice comes to light again, so a deletion need not lower
  // the count; but each one takes a line away, and the list ends.
  for (std::size_t left = bytes.size() + MaxTopics + 1; topics.TopicCount >= 0; --left) {
    const int count = topics.TopicCount;
    REQUIRE(DeleteTopic(topics, profile, 0).written);
    RequireTopicList(topics);
    REQUIRE(topics.CurrentTopic == 0 || topics.IsTopic(topics.CurrentTopic));
    REQUIRE(topics.TopicCount <= count);
    REQUIRE(left > 0);
  }
  REQUIRE(files.openReplacements == 0);
}

}  // namespace

// The bytes are a settings file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  CheckText(DecodeFileText(bytes));
  CheckProgramRun(bytes);
  return 0;
}
