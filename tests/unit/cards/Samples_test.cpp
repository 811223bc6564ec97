#include "base/DiskFiles.h"
#include "base/Paths.h"
#include "cards/StackFileOperations.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>
#include <set>

namespace {

const Text SamplesFolder = DecodePath(QUIB_SOURCE_DIR "/samples");

struct Sample {
  const char16_t* fileName;
  int cards;  // as the folder's README.md says
};

constexpr Sample Samples[] = {
    {u"spanish-animals.QBC", 25},
    {u"flags.QBC", 16},
    {u"planets.QBC", 13},
    {u"spanish-300-words.QBC", 300},
    {u"russian-first-words.QBC", 50},
    {u"french-verbs.QBC", 34},
    {u"german-house.QBS", 24},
};

class SamplesTest : public testing::TestWithParam<Sample> {
 protected:
  void SetUp() override {
    ASSERT_EQ(LoadStack(stacks, files, prompts, SamplesFolder, GetParam().fileName,
                        [](const Text&) { return 0; }),
              FileStatus::Ok);
  }

  DiskFiles files{u""};
  StackStore stacks;
  ScriptedPrompts prompts;
};

}  // namespace

TEST_P(SamplesTest, HasItsNumberOfCards) {
  EXPECT_EQ(stacks.Current().CardCount, GetParam().cards);
}

TEST_P(SamplesTest, HasADescription) { EXPECT_NE(stacks.StackDescription, u""); }

TEST_P(SamplesTest, HasATextOrAPictureOnEverySide) {
  const CardStack& stack = stacks.Current();
  for (int card = 1; card <= stack.CardCount; ++card) {
    for (const int side : {Front, Back}) {
      EXPECT_FALSE(TrimRight(stack.SideText(card, side)).empty() &&
                   stack.SidePicture(card, side).empty())
          << card;
    }
  }
}

TEST_P(SamplesTest, NamesOnlyMediaThatAreThere) {
  const CardStack& stack = stacks.Current();
  for (int card = 1; card <= stack.CardCount; ++card) {
    for (const int side : {Front, Back}) {
      for (const Text& path : {stack.SideSound(card, side), stack.SidePicture(card, side)}) {
        EXPECT_TRUE(path.empty() || files.Exists(path)) << ToUtf8(path);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, SamplesTest, testing::ValuesIn(Samples), [](const auto& test) {
  std::string name = ToUtf8(test.param.fileName);
  std::erase_if(name, [](char c) { return c == '-' || c == '.'; });
  return name;
});

TEST(Samples, AreAllInTheTableAbove) {
  std::set<Text> known;
  for (const Sample& sample : Samples) known.insert(sample.fileName);
  DiskFiles files{u""};
  FolderContent content;
  ASSERT_EQ(files.List(SamplesFolder, content), FileStatus::Ok);
  std::set<Text> found;
  for (const Text& name : content.files) {
    if (MatchesPattern(name, TextsOf(FileDialogMode::Load).pattern)) found.insert(name);
  }
  EXPECT_EQ(found, known);
}

TEST(Samples, HaveNoMediaThatNoCardNames) {
  DiskFiles files{u""};
  StackStore stacks;
  ScriptedPrompts prompts;
  std::set<Text> named;
  for (const Sample& sample : Samples) {
    ASSERT_EQ(LoadStack(stacks, files, prompts, SamplesFolder, sample.fileName,
                        [](const Text&) { return 0; }),
              FileStatus::Ok);
    for (int card = 1; card <= stacks.Current().CardCount; ++card) {
      for (const int side : {Front, Back}) {
        named.insert(Text(BaseName(stacks.Current().SideSound(card, side))));
        named.insert(Text(BaseName(stacks.Current().SidePicture(card, side))));
      }
    }
  }
  FolderContent content;
  ASSERT_EQ(files.List(SamplesFolder, content), FileStatus::Ok);
  for (const Text& name : content.files) {
    const bool media = name.ends_with(u".wav") || name.ends_with(u".bmp") ||
                       name.ends_with(u".jpg") || name.ends_with(u".gif");
    EXPECT_TRUE(!media || named.contains(name)) << ToUtf8(name);
  }
}
