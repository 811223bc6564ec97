#include "tests/faults/Scenario.h"

#include "tests/support/SystemFaults.h"
#include "tests/support/TextPrinters.h"

#include <algorithm>
#include <cstring>

namespace {

using Disk = std::map<std::string, std::string>;

/// What was there before, and after it went well.
struct Reference {
  Disk oldDisk;
  Disk newDisk;
  std::string oldMemory;
  std::string newMemory;
  std::size_t questions = 0;
  std::vector<SystemCall> calls;
};

Reference RunWell(const Scenario& scenario) {
  Reference reference;
  FaultWorld world;
  scenario.prepare(world);
  reference.oldDisk = world.Disk();
  reference.oldMemory = world.Memory();
  reference.calls = CallsOf([&] {
    EXPECT_EQ(scenario.act(world).value_or(FileStatus::Ok), FileStatus::Ok) << scenario.name;
  });
  reference.newDisk = world.Disk();
  reference.newMemory = world.Memory();
  reference.questions = world.prompts.shown.size();
  EXPECT_TRUE(world.Temporaries().empty());
  return reference;
}

std::string Describe(const Scenario& scenario, std::size_t at, SystemCall call,
                     const SystemFault& fault) {
  std::string text =
      scenario.name + ", call " + std::to_string(at) + " (" + std::string(NameOf(call)) + "): ";
  if (fault.kind == SystemFault::Kind::Short) text += "half of it";
  if (fault.kind == SystemFault::Kind::Nothing) text += "nothing";
  if (fault.kind == SystemFault::Kind::Error) text += std::strerror(fault.errorNumber);
  return text + (fault.lasting ? ", from then on" : "");
}

/// True where a torn file may be left because both contents lie beside it.
bool AreBothSafe(const Reference& reference, const FaultWorld& world) {
  const std::vector<std::string> copies = world.Temporaries();
  for (const auto& [name, content] : reference.oldDisk) {
    const auto changed = reference.newDisk.find(name);
    if (changed == reference.newDisk.end() || changed->second == content) continue;
    if (std::count(copies.begin(), copies.end(), content) == 0) return false;
    if (std::count(copies.begin(), copies.end(), changed->second) == 0) return false;
  }
  return true;
}

void CheckCase(const Scenario& scenario, const Reference& reference, std::size_t at,
               const SystemFault& fault) {
  FaultWorld world;
  scenario.prepare(world);
  const std::size_t handles = OpenHandles();
  std::optional<FileStatus> told;
  RunWithFault(at, fault, [&] { told = scenario.act(world); });
  EXPECT_EQ(OpenHandles(), handles);

  const Disk disk = world.Disk();
  const bool isTorn = scenario.inPlace && told.value_or(FileStatus::Ok) != FileStatus::Ok &&
                      disk != reference.oldDisk && disk != reference.newDisk;
  if (isTorn) {
    EXPECT_TRUE(AreBothSafe(reference, world)) << "torn, and a content is lost";
    EXPECT_EQ(world.stacks.Saves.rescueFolder, world.PathOf("safe")) << "and nobody is told";
  } else if (!told) {
    EXPECT_TRUE(disk == reference.oldDisk || disk == reference.newDisk);
  } else {
    EXPECT_EQ(disk, *told == FileStatus::Ok ? reference.newDisk : reference.oldDisk);
  }
  const bool isDone = told.value_or(FileStatus::Ok) == FileStatus::Ok;
  EXPECT_EQ(world.Memory(), isDone ? reference.newMemory : reference.oldMemory);
  if (isDone) {
    EXPECT_EQ(world.prompts.shown.size(), reference.questions) << "a question was left out";
  }
  if (IsHarmless(fault)) {
    EXPECT_EQ(told.value_or(FileStatus::Ok), FileStatus::Ok);
    EXPECT_EQ(disk, reference.newDisk);
  }
  const bool removingFailed = reference.calls[at] == SystemCall::Remove;
  const bool mayKeepCopies = scenario.inPlace && !isDone && fault.lasting;
  if (!removingFailed && !(mayKeepCopies && AreBothSafe(reference, world))) {
    EXPECT_EQ(world.Temporaries().size(), 0U);
  }

  if (!isDone || (!told && disk == reference.oldDisk)) {
    EXPECT_EQ(scenario.act(world).value_or(FileStatus::Ok), FileStatus::Ok) << "the next attempt";
    EXPECT_EQ(world.Disk(), reference.newDisk);
    EXPECT_EQ(world.Memory(), reference.newMemory);
  }
  EXPECT_EQ(OpenHandles(), handles);
}

}  // namespace

std::size_t CheckEveryFault(const Scenario& scenario) {
  constexpr int MostFailures = 10;  // the rest would say the same
  const Reference reference = RunWell(scenario);
  std::size_t cases = 0;
  int failures = 0;
  for (std::size_t at = 0; at < reference.calls.size(); ++at) {
    for (const SystemFault& fault : FaultsOf(reference.calls[at])) {
      ++cases;
      const auto* const result = testing::UnitTest::GetInstance()->current_test_info()->result();
      const int before = result->total_part_count();
      SCOPED_TRACE(Describe(scenario, at, reference.calls[at], fault));
      CheckCase(scenario, reference, at, fault);
      if (result->total_part_count() != before && ++failures == MostFailures) return cases;
    }
  }
  return cases;
}
