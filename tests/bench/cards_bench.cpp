#include "base/CodePage.h"
#include "base/DiskFiles.h"
#include "cards/SideLine.h"
#include "cards/StackReader.h"
#include "cards/StackWriter.h"
#include "tests/support/MemoryFiles.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

namespace {

/// No prompt belongs to these paths.
class NoPrompts : public Prompts {
 public:
  Answer Show(const Prompt&) override { std::abort(); }
};

const Text SampleFolder = FromUtf8(QUIB_SOURCE_DIR "/samples/");
constexpr auto SampleName = u"spanish-300-words.QBC";

Int16 AnyTopic(const Text&) { return 0; }

FileStatus ReadSample(StackStore& stacks, Files& files) {
  NoPrompts prompts;
  return ReadStackFile(stacks, files, prompts, SampleFolder, SampleName, ReadMode::Full, AnyTopic);
}

void ReadStackOf300Cards(benchmark::State& state) {
  DiskFiles files(u"");
  for (auto _ : state) {
    StackStore stacks;
    if (ReadSample(stacks, files) != FileStatus::Ok) state.SkipWithError("cannot read");
  }
}
BENCHMARK(ReadStackOf300Cards)->Unit(benchmark::kMicrosecond);

/// Time and memory for many stacks: bytes in use, in multiples of the files' size.
void ReadManyStacks(benchmark::State& state) {
  DiskFiles disk(u"");
  MemoryFiles files;
  std::string content;
  if (disk.Read(SampleFolder + SampleName, content) != FileStatus::Ok) std::abort();
  const auto fileSize = static_cast<double>(content.size());
  files.Put(SampleFolder + SampleName, content);
  double used = 0;
  for (auto _ : state) {
    StackStore stacks;
    const auto before = static_cast<double>(mallinfo2().uordblks);
    for (int i = 0; i < state.range(0); ++i) {
      if (ReadSample(stacks, files) != FileStatus::Ok) state.SkipWithError("cannot read");
    }
    used = static_cast<double>(mallinfo2().uordblks) - before;
  }
  state.counters["memory_per_file_size"] = used / static_cast<double>(state.range(0)) / fileSize;
  state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadManyStacks)
    ->RangeMultiplier(10)
    ->Range(10, 1000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

void WriteStackOf300Cards(benchmark::State& state) {
  DiskFiles disk(u"");
  MemoryFiles files;
  NoPrompts prompts;
  for (auto _ : state) {
    state.PauseTiming();
    StackStore stacks;
    if (ReadSample(stacks, disk) != FileStatus::Ok) state.SkipWithError("cannot read");
    (void)files.Remove(u"/out.QBC");
    state.ResumeTiming();
    if (WriteStackFile(stacks, files, prompts, u"/", u"out.QBC", FileDialogMode::SaveNew,
                       u"Spanish") != FileStatus::Ok) {
      state.SkipWithError("cannot write");
    }
  }
}
BENCHMARK(WriteStackOf300Cards)->Unit(benchmark::kMicrosecond);

/// The same onto a real disk, flush included.
void WriteStackOf300CardsToDisk(benchmark::State& state) {
  DiskFiles disk(u"");
  NoPrompts prompts;
  for (auto _ : state) {
    state.PauseTiming();
    StackStore stacks;
    if (ReadSample(stacks, disk) != FileStatus::Ok) state.SkipWithError("cannot read");
    (void)disk.Remove(u"bench-out.QBC");
    state.ResumeTiming();
    if (WriteStackFile(stacks, disk, prompts, u"", u"bench-out.QBC", FileDialogMode::SaveNew,
                       u"Spanish") != FileStatus::Ok) {
      state.SkipWithError("cannot write");
    }
  }
  (void)disk.Remove(u"bench-out.QBC");
}
BENCHMARK(WriteStackOf300CardsToDisk)->Unit(benchmark::kMicrosecond);

/// Doubling carets one by one would take time in the square of the length.
void EncodeSideLineWithACaret(benchmark::State& state) {
  for (auto _ : state) {
    Text text = u"a^b";
    Text line;
    benchmark::DoNotOptimize(EncodeSideLine(text, u"", u"", line));
  }
}
BENCHMARK(EncodeSideLineWithACaret);

}  // namespace
