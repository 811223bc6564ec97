#include "study/MediaFiles.h"

#include "tests/support/MemoryFiles.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

TEST(FindMedia, FindsAFullPath) {
  MemoryFiles files;
  files.Put(u"c/dog.wav", "");
  EXPECT_EQ(FindMedia(files, u"c/dog.wav", u"elsewhere"), u"c/dog.wav");
}

TEST(FindMedia, FindsNothingForNoName) {
  MemoryFiles files;
  EXPECT_EQ(FindMedia(files, u"", u"c"), u"");
}

TEST(FindMedia, FindsNothingForAFileThatIsNotThere) {
  MemoryFiles files;
  files.Put(u"c/dog.wav", "");
  EXPECT_EQ(FindMedia(files, u"c/cat.wav", u"c"), u"");
  EXPECT_EQ(FindMedia(files, u"cat.wav", u"c"), u"");
}

TEST(FindMedia, LooksForABareNameInTheFolder) {
  MemoryFiles files;
  files.Put(u"c/dog.wav", "");
  EXPECT_EQ(FindMedia(files, u"dog.wav", u"c"), u"c/dog.wav");
  EXPECT_EQ(FindMedia(files, u"dog.wav", u"c/"), u"c/dog.wav");
}

TEST(FindMedia, PrefersTheFolderToTheCurrentOne) {
  MemoryFiles files;
  files.Put(u"c/dog.wav", "");
  files.Put(u"dog.wav", "");
  EXPECT_EQ(FindMedia(files, u"dog.wav", u"c"), u"c/dog.wav");
}

TEST(FindMedia, LooksForABareNameInTheCurrentFolderAfterwards) {
  MemoryFiles files;
  files.Put(u"dog.wav", "");
  EXPECT_EQ(FindMedia(files, u"dog.wav", u"c"), u"dog.wav");
}

TEST(FindMedia, DoesNotPutTheFolderBeforeANameThatHasOne) {
  MemoryFiles files;
  files.Put(u"c/d/dog.wav", "");
  EXPECT_EQ(FindMedia(files, u"d/dog.wav", u"c"), u"");
  EXPECT_EQ(FindMedia(files, u"d\\dog.wav", u"c"), u"");
}

TEST(FindMedia, FindsANameInAnotherLetterCase) {
  MemoryFiles files;
  files.Put(u"c/DOG.WAV", "");
  EXPECT_NE(FindMedia(files, u"dog.wav", u"c"), u"");
  EXPECT_NE(FindMedia(files, u"c/dog.wav", u""), u"");
}

TEST(FindMedia, GivesTheNameOnDiskWhateverLetterCaseTheCardHas) {
  MemoryFiles files;
  files.Put(u"/cards/COW.WAV", "x");
  EXPECT_EQ(FindMedia(files, u"cow.wav", u"/cards"), u"/cards/COW.WAV");
  EXPECT_EQ(FindMedia(files, u"/cards/Cow.wav", u"/elsewhere"), u"/cards/COW.WAV");
}
