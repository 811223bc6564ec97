#pragma once

#include "cards/StackStore.h"
#include "settings/TopicList.h"

/// After topic `deleted` left the list: stacks that belonged to it fall back to topic 0; stacks of
/// later topics keep their numbers. The same topic stays selected, topic 0 when it was the deleted
/// one.
void ForgetTopic(StackStore& stacks, TopicList& topics, int deleted);
