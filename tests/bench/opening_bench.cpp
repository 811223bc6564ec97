// How long each window takes from the command that opens it until it is painted.

#include "base/CodePage.h"
#include "cards/StackFileOperations.h"
#include "tests/support/QuietProgram.h"
#include "windows/authoring/frmCreate.h"
#include "windows/authoring/frmEdit.h"
#include "windows/authoring/frmFind.h"
#include "windows/frame/QtText.h"
#include "windows/help/DesktopHelp.h"
#include "windows/help/frmHelp.h"
#include "windows/keys/frmAddKey.h"
#include "windows/keys/frmKeys.h"
#include "windows/keys/frmMoreKeys.h"
#include "windows/main/frmAboutBox.h"
#include "windows/main/frmMain.h"
#include "windows/printing/frmPrint.h"
#include "windows/stacks/frmDesc.h"
#include "windows/stacks/frmLoad.h"
#include "windows/study/StudyWindows.h"
#include "windows/study/frmStepper.h"
#include "windows/study/frmTime.h"
#include "windows/topics/frmConfig.h"

#include <QApplication>
#include <QDir>

#include <benchmark/benchmark.h>

namespace {

/// The program with a stack of 300 cards loaded.
struct World : QuietProgram {
  World() : QuietProgram(Answer::No) {
    const Text samples = FromUtf8(QUIB_SOURCE_DIR "/samples/");
    shared.Switches.DefaultFolder = samples;
    const FileStatus status = LoadStack(shared.Stacks, files, prompts, samples,
                                        u"spanish-300-words.QBC", [](const Text&) { return 0; });
    if (status != FileStatus::Ok) std::abort();
  }
};

void Paint(QWidget& window) {
  window.show();
  QApplication::processEvents();
  window.repaint();
  QApplication::processEvents();
}

/// Times making and painting a window; its end is not timed.
template <class Make>
void Open(benchmark::State& state, Make make) {
  World world;
  for (auto _ : state) {
    auto window = make(world);
    Paint(*window);
    state.PauseTiming();
    window.reset();
    QApplication::processEvents();
    state.ResumeTiming();
  }
}

template <class Window>
std::unique_ptr<Window> Plain(World& world) {
  return std::make_unique<Window>(world.shared, world.platform, nullptr);
}

void OpenStudy(benchmark::State& state, StudyMode mode) {
  World world;
  world.shared.Switches.StudyMode = mode;
  for (auto _ : state) {
    StudyWindows windows(world.shared, world.platform);
    frmStepper& window = windows.Open();
    Paint(window);
    state.PauseTiming();
    window.close();
    QApplication::processEvents();
    state.ResumeTiming();
  }
}

/// The editor and the find window, which lives as long as the editor.
struct Editing {
  explicit Editing(World& world)
      : find(world.shared, world.platform, nullptr),
        window(world.shared, world.platform, nullptr, find) {}
  frmFind find;
  frmEdit window;
};

void OpenEditor(benchmark::State& state) {
  World world;
  for (auto _ : state) {
    Editing editing(world);
    Paint(editing.window);
    state.PauseTiming();
    editing.window.hide();
    QApplication::processEvents();
    state.ResumeTiming();
  }
}

/// Opens the help file as well, as the first F1 does.
void OpenHelp(benchmark::State& state) {
  World world;
  const Text program = ToText(QCoreApplication::applicationDirPath());
  for (auto _ : state) {
    DesktopHelp help(world.prompts, world.state, HelpFilePlaces(program + u"/../../bin"));
    help.Show(HelpContext::MainMenu);
    if (help.Viewer() == nullptr) std::abort();
    Paint(*help.Viewer());
  }
}

template <class Make>
void Register(const char* name, Make make) {
  benchmark::RegisterBenchmark(name, [make](benchmark::State& state) {
    Open(state, make);
  })->Unit(benchmark::kMillisecond);
}

}  // namespace

void RegisterOpenings() {
  Register("Open/frmMain", [](World& world) {
    return std::make_unique<frmMain>(world.shared, world.platform, Text(), nullptr);
  });
  Register("Open/frmAboutBox", Plain<frmAboutBox>);
  Register("Open/frmLoad", Plain<frmLoad>);
  Register("Open/frmConfig", Plain<frmConfig>);
  Register("Open/frmPrint", Plain<frmPrint>);
  Register("Open/frmTime", Plain<frmTime>);
  Register("Open/frmCreate", Plain<frmCreate>);
  Register("Open/frmFind", Plain<frmFind>);
  Register("Open/frmDesc", Plain<frmDesc>);
  Register("Open/frmAddKey", Plain<frmAddKey>);
  Register("Open/frmKeys", [](World& world) {
    return std::make_unique<frmKeys>(world.shared, world.platform, nullptr, world.shared.Topic);
  });
  Register("Open/frmMoreKeys", [](World& world) {
    return std::make_unique<frmMoreKeys>(world.shared, world.platform, nullptr,
                                         world.shared.Topic.Fonts);
  });
  for (const auto& [mode, name] : {std::pair{StudyMode::Stepper, "Open/frmStepper/Stepper"},
                                   {StudyMode::Quibber, "Open/frmStepper/Quibber"},
                                   {StudyMode::Speller, "Open/frmStepper/Speller"},
                                   {StudyMode::Chooser, "Open/frmStepper/Chooser"}}) {
    benchmark::RegisterBenchmark(name, [mode = mode](benchmark::State& state) {
      OpenStudy(state, mode);
    })->Unit(benchmark::kMillisecond);
  }
  benchmark::RegisterBenchmark("Open/frmEdit", OpenEditor)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("Open/frmHelp", OpenHelp)->Unit(benchmark::kMillisecond);
}
