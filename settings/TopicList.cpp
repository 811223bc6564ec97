#include "settings/TopicList.h"

#include "base/LetterCase.h"

#include <algorithm>
#include <optional>

namespace {

/// False for topics whose name, in a file made by hand, leads to what belongs to others: the list's
/// own section, or the one of a topic whose name is the part before a "]". Topics whose names
/// differ in letter case only share a section, and the first to go takes it along.
bool HasOwnSection(const TopicList& topics, int index) {
  const Text& name = topics.Names[static_cast<std::size_t>(index)];
  const TextView section = SectionName(name);
  if (section.empty() || EqualIgnoringCase(section, TopicsSection)) return false;
  if (section.size() == name.size()) return true;
  return std::none_of(topics.Names.begin(), topics.Names.end(), [&](const Text& other) {
    return &other != &name && EqualIgnoringCase(SectionName(other), section);
  });
}

}  // namespace

bool TopicList::IsTopic(int index) const {
  return index >= 0 && index <= TopicCount && !Names[static_cast<std::size_t>(index)].empty();
}

Text TopicList::Name(int index) const {
  const Text& name = Names[static_cast<std::size_t>(Effective(index))];
  return name.empty() ? Text(DefaultTopicName) : name;
}

void ReadTopicNames(TopicList& topics, const ProfileText& profile) {
  topics.TopicCount = -1;
  for (int i = 0; i <= MaxTopics; ++i) {
    Text& name = topics.Names[static_cast<std::size_t>(i)];
    name = TrimRight(StringIn(profile, TopicsSection, NumberText(i), u"", MaxTopicName));
    if (!name.empty()) topics.TopicCount = i;
  }
}

void LoadTopicList(TopicList& topics, const ProfileFile& profile) {
  if (const std::optional<ProfileText> text = profile.Read()) ReadTopicNames(topics, *text);
}

int DefaultTopic(const TopicList& topics, const ProfileFile& profile) {
  return topics.Effective(profile.GetInt(TopicsSection, DefaultTopicKey, -1));
}

int FindTopic(const TopicList& topics, TextView name) {
  const TextView wanted = TrimRight(name);
  for (int i = 0; i <= topics.TopicCount; ++i) {
    if (topics.IsTopic(i) && topics.Name(i) == wanted) return i;
  }
  return -1;
}

Text CleanTopicName(TextView name) {
  Text clean(name);
  std::erase_if(clean, [](char16_t unit) {
    const bool control = unit < u' ' || (unit >= 0x7F && unit < 0xA0);
    return control || unit == u'[' || unit == u']';
  });
  return Text(TrimBlanks(CutText(TrimBlanks(clean), MaxTopicName)));
}

bool IsTakenTopicName(const TopicList& topics, TextView name) {
  return FindTopic(topics, name) >= 0 || EqualIgnoringCase(name, TopicsSection);
}

void DeleteTopic(TopicList& topics, ProfileFile& profile, int index) {
  if (index < 0 || index > topics.TopicCount) return;
  const Text name = topics.Names[static_cast<std::size_t>(index)];
  profile.Change([&](ProfileText& text) {
    TopicList now;
    ReadTopicNames(now, text);
    const bool isThere = now.Names[static_cast<std::size_t>(index)] == name;
    const int place = isThere ? index : FindTopic(now, name);
    if (place < 0) return;
    if (HasOwnSection(now, place)) text.RemoveSection(name);
    for (int j = place; j < now.TopicCount; ++j) {
      text.SetValue(TopicsSection, NumberText(j), now.Names[static_cast<std::size_t>(j) + 1]);
    }
    text.RemoveKey(TopicsSection, NumberText(now.TopicCount));
  });
  LoadTopicList(topics, profile);
}

Int16 ResolveFileTopic(const Text& name, TopicList& topics, Prompts& prompts, const AddTopic& add) {
  if (TrimBlanks(name).empty()) {
    prompts.Show({.text = u"No Topic for this file.\r\nAdd one with the Edit CardStack Function.",
                  .icon = PromptIcon::Question});
    return 0;
  }
  if (const int found = FindTopic(topics, name); found >= 0) return found;
  if (!add) return 0;
  const Text question = Text(TrimRight(name)) + u" is not a configured Topic.  Add it?";
  const Answer answer = prompts.Show(
      {.text = question, .icon = PromptIcon::Question, .buttons = PromptButtons::YesNo});
  if (answer != Answer::Yes) return 0;
  if (topics.TopicCount >= MaxTopics) {
    prompts.Show(TooManyTopicsPrompt());
    return 0;
  }
  const Int16 current = topics.CurrentTopic;
  add(Text(TrimRight(name)));
  topics.CurrentTopic = current;
  return std::max<int>(topics.TopicCount, 0);
}

Prompt TooManyTopicsPrompt() {
  return {.text = u"Cannot Add.  Maximum of " + NumberText(MaxTopics) + u" Topics",
          .icon = PromptIcon::Exclamation};
}
