#include "decks/MediaCopy.h"

#include "base/DiskFiles.h"
#include "base/Paths.h"
#include "decks/Conversion.h"
#include "tests/support/RealDisk.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <sstream>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

/// A deck in "deck", files around it, and the folder "out" that takes the result, on the real disk.
class MediaCopyTest : public testing::Test {
 protected:
  MediaCopyTest() {
    std::string pattern = (fs::temp_directory_path() / "quib-media-XXXXXX").string();
    EXPECT_NE(::mkdtemp(pattern.data()), nullptr);
    root = pattern;
    options.copyMedia = true;
    Put("secret/id_rsa", "outside");
    Put("secret/key.jpg", "outside");
    Put("deck/dog.jpg", "dog");
    Put("deck/files/cat.png", "cat");
    Put("deck/notes.txt", "no medium");
    Put("deck/.hidden.jpg", "hidden");
    Put("deck/.git/blob.jpg", "hidden");
    fs::create_directory(root / "out");
    fs::create_symlink("../secret", root / "deck/linked");
    fs::create_symlink("../secret/key.jpg", root / "deck/key.jpg");
    fs::create_symlink("notes.txt", root / "deck/notes.jpg");
    fs::create_symlink("files/cat.png", root / "deck/link.png");
    fs::create_symlink(root / "deck/dog.jpg", root / "deck/absolute.jpg");
    fs::create_symlink("loop.jpg", root / "deck/loop.jpg");
    fs::create_directory(root / "deck/folder.jpg");
    EXPECT_EQ(::mkfifo((root / "deck/pipe.wav").c_str(), 0600), 0);
    fs::create_symlink("/dev/zero", root / "deck/zero.wav");
  }
  ~MediaCopyTest() override { fs::remove_all(root); }

  void Put(const std::string& name, const std::string& content) const {
    fs::create_directories((root / name).parent_path());
    std::ofstream(root / name) << content;
  }
  std::string Content(const std::string& name) const {
    std::ostringstream content;
    content << std::ifstream(root / name).rdbuf();
    return std::move(content).str();
  }
  std::set<std::string> Out() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(root / "out")) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }
  Text PathOf(const std::string& name) const { return DecodePath((root / name).string()); }

  /// Converts a table whose card has `name` as the picture of its front.
  bool Convert(const std::string& name, const std::string& out = "out/words.kvtml") {
    conversion = {};
    const std::string table = "Front,Back,Front picture\na,b,\"" + name + "\"\n";
    return PlanConversion(files, table, PathOf("deck/words.csv"), PathOf(out), options,
                          conversion) &&
           WriteConversion(files, conversion);
  }
  /// What is said about the one medium.
  std::string Said() const {
    return conversion.findings.empty() ? std::string() : conversion.findings.back().message;
  }

  fs::path root;
  DiskFiles files{u""};
  ConvertOptions options;
  Conversion conversion;
};

TEST_F(MediaCopyTest, NothingOutsideTheDecksFolderIsCopied) {
  const std::string above = root.string();
  const std::vector<std::pair<std::string, std::string>> refused = {
      {"../secret/id_rsa", "neither picture nor sound"},
      {"../secret/key.jpg", "outside"},
      {"..\\secret\\key.jpg", "outside"},
      {"files/../../secret/key.jpg", "outside"},
      {"./../secret/key.jpg", "outside"},
      {above + "/secret/key.jpg", "outside"},
      {"file://" + above + "/secret/key.jpg", "outside"},
      {"file://" + above + "/deck/../secret/key.jpg", "outside"},
      {"/etc/passwd", "outside"},
      {"file:///etc/hostname", "outside"},
      {"//etc/passwd.jpg", "outside"},
      {"key.jpg", "outside"},
      {"linked/key.jpg", "outside"},
      {"linked/none.jpg", "outside"},
      {"notes.txt", "neither picture nor sound"},
      {"notes.jpg", "neither picture nor sound"},
      {".hidden.jpg", "hidden"},
      {".git/blob.jpg", "hidden"},
      {"folder.jpg", "no regular file"},
      {"pipe.wav", "no regular file"},
      {"zero.wav", "outside"},
      {"loop.jpg", "not there"},
      {"files/", "neither picture nor sound"},
      {"none.jpg", "not there"},
      {"dog.jpg/x.jpg", "not there"},
  };
  for (const auto& [name, why] : refused) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(Convert(name, "out/words.csv"));
    EXPECT_NE(Said().find(why), std::string::npos) << Said();
    EXPECT_EQ(conversion.mediaCopied, 0U);
    EXPECT_EQ(conversion.mediaLeft, 1U);
    EXPECT_EQ(Out(), std::set<std::string>{"words.csv"});
    fs::remove(root / "out/words.csv");
  }
}

TEST_F(MediaCopyTest, WhatLiesInTheDecksFolderOrBelowIsCopied) {
  for (const std::string& name :
       {std::string("dog.jpg"), std::string("DOG.JPG"), std::string("files/cat.png"),
        std::string("files\\cat.png"), std::string("Files/Cat.PNG"), std::string("link.png"),
        std::string("absolute.jpg"), (root / "deck/dog.jpg").string(),
        "file://" + (root / "deck/files/cat.png").string()}) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(Convert(name));
    EXPECT_EQ(conversion.mediaCopied, 1U);
    EXPECT_EQ(conversion.mediaLeft, 0U);
    const std::string bare = name.substr(name.find_last_of("/\\") + 1);
    EXPECT_EQ(Out(), (std::set<std::string>{"words.kvtml", bare}));
    EXPECT_FALSE(fs::is_symlink(root / "out" / bare));
    fs::remove(root / "out" / bare);
    fs::remove(root / "out/words.kvtml");
  }
}

TEST_F(MediaCopyTest, WhatIsThereUnderTheNameDecides) {
  Put("out/dog.jpg", "dog");
  ASSERT_TRUE(Convert("dog.jpg"));
  EXPECT_EQ(conversion.mediaCopied, 0U) << "an equal file needs no copy";
  EXPECT_EQ(conversion.mediaLeft, 0U);

  Put("out/dog.jpg", "another");
  fs::remove(root / "out/words.kvtml");
  ASSERT_TRUE(Convert("dog.jpg"));
  EXPECT_EQ(conversion.mediaLeft, 1U);
  EXPECT_EQ(Content("out/dog.jpg"), "another");

  options.force = true;
  ASSERT_TRUE(Convert("dog.jpg"));
  EXPECT_EQ(conversion.mediaCopied, 1U);
  EXPECT_EQ(Content("out/dog.jpg"), "dog");
}

TEST_F(MediaCopyTest, NoLinkIsFollowedToWhereAMediumGoes) {
  Put("secret/victim", "victim");
  options.force = true;
  for (const char* const target : {"../secret/victim", "../secret/nothing"}) {
    fs::remove(root / "out/dog.jpg");
    fs::create_symlink(target, root / "out/dog.jpg");
    ASSERT_TRUE(Convert("dog.jpg"));
    EXPECT_EQ(conversion.mediaLeft, 1U);
  }
  EXPECT_EQ(Content("secret/victim"), "victim");
  EXPECT_FALSE(fs::exists(root / "secret/nothing"));
}

/// Another program makes a link where a file is to go, after the last look there.
class RacedFiles : public DiskFiles {
 public:
  RacedFiles(fs::path linkTarget, fs::path link)
      : DiskFiles(u""), m_linkTarget(std::move(linkTarget)), m_link(std::move(link)) {}

  FileStatus Replace(const Text& path, std::unique_ptr<FileReplacement>& replacement) override {
    MakeLink();
    return DiskFiles::Replace(path, replacement);
  }
  GroupResult ReplaceTogether(const std::vector<NewFile>& files) override {
    MakeLink();
    return DiskFiles::ReplaceTogether(files);
  }

 private:
  void MakeLink() const {
    fs::remove(m_link);
    fs::create_symlink(m_linkTarget, m_link);
  }

  fs::path m_linkTarget;
  fs::path m_link;
};

TEST_F(MediaCopyTest, ALinkThatIsMadeInBetweenIsNotWrittenThrough) {
  Put("secret/victim", "victim");
  const std::string table = "Front,Back,Front picture\na,b,dog.jpg\n";
  for (const bool force : {false, true}) {
    for (const char* const target : {"secret/victim", "secret/nothing"}) {
      SCOPED_TRACE(std::string(target) + (force ? " --force" : ""));
      options.force = force;
      conversion = {};
      ASSERT_TRUE(PlanConversion(files, table, PathOf("deck/words.csv"), PathOf("out/w.csv"),
                                 options, conversion));
      RacedFiles raced(root / target, root / "out/dog.jpg");
      EXPECT_EQ(CopyMedia(raced, conversion.way, {}, conversion.media, conversion.findings),
                force ? 1U : 0U);
      EXPECT_EQ(Content("secret/victim"), "victim");
      EXPECT_FALSE(fs::exists(root / "secret/nothing"));
      EXPECT_EQ(fs::is_symlink(root / "out/dog.jpg"), !force);
      EXPECT_EQ(Said().find("File already exists") != std::string::npos, !force) << Said();
      fs::remove(root / "out/dog.jpg");
    }
  }
}

TEST_F(MediaCopyTest, AnOutputIsNotWrittenThroughALinkThatIsMadeInBetween) {
  Put("secret/victim", "victim");
  const std::string table = "a,b\n";
  ASSERT_TRUE(PlanConversion(files, table, PathOf("deck/words.csv"), PathOf("out/w.csv"), options,
                             conversion));
  RacedFiles raced(root / "secret/victim", root / "out/w.csv");
  EXPECT_FALSE(WriteConversion(raced, conversion));
  EXPECT_NE(Said().find("exists (--force replaces it)"), std::string::npos) << Said();
  EXPECT_EQ(Content("secret/victim"), "victim");
}

TEST_F(MediaCopyTest, NeitherTheDeckNorTheNewFileIsOverwritten) {
  options.force = true;
  options.to = DeckFormat::Csv;
  Put("deck/files/words.wav", "a sound");
  Put("out/words.wav", "the deck, by another name");
  ASSERT_TRUE(Convert("files/words.wav", "out/words.wav"));
  EXPECT_EQ(conversion.mediaLeft, 1U);
  EXPECT_TRUE(Content("out/words.wav").starts_with("Front,")) << "the new file";
  ASSERT_TRUE(Convert("files/words.wav", "out/WORDS.WAV"));
  EXPECT_EQ(conversion.mediaLeft, 1U);

  // The deck under a second name, as a medium would see it.
  Put("deck/words.csv", "the deck");
  fs::create_hard_link(root / "deck/words.csv", root / "out/dog.jpg");
  ASSERT_TRUE(Convert("dog.jpg", "out/words.csv"));
  EXPECT_EQ(conversion.mediaLeft, 1U);
  EXPECT_EQ(Content("deck/words.csv"), "the deck");
}

TEST_F(MediaCopyTest, AFolderUnderAnotherNameIsTheSameFolder) {
  fs::remove(root / "out");
  fs::create_symlink("deck", root / "out");
  ASSERT_TRUE(Convert("dog.jpg"));
  EXPECT_EQ(conversion.mediaCopied, 0U);
  EXPECT_EQ(conversion.mediaLeft, 0U);
  EXPECT_EQ(Content("deck/dog.jpg"), "dog");
}

TEST_F(MediaCopyTest, OneOfTwoFilesWithOneNameIsCopied) {
  Put("deck/more/DOG.jpg", "another dog");
  const std::string table =
      "Front,Back,Front picture,Back picture\na,b,dog.jpg,more/DOG.jpg\nc,d,more/../x,\n";
  ASSERT_TRUE(PlanConversion(files, table, PathOf("deck/words.csv"), PathOf("out/w.csv"), options,
                             conversion));
  ASSERT_TRUE(WriteConversion(files, conversion));
  EXPECT_EQ(conversion.mediaCopied, 1U);
  EXPECT_EQ(Content("out/dog.jpg"), "dog");
  EXPECT_EQ(Out(), (std::set<std::string>{"w.csv", "dog.jpg"}));
  EXPECT_TRUE(std::any_of(
      conversion.findings.begin(), conversion.findings.end(), [](const Finding& finding) {
        return finding.message.find("the first one is taken") != std::string::npos;
      }));
}

TEST_F(MediaCopyTest, AFullDiskIsToldForEachMedium) {
  Put("deck/large.wav", std::string(100'000, 'x'));
  const std::string table = "Front,Back,Front sound,Back picture\na,b,large.wav,dog.jpg\n";
  ASSERT_TRUE(PlanConversion(files, table, PathOf("deck/words.csv"), PathOf("out/w.csv"), options,
                             conversion));
  {
    const SmallDisk disk(50'000);
    ASSERT_TRUE(WriteConversion(files, conversion));
  }
  EXPECT_EQ(conversion.mediaCopied, 1U);
  EXPECT_EQ(conversion.mediaLeft, 1U);
  EXPECT_NE(Said().find("large.wav” is not copied: Disk full"), std::string::npos) << Said();
  EXPECT_EQ(Out(), (std::set<std::string>{"w.csv", "dog.jpg"}));
}

TEST_F(MediaCopyTest, AMediumThatBecomesALinkInBetweenIsNotFollowed) {
  const std::string table = "Front,Back,Front picture\na,b,dog.jpg\n";
  ASSERT_TRUE(PlanConversion(files, table, PathOf("deck/words.csv"), PathOf("out/w.csv"), options,
                             conversion));
  fs::remove(root / "deck/dog.jpg");
  fs::create_symlink("../secret/key.jpg", root / "deck/dog.jpg");
  ASSERT_TRUE(WriteConversion(files, conversion));
  EXPECT_EQ(conversion.mediaLeft, 1U);
  EXPECT_EQ(Out(), std::set<std::string>{"w.csv"});
}

class PartsTest : public MediaCopyTest {
 protected:
  bool Split(int cards, const std::string& out = "out/w.QBC") {
    conversion = {};
    options.copyMedia = false;
    options.split = true;
    std::string table;
    for (int i = 0; i < cards; ++i) table += "f" + std::to_string(i) + ",b\n";
    return PlanConversion(files, table, PathOf("deck/words.csv"), PathOf(out), options,
                          conversion) &&
           WriteConversion(files, conversion);
  }
};

TEST_F(PartsTest, ManyPartsNeedFewOpenFiles) {
  rlimit old{};
  ::getrlimit(RLIMIT_NOFILE, &old);
  const rlimit few{24, old.rlim_max};
  ::setrlimit(RLIMIT_NOFILE, &few);
  const bool written = Split(100 * 300);
  ::setrlimit(RLIMIT_NOFILE, &old);
  EXPECT_TRUE(written) << Said();
  EXPECT_EQ(Out().size(), 100U);
}

TEST_F(PartsTest, AFullDiskLeavesNothingNewAndTheOldFilesWhole) {
  Put("out/w-2.QBC", "old 2");
  options.force = true;
  // The last part is the one that finds no room: its texts are longer.
  std::string table;
  for (int i = 0; i < 600; ++i) table += "f,b\n";
  for (int i = 0; i < 300; ++i) table += std::string(100, 'x') + ",b\n";
  options.split = true;
  options.copyMedia = false;
  ASSERT_TRUE(PlanConversion(files, table, PathOf("deck/words.csv"), PathOf("out/w.QBC"), options,
                             conversion));
  {
    const SmallDisk disk(20'000);
    EXPECT_FALSE(WriteConversion(files, conversion));
  }
  EXPECT_NE(Said().find("w-3.QBC"), std::string::npos) << Said();
  EXPECT_NE(Said().find("Disk full"), std::string::npos) << Said();
  EXPECT_EQ(Out(), std::set<std::string>{"w-2.QBC"});
  EXPECT_EQ(Content("out/w-2.QBC"), "old 2");
}

TEST_F(PartsTest, APartThatCannotTakeItsPlaceKeepsTheOthersFromTheirs) {
  Put("out/w-1.QBC", "old 1");
  fs::create_directory(root / "out/w-2.QBC");
  options.force = true;
  EXPECT_FALSE(Split(301));
  EXPECT_EQ(Content("out/w-1.QBC"), "old 1");
  EXPECT_EQ(Out(), (std::set<std::string>{"w-1.QBC", "w-2.QBC"}));
}

TEST_F(PartsTest, PartsTakeThePlaceOfFilesInAnotherLetterCase) {
  Put("out/W-1.qbc", "old");
  EXPECT_FALSE(Split(301));
  EXPECT_EQ(Out(), std::set<std::string>{"W-1.qbc"});
  options.force = true;
  EXPECT_TRUE(Split(301));
  EXPECT_EQ(Out(), (std::set<std::string>{"W-1.qbc", "w-2.QBC"}));
}

TEST_F(PartsTest, TwoPartsAreNotWrittenIntoOneFile) {
  Put("out/real.QBC", "old");
  fs::create_symlink("real.QBC", root / "out/w-1.QBC");
  fs::create_symlink("real.QBC", root / "out/w-2.QBC");
  options.force = true;
  EXPECT_FALSE(Split(301));
  EXPECT_EQ(Content("out/real.QBC"), "old");
}

TEST_F(PartsTest, ALinkToNothingIsNotWrittenThroughWithoutForce) {
  fs::create_symlink("../secret/nothing", root / "out/w-2.QBC");
  EXPECT_FALSE(Split(301));
  EXPECT_NE(Said().find("w-2.QBC” exists (--force replaces it)"), std::string::npos) << Said();
  EXPECT_FALSE(fs::exists(root / "secret/nothing"));
  EXPECT_EQ(Out(), std::set<std::string>{"w-2.QBC"});
  fs::create_symlink("../secret/nothing", root / "out/single.csv");
  ASSERT_TRUE(PlanConversion(files, "a,b\n", PathOf("deck/words.csv"), PathOf("out/single.csv"),
                             options, conversion));
  EXPECT_FALSE(WriteConversion(files, conversion));
  EXPECT_FALSE(fs::exists(root / "secret/nothing"));
}

TEST_F(PartsTest, NoPartTakesThePlaceOfTheFileThatIsRead) {
  Put("deck/words.csv", "the deck");
  options.force = true;
  const auto expectWhole = [&] {
    EXPECT_FALSE(Split(301));
    EXPECT_NE(Said().find("no part takes its place"), std::string::npos) << Said();
    EXPECT_EQ(Content("deck/words.csv"), "the deck");
    EXPECT_EQ(Out(), std::set<std::string>{"w-2.QBC"});
    fs::remove(root / "out/w-2.QBC");
  };
  fs::create_symlink("../deck/words.csv", root / "out/w-2.QBC");
  expectWhole();
  fs::create_hard_link(root / "deck/words.csv", root / "out/w-2.QBC");
  expectWhole();
}

TEST_F(PartsTest, HiddenPartsAreSeen) {
  Put("out/.w-1.QBC", "old");
  EXPECT_FALSE(Split(301, "out/.w.QBC"));
  EXPECT_EQ(Content("out/.w-1.QBC"), "old");
}

}  // namespace
