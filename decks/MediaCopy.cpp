#include "decks/MediaCopy.h"

#include "base/CodePage.h"
#include "base/LetterCase.h"
#include "base/Paths.h"
#include "decks/NativeStack.h"
#include "decks/PlaceOnDisk.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <map>
#include <set>
#include <utility>

namespace {

/// The endings of pictures and sounds that stacks and the programs with formats of ours take.
constexpr std::array<TextView, 21> MediaEndings = {
    u".bmp",  u".jpg",  u".gif",  u".wav", u".jpeg", u".png",  u".svg",
    u".tif",  u".tiff", u".webp", u".mp3", u".ogg",  u".oga",  u".opus",
    u".flac", u".m4a",  u".aac",  u".spx", u".aif",  u".aiff", u".wma"};

bool HasMediaEnding(TextView name) {
  const std::size_t dot = name.rfind(u'.');
  return dot != TextView::npos &&
         std::any_of(MediaEndings.begin(), MediaEndings.end(),
                     [&](TextView ending) { return EqualIgnoringCase(name.substr(dot), ending); });
}

/// A name without the beginning that makes it an address.
TextView WithoutAddress(TextView name) {
  constexpr TextView FileAddress = u"file://";
  return name.starts_with(FileAddress) ? name.substr(FileAddress.size()) : name;
}

/// Calls `use` with each part of a path, until it returns false.
template <class Use>
bool ForEachPart(TextView path, Use use) {
  while (!path.empty()) {
    const auto* const end = std::find_if(path.begin(), path.end(), IsSeparator);
    const auto length = static_cast<std::size_t>(end - path.begin());
    if (length > 0 && !use(path.substr(0, length))) return false;
    path.remove_prefix(std::min(path.size(), length + 1));
  }
  return true;
}

/// The folder of a deck, as the names in it see it.
class DeckFolder {
 public:
  DeckFolder(Files& files, TextView folder) : m_files(files), m_folder(folder) {
    const FileFacts facts = files.Look(m_folder);
    m_isThere = facts.isThere;
    m_root = WithSeparator(facts.realPath);
  }

  /// Looks for a medium.
  /// @param source  receives what is there, when it may be copied
  /// @return why it may not be copied; empty when it may
  std::string_view Find(TextView name, FileFacts& source) {
    TextView path = WithoutAddress(name);
    Text reached = m_folder;
    // The root of a file system outside the deck's folder is not looked at, nor what lies above.
    if (!path.empty() && IsSeparator(path.front())) {
      if (m_root.empty() || !path.starts_with(m_root)) return Outside;
      path.remove_prefix(m_root.size());
      reached = m_root;
    }
    if (!HasMediaEnding(BaseName(path))) return NoMedium;
    std::string_view obstacle;
    ForEachPart(path, [&](TextView part) {
      if (part.find_first_not_of(u'.') == TextView::npos) {
        obstacle = Outside;
      } else if (part.front() == u'.') {
        obstacle = Hidden;
      } else {
        reached = reached.empty() ? Text(part) : WithSeparator(reached).append(part);
        source = m_files.Look(reached);
        if (!source.isThere) obstacle = Missing;
        if (source.isThere && !IsBelow(source.realPath)) obstacle = Outside;
      }
      return obstacle.empty();
    });
    if (!obstacle.empty()) return obstacle;
    if (!source.isRegular) return NoFile;
    return HasMediaEnding(BaseName(source.realPath)) ? std::string_view() : NoMedium;
  }

  static constexpr std::string_view Missing = "it is not there";

 private:
  static constexpr std::string_view Outside = "it lies outside the deck's folder";
  static constexpr std::string_view Hidden = "hidden files are left where they are";
  static constexpr std::string_view NoMedium = "it is neither picture nor sound";
  static constexpr std::string_view NoFile = "it is no regular file";

  bool IsBelow(TextView realPath) const { return m_isThere && realPath.starts_with(m_root); }

  Files& m_files;
  Text m_folder;
  Text m_root;  // ends in a separator, or is empty where everything lies below it
  bool m_isThere = false;
};

struct MediaName {
  Text name;
  int line = 0;
};

/// The different names of media, in the order of the cards; false when there are too many.
bool CollectNames(const Deck& deck, bool onlyWithFolder, std::vector<MediaName>& names) {
  std::map<Text, bool> seen;
  const auto take = [&](const Text& name, int line) {
    if (name.empty() || (onlyWithFolder && BareMediaName(WithoutAddress(name)) == name)) return;
    if (seen.try_emplace(name, true).second) names.push_back({name, line});
  };
  for (const DeckCard& card : deck.cards) {
    for (const DeckSide& side : card.sides) {
      take(side.sound, card.line);
      take(side.picture, card.line);
    }
    if (names.size() > MostMediaNames) return false;
  }
  return true;
}

void MakeNamesBare(Deck& deck) {
  const auto makeBare = [](Text& name) {
    const TextView bare = BareMediaName(WithoutAddress(name));
    if (bare.size() != name.size()) name = Text(bare);
  };
  for (DeckCard& card : deck.cards) {
    for (DeckSide& side : card.sides) {
      makeBare(side.sound);
      makeBare(side.picture);
    }
  }
}

void RefuseCopy(TextView name, int line, std::string_view why, Findings& findings) {
  const bool missing = why == DeckFolder::Missing;
  findings.push_back(Found(missing ? FindingKind::MissingMedia : FindingKind::MediaName, line,
                           missing ? fmt::format("{} is not there and is not copied", Quoted(name))
                                   : fmt::format("{} is not copied: {}", Quoted(name), why)));
}

/// What a copy finds where it is to go.
enum class Place { Free, HasTheSame, Taken };

/// Files that nothing may take the place of.
class Protected {
 public:
  Protected(Files& files, const MediaWay& way, std::vector<Text> written)
      : m_paths(std::move(written)) {
    if (!way.inPath.empty()) m_paths.push_back(way.inPath);
    for (const Text& path : m_paths) {
      const FileFacts facts = files.Look(path);
      if (facts.isThere) m_files.emplace(facts.device, facts.number);
    }
    std::transform(m_paths.begin(), m_paths.end(), m_paths.begin(), UpperCase);
    std::sort(m_paths.begin(), m_paths.end());
  }

  bool Has(const Text& path, const FileFacts& facts) const {
    // A disk that knows no letter case has one place for names that differ in it.
    return std::binary_search(m_paths.begin(), m_paths.end(), UpperCase(path)) ||
           (facts.isThere && m_files.contains({facts.device, facts.number}));
  }

 private:
  std::vector<Text> m_paths;
  std::set<std::pair<std::uint64_t, std::uint64_t>> m_files;
};

Place LookAtPlace(Files& files, const MediaCopy& copy, const Protected& kept, bool force,
                  std::string_view& why) {
  const FileFacts target = files.Look(copy.target);
  if (files.Look(copy.source).IsSameFile(target)) return Place::HasTheSame;
  if (kept.Has(copy.target, target)) {
    why = "the deck or the new file has that name";
    return Place::Taken;
  }
  if (target.isLink || (target.isThere && !target.isRegular)) {
    why = "a link or a folder of that name is there";
    return Place::Taken;
  }
  if (!target.isThere) return Place::Free;
  std::string content;
  std::string old;
  if (files.Read(copy.source, content) == FileStatus::Ok &&
      files.Read(copy.target, old) == FileStatus::Ok && content == old) {
    return Place::HasTheSame;
  }
  if (force) return Place::Free;
  why = "another file of that name is there (--force replaces it)";
  return Place::Taken;
}

/// Finds the files for the names, and what stands in their way.
class Planner {
 public:
  Planner(Files& files, const MediaWay& way, Findings& findings)
      : m_files(files),
        m_way(way),
        m_folder(files, FolderPart(way.inPath)),
        m_kept(files, way, {way.outPath}),
        m_findings(findings) {}

  void Plan(const MediaName& medium, std::vector<MediaCopy>& copies) {
    const Text bare(BareMediaName(WithoutAddress(medium.name)));
    // It will be listed as what a stack cannot name.
    if (m_way.toStack && !IsSoundName(bare) && !IsPictureName(bare)) return;
    FileFacts source;
    std::string_view why = m_folder.Find(medium.name, source);
    if (!why.empty()) return RefuseCopy(medium.name, medium.line, why, m_findings);
    const auto [other, isNew] = m_taken.try_emplace(UpperCase(bare), source);
    if (!isNew) {
      if (!other->second.IsSameFile(source)) {
        m_findings.push_back(
            Found(FindingKind::MediaName, medium.line,
                  fmt::format("{} and {} have the same name; the first one is taken",
                              Quoted(other->second.realPath), Quoted(source.realPath))));
      }
      return;
    }
    const MediaCopy copy{source.realPath, Text(FolderPart(m_way.outPath)) + bare};
    switch (LookAtPlace(m_files, copy, m_kept, m_way.force, why)) {
      case Place::Free:
        copies.push_back(copy);
        break;
      case Place::HasTheSame:
        break;
      case Place::Taken:
        RefuseCopy(medium.name, medium.line, why, m_findings);
        break;
    }
  }

 private:
  Files& m_files;
  const MediaWay& m_way;
  DeckFolder m_folder;
  Protected m_kept;
  Findings& m_findings;
  std::map<Text, FileFacts> m_taken;  // by the bare name in capital letters
};

/// Lists what becomes of names with a folder in a stack, when nothing is copied.
void ListBareNames(const std::vector<MediaName>& names, const Deck& deck, Findings& findings) {
  std::map<Text, Text> pathOf;  // by bare name
  for (const MediaName& medium : names) {
    const Text bare(BareMediaName(WithoutAddress(medium.name)));
    findings.push_back(Found(FindingKind::MediaName, 0,
                             fmt::format("{} is called {} from now on: media lie beside their "
                                         "stack (--media copy puts them there)",
                                         Quoted(medium.name), Quoted(bare))));
    const auto [other, isNew] = pathOf.try_emplace(bare, medium.name);
    if (!isNew) {
      findings.push_back(Found(FindingKind::MediaName, medium.line,
                               fmt::format("{} and {} have the same name from now on",
                                           Quoted(other->second), Quoted(medium.name))));
    }
  }
  if (pathOf.empty()) return;
  const auto listBare = [&](const Text& name, int line) {
    const auto other = pathOf.find(name);
    if (other == pathOf.end()) return;
    findings.push_back(Found(FindingKind::MediaName, line,
                             fmt::format("{} and {} have the same name from now on",
                                         Quoted(other->second), Quoted(name))));
    pathOf.erase(other);  // said once
  };
  for (const DeckCard& card : deck.cards) {
    for (const DeckSide& side : card.sides) {
      listBare(side.sound, card.line);
      listBare(side.picture, card.line);
    }
  }
}

void RemarkWhatStays(Files& files, const Deck& deck, const MediaWay& way, Findings& findings) {
  const MediaCount count = CountMedia(deck);
  const std::size_t all = count.pictures + count.sounds;
  const Text in(FolderPart(way.inPath));
  const Text out(FolderPart(way.outPath));
  if (all == 0 || in == out || files.Look(in).IsSameFile(files.Look(out))) return;
  findings.push_back(Remarked(0, fmt::format("{} pictures and sounds stay where they are "
                                             "(--media copy takes them along)",
                                             all)));
}

}  // namespace

bool PlanMedia(Files& files, Deck& deck, const MediaWay& way, std::vector<MediaCopy>& copies,
               Findings& findings) {
  if (!way.copy && !way.toStack) {
    RemarkWhatStays(files, deck, way, findings);
    return true;
  }
  std::vector<MediaName> names;
  if (!CollectNames(deck, !way.copy, names)) {
    findings.push_back(
        Failed(FindingKind::Unreadable, 0,
               fmt::format("Out of memory: more than {} names of media", MostMediaNames)));
    return false;
  }
  if (way.copy) {
    Planner planner(files, way, findings);
    for (const MediaName& medium : names) planner.Plan(medium, copies);
  } else if (names.empty()) {
    RemarkWhatStays(files, deck, way, findings);
  } else {
    ListBareNames(names, deck, findings);
  }
  MakeNamesBare(deck);
  return true;
}

std::size_t CopyMedia(Files& files, const MediaWay& way, const std::vector<Text>& written,
                      const std::vector<MediaCopy>& copies, Findings& findings) {
  const Protected kept(files, way, written);
  std::size_t copied = 0;
  for (const MediaCopy& copy : copies) {
    // The disk may have changed since the plan was made.
    const FileFacts source = files.Look(copy.source);
    std::string_view why;
    const Place place = LookAtPlace(files, copy, kept, way.force, why);
    if (place == Place::HasTheSame) continue;
    if (place == Place::Taken || source.realPath != copy.source || !source.isRegular) {
      RefuseCopy(copy.source, 0, place == Place::Taken ? why : DeckFolder::Missing, findings);
      continue;
    }
    std::string content;
    FileStatus status = files.Read(copy.source, content);
    if (status == FileStatus::Ok) {
      // By its name: whoever makes a link there meanwhile does not choose what is overwritten.
      const Takes takes = way.force ? Takes::Name : Takes::FreeName;
      status = files.ReplaceTogether({{PlaceOnDisk(files, copy.target), content, takes}}).status;
    }
    if (status == FileStatus::Ok) {
      ++copied;
    } else {
      findings.push_back(Found(
          FindingKind::Unreadable, 0,
          fmt::format("{} is not copied: {}", Quoted(copy.source), ToUtf8(ErrorText(status)))));
    }
  }
  return copied;
}
