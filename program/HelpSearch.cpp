#include "program/HelpSearch.h"

#include "base/LetterCase.h"

#include <algorithm>
#include <optional>

namespace {

constexpr int TitleWeight = 1000;  // more than a word occurs on any page

std::vector<Text> WordsOf(TextView text) {
  std::vector<Text> words;
  Text word;
  for (const char16_t unit : UpperCase(text) + u' ') {
    if (unit != u' ') {
      word += unit;
    } else if (!word.empty()) {
      words.push_back(std::move(word));
      word.clear();
    }
  }
  return words;
}

int CountOf(TextView text, TextView word) {
  int count = 0;
  for (std::size_t at = text.find(word); at != TextView::npos; at = text.find(word, at + 1)) {
    ++count;
  }
  return count;
}

/// How well a page answers; nothing when it lacks one of the words.
std::optional<int> ScoreOf(const HelpPageText& page, const std::vector<Text>& words) {
  const Text title = UpperCase(page.title);
  const Text text = UpperCase(page.text);
  int score = 0;
  for (const Text& word : words) {
    const int inTitle = CountOf(title, word);
    const int inText = CountOf(text, word);
    if (inTitle + inText == 0) return std::nullopt;
    score += inTitle * TitleWeight + inText;
  }
  return score;
}

}  // namespace

std::vector<std::size_t> FindHelpPages(const std::vector<HelpPageText>& pages, TextView words) {
  const std::vector<Text> wanted = WordsOf(words);
  if (wanted.empty()) return {};
  struct Hit {
    std::size_t page;
    int score;
  };
  std::vector<Hit> hits;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (const std::optional<int> score = ScoreOf(pages[i], wanted)) hits.push_back({i, *score});
  }
  std::stable_sort(hits.begin(), hits.end(),
                   [](const Hit& a, const Hit& b) { return a.score > b.score; });
  std::vector<std::size_t> found;
  found.reserve(hits.size());
  for (const Hit& hit : hits) found.push_back(hit.page);
  return found;
}
