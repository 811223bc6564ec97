#include "tests/support/QuietProgram.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/ProgramApplication.h"
#include "windows/frame/QtText.h"
#include "windows/study/PictureBox.h"
#include "windows/study/StudyWindows.h"
#include "windows/study/frmStepper.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPushButton>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

/// Registers the benchmarks of opening each window; they need an application.
void RegisterOpenings();

namespace {

/// A study window on a stack of 300 cards, each with a picture file of its own (all alike) or with
/// none.
class StudyBench : QuietProgram {
 public:
  // "Restart?" at the end of a pass
  explicit StudyBench(const QString& picture) : QuietProgram(Answer::Yes) {
    CardStack& stack = shared.Stacks.Append();
    for (int card = 1; card <= MaxCards; ++card) {
      stack.SetSideText(card, Front, u"front " + NumberText(card));
      stack.SetSideText(card, Back, u"back " + NumberText(card));
      if (picture.isEmpty()) continue;
      const QString link = folder.filePath(QStringLiteral("%1.jpg").arg(card));
      QFile::link(picture, link);
      stack.SetSidePicture(card, Front, ToText(link));
    }
    stack.CardCount = MaxCards;
    window = &windows.Open();
    next = window->findChild<QPushButton*>("cmdNext");
    QApplication::processEvents();
  }

  /// Presses Next and paints what it shows.
  void Next() {
    next->click();
    window->repaint();
    QApplication::sendPostedEvents();
    QApplication::processEvents();
  }

  /// The same, until the picture is there.
  void NextToPicture() {
    next->click();
    window->findChild<PictureBox*>("picTop")->WaitUntilLoaded();
    window->repaint();
  }

  /// Times the question's Next alone; the answer's is pressed in between.
  void Run(benchmark::State& timing, void (StudyBench::*press)() = &StudyBench::Next) {
    for (auto _ : timing) {
      (this->*press)();
      timing.PauseTiming();
      Next();
      timing.ResumeTiming();
    }
  }

  QTemporaryDir folder;
  StudyWindows windows{shared, platform};
  frmStepper* window = nullptr;
  QPushButton* next = nullptr;
};

void NextToPainted(benchmark::State& state) {
  StudyBench bench{QString()};
  bench.Run(state);
}
BENCHMARK(NextToPainted)->Unit(benchmark::kMicrosecond);

void NextToPaintedWithSamplePicture(benchmark::State& state) {
  const QDir samples(QUIB_SOURCE_DIR "/samples");
  StudyBench bench{samples.filePath(samples.entryList({"*.jpg"}).value(0))};
  bench.Run(state);
}
BENCHMARK(NextToPaintedWithSamplePicture)->Unit(benchmark::kMicrosecond);

/// The hard case: a photograph of 12 megapixels on every card.
QString WritePhotograph(const QTemporaryDir& folder) {
  QImage photograph(4000, 3000, QImage::Format_RGB32);
  for (int y = 0; y < photograph.height(); ++y) {
    for (int x = 0; x < photograph.width(); ++x) {
      photograph.setPixel(x, y, qRgb(x * y % 256, (x + y) % 256, (x ^ y) % 256));
    }
  }
  const QString path = folder.filePath("photograph.jpg");
  photograph.save(path, "JPG", 85);
  return path;
}

/// The text is painted; the photograph follows.
void NextToPaintedWithPhotograph(benchmark::State& state) {
  const QTemporaryDir folder;
  StudyBench bench{WritePhotograph(folder)};
  bench.Run(state);
}
BENCHMARK(NextToPaintedWithPhotograph)->Unit(benchmark::kMillisecond);

void NextToThePhotographItself(benchmark::State& state) {
  const QTemporaryDir folder;
  StudyBench bench{WritePhotograph(folder)};
  bench.Run(state, &StudyBench::NextToPicture);
}
BENCHMARK(NextToThePhotographItself)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  ProgramApplication application(argc, argv);
  RegisterFontSubstitutes();
  RegisterOpenings();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
