#include "base/CodePage.h"
#include "base/DiskFiles.h"
#include "cards/StackFileOperations.h"
#include "tests/support/SilentServices.h"
#include "windows/frame/QtText.h"
#include "windows/printing/StackPrinter.h"

#include <QBuffer>
#include <QDir>
#include <QPdfWriter>

#include <benchmark/benchmark.h>

namespace {

const PrintSettings Settings{
    .front = {u"DejaVu Serif", 12}, .back = {u"DejaVu Sans", 12}, .margin = 5};

const CardStack& SampleOf300Cards(StackStore& stacks, Files& files) {
  AnsweringPrompts prompts(Answer::No);
  const FileStatus status = LoadStack(stacks, files, prompts, FromUtf8(QUIB_SOURCE_DIR "/samples/"),
                                      u"spanish-300-words.QBC", [](const Text&) { return 0; });
  if (status != FileStatus::Ok) std::abort();
  return stacks.Current();
}

/// With the widths of real fonts.
void LayOut300Cards(benchmark::State& state) {
  StackStore stacks;
  DiskFiles files(u"");
  const CardStack& stack = SampleOf300Cards(stacks, files);
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  DeviceMeasure measure(writer);
  for (auto _ : state) {
    std::vector<PrintedText> pages;
    const FileStatus status = PrintStack(
        stack, Settings, measure, [](int) { return true; }, pages);
    if (status != FileStatus::Ok || pages.empty()) state.SkipWithError("cannot lay out");
  }
}
BENCHMARK(LayOut300Cards)->Unit(benchmark::kMillisecond);

void Print300CardsToPdf(benchmark::State& state) {
  StackStore stacks;
  DiskFiles files(u"");
  const CardStack& stack = SampleOf300Cards(stacks, files);
  const Text path = ToText(QDir::temp().filePath(QStringLiteral("quibcards-bench.pdf")));
  for (auto _ : state) {
    if (PrintToPdf(files, path, stack, Settings, [](int) { return true; }) != FileStatus::Ok) {
      state.SkipWithError("cannot print");
    }
  }
  (void)files.Remove(path);
}
BENCHMARK(Print300CardsToPdf)->Unit(benchmark::kMillisecond);

}  // namespace
