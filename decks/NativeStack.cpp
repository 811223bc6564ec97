#include "decks/NativeStack.h"

#include "base/CodePage.h"
#include "base/LetterCase.h"
#include "base/Paths.h"
#include "cards/FileLines.h"
#include "cards/SideLine.h"
#include "cards/StackFile.h"
#include "decks/Differences.h"
#include "decks/ImportLines.h"
#include "settings/TopicList.h"

#include <algorithm>
#include <fmt/format.h>
#include <memory>

namespace {

constexpr std::string_view FormatWords = "a stack file";

/// Keeps what the program would show.
class CollectedPrompts : public Prompts {
 public:
  explicit CollectedPrompts(std::vector<Text>& messages) : m_messages(messages) {}
  Answer Show(const Prompt& prompt) override {
    m_messages.push_back(prompt.text);
    return prompt.buttons == PromptButtons::YesNo ? Answer::No : Answer::Ok;
  }

 private:
  std::vector<Text>& m_messages;
};

/// Takes the content that a file would get.
class CapturedContent : public FileReplacement {
 public:
  explicit CapturedContent(std::string& content) : m_content(content) {}
  bool ReplacesExisting() const override { return false; }
  FileStatus Commit(std::string_view content) override {
    m_content = content;
    return FileStatus::Ok;
  }

 private:
  std::string& m_content;
};

bool TakesWhole(TextView name, Text (*take)(Text&, TextView, char16_t), TextView behind) {
  if (name.empty() || BaseName(name) != name || name.find_first_of(LineBreak) != TextView::npos)
    return false;
  Text line = Text(u"x ").append(name).append(behind);
  return take(line, u"", u' ') == name && line == u"x";
}

/// Puts a blank into each empty line of a text: two line breaks in a row read as a caret.
Text WithoutEmptyLines(TextView text) {
  Text kept;
  kept.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (kept.ends_with(LineBreak) && text.substr(i).starts_with(LineBreak)) kept += u' ';
    kept += text[i];
  }
  return kept;
}

TextView CutToLoad(TextView text) {
  TextView cut = CutText(text, MaxLoadedText);
  const bool parted = cut.size() < text.size() && cut.ends_with(u'\r');
  return parted ? cut.substr(0, cut.size() - 1) : cut;
}

/// What is wrong with a topic's name that does not stay as it is.
std::string WhatTopicsLack(TextView name) {
  if (WithoutSectionMarks(name) == TrimBlanks(name)) {
    return fmt::format("at most {} characters, and no blanks around them", MaxTopicName);
  }
  const bool brackets = name.find_first_of(u"[]") != TextView::npos;
  std::string words = brackets ? "no brackets" : "no control characters";
  if (WithoutSectionMarks(name).size() > MaxTopicName) {
    words += fmt::format(", and at most {} characters", MaxTopicName);
  }
  return words;
}

/// Makes what a stack can hold of a deck, and lists the rest.
class Preparation {
 public:
  Preparation(const Deck& deck, Findings& findings) : m_deck(deck), m_findings(findings) {}

  Deck Run() {
    for (std::size_t i = 0; i < m_deck.cards.size(); ++i) {
      for (const int side : {Front, Back}) Prepare(static_cast<int>(i) + 1, side);
    }
    PrepareHeader();
    return std::move(m_deck);
  }

 private:
  void Prepare(int number, int side) {
    DeckCard& card = m_deck.cards[static_cast<std::size_t>(number) - 1];
    DeckSide& content = card.sides[static_cast<std::size_t>(side)];
    const auto add = [&](FindingKind kind, std::string message) {
      m_findings.push_back(FoundAt(kind, card.line, number, side, std::move(message)));
    };
    if (!content.sound.empty() && !IsSoundName(content.sound)) {
      add(FindingKind::MediaName,
          fmt::format(
              "a stack cannot name the sound {}: it takes names of .wav files without blanks",
              Quoted(content.sound)));
      content.sound.clear();
    }
    if (!content.picture.empty() && !IsPictureName(content.picture)) {
      add(FindingKind::MediaName,
          fmt::format("a stack cannot name the picture {}: it takes names of .bmp, .jpg and .gif "
                      "files without blanks",
                      Quoted(content.picture)));
      content.picture.clear();
    }
    // A text may be as long as its file: it is copied only where something changes.
    if (const bool breaks = content.text.find_first_of(LineBreak) != Text::npos;
        breaks && WithCrLf(content.text) != content.text) {
      add(FindingKind::LineEnds,
          fmt::format("a break of another kind in {} becomes a line break", Quoted(content.text)));
      content.text = WithCrLf(content.text);
    }
    if (content.text.find(u"\r\n\r\n") != Text::npos) {
      add(FindingKind::ChangedText,
          fmt::format("an empty line in {} gets a blank; without, it would read as a caret",
                      Quoted(content.text)));
      content.text = WithoutEmptyLines(content.text);
    }
    if (const TextView cut = CutToLoad(content.text); cut.size() < content.text.size()) {
      add(FindingKind::LongText, fmt::format("the text has {}{} characters and is cut to {}: {}",
                                             content.text.size() < MaxHeardText ? "" : "more than ",
                                             std::min(content.text.size(), MaxHeardText - 1),
                                             cut.size(), Quoted(content.text)));
      content.text = Text(cut);
    }
    if (content.text.find(u'^') != Text::npos) {
      add(FindingKind::Caret,
          fmt::format("the caret in {} can be read and studied, but the program "
                      "cannot save the stack again while it is there",
                      Quoted(content.text)));
    }
  }

  void PrepareHeader() {
    if (const Text topic = CleanTopicName(m_deck.topic); topic != TrimRight(m_deck.topic)) {
      m_findings.push_back(
          Found(FindingKind::Topic, 0,
                fmt::format("the topic {} becomes {}: a topic's name has {}", Quoted(m_deck.topic),
                            Quoted(topic), WhatTopicsLack(m_deck.topic))));
      m_deck.topic = topic;
    }
    Text description = ReplaceAll(WithCrLf(m_deck.description), LineBreak, u" ");
    description = Text(TrimRight(CutText(description, DescriptionWidth)));
    if (description != TrimRight(m_deck.description)) {
      m_findings.push_back(Found(FindingKind::Description, 0,
                                 fmt::format("the description {} is cut to {} characters",
                                             Quoted(m_deck.description), DescriptionWidth)));
      m_deck.description = description;
    }
  }

  Deck m_deck;
  Findings& m_findings;
};

}  // namespace

bool IsSoundName(TextView name) { return TakesWhole(name, TakeSoundName, u" "); }

bool IsPictureName(TextView name) {
  Text line(name);
  return TakeSoundName(line, u"", u' ').empty() && TakesWhole(name, TakePictureName, u"");
}

NativeContent ReadNative(std::string_view bytes, TextView fileName, const SideListener& listener) {
  NativeContent content;
  CollectedPrompts prompts(content.messages);
  StackStore stacks;
  CardList& cards = content.deck.cards;
  const auto take = [&](const SideRead& read) {
    const auto number = static_cast<std::size_t>(read.card);
    if (number > cards.size()) cards.resize(number);
    DeckCard& card = cards[number - 1];
    if (card.line == 0) card.line = read.lineNumber;
    card.sides[static_cast<std::size_t>(read.side)] = {Text(TrimRight(read.text)),
                                                       Text(CutText(read.sound, MaxHeardText)),
                                                       Text(CutText(read.picture, MaxHeardText))};
    content.endLine = std::max(content.endLine, read.lineNumber);
    if (listener) listener(read);
  };
  content.status = ReadStackContent(
      stacks, prompts, bytes, u"", fileName, ReadMode::Full, [](const Text&) { return 0; }, take);
  content.description = stacks.StackDescription;
  const TextView topic = TrimRight(stacks.FileTopicName);
  content.topicLength = topic.size();
  content.deck.topic = CutText(topic, MaxHeardText);
  content.deck.description = stacks.StackDescription;
  const int count = content.status == FileStatus::Ok ? int{stacks.Current().CardCount} : 0;
  cards.resize(static_cast<std::size_t>(count));
  return content;
}

bool ReadNativeDeck(std::string_view bytes, TextView fileName, Deck& deck, Findings& findings) {
  std::vector<int> heard;
  NativeContent content =
      ReadNative(bytes, fileName, [&](const SideRead& side) { heard.push_back(side.lineNumber); });
  if (content.status != FileStatus::Ok) {
    findings.push_back(
        Failed(FindingKind::Malformed, 0,
               content.status == FileStatus::PastEnd
                   ? std::string("the program refuses this file: no cards in it, or a "
                                 "front without a back")
                   : ToUtf8(ErrorText(content.status))));
    return false;
  }
  if (content.deck.topic.size() < content.topicLength) {
    findings.push_back(
        Found(FindingKind::LongText, 1,
              fmt::format("the topic has {} characters and is cut to {}: {}", content.topicLength,
                          content.deck.topic.size(), Quoted(content.deck.topic))));
  }
  for (const Text& message : content.messages) {
    findings.push_back(Found(FindingKind::UnequalSides, 0, Printable(message)));
  }
  if (ContainsIgnoringCase(fileName, u".QBS")) {
    ListIgnoredImportLines(bytes, heard, findings);
  } else if (content.deck.cards.size() >= MaxCards) {
    FileLines lines(bytes);
    Text line;
    while (lines.LineNumber() < content.endLine && lines.Read(line) == FileStatus::Ok) continue;
    if (!lines.AtEnd()) {
      findings.push_back(
          Found(FindingKind::ExtraCards, content.endLine + 1,
                fmt::format("the program reads {} cards; the lines from here on are left out",
                            MaxCards)));
    }
  }
  deck = std::move(content.deck);
  return true;
}

std::string WriteNativeStack(const Deck& deck, Findings& findings) {
  const Deck prepared = Preparation(deck, findings).Run();
  std::string bytes;
  StackFile file(std::make_unique<CapturedContent>(bytes), {});
  file.WriteHeader(prepared.topic, prepared.description);
  FileStatus status = FileStatus::Ok;
  for (const DeckCard& card : prepared.cards) {
    for (const DeckSide& side : card.sides) {
      // The writer takes no caret, but the reader makes one of two percent signs.
      Text text = ReplaceAll(side.text, u"^", u"%%");
      if (status == FileStatus::Ok) status = file.WriteSide(text, side.sound, side.picture);
    }
  }
  StackOrigin nowhere;
  if (status == FileStatus::Ok) status = file.Close(nowhere);
  if (status != FileStatus::Ok) {
    findings.push_back(Failed(FindingKind::Unreadable, 0, ToUtf8(ErrorText(status))));
    return {};
  }
  ListDifferences(prepared, ReadNative(bytes, u"x.QBC", {}).deck, FormatWords, findings);
  return bytes;
}
