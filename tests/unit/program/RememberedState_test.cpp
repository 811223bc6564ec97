#include "program/RememberedState.h"

#include "program/Zoom.h"
#include "tests/support/MemoryFiles.h"

#include <gtest/gtest.h>

namespace {

class RememberedStateTest : public testing::Test {
 protected:
  static constexpr auto Path = u"/home/.local/state/quibcards/state";

  MemoryFiles files;
  RememberedState state{files, Path};
};

TEST_F(RememberedStateTest, KnowsNothingWithoutAFileAndMakesNone) {
  EXPECT_EQ(state.Size(u"Stepper"), std::nullopt);
  EXPECT_EQ(state.Zoom(u"study"), std::nullopt);
  EXPECT_FALSE(files.Has(Path));
}

TEST_F(RememberedStateTest, WhatIsKeptIsKnownInTheNextRun) {
  state.KeepSize(u"Stepper", {800, 600});
  state.KeepZoom(u"study", 150);
  const RememberedState next(files, Path);
  EXPECT_EQ(next.Size(u"Stepper"), (WindowSize{800, 600}));
  EXPECT_EQ(next.Zoom(u"study"), 150);
  EXPECT_EQ(files.Content(Path), "[Stepper]\r\nwidth=800\r\nheight=600\r\n[study]\r\nzoom=150\r\n");
}

TEST_F(RememberedStateTest, WindowsOfDifferentNamesAreKeptApart) {
  state.KeepSize(u"Stepper", {800, 600});
  state.KeepSize(u"Speller", {640, 400});
  EXPECT_EQ(state.Size(u"Stepper"), (WindowSize{800, 600}));
  EXPECT_EQ(state.Size(u"Speller"), (WindowSize{640, 400}));
  EXPECT_EQ(state.Zoom(u"Stepper"), std::nullopt);
}

TEST_F(RememberedStateTest, ProgramsThatRunTogetherKeepEachOthersLines) {
  RememberedState other(files, Path);
  EXPECT_EQ(state.Zoom(u"study"), std::nullopt);
  other.KeepSize(u"frmEdit", {900, 700});
  state.KeepZoom(u"study", 200);
  other.KeepZoom(u"editor", 125);
  EXPECT_EQ(state.Size(u"frmEdit"), (WindowSize{900, 700}));
  EXPECT_EQ(state.Zoom(u"editor"), 125);
  EXPECT_EQ(other.Zoom(u"study"), 200);
}

TEST_F(RememberedStateTest, WhatIsNoSizeIsNotKnown) {
  for (const char* const lines :
       {"width=800", "height=600", "width=0\nheight=600", "width=800\nheight=-600",
        "width=wide\nheight=high", "width=\nheight=", "width=32768\nheight=600",
        "width=99999999999999999999\nheight=600"}) {
    files.Put(Path, std::string("[Stepper]\n") + lines);
    EXPECT_EQ(state.Size(u"Stepper"), std::nullopt) << lines;
  }
}

TEST_F(RememberedStateTest, WhatIsNoZoomIsNotKnown) {
  for (const char* const value : {"", "0", "-150", "49", "401", "much"}) {
    files.Put(Path, std::string("[study]\nzoom=") + value);
    EXPECT_EQ(state.Zoom(u"study"), std::nullopt) << value;
  }
}

TEST_F(RememberedStateTest, ABrokenFileCostsNothingAndIsWrittenOn) {
  for (const std::string& rubbish :
       {std::string("\xEF\xBB\xBF\xC3("), std::string(3, '\0'), std::string("[study\nzoom=150"),
        std::string(1000, '['), std::string("zoom=150\n"), std::string("\xFF\xFE=\x1A")}) {
    files.Put(Path, rubbish);
    state.KeepZoom(u"other", 250);
    EXPECT_EQ(state.Zoom(u"other"), 250) << rubbish;
  }
}

TEST_F(RememberedStateTest, AFailureIsSilentAndLeavesTheFileAsItIs) {
  state.KeepZoom(u"study", 150);
  files.failCommit = FileStatus::DiskFull;
  state.KeepZoom(u"study", 300);
  EXPECT_EQ(state.Zoom(u"study"), 150);
  files.failCommit = FileStatus::Ok;
  files.failRead = FileStatus::PathAccess;
  state.KeepZoom(u"study", 300);
  EXPECT_EQ(state.Zoom(u"study"), std::nullopt);
  files.failRead = FileStatus::Ok;
  EXPECT_EQ(state.Zoom(u"study"), 150);
}

}  // namespace
