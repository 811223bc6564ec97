// Clicks and types at random through all windows of the program, as a monkey would, and stops at
// the first thing that is not as it must be. The same seed makes the same choices.

#include "tests/monkey/Fence.h"
#include "tests/monkey/Monkey.h"
#include "tests/support/ScriptedRandom.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/ProgramApplication.h"
#include "windows/frame/QtText.h"
#include "windows/main/DesktopServices.h"
#include "windows/main/frmStartup.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QLocale>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int ExitSkipped = 77;
constexpr std::size_t FewestWindows = 8;  // a monkey that stays in fewer tests nothing

struct Options {
  unsigned seed = 1;
  int steps = 500;
  double minutes = 0;  ///< 0: as many steps as given
  bool verbose = false;
};

Journal* journal = nullptr;  // for what calls back without a place for it

/// What the platform says without the program's doing.
bool IsAllowed(const QString& message) {
  // The toolkit's own file dialog, which renames files without asking anybody.
  if (message.startsWith(QLatin1String("QAbstractItemView::"))) return true;
  if (message == QLatin1String("edit: index was invalid")) return true;  // "Rename" of nothing
  if (message.startsWith(QLatin1String("stat() failed for"))) return true;
  // The picture reader, about a file that it shows all the same.
  if (message.startsWith(QLatin1String("Corrupt JPEG data"))) return true;
  // The toolkit's page view remembers where a word was chosen on a page that is gone.
  if (message.startsWith(QLatin1String("QTextCursor::setPosition: Position"))) return true;
  // The platform without a display says so to every window.
  return message == QLatin1String("This plugin does not support propagateSizeHints()") ||
         message == QLatin1String("This plugin does not support raise()") ||
         message == QLatin1String("This plugin does not support grabbing the keyboard");
}

void TakeMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtDebugMsg || type == QtInfoMsg || IsAllowed(message)) return;
  if (journal != nullptr) journal->Fail(QStringLiteral("the toolkit warns: ") + message);
  std::fprintf(stderr, "%s\n", message.toUtf8().constData());
}

void Hang(int) { journal->Fail(QStringLiteral("a step does not end")); }

/// A fault that escaped from an event is told to the user; here it ends the run.
class FaultPrompts : public Prompts {
 public:
  Answer Show(const Prompt& prompt) override {
    journal->Fail(QStringLiteral("a fault escaped: ") + ToQString(prompt.text));
  }
};

/// Sounds take no time; what arrives meanwhile is handled as the real player would.
class InstantSound : public SoundPlayer {
 public:
  void Play(const Text&) override {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  void Stop() override {}
};

/// A home with sample stacks in it, and with files that are none.
class Home {
 public:
  Home() {
    const QDir samples(QStringLiteral(QUIB_SOURCE_DIR "/samples"));
    QDir(m_folder.path()).mkpath(QStringLiteral("Documents/more"));
    QDir(m_folder.path()).mkpath(QStringLiteral("tmp"));
    for (const char* const name :
         {"flags.QBC", "planets.QBC", "spanish-animals.QBC", "german-house.QBS", "perro.wav",
          "gato.wav", "denmark.gif", "sweden.jpg", "france.bmp"}) {
      QFile::copy(samples.filePath(QLatin1String(name)), Path(QLatin1String(name)));
    }
    Write(QStringLiteral("empty.QBC"), "");
    Write(QStringLiteral("nocards.QBC"), "General\r\nnothing\r\n");
    Write(QStringLiteral("odd.QBC"), "General\r\nodd\r\nfront\r\nback\r\nfront\r\n");
    Write(QStringLiteral("new topic.QBC"), "Klingon\r\nx\r\nqa' \xFF.wav x.gif\r\nb  \r\n");
    Write(QStringLiteral("torn.gif"), "GIF89a\x01");
    Write(QStringLiteral("noise.wav"), QByteArray(4000, '\x5A'));
    for (const char* const variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                                       "XDG_STATE_HOME", "XDG_RUNTIME_DIR"}) {
      qputenv(variable, m_folder.path().toUtf8());
    }
    qputenv("TMPDIR", (m_folder.path() + QStringLiteral("/tmp")).toUtf8());
    qputenv("XDG_DOCUMENTS_DIR", Path(QString()).toUtf8());
  }

  bool IsReady() const { return m_folder.isValid(); }
  QDir Folder() const { return QDir(m_folder.path()); }
  QString Documents() const { return m_folder.filePath(QStringLiteral("Documents")); }

  std::vector<QString> Names() const {
    std::vector<QString> names;
    for (const QString& name : QDir(Documents()).entryList(QDir::Files, QDir::Name)) {
      names.push_back(name);
      names.push_back(Path(name));
    }
    names.push_back(QStringLiteral("mine.QBC"));
    names.push_back(QStringLiteral("other"));
    return names;
  }

 private:
  QString Path(const QString& name) const { return Documents() + QLatin1Char('/') + name; }

  void Write(const QString& name, const QByteArray& content) const {
    QFile file(Path(name));
    if (file.open(QIODevice::WriteOnly)) file.write(content);
  }

  QTemporaryDir m_folder;
};

/// One life of the program, from its splash to its end.
void RunProgram(const Home& home, Dice& dice, ProgramApplication& application,
                const std::function<bool()>& isOver) {
  DesktopServices services;
  const Platform& desktop = services.platform;
  InstantSound sound;
  Platform platform{
      desktop.prompts,
      desktop.files,
      desktop.profile,
      desktop.help,
      sound,
      [&dice] { return std::make_unique<SeededRandom>(static_cast<unsigned>(dice.Below(1000))); },
      desktop.state};
  FaultPrompts faults;
  application.SetPrompts(faults);
  SharedState shared;
  shared.Switches.DefaultFolder = ToText(home.Documents());
  Hands hands(dice, *journal, home.Names());
  Checks checks(shared, home.Folder(),
                home.Folder().filePath(QStringLiteral("quibcards/QUIBCRDS.INI")));
  frmStartup splash(shared, platform);
  Monkey monkey(dice, *journal, hands, checks, isOver);
  monkey.Begin();  // before the program does: it may ask something at once
  splash.Run(ToText(dice.OneOf(home.Names())), 0);
  QApplication::exec();
  ::alarm(0);
}

Options Parse(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string_view name = argv[i];
    const char* const value = i + 1 < argc ? argv[i + 1] : "0";
    if (name == "--seed") options.seed = static_cast<unsigned>(std::strtoul(value, nullptr, 10));
    if (name == "--steps") options.steps = std::atoi(value);
    if (name == "--minutes") options.minutes = std::atof(value);
    if (name == "--verbose") options.verbose = true;
  }
  return options;
}

void Report(const Options& options, int lives) {
  std::printf("seed %u: %d steps, %d lives of the program\n", options.seed, journal->Steps(),
              lives);
  for (const auto& [window, steps] : journal->Windows()) {
    std::printf("  %7d  %s\n", steps, window.toUtf8().constData());
  }
}

}  // namespace

int Run(const Home& home, int argc, char** argv) {
  const Options options = Parse(argc, argv);
  if (!AllowWritingOnlyBelow(home.Folder().path().toStdString())) {
    std::fprintf(stderr, "monkey: not run, this system cannot fence it in\n");
    return ExitSkipped;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QLocale::setDefault(QLocale::c());
  ProgramApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(true);
  QApplication::setCursorFlashTime(0);
  RegisterFontSubstitutes();

  Journal pages(options.seed, options.verbose);
  journal = &pages;
  std::signal(SIGALRM, Hang);
  qInstallMessageHandler(TakeMessage);
  Dice dice(options.seed);
  QElapsedTimer clock;
  clock.start();
  const auto isOver = [&] {
    return options.minutes > 0 ? static_cast<double>(clock.elapsed()) > options.minutes * 60'000
                               : pages.Steps() >= options.steps;
  };
  int lives = 0;
  for (; !isOver(); ++lives) RunProgram(home, dice, application, isOver);
  Report(options, lives);
  qInstallMessageHandler(nullptr);
  if (options.steps >= 500 && pages.Windows().size() < FewestWindows) {
    std::fprintf(stderr, "monkey: it saw too few windows to tell anything\n");
    return 1;
  }
  return 0;
}

// The monkey runs in a process of its own: from behind its fence the folder cannot be removed.
int main(int argc, char** argv) {
  const Home home;
  if (!home.IsReady()) return 1;
  const pid_t monkey = ::fork();
  if (monkey < 0) return 1;
  if (monkey == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::exit(Run(home, argc, argv));
  }
  int status = 0;
  ::waitpid(monkey, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
