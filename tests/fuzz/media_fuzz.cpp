#include "base/CodePage.h"
#include "base/DiskFiles.h"
#include "base/LetterCase.h"
#include "base/Paths.h"
#include "cards/SideLine.h"
#include "decks/MediaCopy.h"
#include "study/MediaFiles.h"
#include "tests/fuzz/Require.h"
#include "tests/support/MemoryFiles.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

constexpr TextView Folder = u"cards/";

/// Where the name that was taken out of `line` stood: it ends with the first `extension`.
std::size_t PlaceOf(TextView line, TextView name, TextView extension) {
  return FindIgnoringCase(line, extension) + extension.size() - name.size();
}

/// What was taken out is a name, and nothing else is gone from the line but blanks at its ends.
void RequireTaken(const Text& before, const Text& path, const Text& after, TextView extension,
                  char16_t separator) {
  REQUIRE(path.starts_with(Folder));
  const TextView name = TextView(path).substr(Folder.size());
  REQUIRE(EqualIgnoringCase(name.substr(name.size() - 4), extension));
  REQUIRE(name.find(separator) == TextView::npos);
  const std::size_t place = PlaceOf(before, name, extension);
  REQUIRE(before.substr(place, name.size()) == name);
  const Text rest = Text(before).erase(place, name.size());
  REQUIRE(after == (place == 0 ? rest : Text(TrimBlanks(rest))));
}

void CheckLine(const Text& line, char16_t separator) {
  Text rest = line;
  const Text sound = TakeSoundName(rest, Folder, separator);
  if (sound.empty()) {
    REQUIRE(rest == line && !ContainsIgnoringCase(line, u".wav"));
  } else {
    RequireTaken(line, sound, rest, u".wav", separator);
  }

  const Text before = rest;
  const Text picture = TakePictureName(rest, Folder, separator);
  constexpr std::array Extensions = {TextView(u".bmp"), TextView(u".jpg"), TextView(u".gif")};
  const auto first = std::find_if(Extensions.begin(), Extensions.end(), [&](TextView extension) {
    return ContainsIgnoringCase(before, extension);
  });
  if (first == Extensions.end()) {
    REQUIRE(picture.empty() && rest == before);
  } else {
    RequireTaken(before, picture, rest, *first, separator);
  }
}

/// A bare name that a card can hold comes back from its line, whatever the letters are.
void CheckRoundTrip(TextView stem) {
  Text name;
  for (const char16_t unit : stem) {
    if (TextView(u" \r\n\\/.^").find(unit) == TextView::npos) name += unit;
  }
  const Text sound = name + u".wav";
  const Text picture = name + u".GIF";
  Text text = u"a text";
  Text line;
  REQUIRE(EncodeSideLine(text, Text(Folder) + sound, u"C:\\pictures\\" + picture, line) ==
          FileStatus::Ok);
  REQUIRE(TakeSoundName(line, Folder, u' ') == Text(Folder) + sound);
  REQUIRE(TakePictureName(line, Folder, u' ') == Text(Folder) + picture);
  REQUIRE(DecodeSideText(line) == u"a text");
}

void RequireFound(Files& files, const Text& name, TextView folder, const Text& found) {
  if (found.empty()) return;
  REQUIRE(files.Exists(found));
  REQUIRE(FindMedia(files, found, folder) == found);
  std::string content;
  REQUIRE(files.Read(found, content) == FileStatus::Ok);
  REQUIRE(!name.empty());
}

/// Names from the input, some of which are files.
void CheckLookup(const std::vector<Text>& names) {
  MemoryFiles files;
  for (std::size_t i = 0; i < names.size(); i += 2) files.Put(Text(Folder) + names[i], "content");
  for (const Text& name : names) {
    const Text found = FindMedia(files, name, Folder);
    RequireFound(files, name, Folder, found);
    const bool bare = std::none_of(name.begin(), name.end(), IsSeparator);
    if (bare && !name.empty() && files.Has(Text(Folder) + name)) {
      REQUIRE(found == Text(Folder) + name);
    }
  }
}

/// A folder on the disk that holds a few files with difficult names.
class DiskFolder {
 public:
  DiskFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "media-XXXXXX").string();
    REQUIRE(mkdtemp(name.data()) != nullptr);
    m_path = name;
    std::filesystem::create_directory(m_path + "/Sub");
    for (const char* const file :
         {"dog.wav", "Dog.WAV", "cat.GIF", "K\xC3\x84SE.bmp", "k\xE4se.jpg", "Sub/a b.wav"}) {
      std::ofstream(m_path + "/" + file) << "content";
    }
  }
  DiskFolder(const DiskFolder&) = delete;
  DiskFolder& operator=(const DiskFolder&) = delete;
  ~DiskFolder() { std::filesystem::remove_all(m_path); }

  Text Path() const { return DecodePath(m_path); }

 private:
  std::string m_path;
};

void CheckDisk(const std::string& bytes) {
  static const DiskFolder folder;
  static DiskFiles files(folder.Path());
  const Text name = DecodePath(bytes);
  REQUIRE(EncodePath(name) == bytes);
  // Outside the folder there are files that no test made.
  if (name.find(u"..") != Text::npos || IsSeparator(name.empty() ? u'/' : name.front())) return;
  const Text found = files.Find(WithSeparator(folder.Path()) + name);
  if (found.empty()) return;
  const bool bare = std::none_of(name.begin(), name.end(), IsSeparator);
  if (bare) REQUIRE(FindMedia(files, name, folder.Path()) == found);
  std::string content;
  REQUIRE(files.Read(found, content) == FileStatus::Ok);
  REQUIRE(content == "content");
}

/// A deck's folder with files, links and traps, one for what is copied, and secrets beside them.
class PlantedTree {
 public:
  PlantedTree() {
    std::string name = (std::filesystem::temp_directory_path() / "planted-XXXXXX").string();
    REQUIRE(mkdtemp(name.data()) != nullptr);
    m_root = std::filesystem::canonical(name).string();
    for (const char* const folder : {"deck/sub", "out", "secret"}) {
      std::filesystem::create_directories(m_root + "/" + folder);
    }
    for (const char* const file : {"deck/dog.jpg", "deck/Dog.WAV", "deck/sub/cat.png",
                                   "deck/.x.gif", "deck/a.txt", "deck/words.csv"}) {
      std::ofstream(m_root + "/" + file) << "deck";
    }
    for (const char* const file : {"secret/key.jpg", "secret/id", "key.wav"}) {
      std::ofstream(m_root + "/" + file) << "secret";
    }
    std::filesystem::create_symlink("../secret", m_root + "/deck/up");
    std::filesystem::create_symlink("../secret/key.jpg", m_root + "/deck/key.jpg");
    std::filesystem::create_symlink("sub/cat.png", m_root + "/deck/cat.gif");
    REQUIRE(mkfifo((m_root + "/deck/pipe.wav").c_str(), 0600) == 0);
  }
  PlantedTree(const PlantedTree&) = delete;
  PlantedTree& operator=(const PlantedTree&) = delete;
  ~PlantedTree() { std::filesystem::remove_all(m_root); }

  Text PathOf(const std::string& name) const { return DecodePath(m_root + "/" + name); }

  /// What was copied is a copy from the deck's folder under a bare name; it goes away again.
  void RequireHarmless() const {
    for (const auto& entry : std::filesystem::directory_iterator(m_root + "/out")) {
      REQUIRE(entry.is_regular_file() && !entry.is_symlink());
      REQUIRE(!entry.path().filename().string().starts_with("."));
      std::string content;
      std::ifstream(entry.path()) >> content;
      REQUIRE(content == "deck");
      std::filesystem::remove(entry.path());
    }
    const auto names = std::filesystem::recursive_directory_iterator(m_root);
    REQUIRE(std::distance(begin(names), end(names)) == 17);
  }

 private:
  std::string m_root;
};

/// The disk, while it is watched that nothing is read or written elsewhere.
class WatchedFiles : public DiskFiles {
 public:
  explicit WatchedFiles(const PlantedTree& tree)
      : DiskFiles(tree.PathOf("out")), m_deck(tree.PathOf("deck/")), m_out(tree.PathOf("out/")) {}

  FileStatus Read(const Text& path, std::string& content) override {
    const Text real = Look(path).realPath;
    REQUIRE(real.empty() || real.starts_with(m_deck) || real.starts_with(m_out));
    return DiskFiles::Read(path, content);
  }
  FileStatus Replace(const Text& path, std::unique_ptr<FileReplacement>& replacement) override {
    REQUIRE(path.starts_with(m_out) && path.find(u'/', m_out.size()) == Text::npos);
    REQUIRE(!Look(path).isLink);
    return DiskFiles::Replace(path, replacement);
  }

 private:
  Text m_deck;
  Text m_out;
};

/// Copies what a deck names. "%" stands for the tree, so that names from the root lead into it.
void CheckCopies(const std::vector<std::string>& lines, bool toStack) {
  static const PlantedTree tree;
  WatchedFiles files(tree);
  Deck deck;
  for (const std::string& line : lines) {
    DeckCard card;
    card.sides[0].picture = ReplaceAll(DecodePath(line), u"%", tree.PathOf(""));
    card.sides[1].sound = FromUtf8(line);
    deck.cards.push_back(std::move(card));
  }
  const MediaWay way{tree.PathOf("deck/words.csv"), tree.PathOf("out/words.QBC"), toStack, true,
                     true};
  std::vector<MediaCopy> copies;
  Findings findings;
  REQUIRE(PlanMedia(files, deck, way, copies, findings));
  REQUIRE(CopyMedia(files, way, {way.outPath}, copies, findings) <= copies.size());
  tree.RequireHarmless();
}

std::vector<std::string> Lines(const std::string& bytes) {
  std::vector<std::string> lines(1);
  for (const char byte : bytes) {
    if (byte == '\n') {
      if (lines.size() == 8) break;
      lines.emplace_back();
    } else {
      lines.back() += byte;
    }
  }
  return lines;
}

}  // namespace

// The bytes are lines: each is a side of a card, and the name of a picture or sound.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  std::vector<Text> names;
  for (const std::string& line : Lines(bytes)) {
    const Text text = DecodeFileText(line);
    CheckLine(text, u' ');
    CheckLine(text, u'>');
    CheckRoundTrip(text);
    CheckDisk(line);
    names.push_back(text);
  }
  CheckLine(DecodeFileText(bytes), u' ');
  CheckLookup(names);
  for (const bool toStack : {false, true}) CheckCopies(Lines(bytes), toStack);
  return 0;
}
