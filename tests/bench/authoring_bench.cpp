#include "authoring/CardSearch.h"
#include "base/CodePage.h"
#include "base/DiskFiles.h"
#include "cards/StackReader.h"
#include "tests/support/SilentServices.h"

#include <benchmark/benchmark.h>

namespace {

/// The longest search there is: of a text that no card has.
void SearchIn300Cards(benchmark::State& state) {
  StackStore stacks;
  DiskFiles files(u"");
  AnsweringPrompts prompts(Answer::No);
  const FileStatus status =
      ReadStackFile(stacks, files, prompts, FromUtf8(QUIB_SOURCE_DIR "/samples/"),
                    u"spanish-300-words.QBC", ReadMode::Full, [](const Text&) { return 0; });
  if (status != FileStatus::Ok) std::abort();
  const SearchSettings settings{.text = u"xyzzy", .caseBox = state.range(0) != 0};
  for (auto _ : state) benchmark::DoNotOptimize(FindNext(stacks.Current(), settings, 0));
}
BENCHMARK(SearchIn300Cards)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace
