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

int FollowTopic(const TopicList& before, int index, const TopicList& now) {
  if (!before.IsTopic(index)) return index;
  const Text& name = before.Names[static_cast<std::size_t>(index)];
  if (now.Names[static_cast<std::size_t>(index)] == name) return index;
  return std::max(FindTopic(now, name), 0);
}

void ReadTopicNames(TopicList& topics, const ProfileText& profile) {
  const TopicList before = topics;
  topics.TopicCount = -1;
  for (int i = 0; i <= MaxTopics; ++i) {
    Text& name = topics.Names[static_cast<std::size_t>(i)];
    const Text value = profile.Value(TopicsSection, NumberText(i)).value_or(u"");
    name = TrimRight(CutText(FirstLine(value), MaxTopicName));
    if (!name.empty()) topics.TopicCount = i;
  }
  topics.CurrentTopic = FollowTopic(before, before.CurrentTopic, topics);
}

void LoadTopicList(TopicList& topics, const ProfileFile& profile) {
  if (const std::optional<ProfileText> text = profile.Read()) ReadTopicNames(topics, *text);
}

int DefaultTopic(const TopicList& topics, const ProfileFile& profile) {
  return topics.Effective(profile.GetInt(TopicsSection, DefaultTopicKey, -1));
}

int FindTopic(const TopicList& topics, TextView name) {
  const TextView wanted = TrimRight(name);
  if (topics.TopicCount < 0 && wanted == DefaultTopicName) return 0;
  for (int i = 0; i <= topics.TopicCount; ++i) {
    if (topics.IsTopic(i) && topics.Name(i) == wanted) return i;
  }
  return -1;
}

Text WithoutSectionMarks(TextView name) {
  Text clean(name);
  std::erase_if(clean, [](char16_t unit) {
    const bool control = unit < u' ' || (unit >= 0x7F && unit < 0xA0);
    return control || unit == u'[' || unit == u']';
  });
  return Text(TrimBlanks(clean));
}

Text CleanTopicName(TextView name) {
  return Text(TrimRight(CutText(WithoutSectionMarks(name), MaxTopicName)));
}

bool IsTakenTopicName(const TopicList& topics, TextView name) {
  return FindTopic(topics, name) >= 0 || EqualIgnoringCase(name, TopicsSection);
}

int TopicSharingSection(const TopicList& topics, TextView name) {
  for (int i = 0; i <= topics.TopicCount; ++i) {
    const Text& other = topics.Names[static_cast<std::size_t>(i)];
    if (!other.empty() && EqualIgnoringCase(SectionName(other), name)) return i;
  }
  return -1;
}

TopicDeletion DeleteTopic(TopicList& topics, ProfileFile& profile, int index) {
  TopicDeletion deletion{.found = topics};
  if (index < 0 || index > topics.TopicCount) return deletion;
  const Text name = topics.Names[static_cast<std::size_t>(index)];
  TopicList left;
  deletion.written = profile.Change([&](ProfileText& text) {
    TopicList& now = deletion.found;
    ReadTopicNames(now, text);
    const bool isThere = now.Names[static_cast<std::size_t>(index)] == name;
    deletion.number = isThere && index <= now.TopicCount ? index : FindTopic(now, name);
    const int place = deletion.number;
    if (place >= 0) {
      if (HasOwnSection(now, place)) text.RemoveSection(name);
      for (int j = place; j < now.TopicCount; ++j) {
        text.SetValue(TopicsSection, NumberText(j), now.Names[static_cast<std::size_t>(j) + 1]);
      }
      text.RemoveKey(TopicsSection, NumberText(now.TopicCount));
    }
    ReadTopicNames(left, text);
  });
  if (!deletion.written) {
    deletion.number = -1;
    LoadTopicList(topics, profile);
    deletion.found = topics;
    return deletion;
  }
  topics = left;
  topics.CurrentTopic = deletion.found.CurrentTopic;
  if (deletion.number >= 0 && topics.CurrentTopic >= deletion.number) {
    topics.CurrentTopic =
        topics.CurrentTopic == deletion.number ? 0 : static_cast<int>(topics.CurrentTopic) - 1;
  }
  return deletion;
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
  const TopicList before = topics;
  add(Text(TrimRight(name)));
  topics.CurrentTopic = FollowTopic(before, before.CurrentTopic, topics);
  return std::max<int>(topics.TopicCount, 0);
}

Prompt TooManyTopicsPrompt() {
  return {.text = u"Cannot Add.  Maximum of " + NumberText(MaxTopics) + u" Topics",
          .icon = PromptIcon::Exclamation};
}
