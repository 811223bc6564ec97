#include "decks/Differences.h"

#include "base/LetterCase.h"
#include "cards/CardStack.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace {

constexpr std::array<TextView, 4> MediaExtensions = {u".wav", u".bmp", u".jpg", u".gif"};

bool HasMediaWord(TextView text) {
  return std::any_of(MediaExtensions.begin(), MediaExtensions.end(),
                     [&](TextView extension) { return ContainsIgnoringCase(text, extension); });
}

bool IsControl(char16_t unit) {
  return (unit < u' ' && unit != u'\r' && unit != u'\n' && unit != u'\t') || unit == 0x7F;
}

/// Where a card stands in a list of differences.
struct Place {
  int line;
  int card;
  int side;
};

void ListTextDifference(const DeckSide& wanted, const DeckSide& got, const Place& place,
                        Findings& findings) {
  const auto add = [&](FindingKind kind, std::string message) {
    findings.push_back(FoundAt(kind, place.line, place.card, place.side, std::move(message)));
  };
  if (TrimRight(wanted.text) == TrimRight(got.text)) {
    add(FindingKind::TrailingBlanks,
        fmt::format("the blanks behind {} are lost", Quoted(TrimRight(wanted.text))));
    return;
  }
  const bool mediaTaken = (wanted.sound.empty() && !got.sound.empty()) ||
                          (wanted.picture.empty() && !got.picture.empty());
  if (mediaTaken && HasMediaWord(wanted.text)) {
    add(FindingKind::MediaWord,
        fmt::format("a word of {} reads as the name of a {}; the text becomes {}",
                    Quoted(wanted.text),
                    got.sound == wanted.sound ? "picture, " + Quoted(got.picture)
                                              : "sound, " + Quoted(got.sound),
                    Quoted(got.text)));
    return;
  }
  const bool control = std::any_of(wanted.text.begin(), wanted.text.end(), IsControl);
  add(control ? FindingKind::ControlCharacter : FindingKind::ChangedText,
      fmt::format("the text {} becomes {}", Quoted(wanted.text), Quoted(got.text)));
}

void ListMediaDifference(TextView what, const Text& wanted, const Text& got, const Place& place,
                         std::string_view formatName, Findings& findings) {
  if (wanted == got) return;
  std::string message;
  if (got.empty()) {
    message =
        fmt::format("the {} {} has no place in {}", Printable(what), Quoted(wanted), formatName);
  } else if (wanted.empty()) {
    message = fmt::format("the card gets the {} {}", Printable(what), Quoted(got));
  } else {
    message = fmt::format("the {} {} becomes {}", Printable(what), Quoted(wanted), Quoted(got));
  }
  findings.push_back(
      FoundAt(FindingKind::MediaName, place.line, place.card, place.side, std::move(message)));
}

void ListHeaderDifference(FindingKind kind, std::string_view what, TextView wanted, TextView got,
                          std::string_view formatName, Findings& findings) {
  if (wanted == got) return;
  findings.push_back(Found(
      kind, 0,
      got.empty() ? fmt::format("the {} {} has no place in {}", what, Quoted(wanted), formatName)
                  : fmt::format("the {} {} becomes {}", what, Quoted(wanted), Quoted(got))));
}

}  // namespace

void ListDifferences(const Deck& wanted, const Deck& got, std::string_view formatName,
                     Findings& findings) {
  // Cards without a topic get the usual one, so that one is never lost.
  if (!got.topic.empty() || TrimRight(wanted.topic) != TopicWithout) {
    ListHeaderDifference(FindingKind::Topic, "topic", TrimRight(wanted.topic), TrimRight(got.topic),
                         formatName, findings);
  }
  ListHeaderDifference(FindingKind::Description, "description", TrimRight(wanted.description),
                       TrimRight(got.description), formatName, findings);
  const std::size_t count = std::min(wanted.cards.size(), got.cards.size());
  for (std::size_t i = 0; i < count; ++i) {
    for (const int side : {Front, Back}) {
      const DeckSide& a = wanted.cards[i].sides[static_cast<std::size_t>(side)];
      const DeckSide& b = got.cards[i].sides[static_cast<std::size_t>(side)];
      if (a == b) continue;
      const Place place{wanted.cards[i].line, static_cast<int>(i) + 1, side};
      if (a.text != b.text) ListTextDifference(a, b, place, findings);
      ListMediaDifference(u"sound", a.sound, b.sound, place, formatName, findings);
      ListMediaDifference(u"picture", a.picture, b.picture, place, formatName, findings);
    }
  }
  for (std::size_t i = count; i < wanted.cards.size(); ++i) {
    findings.push_back(
        FoundAt(FindingKind::ExtraCards, wanted.cards[i].line, static_cast<int>(i) + 1, -1,
                fmt::format("the card {} is lost", Quoted(wanted.cards[i].sides[0].text))));
  }
  if (got.cards.size() > wanted.cards.size()) {
    findings.push_back(Found(FindingKind::ChangedText, 0,
                             fmt::format("{} cards are read back instead of {}", got.cards.size(),
                                         wanted.cards.size())));
  }
}
