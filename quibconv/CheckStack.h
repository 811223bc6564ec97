#pragma once

#include "decks/Deck.h"
#include "decks/Finding.h"
#include "decks/MediaFolders.h"
#include "settings/TopicList.h"

#include <string_view>

/// Reads a stack or import file as the program would, and lists everything about it that the
/// program would refuse, lose, change or not find. The cards go to `deck`.
/// @param path    the media lie in its folder
/// @param topics  the configured ones; null when they are not known
void CheckStack(std::string_view bytes, const Text& path, const TopicList* topics,
                MediaFolders& folders, Deck& deck, Findings& findings);
