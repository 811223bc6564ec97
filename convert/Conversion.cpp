#include "convert/Conversion.h"

#include "base/CodePage.h"
#include "base/Paths.h"
#include "cards/CardStack.h"
#include "convert/NativeStack.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <map>
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

/// Where the media of a deck are, and under which bare names they go on.
class MediaPlan {
 public:
  MediaPlan(TextView folder, Findings& findings) : m_folder(folder), m_findings(findings) {}

  /// Makes the names of a deck's media bare ones.
  void MakeBare(Deck& deck) {
    for (DeckCard& card : deck.cards) {
      for (DeckSide& side : card.sides) {
        MakeBare(side.sound, card.line);
        MakeBare(side.picture, card.line);
      }
    }
  }

  /// The sources by bare name.
  const std::map<Text, Text>& Sources() const { return m_sources; }
  /// Names that had a folder before them.
  const std::map<Text, Text>& Renamed() const { return m_renamed; }

 private:
  void MakeBare(Text& name, int line) {
    if (name.empty()) return;
    constexpr TextView FileAddress = u"file://";
    TextView path = name;
    if (path.starts_with(FileAddress)) path.remove_prefix(FileAddress.size());
    const Text bare(BareMediaName(path));
    const bool fromRoot = IsSeparator(path.front());
    const Text source = fromRoot ? Text(path) : m_folder + Text(path);
    const auto [place, isNew] = m_sources.try_emplace(bare, source);
    if (!isNew && place->second != source) {
      m_findings.push_back(Found(FindingKind::MediaName, line,
                                 fmt::format("{} and {} have the same name; the first one is taken",
                                             Quoted(place->second), Quoted(source))));
    }
    if (bare != name) m_renamed.try_emplace(name, bare);
    name = bare;
  }

  Text m_folder;
  Findings& m_findings;
  std::map<Text, Text> m_sources;
  std::map<Text, Text> m_renamed;
};

/// Media names that stand in the cards; a set in the order of names.
std::map<Text, int> NamesIn(const Deck& deck) {
  std::map<Text, int> names;
  for (const DeckCard& card : deck.cards) {
    for (const DeckSide& side : card.sides) {
      if (!side.sound.empty()) names.try_emplace(side.sound, card.line);
      if (!side.picture.empty()) names.try_emplace(side.picture, card.line);
    }
  }
  return names;
}

void PlanMedia(Files& files, Deck& deck, DeckFormat to, const Text& inPath, const Text& outPath,
               bool copy, Conversion& conversion) {
  const Text inFolder(FolderPart(inPath));
  const Text outFolder(FolderPart(outPath));
  Findings& findings = conversion.findings;
  MediaPlan plan(inFolder, findings);
  const bool isStack = to == DeckFormat::Stack;
  if (isStack || copy) plan.MakeBare(deck);
  if (!copy) {
    for (const auto& [path, bare] : plan.Renamed()) {
      findings.push_back(
          Found(FindingKind::MediaName, 0,
                fmt::format("{} is called {} from now on: media lie beside their stack "
                            "(--media copy puts them there)",
                            Quoted(path), Quoted(bare))));
    }
    const std::size_t count = NamesIn(deck).size();
    if (count > 0 && plan.Renamed().empty() && inFolder != outFolder) {
      findings.push_back(Remarked(0, fmt::format("{} pictures and sounds stay where they are "
                                                 "(--media copy takes them along)",
                                                 count)));
    }
    return;
  }
  for (const auto& [name, line] : NamesIn(deck)) {
    if (isStack && !IsSoundName(name) && !IsPictureName(name)) continue;  // it will be listed
    const Text source = files.Find(plan.Sources().at(name));
    if (source.empty()) {
      findings.push_back(Found(FindingKind::MissingMedia, line,
                               fmt::format("{} is not there and is not copied", Quoted(name))));
    } else if (const Text target = outFolder + name; files.Find(target) != source) {
      conversion.media.push_back({source, target});
    }
  }
}

bool Fail(Conversion& conversion, FindingKind kind, std::string message) {
  conversion.findings.push_back(Failed(kind, 0, std::move(message)));
  return false;
}

bool EncodeOutputs(const Deck& deck, DeckFormat to, const Text& outPath,
                   const ConvertOptions& options, Conversion& conversion) {
  const bool isStack = to == DeckFormat::Stack;
  std::vector<Deck> parts =
      isStack ? SplitDeck(deck, MaxCards, DescriptionWidth) : std::vector<Deck>{deck};
  if (parts.size() > 1 && !options.split) {
    return Fail(conversion, FindingKind::ExtraCards,
                fmt::format("{} cards, and a stack has at most {}; --split makes {} stacks of them",
                            deck.cards.size(), MaxCards, parts.size()));
  }
  int cardsBefore = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    Findings lost;
    OutputFile output;
    output.path = parts.size() > 1 ? NumberedPath(outPath, i + 1, parts.size()) : outPath;
    output.bytes = WriteDeck(to, parts[i], options.write, lost);
    output.cards = parts[i].cards.size();
    for (Finding& finding : lost) {
      // Topic and description are the same for all parts and said once.
      if (finding.card == 0 && i > 0 && finding.severity != Severity::Error) continue;
      if (finding.card > 0) finding.card += cardsBefore;
      conversion.findings.push_back(std::move(finding));
    }
    if (WorstOf(conversion.findings) == Severity::Error) return false;
    conversion.outputs.push_back(std::move(output));
    cardsBefore += static_cast<int>(parts[i].cards.size());
  }
  return true;
}

void CopyMedia(Files& files, const MediaCopy& copy, bool force, Findings& findings) {
  const auto fail = [&](FindingKind kind, std::string_view why) {
    findings.push_back(
        Found(kind, 0, fmt::format("{} is not copied: {}", Quoted(copy.source), why)));
  };
  std::string bytes;
  FileStatus status = files.Read(copy.source, bytes);
  if (std::string old; status == FileStatus::Ok && files.Read(copy.target, old) == FileStatus::Ok) {
    if (old == bytes) return;
    if (!force) {
      fail(FindingKind::MediaName, "another file of that name is there (--force replaces it)");
      return;
    }
  }
  std::unique_ptr<FileReplacement> replacement;
  if (status == FileStatus::Ok) status = files.Replace(copy.target, replacement);
  if (status == FileStatus::Ok) status = replacement->Commit(bytes);
  if (status != FileStatus::Ok) fail(FindingKind::Unreadable, ToUtf8(ErrorText(status)));
}

}  // namespace

bool PlanConversion(Files& files, std::string_view bytes, const Text& inPath, const Text& outPath,
                    const ConvertOptions& options, Conversion& conversion) {
  const auto from = options.from ? options.from : FormatForReading(BaseName(inPath), bytes);
  const auto to = options.to ? options.to : FormatForWriting(BaseName(outPath));
  if (!from) {
    return Fail(conversion, FindingKind::Unreadable,
                fmt::format("the name {} says no format; --from does", Quoted(BaseName(inPath))));
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
  if (deck.cards.empty()) return Fail(conversion, FindingKind::Malformed, "no cards in it");

  if (options.topic) deck.topic = *options.topic;
  if (options.description) deck.description = *options.description;
  if (deck.topic.empty() && *to == DeckFormat::Stack) {
    deck.topic = TopicWithout;
    conversion.findings.push_back(Remarked(
        0, fmt::format("no topic; it becomes {} (--topic says another)", Quoted(TopicWithout))));
  }
  if (options.swap) SwapSides(deck);
  PlanMedia(files, deck, *to, inPath, outPath, options.copyMedia, conversion);
  if (!EncodeOutputs(deck, *to, outPath, options, conversion)) return false;
  return !options.strict || WorstOf(conversion.findings) == Severity::Remark;
}

bool WriteConversion(Files& files, Conversion& conversion, bool force) {
  std::vector<std::unique_ptr<FileReplacement>> replacements;
  for (const OutputFile& output : conversion.outputs) {
    if (!force && files.Exists(output.path)) {
      return Fail(conversion, FindingKind::Unreadable,
                  fmt::format("{} exists (--force replaces it)", Quoted(output.path)));
    }
    const FileStatus status = files.Replace(output.path, replacements.emplace_back());
    if (status != FileStatus::Ok) {
      return Fail(
          conversion, FindingKind::Unreadable,
          fmt::format("{} cannot be written: {}", Quoted(output.path), ToUtf8(ErrorText(status))));
    }
  }
  for (std::size_t i = 0; i < replacements.size(); ++i) {
    const FileStatus status = replacements[i]->Commit(conversion.outputs[i].bytes);
    if (status != FileStatus::Ok) {
      return Fail(conversion, FindingKind::Unreadable,
                  fmt::format("{} is not written: {}", Quoted(conversion.outputs[i].path),
                              ToUtf8(ErrorText(status))));
    }
  }
  for (const MediaCopy& copy : conversion.media) CopyMedia(files, copy, force, conversion.findings);
  return true;
}
