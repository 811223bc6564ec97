// Uses the program for a long time in one go and watches its memory: study steps with pictures and
// sounds, windows opened and closed, stacks loaded and removed. Ends with status 1 when the heap
// keeps growing.

#include "base/DiskFiles.h"
#include "base/Paths.h"
#include "cards/StackFileOperations.h"
#include "tests/soak/Memory.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/ScriptedRandom.h"
#include "windows/authoring/frmCreate.h"
#include "windows/authoring/frmEdit.h"
#include "windows/authoring/frmFind.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/ProgramApplication.h"
#include "windows/frame/QtText.h"
#include "windows/help/DesktopHelp.h"
#include "windows/help/frmHelp.h"
#include "windows/keys/frmAddKey.h"
#include "windows/keys/frmKeys.h"
#include "windows/keys/frmMoreKeys.h"
#include "windows/main/frmAboutBox.h"
#include "windows/main/frmMain.h"
#include "windows/main/frmStartup.h"
#include "windows/printing/frmPrint.h"
#include "windows/stacks/frmDesc.h"
#include "windows/stacks/frmLoad.h"
#include "windows/study/DesktopSound.h"
#include "windows/study/frmStepper.h"
#include "windows/study/frmTime.h"
#include "windows/topics/frmConfig.h"

#include <QAbstractButton>
#include <QLocale>
#include <QTemporaryDir>

#include <cstdlib>
#include <functional>

namespace {

// What may come and go with the toolkit's caches (glyphs, pixmaps, styles) without being a leak: a
// lost window or stack for each repetition is a hundred times as much.
constexpr long AllowedGrowth = 192 * 1024;

/// Goes on wherever it can, and saves nothing.
class SoakPrompts : public Prompts {
 public:
  Answer Show(const Prompt& prompt) override {
    if (prompt.buttons == PromptButtons::Ok) return Answer::Ok;
    const bool restart = prompt.text.starts_with(u"No more cards");
    return restart ? Answer::Yes : Answer::No;
  }
};

/// Hears what is played, for a run in which nothing would be heard.
class CountingSound : public SoundPlayer {
 public:
  void Play(const Text& file) override {
    ++m_played;
    m_sound.Play(file);
  }
  void Stop() override { m_sound.Stop(); }
  int Played() const { return m_played; }

 private:
  DesktopSound m_sound;
  int m_played = 0;
};

class Soak {
 public:
  explicit Soak(const Text& settingsFolder)
      : m_files(settingsFolder),
        m_profile(m_files, settingsFolder + u"/QUIBCRDS.INI"),
        m_state(m_files, settingsFolder + u"/state") {
    InitSettings(m_profile);
    m_profile.WriteString(TopicsSection, u"1", u"Spanish");
    LoadTopicList(m_shared.Topics, m_profile);
    m_shared.Switches.DefaultFolder = m_samples;
    SelectTopic(m_shared.Topics, m_shared.Topic, m_profile, 0);
    MakeWindows();
  }

  /// @return false when the heap kept growing
  bool Study(int steps) {
    Load(u"spanish-animals.QBC");
    Load(u"flags.QBC");
    Table table("study steps", steps);
    constexpr int StepsInOneWindow = 50;
    frmStepper* window = nullptr;
    for (int step = 1; step <= steps; ++step) {
      if (window == nullptr) window = &OpenStudy(step / StepsInOneWindow);
      NextStep(*window);
      if (step % StepsInOneWindow == 0) {
        Close(*window);
        window = nullptr;
      }
      table.Done(step);
    }
    if (window != nullptr) Close(*window);
    std::printf("%d sounds played, %d pictures shown\n", m_sound.Played(), m_pictures);
    return m_sound.Played() > 0 && m_pictures > 0 && IsFlat(table);
  }

  bool OpenWindows(int count) {
    Table table("windows", count);
    for (int i = 1; i <= count; ++i) {
      auto& [name, open, held] = m_windows[static_cast<std::size_t>(i) % m_windows.size()];
      const auto before = static_cast<long>(MemoryNow().heap);
      open();
      HandleEvents();
      held = static_cast<long>(MemoryNow().heap) - before;
      table.Done(i);
    }
    std::printf("%zu kinds of window; bytes that the last one of a kind left behind:",
                m_windows.size());
    for (const Kind& kind : m_windows) std::printf(" %s %ld", kind.name, kind.held);
    std::printf("\n");
    return IsFlat(table);
  }

  bool LoadStacks(int count) {
    while (m_shared.Stacks.StackCount >= 0) m_shared.Stacks.RemoveCurrentStack();
    constexpr std::array Names = {TextView(u"flags.QBC"), TextView(u"spanish-300-words.QBC"),
                                  TextView(u"russian-first-words.QBC"),
                                  TextView(u"german-house.QBS"), TextView(u"french-verbs.QBC")};
    Table table("stacks", count);
    for (int i = 1; i <= count; ++i) {
      Load(Names.at(static_cast<std::size_t>(i) % Names.size()));
      if (i % 4 == 0) {
        while (m_shared.Stacks.StackCount >= 0) m_shared.Stacks.RemoveCurrentStack();
      }
      table.Done(i);
    }
    return IsFlat(table);
  }

 private:
  static bool IsFlat(const Table& table) {
    const long growth = table.Growth();
    std::printf("heap growth from half way to the end: %ld bytes (allowed %ld)\n\n", growth,
                AllowedGrowth);
    return growth <= AllowedGrowth;
  }

  static void HandleEvents() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void Load(TextView fileName) {
    const FileStatus status = LoadStack(
        m_shared.Stacks, m_files, m_prompts, m_samples, fileName, [this](const Text& name) {
          return ResolveFileTopic(name, m_shared.Topics, m_prompts, {});
        });
    if (status != FileStatus::Ok) throw std::runtime_error("cannot load a sample stack");
  }

  static void Show(QWidget& window) {
    window.show();
    HandleEvents();
    window.close();
  }

  static void Close(QWidget& window) {
    window.close();
    HandleEvents();
  }

  frmStepper& OpenStudy(int number) {
    m_shared.Stacks.CurrentStack = number % 2;
    m_shared.Switches.StudyMode = static_cast<StudyMode>(number / 2 % 4);
    m_shared.Timer = TimerSettings();
    frmStepper& window = m_studyWindows.Open();
    HandleEvents();
    return window;
  }

  void NextStep(frmStepper& window) {
    const auto button = [&](const char* name) {
      return window.findChild<QAbstractButton*>(QLatin1String(name));
    };
    QAbstractButton* const next = button("cmdNext");
    (next->isEnabled() ? next : button("optChoice(1)"))->click();
    HandleEvents();
    auto* const picture = window.findChild<QWidget*>(QStringLiteral("picTop"));
    if (picture->isVisible()) ++m_pictures;
  }

  struct Kind {
    const char* name;
    std::function<void()> open;
    long held = 0;  ///< bytes that the last one left behind when it was gone
  };

  template <class Window, class... Arguments>
  void Add(const char* name, Arguments... arguments) {
    Add(name, [this, arguments...] {
      Window window(m_shared, m_platform, arguments...);
      Show(window);
    });
  }

  void Add(const char* name, std::function<void()> open) {
    m_windows.push_back({name, std::move(open)});
  }

  void MakeWindows() {
    Add<frmStartup>("frmStartup");
    Add("frmMain", [this] {
      frmMain window(m_shared, m_platform, Text(), nullptr);
      Show(window);
    });
    QWidget* const noOwner = nullptr;
    Add<frmAboutBox>("frmAboutBox", noOwner);
    Add<frmTime>("frmTime", noOwner);
    Add<frmDesc>("frmDesc", noOwner);
    Add<frmConfig>("frmConfig", noOwner);
    Add<frmAddKey>("frmAddKey", noOwner);
    for (const FileDialogMode mode : {FileDialogMode::Load, FileDialogMode::SaveEdited}) {
      Add("frmLoad", [this, mode] {
        m_shared.Switches.FileDialogMode = mode;
        frmLoad window(m_shared, m_platform, nullptr);
        Show(window);
      });
    }
    for (const bool printing : {true, false}) {
      Add("frmPrint", [this, printing] {
        m_shared.Switches.PrintMode = printing;
        frmPrint window(m_shared, m_platform, nullptr);
        Show(window);
      });
    }
    Add("frmKeys", [this] {
      frmKeys window(m_shared, m_platform, nullptr, m_shared.Topic);
      Show(window);
    });
    Add("frmMoreKeys", [this] {
      frmMoreKeys window(m_shared, m_platform, nullptr, m_shared.Topic.Fonts);
      Show(window);
    });
    Add("frmEdit", [this] {
      frmFind find(m_shared, m_platform, nullptr);
      frmEdit window(m_shared, m_platform, nullptr, find);
      Show(window);
    });
    Add<frmCreate>("frmCreate", noOwner);
    Add("frmHelp", [this] {
      DesktopHelp help(m_prompts, m_state, {ToText(QStringLiteral(QUIB_HELP_FILE))});
      help.Show(HelpContext::Overview);
      Show(*help.Viewer());
    });
    for (int mode = 0; mode < 4; ++mode) {
      Add("frmStepper", [this, mode] { Close(OpenStudy(2 * mode)); });
    }
  }

  Text m_samples = u"" QUIB_SOURCE_DIR "/samples/";
  int m_pictures = 0;
  SoakPrompts m_prompts;
  DiskFiles m_files;
  ProfileFile m_profile;
  CountingSound m_sound;
  RememberedState m_state;
  DesktopHelp m_help{m_prompts, m_state, {}};
  SharedState m_shared;
  Platform m_platform{m_prompts, m_files, m_profile,
                      m_help,    m_sound, [] { return std::make_unique<SeededRandom>(1); },
                      m_state};
  StudyWindows m_studyWindows{m_shared, m_platform};
  std::vector<Kind> m_windows;
};

/// The platform and the sound device without a device have nothing to say that concerns us.
void DropMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

int NumberAt(int argc, char** argv, int index, int otherwise) {
  return index < argc ? std::atoi(argv[index]) : otherwise;
}

}  // namespace

// soak [STEPS [WINDOWS [STACKS]]]
int main(int argc, char** argv) {
  // The sound device is a file that takes everything at once.
  qputenv("SDL_AUDIODRIVER", "disk");
  qputenv("SDL_DISKAUDIOFILE", "/dev/null");
  qputenv("SDL_DISKAUDIODELAY", "0");
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QTemporaryDir folder;
  if (!folder.isValid()) return 1;
  qputenv("HOME", folder.path().toUtf8());
  QLocale::setDefault(QLocale::c());
  qInstallMessageHandler(DropMessage);

  ProgramApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  RegisterFontSubstitutes();
  Soak soak(ToText(folder.path()));
  const bool study = soak.Study(NumberAt(argc, argv, 1, 10'000));
  const bool windows = soak.OpenWindows(NumberAt(argc, argv, 2, 1'000));
  const bool stacks = soak.LoadStacks(NumberAt(argc, argv, 3, 2'000));
  return study && windows && stacks ? 0 : 1;
}
