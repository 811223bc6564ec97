#pragma once

#include "cards/StackStore.h"

/// Appends an empty stack without a name, of the given topic, and selects it.
CardStack& BeginNewStack(StackStore& stacks, int topic);

/// Drops the last stack and selects the one before it. Of the only one a blank record is left, not
/// the placeholder "None": the next stack takes its place.
void DropNewStack(StackStore& stacks);
