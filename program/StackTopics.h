#pragma once

#include "cards/StackStore.h"
#include "settings/TopicList.h"
#include "settings/TopicSettings.h"

/// The loaded stacks know their topics by number, and so would get other topics when the list in
/// the settings file changes. Each of these changes or reads the list and has the stacks follow the
/// names of their topics; a stack whose topic is gone falls back to topic 0.

/// Reads the list anew; it stays as it is while the file cannot be read.
void ReloadTopics(StackStore& stacks, TopicList& topics, const ProfileFile& profile);

/// Deletes topic `index`, as DeleteTopic does. What other programs have changed is followed by
/// name; but through this deletion stacks of later topics keep their numbers. Meant so.
/// @return false when the settings could not be written: then the topic is still there
bool RemoveTopic(StackStore& stacks, TopicList& topics, ProfileFile& profile, int index);

/// As SaveTopicAndKeys.
TopicSave SaveTopic(StackStore& stacks, TopicList& topics, ProfileFile& profile, TextView topicName,
                    const TopicFonts& fonts, const KeyTable& keys);
