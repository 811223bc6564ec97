#pragma once

#include "decks/Finding.h"

#include <string_view>
#include <vector>

/// Lists the lines of an import file that look like a front or a back and give no card.
/// @param heard  the numbers of the lines that gave one, rising
void ListIgnoredImportLines(std::string_view bytes, const std::vector<int>& heard,
                            Findings& findings);
