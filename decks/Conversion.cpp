#include "decks/Conversion.h"

#include "base/CodePage.h"
#include "base/Paths.h"
#include "cards/CardStack.h"
#include "decks/MediaFolders.h"
#include "decks/PlaceOnDisk.h"

#include <algorithm>
#include <fmt/format.h>
#include <memory>
#include <utility>

namespace {

/// "words-2.QBC" for "words.QBC": the last dot of the bare name parts it. Numbers have as many
/// digits as the last one, so that a list of names is in order.
Text NumberedPath(const Text& path, std::size_t number, std::size_t count) {
  const Text folder(FolderPart(path));
  const Text name(BaseName(path));
  const std::size_t dot = std::min(name.rfind(u'.'), name.size());
  const std::size_t width = NumberText(static_cast<int>(count)).size();
  Text digits = NumberText(static_cast<int>(number));
  digits.insert(0, width - digits.size(), u'0');
  return folder + name.substr(0, dot) + u"-" + digits + name.substr(dot);
}

bool Fail(Conversion& conversion, FindingKind kind, std::string message) {
  conversion.findings.push_back(Failed(kind, 0, std::move(message)));
  return false;
}

/// @param deck  loses its cards where they go into several files: there is no room for both
bool EncodeOutputs(Deck& deck, DeckFormat to, const Text& outPath, const ConvertOptions& options,
                   Conversion& conversion) {
  const bool isStack = to == DeckFormat::Stack;
  const std::size_t most = isStack ? MaxCards : std::max<std::size_t>(1, deck.cards.size());
  const std::size_t parts = CountParts(deck, most);
  if (parts > 1 && !options.split) {
    return Fail(conversion, FindingKind::ExtraCards,
                fmt::format("{} cards, and a stack has at most {}; --split makes {} stacks of them",
                            deck.cards.size(), MaxCards, parts));
  }
  int cardsBefore = 0;
  for (std::size_t i = 0; i < parts; ++i) {
    Findings lost;
    OutputFile output;
    output.path = parts > 1 ? NumberedPath(outPath, i + 1, parts) : outPath;
    if (parts > 1) {
      const Deck part = TakePart(deck, most, i, DescriptionWidth);
      output.cards = part.cards.size();
      output.bytes = WriteDeck(to, part, options.write, lost);
    } else {
      output.cards = deck.cards.size();
      output.bytes = WriteDeck(to, deck, options.write, lost);
    }
    for (Finding& finding : lost) {
      if (finding.severity == Severity::Error) {
        // It is about the new file, and so is its line, which nobody will see.
        finding.line = 0;
        finding.message = fmt::format("{} cannot be made so that it can be read again: {}",
                                      Quoted(output.path), finding.message);
      }
      // Topic and description are the same for all parts and said once.
      if (finding.card == 0 && i > 0 && finding.severity != Severity::Error) continue;
      if (finding.card > 0) finding.card += cardsBefore;
      conversion.findings.push_back(std::move(finding));
    }
    conversion.findings.CountOnly(lost);
    if (WorstOf(lost) == Severity::Error) return false;
    cardsBefore += static_cast<int>(output.cards);
    conversion.outputs.push_back(std::move(output));
  }
  return true;
}

bool FailToReplace(Conversion& conversion, const Text& path) {
  return Fail(conversion, FindingKind::Unreadable,
              fmt::format("{} exists (--force replaces it)", Quoted(path)));
}

/// Gives the outputs the names that their files have on the disk.
/// @return false when there are such files and they are not to be replaced: the file that is read
///         only where the user has said its name, and not as one of several parts
bool TakeNamesOnDisk(Files& files, Conversion& conversion) {
  const Text& inPath = conversion.way.inPath;
  const FileFacts input = inPath.empty() ? FileFacts() : files.Look(inPath);
  MediaFolders folders(files);  // one look into the folder, for however many parts
  for (OutputFile& output : conversion.outputs) {
    const Text folder(FolderPart(output.path));
    const TextView name = BaseName(output.path);
    Text found;
    switch (folders.Look(folder, name, found)) {
      case MediaFolders::Presence::There:
        found = output.path;
        break;
      case MediaFolders::Presence::OtherCase:
        found = folder + found;
        break;
      case MediaFolders::Presence::Ambiguous:
      case MediaFolders::Presence::Missing:
        found =
            name.starts_with(u'.') ? files.Find(output.path) : Text();  // lists lack hidden ones
        break;
    }
    if (found.empty()) continue;
    if (!conversion.way.force) return FailToReplace(conversion, output.path);
    if (conversion.outputs.size() > 1 && files.Look(found).IsSameFile(input)) {
      return Fail(
          conversion, FindingKind::Unreadable,
          fmt::format("{} is the file that is read; no part takes its place", Quoted(output.path)));
    }
    output.path = found;
  }
  return true;
}

/// Replaces a file, or makes it; where its folder takes no new file, it is overwritten.
bool ReplaceOne(Files& files, Conversion& conversion) {
  const OutputFile& output = conversion.outputs.front();
  std::unique_ptr<FileReplacement> replacement;
  FileStatus status = files.Replace(output.path, replacement);
  if (status == FileStatus::Ok) status = replacement->Commit(output.bytes);
  if (status == FileStatus::Ok) return true;
  return Fail(conversion, FindingKind::Unreadable,
              fmt::format("{} is not written: {}", Quoted(output.path), ToUtf8(ErrorText(status))));
}

/// Writes all outputs or none. Without --force none takes the place of anything.
bool WriteTogether(Files& files, Conversion& conversion) {
  const bool force = conversion.way.force;
  std::vector<NewFile> parts;
  const Text folder = FolderOnDisk(files, conversion.way.outPath);
  for (const OutputFile& output : conversion.outputs) {
    parts.push_back({force ? output.path : folder + Text(BaseName(output.path)), output.bytes,
                     force ? Takes::Target : Takes::FreeName});
  }
  const GroupResult result = files.ReplaceTogether(parts);
  if (result.status == FileStatus::Ok) return true;
  const Text& failed = conversion.outputs[result.failed].path;
  for (const Text& path : result.notUndone) {
    conversion.findings.push_back(
        Failed(FindingKind::Unreadable, 0,
               fmt::format("{} is left over and holds what could not be put back", Quoted(path))));
  }
  if (result.status == FileStatus::FileAlreadyExists) return FailToReplace(conversion, failed);
  return Fail(
      conversion, FindingKind::Unreadable,
      fmt::format("{} is not written{}: {}", Quoted(failed),
                  parts.size() > 1 ? ", and no other part" : "", ToUtf8(ErrorText(result.status))));
}

}  // namespace

bool PlanConversion(Files& files, std::string bytes, const Text& inPath, const Text& outPath,
                    const ConvertOptions& options, Conversion& conversion) {
  const auto from = options.from ? options.from : FormatForReading(BaseName(inPath), bytes);
  const auto to = options.to ? options.to : FormatForWriting(BaseName(outPath));
  if (!from) {
    return Fail(conversion, FindingKind::Unreadable,
                fmt::format("the name {} says no format; --from does", Quoted(BaseName(inPath))));
  }
  if (const TextView name = BaseName(outPath); name.empty() || name == u"." || name == u"..") {
    return Fail(conversion, FindingKind::Unreadable,
                fmt::format("{} is no name of a file", Quoted(outPath)));
  }
  if (!to || to == DeckFormat::Import) {
    return Fail(
        conversion, FindingKind::Unreadable,
        to ? std::string("import files are read only; write a stack (.QBC)")
           : fmt::format("the name {} says no format; --to does", Quoted(BaseName(outPath))));
  }
  Deck deck;
  std::string encoding;
  // Under another name than its own, the reader would take an import file for a stack.
  const Text fileName = *from == DeckFormat::Import ? Text(u"x.QBS") : Text(u"x.QBC");
  if (!ReadDeck(*from, bytes, fileName, options.read, deck, encoding, conversion.findings))
    return false;
  bytes = {};  // the room is needed
  if (deck.cards.empty()) {
    conversion.findings.push_back(NoCards());
    return false;
  }

  if (options.topic) deck.topic = *options.topic;
  if (options.description) deck.description = *options.description;
  if (deck.topic.empty() && *to == DeckFormat::Stack) {
    deck.topic = TopicWithout;
    conversion.findings.push_back(Remarked(
        0, fmt::format("no topic; it becomes {} (--topic says another)", Quoted(TopicWithout))));
  }
  if (options.swap) SwapSides(deck);
  conversion.way = {inPath, outPath, *to == DeckFormat::Stack, options.copyMedia, options.force};
  const std::size_t before = conversion.findings.size();
  if (!PlanMedia(files, deck, conversion.way, conversion.media, conversion.findings)) return false;
  if (options.copyMedia) conversion.mediaLeft = conversion.findings.size() - before;
  if (!EncodeOutputs(deck, *to, outPath, options, conversion)) return false;
  return !options.strict || WorstOf(conversion.findings) == Severity::Remark;
}

bool WriteConversion(Files& files, Conversion& conversion) {
  if (!TakeNamesOnDisk(files, conversion)) return false;
  const bool written = conversion.outputs.size() == 1 && conversion.way.force
                           ? ReplaceOne(files, conversion)
                           : WriteTogether(files, conversion);
  if (!written || conversion.media.empty()) return written;
  std::vector<Text> paths;
  for (const OutputFile& output : conversion.outputs) paths.push_back(output.path);
  Findings left;
  conversion.mediaCopied = CopyMedia(files, conversion.way, paths, conversion.media, left);
  conversion.mediaLeft += left.size();
  conversion.findings.Append(left);
  return true;
}
