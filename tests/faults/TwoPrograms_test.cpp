#include "base/CodePage.h"
#include "tests/faults/FaultWorld.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

constexpr int Lines = 200;

Text Key(int program, int line) { return u"key" + NumberText(program) + u"-" + NumberText(line); }

/// Lets programs run at the same time on the world's files; each is given its number.
void RunAtOnce(int programs, const std::function<void(int program)>& action) {
  std::vector<pid_t> children;
  for (int program = 0; program < programs; ++program) {
    children.push_back(StartChild([&] { action(program); }));
  }
  for (const pid_t child : children) EXPECT_TRUE(EndedWell(child));
}

TEST(TwoPrograms, LoseNoLineOfTheSettings) {
  FaultWorld world;
  RunAtOnce(2, [&](int program) {
    for (int line = 0; line < Lines; ++line) {
      EXPECT_TRUE(world.profile.WriteString(u"Shared", Key(program, line), NumberText(line)));
    }
  });
  for (int program = 0; program < 2; ++program) {
    for (int line = 0; line < Lines; ++line) {
      EXPECT_EQ(world.profile.GetInt(u"Shared", Key(program, line), -1), line);
    }
  }
  EXPECT_EQ(world.Temporaries().size(), 0U);
}

TEST(TwoPrograms, KeepEachOthersChangesAndDeletions) {
  FaultWorld world;
  for (int line = 0; line < Lines; ++line) {
    ASSERT_TRUE(world.profile.WriteString(u"Shared", Key(0, line), u"old"));
  }
  RunAtOnce(2, [&](int program) {
    for (int line = 0; line < Lines; ++line) {
      if (line % 2 != program) continue;
      EXPECT_TRUE(program == 0 ? world.profile.DeleteKey(u"Shared", Key(0, line))
                               : world.profile.WriteString(u"Shared", Key(0, line), u"new"));
    }
  });
  for (int line = 0; line < Lines; ++line) {
    EXPECT_EQ(world.profile.GetString(u"Shared", Key(0, line), u"", 9),
              line % 2 == 0 ? u"" : u"new");
  }
}

TEST(TwoPrograms, MakeTheSettingsFileOnce) {
  for (int round = 0; round < 20; ++round) {
    FaultWorld world;
    RunAtOnce(2, [&](int) { InitSettings(world.profile); });
    const std::string first = world.OnDisk("config/QUIBCRDS.INI");
    InitSettings(world.profile);
    EXPECT_EQ(world.OnDisk("config/QUIBCRDS.INI"), first);
    EXPECT_EQ(first.find("[General]"), first.rfind("[General]"));
    EXPECT_EQ(first.find("DEFAULT="), first.rfind("DEFAULT="));
  }
}

TEST(TwoPrograms, AddTopicsSideBySide) {
  FaultWorld world;
  InitSettings(world.profile);
  LoadTopicList(world.topics, world.profile);
  RunAtOnce(2, [&](int program) {
    for (int topic = 0; topic < 5; ++topic) {
      EXPECT_EQ(SaveTopicAndKeys(world.profile, world.topics, Key(program, topic), {}, {}),
                TopicSave::Saved);
    }
  });
  LoadTopicList(world.topics, world.profile);
  EXPECT_EQ(world.topics.TopicCount, 10);
  for (int program = 0; program < 2; ++program) {
    for (int topic = 0; topic < 5; ++topic) {
      EXPECT_GT(FindTopic(world.topics, Key(program, topic)), 0);
    }
  }
}

TEST(TwoPrograms, SeeThatTheOtherHasSavedTheStack) {
  FaultWorld world;
  world.Put("cards/words.QBC", "Spanish\r\nAnimals\r\ndog  \r\nperro  \r\ncat  \r\ngato  \r\n");
  ASSERT_EQ(world.Load("words.QBC"), FileStatus::Ok);
  world.Edit();
  RunAtOnce(1, [&](int) {
    world.editor->CommitText(Front, u"theirs");
    EXPECT_EQ(world.SaveEdited("words.QBC"), FileStatus::Ok);
    EXPECT_EQ(world.prompts.shown.size(), 1U);
  });
  EXPECT_EQ(world.SaveEdited("words.QBC"), FileStatus::Ok);
  ASSERT_EQ(world.prompts.shown.size(), 2U);
  EXPECT_TRUE(world.prompts.shown[1].starts_with(u"The file was changed elsewhere"));
}

}  // namespace
