#pragma once

#include "base/Int16.h"
#include "base/Text.h"
#include "cards/CardStack.h"
#include "cards/SaveRecord.h"
#include "cards/StackFile.h"

#include <memory>
#include <vector>

/// The name of the record that stands for "nothing loaded".
inline constexpr TextView NoStackName = u"None";

/// The loaded stacks in order of loading, and what travels with them between windows.
struct StackStore {
  StackStore();

  /// Elements 0..StackCount; while nothing is loaded, element 0 alone, called "None".
  std::vector<CardStack> StackList;
  Int16 StackCount = -1;   ///< index of the last loaded stack, -1 when none is loaded
  Int16 CurrentStack = 0;  ///< index of the selected stack, 0 when none is loaded

  /// Of the most recently read stack file, for the whole program; at most DescriptionWidth
  /// characters, kept without padding. Reading any stack file replaces it, writing one writes it.
  Text StackDescription;
  Text FileTopicName;  ///< first line of the most recently read stack file

  SaveRecord Saves;

  /// The stack file that is being written; open between the save dialog and the card editor.
  std::unique_ptr<StackFile> StackFileNumber;

  /// The selected stack. An index outside the list throws Fault(SubscriptOutOfRange).
  CardStack& Current();
  const CardStack& Current() const;
  CardStack& At(int index);
  const CardStack& At(int index) const;

  /// Adds an empty stack behind the others and selects it. The first one takes the placeholder's
  /// place. References into the list end here.
  CardStack& Append();

  /// Removes the selected stack; the later ones move down by one and the selection stays in range.
  /// When the last one goes, and when nothing was loaded, only the placeholder is left.
  void RemoveCurrentStack();
};
