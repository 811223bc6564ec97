#include "quibconv/CheckStack.h"

#include "base/CodePage.h"
#include "base/LetterCase.h"
#include "base/Paths.h"
#include "cards/CardStack.h"
#include "cards/FileLines.h"
#include "decks/ImportLines.h"
#include "decks/NativeStack.h"
#include "quibconv/FileBytes.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace {

Text DecodedLine(const SideRead& side) {
  Text line;
  line.reserve(side.line.size());  // no more units than bytes
  AppendDecoded(line, side.line, side.encoding);
  return line;
}

/// Blanks that a side's line ends in by itself: before the sound's name and before the picture's,
/// where there are none.
std::size_t OwnBlanks(const SideRead& side) {
  if (side.sound.empty() && side.picture.empty()) return 2;
  const Text whole = DecodedLine(side);
  const TextView line = TrimRight(whole);
  if (!side.picture.empty() && line.ends_with(side.picture)) return 0;
  return !side.sound.empty() && line.ends_with(side.sound) ? 1 : 2;
}

/// What follows the name that ends in `extension` in a line.
TextView Behind(TextView line, TextView extension) {
  const std::size_t at = FindIgnoringCase(line, extension);
  return at == TextView::npos ? TextView() : TrimBlanks(line.substr(at + extension.size()));
}

TextView ExtensionOf(TextView name) {
  return name.substr(name.size() - std::min<std::size_t>(name.size(), 4));
}

class SideChecks {
 public:
  SideChecks(TextView folder, bool isImport, MediaFolders& folders, Findings& findings)
      : m_folder(folder), m_isImport(isImport), m_folders(folders), m_findings(findings) {}

  void Check(const SideRead& side) {
    m_heardLines.push_back(side.lineNumber);
    CheckText(side);
    CheckBlanks(side);
    if (!side.sound.empty()) CheckMediaPlace(side, "sound", side.sound);
    if (!side.picture.empty()) CheckMediaPlace(side, "picture", side.picture);
    if (!side.sound.empty()) CheckPresence(side, "sound", side.sound);
    if (!side.picture.empty()) CheckPresence(side, "picture", side.picture);
  }

  /// The lines that gave a side, rising.
  const std::vector<int>& HeardLines() const { return m_heardLines; }

 private:
  void Add(const SideRead& side, FindingKind kind, std::string message) {
    m_findings.push_back(FoundAt(kind, side.lineNumber, side.card, side.side, std::move(message)));
  }

  void CheckText(const SideRead& side) {
    if (side.textLength > MaxLoadedText) {
      Add(side, FindingKind::LongText,
          fmt::format("{} characters; the program keeps {} of them: {}", side.textLength,
                      MaxLoadedText, Quoted(side.text)));
    }
    if (side.text.substr(0, MaxLoadedText).find(u'^') != TextView::npos) {
      Add(side, FindingKind::Caret,
          fmt::format("a caret in {}: the program shows it, but cannot save the stack again",
                      Quoted(TrimRight(side.text))));
    }
  }

  void CheckBlanks(const SideRead& side) {
    const std::size_t blanks = side.line.size() - (side.line.find_last_not_of(' ') + 1);
    const std::size_t own = m_isImport ? 0 : OwnBlanks(side);
    if (blanks <= own) return;
    Add(side, FindingKind::TrailingBlanks,
        own == 0 ? fmt::format("{} blanks behind the text", blanks)
                 : fmt::format("{} blanks behind the text, {} more than the file needs", blanks,
                               blanks - own));
  }

  /// A name that is meant as one stands at the line's end, or is followed by the other name alone.
  void CheckMediaPlace(const SideRead& side, std::string_view what, TextView name) {
    const Text line = DecodedLine(side);
    const TextView behind = Behind(line, ExtensionOf(name));
    const TextView other = name == side.sound ? side.picture : side.sound;
    const bool oddName = name.find_first_of(m_isImport ? u"= " : u" ") != TextView::npos;
    const bool alone = m_isImport || behind.empty() || behind == other;
    if (alone && !oddName) return;
    Add(side, FindingKind::MediaWord,
        fmt::format("{} reads as the name of a {}; the text becomes {}", Quoted(name), what,
                    Quoted(TrimRight(side.text))));
  }

  void CheckPresence(const SideRead& side, std::string_view what, TextView name) {
    Text found;
    switch (m_folders.Look(m_folder, name, found)) {
      case MediaFolders::Presence::There:
        break;
      case MediaFolders::Presence::OtherCase:
        Add(side, FindingKind::MediaCase,
            fmt::format("the {} {} is there as {}", what, Quoted(name), Quoted(found)));
        break;
      case MediaFolders::Presence::Ambiguous:
        Add(side, FindingKind::MissingMedia,
            fmt::format("the {} {} is not there; several names differ from it in letter case only, "
                        "and the program takes none of them",
                        what, Quoted(name)));
        break;
      case MediaFolders::Presence::Missing:
        Add(side, FindingKind::MissingMedia,
            fmt::format("the {} {} is not there", what, Quoted(name)));
        break;
    }
  }

  TextView m_folder;
  bool m_isImport;
  MediaFolders& m_folders;
  Findings& m_findings;
  std::vector<int> m_heardLines;
};

void CheckRefusal(FileStatus status, std::string_view bytes, bool isImport, Findings& findings) {
  if (status != FileStatus::PastEnd) {
    findings.push_back(Failed(FindingKind::Unreadable, 0, ToUtf8(ErrorText(status))));
    return;
  }
  FileLines lines(bytes);
  Text line;
  while (lines.Read(line) == FileStatus::Ok) continue;
  const int count = lines.LineNumber();
  std::string reason;
  if (isImport) {
    reason = "no line behind the mark [WinQuib]";
  } else if (count <= 2) {
    reason = "no cards in it";
  } else if (TrimBlanks(line).empty()) {
    reason = "the last line is empty, which makes a front without a back";
  } else {
    reason = fmt::format("the last card, {}, has no back", Quoted(TrimRight(line)));
  }
  findings.push_back(
      Failed(FindingKind::Malformed, count, "the program refuses this file: " + reason));
}

void CheckHeader(std::string_view bytes, const Deck& deck, const TopicList* topics,
                 Findings& findings) {
  FileLines lines(bytes);
  Text line;
  if (lines.Read(line) == FileStatus::Ok) {
    const Text name(CutText(TrimRight(line), MaxHeardText));
    if (TrimBlanks(name).empty()) {
      findings.push_back(
          Found(FindingKind::Topic, 1, "no topic; the program says so at every load"));
    } else if (CleanTopicName(name) != name) {
      findings.push_back(Found(FindingKind::Topic, 1,
                               fmt::format("no topic can be called {}: a name has at most {} "
                                           "characters, none of them a bracket",
                                           Quoted(name), MaxTopicName)));
    } else if (topics != nullptr && FindTopic(*topics, name) < 0) {
      findings.push_back(
          Found(FindingKind::Topic, 1,
                fmt::format("the topic {} is not in the settings file", Quoted(name))));
    }
  }
  if (lines.Read(line) == FileStatus::Ok && TrimRight(line).size() > DescriptionWidth) {
    findings.push_back(Found(FindingKind::Description, 2,
                             fmt::format("the description has {} characters; the program keeps {}",
                                         TrimRight(line).size(), deck.description.size())));
  }
}

void CheckEnd(std::string_view bytes, int endLine, Findings& findings) {
  FileLines lines(bytes);
  Text line;
  while (lines.LineNumber() < endLine && lines.Read(line) == FileStatus::Ok) continue;
  while (lines.Read(line) == FileStatus::Ok) continue;
  const int ignored = lines.LineNumber() - endLine;
  if (ignored <= 0) return;
  findings.push_back(Found(FindingKind::ExtraCards, endLine + 1,
                           fmt::format("{} line{} behind card {} that the program does not read",
                                       ignored, ignored == 1 ? "" : "s", MaxCards)));
}

void CheckEmptyCards(const Deck& deck, Findings& findings) {
  for (std::size_t i = 0; i < deck.cards.size(); ++i) {
    const DeckCard& card = deck.cards[i];
    if (!card.sides[0].IsEmpty() || !card.sides[1].IsEmpty()) continue;
    findings.push_back(FoundAt(FindingKind::EmptyCard, card.line, static_cast<int>(i) + 1, -1,
                               "nothing on either side"));
  }
}

}  // namespace

void CheckStack(std::string_view bytes, const Text& path, const TopicList* topics,
                MediaFolders& folders, Deck& deck, Findings& findings) {
  const TextView fileName = BaseName(path);
  const bool isImport = ContainsIgnoringCase(fileName, u".QBS");
  CheckBytes(bytes, findings);
  Findings sideFindings;
  SideChecks sides(FolderPart(path), isImport, folders, sideFindings);
  NativeContent content =
      ReadNative(bytes, fileName, [&](const SideRead& side) { sides.Check(side); });
  deck = std::move(content.deck);
  if (content.status != FileStatus::Ok) {
    CheckRefusal(content.status, bytes, isImport, findings);
    return;
  }
  findings.insert(findings.end(), sideFindings.begin(), sideFindings.end());
  CheckEmptyCards(deck, findings);
  if (isImport) {
    if (deck.cards.empty()) findings.push_back(NoCards());
    for (const Text& message : content.messages) {
      findings.push_back(
          Found(FindingKind::UnequalSides, 0, "the program says: " + Printable(message)));
    }
    ListIgnoredImportLines(bytes, sides.HeardLines(), findings);
    return;
  }
  CheckHeader(bytes, deck, topics, findings);
  if (deck.cards.size() >= MaxCards) CheckEnd(bytes, content.endLine, findings);
}
