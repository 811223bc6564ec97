#pragma once

#include "base/Int16.h"
#include "base/Prompts.h"
#include "base/Text.h"
#include "settings/ProfileFile.h"

#include <array>
#include <functional>

inline constexpr int MaxTopics = 10;             ///< the highest topic number
inline constexpr std::size_t MaxTopicName = 20;  ///< characters of a topic's name
/// The section with the topics' names by number and the number of the one selected at start.
inline constexpr TextView TopicsSection = u"TOPICS";
inline constexpr TextView DefaultTopicKey = u"DEFAULT";
inline constexpr TextView DefaultTopicName = u"General";

/// The topics by number. This list is the truth; menus and lists only display it.
struct TopicList {
  std::array<Text, MaxTopics + 1> Names;  ///< empty where the settings name no topic
  Int16 TopicCount = -1;                  ///< highest number in use, -1 when there is none
  Int16 CurrentTopic = 0;                 ///< the selected topic; may be any number, see Effective

  /// True for a number that names a topic.
  bool IsTopic(int index) const;

  /// `index`, or 0 when it names no topic.
  int Effective(int index) const { return IsTopic(index) ? index : 0; }

  /// The name of topic Effective(index); "General" when there is none at all.
  Text Name(int index) const;
};

/// The number in `now` of the topic that has the number `index` in `before`: found by its name, 0
/// when it is gone. A number that names no topic stays as it is.
int FollowTopic(const TopicList& before, int index, const TopicList& now);

/// Takes the names 0..10; a gap does not end the list. CurrentTopic follows the name of its topic.
void ReadTopicNames(TopicList& topics, const ProfileText& profile);

/// Reads the names from the file. The list stays as it is while the file cannot be read: topics
/// that are only out of sight must not lose their numbers to new ones.
void LoadTopicList(TopicList& topics, const ProfileFile& profile);

/// The topic to select at start; 0 when the settings name none that exists.
int DefaultTopic(const TopicList& topics, const ProfileFile& profile);

/// The number of the topic with this name (blanks at its right end ignored, letter case not), or
/// -1. Where there is no topic at all, "General" is topic 0.
int FindTopic(const TopicList& topics, TextView name);

/// A name without brackets and control characters, which would break the line of its section, and
/// without blanks at both ends.
Text WithoutSectionMarks(TextView name);

/// A proposed or typed name as it can be stored: WithoutSectionMarks, and at most MaxTopicName
/// characters.
Text CleanTopicName(TextView name);

/// True for a name that no new topic may have: one that exists, or that of the topic list's own
/// section (letter case ignored), which a deletion would take with it.
bool IsTakenTopicName(const TopicList& topics, TextView name);

/// The number of a topic with which a new one of this name would share its section, because the
/// names differ in letter case only; -1 when there is none.
int TopicSharingSection(const TopicList& topics, TextView name);

struct TopicDeletion {
  bool written = false;  ///< false: nothing was deleted, and `topics` is as the file is
  TopicList found;       ///< the list as it was in the file just before
  int number = -1;       ///< of the deleted topic in `found`; -1 when it was gone already
};

/// Deletes topic `index` with its section, wherever in the list another program has put it
/// meanwhile; one that is gone already stays gone. The later ones close up, keeping their order.
/// CurrentTopic stays with its topic, or becomes 0 with the deleted one. The topic numbers of
/// stacks are the caller's affair.
TopicDeletion DeleteTopic(TopicList& topics, ProfileFile& profile, int index);

/// Opens the topic dialog with a proposed name; adds to the list, or not.
using AddTopic = std::function<void(const Text& name)>;

/// The topic of a stack that was just read, by the name in its file. Tells the user when it names
/// none; asks whether to add an unknown one. After a Yes the last topic is the result, even when
/// the dialog was cancelled: new topics come at the end.
/// @param add  empty where topics cannot be added: then an unknown one is topic 0 without a
/// question
Int16 ResolveFileTopic(const Text& name, TopicList& topics, Prompts& prompts, const AddTopic& add);

/// "Cannot Add.  Maximum of 10 Topics"
Prompt TooManyTopicsPrompt();
