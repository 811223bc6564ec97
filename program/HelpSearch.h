#pragma once

#include "base/Text.h"

#include <vector>

/// A help page as it is searched: what is shown, without markup.
struct HelpPageText {
  Text title;
  Text text;
};

/// The pages that hold every one of `words`, the best first: pages with a word in their title, then
/// those that hold the words most often. Words are parted by blanks, match inside longer ones, and
/// match whatever their letter case. Without any word no page is found.
/// @return indexes into `pages`
std::vector<std::size_t> FindHelpPages(const std::vector<HelpPageText>& pages, TextView words);
