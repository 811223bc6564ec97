#include "quibconv/Check.h"

#include "base/CodePage.h"
#include "base/Paths.h"
#include "cards/CardStack.h"
#include "decks/NativeStack.h"
#include "quibconv/CheckStack.h"
#include "quibconv/FileBytes.h"

#include <algorithm>
#include <fmt/format.h>

namespace {

bool ReadBytes(Files& files, const Text& path, std::string& bytes, Findings& findings) {
  const FileStatus status = files.Read(path, bytes);
  if (status == FileStatus::Ok) return true;
  findings.push_back(Failed(FindingKind::Unreadable, 0, ToUtf8(ErrorText(status))));
  return false;
}

/// Reads the file and finds out its format.
bool Open(Files& files, const Text& path, const CheckOptions& options, std::string& bytes,
          FileReport& report) {
  report.path = path;
  if (!ReadBytes(files, path, bytes, report.findings)) return false;
  report.bytes = bytes.size();
  report.format = options.format ? options.format : FormatForReading(BaseName(path), bytes);
  if (!report.format) {
    report.findings.push_back(
        Failed(FindingKind::Unreadable, 0, "the name says no format that is known here"));
    return false;
  }
  report.lineEnds = LineEndWords(CountLineEnds(bytes));
  return true;
}

void TakeFacts(const Deck& deck, FileReport& report) {
  report.topic = deck.topic;
  report.description = deck.description;
  report.cards = deck.cards.size();
  report.media = CountMedia(deck);
}

/// Pictures and sounds that the cards name and that are not there.
void CheckForeignMedia(const Deck& deck, TextView folder, MediaFolders& folders,
                       Findings& findings) {
  for (std::size_t i = 0; i < deck.cards.size(); ++i) {
    const DeckCard& card = deck.cards[i];
    for (const int side : {Front, Back}) {
      const DeckSide& content = card.sides[static_cast<std::size_t>(side)];
      for (const Text& name : {content.sound, content.picture}) {
        Text found;
        if (name.empty() || folders.Look(folder, name, found) == MediaFolders::Presence::There) {
          continue;
        }
        if (!found.empty()) continue;
        findings.push_back(FoundAt(FindingKind::MissingMedia, card.line, static_cast<int>(i) + 1,
                                   side, fmt::format("{} is not there", Quoted(name))));
      }
    }
  }
}

/// What stacks with these cards would lack; takes the cards. Media lie beside a stack, wherever
/// they were: their names become bare ones.
void CheckForeignDeck(Deck& deck, Findings& findings) {
  for (DeckCard& card : deck.cards) {
    for (DeckSide& side : card.sides) {
      side.sound = Text(BareMediaName(side.sound));
      side.picture = Text(BareMediaName(side.picture));
    }
  }
  if (deck.cards.empty()) {
    findings.push_back(NoCards());
    return;
  }
  if (deck.cards.size() > MaxCards) {
    findings.push_back(
        Found(FindingKind::ExtraCards, deck.cards[MaxCards].line,
              fmt::format("{} cards; a stack has at most {} (convert --split makes several)",
                          deck.cards.size(), MaxCards)));
  }
  int cardsBefore = 0;
  for (std::size_t i = 0; i < CountParts(deck, MaxCards); ++i) {
    const Deck part = TakePart(deck, MaxCards, i, DescriptionWidth);
    Findings lost;
    (void)WriteNativeStack(part, lost);
    for (Finding& finding : lost) {
      if (finding.card == 0 && cardsBefore > 0) continue;  // the header's, said once
      if (finding.card > 0) finding.card += cardsBefore;
      findings.push_back(std::move(finding));
    }
    findings.CountOnly(lost);
    cardsBefore += static_cast<int>(part.cards.size());
  }
}

}  // namespace

FileReport CheckFile(Files& files, MediaFolders& folders, const Text& path,
                     const CheckOptions& options) {
  FileReport report;
  std::string bytes;
  if (!Open(files, path, options, bytes, report)) return report;
  Deck deck;
  const bool native = report.format == DeckFormat::Stack || report.format == DeckFormat::Import;
  if (native && options.read.encoding.empty()) {
    report.encoding = StackEncodingName(bytes);
    CheckStack(bytes, path, options.topics, folders, deck, report.findings);
  } else if (ReadDeck(*report.format, bytes, BaseName(path), options.read, deck, report.encoding,
                      report.findings)) {
    CheckForeignMedia(deck, FolderPart(path), folders, report.findings);
    TakeFacts(deck, report);
    CheckForeignDeck(deck, report.findings);
    SortByLine(report.findings);
    return report;
  }
  TakeFacts(deck, report);
  SortByLine(report.findings);
  return report;
}

FileReport DescribeFile(Files& files, const Text& path, const CheckOptions& options, Deck& deck) {
  FileReport report;
  std::string bytes;
  if (!Open(files, path, options, bytes, report)) return report;
  (void)ReadDeck(*report.format, bytes, BaseName(path), options.read, deck, report.encoding,
                 report.findings);
  TakeFacts(deck, report);
  SortByLine(report.findings);
  return report;
}
