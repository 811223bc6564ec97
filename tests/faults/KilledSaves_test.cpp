#include "base/CodePage.h"
#include "tests/faults/FaultWorld.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TextPrinters.h"

#include <chrono>
#include <csignal>
#include <ctime>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

namespace {

namespace fs = std::filesystem;

constexpr int Kills = 500;
constexpr int Cards = 100;
const char* const File = "cards/words.QBC";

std::string TextOf(int version, int card, int side) {
  return std::to_string(version) + "/" + std::to_string(card) + "/" + std::to_string(side) +
         std::string(static_cast<std::size_t>(100 + version % 50), 'x');
}

/// What the file holds after save number `version`.
std::string ContentOf(int version) {
  std::string content = "Spanish\r\n" + std::string(64, ' ') + "\r\n";
  for (int card = 1; card <= Cards; ++card) {
    for (const int side : {Front, Back}) content += TextOf(version, card, side) + "  \r\n";
  }
  return content;
}

void SaveVersion(FaultWorld& world, int version) {
  CardStack& stack = world.stacks.Current();
  stack.CardCount = Cards;
  for (int card = 1; card <= Cards; ++card) {
    for (const int side : {Front, Back}) {
      stack.SetSideText(card, side, DecodeFileText(TextOf(version, card, side)));
    }
  }
  world.editor.emplace(world.stacks);
  EXPECT_EQ(world.SaveEdited("words.QBC"), FileStatus::Ok);
}

int VersionOnDisk(const FaultWorld& world) {
  const std::string content = world.OnDisk(File);
  const std::size_t start = content.find('\n', content.find('\n') + 1) + 1;
  return std::atoi(content.c_str() + start);
}

/// Has this process killed after a while.
void KillAfter(std::chrono::nanoseconds time) {
  sigevent event{};
  event.sigev_notify = SIGEV_SIGNAL;
  event.sigev_signo = SIGKILL;
  timer_t timer{};
  ASSERT_EQ(::timer_create(CLOCK_MONOTONIC, &event, &timer), 0);
  itimerspec when{};
  when.it_value.tv_sec = time.count() / 1'000'000'000;
  when.it_value.tv_nsec = time.count() % 1'000'000'000 + 1;
  ASSERT_EQ(::timer_settime(timer, 0, &when, nullptr), 0);
}

TEST(KilledSaves, LeaveTheOldOrTheNewFileAndDoNotDisturbTheNext) {
  FaultWorld world;
  world.stacks.Append();
  const auto start = std::chrono::steady_clock::now();
  constexpr int First = 5;
  for (int version = 1; version <= First; ++version) SaveVersion(world, version);
  const std::chrono::nanoseconds oneSave = (std::chrono::steady_clock::now() - start) / First;

  std::mt19937 random(1);  // the same moments in every run, as far as the machine allows
  std::uniform_int_distribution<std::chrono::nanoseconds::rep> moment(0, 3 * oneSave.count());
  int version = First;
  int unchanged = 0;
  for (int kill = 0; kill < Kills; ++kill) {
    const std::chrono::nanoseconds time(moment(random));
    const pid_t child = StartChild([&] {
      KillAfter(time);
      for (int next = version + 1;; ++next) SaveVersion(world, next);
    });
    ASSERT_EQ(KilledBy(child), SIGKILL);
    const int now = VersionOnDisk(world);
    ASSERT_EQ(world.OnDisk(File), ContentOf(now)) << "after kill " << kill;
    ASSERT_GE(now, version) << "a save was undone";
    unchanged += now == version ? 1 : 0;
    version = now;
  }
  const std::size_t left = world.Temporaries().size();
  std::cout << Kills << " kills during " << version - First << " whole saves; " << unchanged
            << " left the file as it was, " << left << " a temporary file\n";
  EXPECT_GT(left, 0U) << "no save was hit while it wrote";
  EXPECT_GT(unchanged, 0);
  EXPECT_LT(unchanged, Kills);

  world.stacks.Current()
      .Origin = {};  // others wrote the file, and the questions are not the matter
  SaveVersion(world, version + 1);
  EXPECT_EQ(world.OnDisk(File), ContentOf(version + 1));
  EXPECT_EQ(world.Temporaries().size(), left) << "somebody could still be writing them";
  for (const auto& entry : fs::directory_iterator(world.On("cards"))) {
    fs::last_write_time(entry.path(), fs::file_time_type::clock::now() - std::chrono::hours(2));
  }
  SaveVersion(world, version + 2);
  EXPECT_EQ(world.OnDisk(File), ContentOf(version + 2));
  EXPECT_EQ(world.Temporaries().size(), 0U);
}

}  // namespace
