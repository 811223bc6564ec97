// Opens every window in its states, without a display, and leaves a picture of each in a folder:
// for looking at, not for checking by program.

#include "authoring/frmCreate.h"
#include "authoring/frmDesc.h"
#include "authoring/frmEdit.h"
#include "authoring/frmFind.h"
#include "base/DiskFiles.h"
#include "base/Paths.h"
#include "base/QtText.h"
#include "cards/StackFileOperations.h"
#include "cards/frmLoad.h"
#include "keys/frmAddKey.h"
#include "keys/frmKeys.h"
#include "keys/frmMoreKeys.h"
#include "printing/frmPrint.h"
#include "settings/DisplayFont.h"
#include "settings/frmConfig.h"
#include "shell/DesktopHelp.h"
#include "shell/DesktopPrompts.h"
#include "shell/ProgramApplication.h"
#include "shell/frmAboutBox.h"
#include "shell/frmHelp.h"
#include "shell/frmMain.h"
#include "shell/frmStartup.h"
#include "study/frmStepper.h"
#include "study/frmTime.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/ScriptedRandom.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTemporaryFile>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace {

/// Says No to whatever a window asks when it goes.
class DecliningPrompts : public Prompts {
 public:
  Answer Show(const Prompt& prompt) override {
    return prompt.buttons == PromptButtons::Ok ? Answer::Ok : Answer::No;
  }
};

class SilentHelp : public HelpService {
 public:
  void Show(HelpContext) override {}
};

class SilentSound : public SoundPlayer {
 public:
  void Play(const Text&) override {}
  void Stop() override {}
};

QPalette DarkPalette() {
  const QColor window(45, 45, 48);
  const QColor text(235, 235, 235);
  const QColor dimmed(130, 130, 130);
  QPalette palette(window);  // the shades of frames are made from it
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, dimmed);
  }
  palette.setColor(QPalette::PlaceholderText, dimmed);
  palette.setColor(QPalette::Base, QColor(30, 30, 32));
  palette.setColor(QPalette::AlternateBase, QColor(38, 38, 40));
  palette.setColor(QPalette::ToolTipBase, window);
  palette.setColor(QPalette::Highlight, QColor(42, 110, 187));
  palette.setColor(QPalette::HighlightedText, QColor(255, 255, 255));
  return palette;
}

/// What a window may measure in a picture on a page.
constexpr QSize PageSize(560, 420);

/// A world of doubles around the real sample stacks, and the pictures taken in it.
class Gallery {
 public:
  /// @param only  "window=picture,..." to take these windows alone, under these names, no wider
  /// than
  ///              suits a page; empty to take all
  Gallery(QDir folder, const QDir& samples, const QString& only)
      : m_folder(std::move(folder)), m_samples(WithSeparator(ToText(samples.absolutePath()))) {
    for (const QString& pair : only.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
      m_only.insert(pair.section(QLatin1Char('='), 0, 0), pair.section(QLatin1Char('='), 1));
    }
    (void)m_settings.MakeFolder(u"/config");
    InitSettings(m_profile);
    for (const auto& [number, name] :
         {std::pair<TextView, TextView>{u"1", u"Spanish"}, {u"2", u"French"}, {u"3", u"German"}}) {
      m_profile.WriteString(TopicsSection, number, name);
    }
    m_profile.WriteString(u"Spanish", u"FRONTFONT", u"DejaVu Serif");
    m_profile.WriteString(u"Spanish", u"FRONTSIZE", u"14");
    LoadTopicList(m_shared.Topics, m_profile);
    m_shared.Switches.DefaultFolder = m_samples;
    SelectTopic(m_shared.Topics, m_shared.Topic, m_profile, 0);
  }

  void TakeAll() {
    TakeShell();
    m_shared.Timer = TimerSettings();
    for (const auto& [mode, name] : {std::pair{StudyMode::Stepper, "stepper"},
                                     {StudyMode::Quibber, "quibber"},
                                     {StudyMode::Speller, "speller"},
                                     {StudyMode::Chooser, "chooser"}}) {
      TakeStudy(u"spanish-animals.QBC", mode, QString::fromLatin1(name));
    }
    TakeStudy(u"flags.QBC", StudyMode::Stepper, QStringLiteral("stepper-picture"));
    TakeStudy(u"flags.QBC", StudyMode::Speller, QStringLiteral("speller-picture"));
    TakeStudy(u"flags.QBC", StudyMode::Chooser, QStringLiteral("chooser-picture"));
    TakeStudy(u"planets.QBC", StudyMode::Stepper, QStringLiteral("stepper-lines"));
    Load(u"spanish-animals.QBC");
    TakeDialogs();
    TakeKeys();
    TakeAuthoring();
  }

 private:
  void Take(QWidget& window, const QString& name) {
    if (!m_only.isEmpty() && !m_only.contains(name)) return;
    window.show();
    window.activateWindow();
    (void)QTest::qWaitForWindowActive(&window);
    if (!m_only.isEmpty()) window.resize(window.size().boundedTo(PageSize));
    for (int i = 0; i < 3; ++i) QApplication::processEvents();  // layouts within layouts
    const QString number = QStringLiteral("%1-").arg(++m_taken, 2, 10, QLatin1Char('0'));
    const QString file = m_only.value(name, number + name) + QStringLiteral(".png");
    if (!window.grab().save(m_folder.filePath(file))) {
      throw std::runtime_error("cannot write " + name.toStdString());
    }
  }

  void Load(TextView fileName) {
    const FileStatus status = LoadStack(
        m_shared.Stacks, m_files, m_prompts, m_samples, fileName, [this](const Text& name) {
          return ResolveFileTopic(name, m_shared.Topics, m_prompts, {});
        });
    if (status != FileStatus::Ok) throw std::runtime_error("cannot load a sample stack");
    SelectTopic(m_shared.Topics, m_shared.Topic, m_profile, m_shared.Stacks.Current().TopicIndex);
  }

  template <class Control>
  static Control& Find(QWidget& window, const char* name) {
    auto* const control = window.findChild<Control*>(QLatin1String(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }

  static void Click(QWidget& window, const char* name) {
    Find<QAbstractButton>(window, name).click();
  }

  void TakeShell() {
    frmStartup splash(m_shared, m_platform);
    Take(splash, QStringLiteral("frmStartup"));
    splash.hide();
    {
      frmMain window(m_shared, m_platform, Text(), nullptr);
      Take(window, QStringLiteral("frmMain-empty"));
    }
    frmMain window(m_shared, m_platform, m_samples + u"spanish-animals.QBC", nullptr);
    Take(window, QStringLiteral("frmMain-loaded"));
    TakeMenus(window);
    frmAboutBox about(m_shared, m_platform, nullptr);
    Take(about, QStringLiteral("frmAboutBox"));
    about.hide();
    TakeMessageBox();
    TakeHelp();
  }

  void TakeMenus(frmMain& window) {
    for (QAction* const action : window.findChild<QMenuBar*>()->actions()) {
      QMenu& menu = *action->menu();
      menu.popup(QPoint());
      Take(menu, QStringLiteral("menu-") + menu.title().remove(QLatin1Char('&')));
      menu.hide();
    }
  }

  void TakeHelp() {
    DesktopHelp help(m_prompts, {ToText(QStringLiteral(QUIB_HELP_FILE))});
    for (const auto& [context, name] : {std::pair{HelpContext::Overview, "frmHelp-overview"},
                                        {HelpContext::Stepper, "frmHelp-study"}}) {
      help.Show(context);
      Take(*help.Viewer(), QLatin1String(name));
    }
  }

  void TakeMessageBox() {
    QTimer::singleShot(0, [this] {
      QWidget* const box = QApplication::activeModalWidget();
      Take(*box, QStringLiteral("message"));
      box->close();
    });
    DesktopPrompts().Show({.text = u"No more cards - Restart?",
                           .icon = PromptIcon::Information,
                           .buttons = PromptButtons::YesNo});
  }

  void TakeStudy(TextView fileName, StudyMode mode, const QString& name) {
    Load(fileName);
    m_shared.Switches.StudyMode = mode;
    frmStepper& window = m_studyWindows.Open();
    Take(window, name + QStringLiteral("-start"));
    Click(window, "cmdNext");
    Take(window, name + QStringLiteral("-question"));
    if (mode == StudyMode::Chooser) {
      Click(window, "optChoice(1)");
    } else {
      if (mode == StudyMode::Speller) TypeAnswer(window, QStringLiteral("el gato"));
      Click(window, "cmdNext");
    }
    Take(window, name + QStringLiteral("-answer"));
    if (name == QStringLiteral("speller")) TakeRightSpelling(window, name);
    if (mode == StudyMode::Stepper) {
      window.resize(window.minimumSize());
      Take(window, name + QStringLiteral("-smallest"));
      window.resize(QSize(1200, 800).boundedTo(window.screen()->availableSize()));
      Take(window, name + QStringLiteral("-large"));
    }
    window.close();
  }

  static void TypeAnswer(frmStepper& window, const QString& answer) {
    Find<QLineEdit>(window, "txtSpell").setText(answer);
  }

  /// Goes on to the next card and answers it with what its other side says.
  void TakeRightSpelling(frmStepper& window, const QString& name) {
    Click(window, "cmdNext");
    const Text question = ToText(Find<QLabel>(window, "lblTop").text());
    const CardStack& stack = m_shared.Stacks.Current();
    for (int card = 1; card <= stack.CardCount; ++card) {
      if (TrimRight(stack.SideText(card, Front)) != TrimRight(question)) continue;
      TypeAnswer(window, ToQString(TrimRight(stack.SideText(card, Back))));
    }
    Click(window, "cmdNext");
    Take(window, name + QStringLiteral("-right"));
  }

  void TakeDialogs() {
    for (const auto& [mode, name] : {std::pair{FileDialogMode::Load, "frmLoad-load"},
                                     {FileDialogMode::SaveEdited, "frmLoad-save"}}) {
      m_shared.Switches.FileDialogMode = mode;
      frmLoad window(m_shared, m_platform, nullptr);
      if (mode == FileDialogMode::Load) {
        Find<QLineEdit>(window, "txtActFile").setText(QStringLiteral("planets.QBC"));
        Click(window, "cmdDesc");
      }
      Take(window, QLatin1String(name));
    }
    {
      m_shared.Timer.TimerInterval = 1500;
      frmTime window(m_shared, m_platform, nullptr);
      Take(window, QStringLiteral("frmTime"));
    }
    TakeTopicDialog(QStringLiteral("frmConfig-add"), true, false);
    TakeTopicDialog(QStringLiteral("frmConfig-change"), false, true);
    TakeTopicDialog(QStringLiteral("frmConfig-delete"), false, false);
    for (const bool printing : {true, false}) {
      m_shared.Switches.PrintMode = printing;
      frmPrint window(m_shared, m_platform, nullptr);
      Take(window, printing ? QStringLiteral("frmPrint-print") : QStringLiteral("frmPrint-fonts"));
    }
    frmDesc window(m_shared, m_platform, nullptr);
    Take(window, QStringLiteral("frmDesc"));
  }

  void TakeTopicDialog(const QString& name, bool add, bool change) {
    m_shared.Switches.NewTopicMode = add;
    m_shared.Switches.ChangeTopicMode = change;
    m_shared.Switches.NewTopicName = add ? u"Italian" : u"";
    frmConfig window(m_shared, m_platform, nullptr);
    Take(window, name);
    m_shared.Switches.NewTopicMode = false;
    m_shared.Switches.ChangeTopicMode = false;
    m_shared.Switches.NewTopicName.clear();
  }

  void TakeKeys() {
    KeyTable& keys = m_shared.Topic.Keys;
    constexpr TextView Letters = u"\u00E1\u00E9\u00ED\u00F3\u00FA\u00F1\u00FC\u00BF\u00A1";
    constexpr TextView Typed = u"AEIOUNWQX";
    for (std::size_t i = 0; i < Letters.size(); ++i) {
      const CharCode side = i % 3 == 0 ? BothSidesMark : i % 3 == 1 ? BackSideMark : FrontSideMark;
      keys.Slots.at(i + 1) = {side, CharCode{u'2'}, static_cast<CharCode>(Typed[i]),
                              static_cast<CharCode>(Letters[i])};
    }
    keys.KeyCount = static_cast<int>(Letters.size());
    m_shared.Switches.KeyCodeToSend = -2;
    frmAddKey editor(m_shared, m_platform, nullptr);
    Take(editor, QStringLiteral("frmAddKey"));
    frmKeys picker(m_shared, m_platform, nullptr, m_shared.Topic);
    QTest::keyClick(&picker, Qt::Key_Down);
    Take(picker, QStringLiteral("frmKeys"));
    frmMoreKeys chart(m_shared, m_platform, nullptr, m_shared.Topic.Fonts);
    Take(chart, QStringLiteral("frmMoreKeys-first"));
    for (int page = 0; page < 6; ++page) QTest::keyClick(&chart, Qt::Key_PageDown);
    Take(chart, QStringLiteral("frmMoreKeys-letters"));
  }

  void TakeAuthoring() {
    frmFind find(m_shared, m_platform, nullptr);
    Load(u"flags.QBC");
    frmEdit editor(m_shared, m_platform, nullptr, find);
    Take(editor, QStringLiteral("frmEdit"));
    QTest::mouseClick(&Find<QWidget>(editor, "lblCol1(1)"), Qt::LeftButton);
    Take(editor, QStringLiteral("frmEdit-selected"));
    Take(find, QStringLiteral("frmFind"));
    frmCreate window(m_shared, m_platform, nullptr);
    Take(window, QStringLiteral("frmCreate"));
    Find<QPlainTextEdit>(window, "txtFront").setPlainText(QStringLiteral("the butterfly"));
    Find<QPlainTextEdit>(window, "txtBack").setPlainText(QStringLiteral("la mariposa"));
    Find<QLineEdit>(window, "txtBackWave").setText(QStringLiteral("mariposa.wav"));
    Take(window, QStringLiteral("frmCreate-typed"));
  }

  QDir m_folder;
  Text m_samples;
  QHash<QString, QString> m_only;
  int m_taken = 0;
  DecliningPrompts m_prompts;
  MemoryFiles m_settings;
  DiskFiles m_files{ToText(QDir::tempPath())};
  ProfileFile m_profile{m_settings, u"/config/QUIBCRDS.INI"};
  SilentHelp m_help;
  SilentSound m_sound;
  SharedState m_shared;
  Platform m_platform{m_prompts, m_files, m_profile,
                      m_help,    m_sound, [] { return std::make_unique<SeededRandom>(1); }};
  StudyWindows m_studyWindows{m_shared, m_platform};
};

}  // namespace

/// The value of an option that the platform needs before there is an application to read it.
QByteArray EarlyOption(int argc, char** argv, const QByteArray& name, const QByteArray& otherwise) {
  for (int i = 1; i + 1 < argc; ++i) {
    if (argv[i] == name) return argv[i + 1];
  }
  return otherwise;
}

/// Has the platform offer one screen of a size given as 1280x720, in pixels.
void MakeScreen(const QByteArray& size, QTemporaryFile& file) {
  const QList<QByteArray> sides = size.split('x');
  if (sides.size() != 2 || !file.open()) throw std::runtime_error("cannot make the screen");
  file.write(R"({"screens": [{"name": "Gallery", "x": 0, "y": 0, "width": )" + sides[0] +
             R"(, "height": )" + sides[1] +
             R"(, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
  file.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
}

int main(int argc, char** argv) {
  QTemporaryFile screenFile;
  MakeScreen(EarlyOption(argc, argv, "--screen", "3840x2400"), screenFile);
  QLocale::setDefault(QLocale::c());
  ProgramApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QCommandLineParser options;
  options.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("for the pictures"));
  options.addOption({QStringLiteral("dark"), QStringLiteral("light text on dark windows")});
  options.addOption({QStringLiteral("points"), QStringLiteral("size of the desktop's font"),
                     QStringLiteral("size"), QStringLiteral("10")});
  options.addOption({QStringLiteral("screen"), QStringLiteral("size of the screen in pixels"),
                     QStringLiteral("size"), QStringLiteral("3840x2400")});
  options.addOption({QStringLiteral("samples"), QStringLiteral("folder with the sample stacks"),
                     QStringLiteral("folder"), QStringLiteral(QUIB_SOURCE_DIR "/samples")});
  options.addOption({QStringLiteral("only"),
                     QStringLiteral("window=picture,... to take these alone"),
                     QStringLiteral("names")});
  options.process(application);
  if (options.positionalArguments().size() != 1) options.showHelp(1);
  const QDir folder(options.positionalArguments().front());
  if (!folder.mkpath(QStringLiteral("."))) return 1;
  if (options.isSet(QStringLiteral("dark"))) QApplication::setPalette(DarkPalette());
  QFont font = QApplication::font();
  font.setPointSizeF(options.value(QStringLiteral("points")).toDouble());
  QApplication::setFont(font);
  RegisterFontSubstitutes();
  try {
    Gallery(folder, QDir(options.value(QStringLiteral("samples"))),
            options.value(QStringLiteral("only")))
        .TakeAll();
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "gallery: %s\n", failure.what());
    return 1;
  }
}
