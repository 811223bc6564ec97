#include "tests/support/WindowTour.h"

#include "base/Paths.h"
#include "cards/StackFileOperations.h"
#include "windows/authoring/frmCreate.h"
#include "windows/authoring/frmEdit.h"
#include "windows/authoring/frmFind.h"
#include "windows/frame/QtText.h"
#include "windows/help/HelpBook.h"
#include "windows/help/frmHelp.h"
#include "windows/keys/frmAddKey.h"
#include "windows/keys/frmKeys.h"
#include "windows/keys/frmMoreKeys.h"
#include "windows/main/DesktopPrompts.h"
#include "windows/main/frmAboutBox.h"
#include "windows/main/frmMain.h"
#include "windows/main/frmStartup.h"
#include "windows/printing/frmPrint.h"
#include "windows/stacks/frmDesc.h"
#include "windows/stacks/frmLoad.h"
#include "windows/study/PictureBox.h"
#include "windows/study/frmStepper.h"
#include "windows/study/frmTime.h"
#include "windows/topics/frmConfig.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <stdexcept>

namespace {

template <class Control>
Control& Find(QWidget& window, const char* name) {
  auto* const control = window.findChild<Control*>(QLatin1String(name));
  if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
  return *control;
}

void Click(QWidget& window, const char* name) { Find<QAbstractButton>(window, name).click(); }

void TypeAnswer(frmStepper& window, const QString& answer) {
  Find<QLineEdit>(window, "txtSpell").setText(answer);
}

}  // namespace

QDir WindowTour::SampleFolder() { return QDir(QStringLiteral(QUIB_SOURCE_DIR "/samples")); }

WindowTour::WindowTour(Visit visit, const QDir& samples)
    : m_visit(std::move(visit)), m_samples(WithSeparator(ToText(samples.absolutePath()))) {
  for (const auto& [number, name] :
       {std::pair<TextView, TextView>{u"1", u"Spanish"}, {u"2", u"French"}, {u"3", u"German"}}) {
    m_program.profile.WriteString(TopicsSection, number, name);
  }
  m_program.profile.WriteString(u"Spanish", u"FRONTFONT", u"DejaVu Serif");
  m_program.profile.WriteString(u"Spanish", u"FRONTSIZE", u"14");
  LoadTopicList(m_shared.Topics, m_program.profile);
  m_shared.Switches.DefaultFolder = m_samples;
  SelectTopic(m_shared.Topics, m_shared.Topic, m_program.profile, 0);
}

void WindowTour::Run() {
  ShowShell();
  ShowHelp();
  m_shared.Timer = TimerSettings();
  for (const auto& [mode, name] : {std::pair{StudyMode::Stepper, "stepper"},
                                   {StudyMode::Quibber, "quibber"},
                                   {StudyMode::Speller, "speller"},
                                   {StudyMode::Chooser, "chooser"}}) {
    ShowStudy(u"spanish-animals.QBC", mode, QString::fromLatin1(name));
  }
  ShowStudy(u"flags.QBC", StudyMode::Stepper, QStringLiteral("stepper-picture"));
  ShowStudy(u"flags.QBC", StudyMode::Speller, QStringLiteral("speller-picture"));
  ShowStudy(u"flags.QBC", StudyMode::Chooser, QStringLiteral("chooser-picture"));
  ShowStudy(u"planets.QBC", StudyMode::Stepper, QStringLiteral("stepper-lines"));
  Load(u"spanish-animals.QBC");
  ShowDialogs();
  ShowKeys();
  ShowAuthoring();
}

void WindowTour::Show(QWidget& window, const QString& name) {
  window.show();
  window.activateWindow();
  if (!QTest::qWaitForWindowActive(&window)) {
    throw std::runtime_error("no window " + name.toStdString());
  }
  for (int i = 0; i < 3; ++i) QApplication::processEvents();  // layouts within layouts
  m_visit(window, name);
}

void WindowTour::Load(TextView fileName) {
  const FileStatus status =
      LoadStack(m_shared.Stacks, m_program.files, m_program.prompts, m_samples, fileName,
                [this](const Text& name) {
                  return ResolveFileTopic(name, m_shared.Topics, m_program.prompts, {});
                });
  if (status != FileStatus::Ok) throw std::runtime_error("cannot load a sample stack");
  SelectTopic(m_shared.Topics, m_shared.Topic, m_program.profile,
              m_shared.Stacks.Current().TopicIndex);
}

void WindowTour::ShowShell() {
  frmStartup splash(m_shared, m_platform);
  Show(splash, QStringLiteral("frmStartup"));
  splash.hide();
  {
    frmMain window(m_shared, m_platform, Text(), nullptr);
    Show(window, QStringLiteral("frmMain-empty"));
  }
  frmMain window(m_shared, m_platform, m_samples + u"spanish-animals.QBC", nullptr);
  Show(window, QStringLiteral("frmMain-loaded"));
  frmAboutBox about(m_shared, m_platform, nullptr);
  Show(about, QStringLiteral("frmAboutBox"));
  about.hide();
  ShowMessageBox({.text = u"No more cards - Restart?",
                  .icon = PromptIcon::Information,
                  .buttons = PromptButtons::YesNo},
                 QStringLiteral("message"));
  ShowMessageBox({.text = u"The file was not found.", .icon = PromptIcon::Exclamation},
                 QStringLiteral("message-warning"));
  ShowMessageBox({.text = u"Overwrite the file?",
                  .icon = PromptIcon::Question,
                  .buttons = PromptButtons::OkCancel},
                 QStringLiteral("message-question"));
}

void WindowTour::ShowMessageBox(const Prompt& prompt, const QString& name) {
  std::exception_ptr failure;  // an exception must not pass through the box's event loop
  QTimer::singleShot(0, [&] {
    QWidget* const box = QApplication::activeModalWidget();
    try {
      Show(*box, name);
    } catch (const std::exception&) {
      failure = std::current_exception();
    }
    box->close();
  });
  DesktopPrompts().Show(prompt);
  if (failure) std::rethrow_exception(failure);
}

void WindowTour::ShowHelp() {
  const QDir program(QCoreApplication::applicationDirPath());
  HelpBook book(program.filePath(QStringLiteral("../../bin/") + ToQString(Text(HelpFileName))));
  if (!book.IsOpen()) throw std::runtime_error("no help file");
  frmHelp viewer(book, m_platform.state);
  viewer.ShowPage(HelpContext::Index);
  if (!QTest::qWaitFor([&] { return book.Engine().contentModel()->rowCount() > 0; })) {
    throw std::runtime_error("no contents in the help file");
  }
  auto& sides = Find<QTabWidget>(viewer, "sspSides");
  for (const auto& [tab, name] : {std::pair{0, "contents"}, {1, "index"}, {2, "search"}}) {
    sides.setCurrentIndex(tab);
    if (tab == 2) Find<QLineEdit>(viewer, "txtSearch").setText(QStringLiteral("keys"));
    Show(viewer, QStringLiteral("frmHelp-") + QLatin1String(name));
  }
}

void WindowTour::ShowStudy(TextView fileName, StudyMode mode, const QString& name) {
  Load(fileName);
  m_shared.Switches.StudyMode = mode;
  frmStepper& window = m_studyWindows.Open();
  Show(window, name + QStringLiteral("-start"));
  Click(window, "cmdNext");
  Find<PictureBox>(window, "picTop").WaitUntilLoaded();
  Show(window, name + QStringLiteral("-question"));
  if (mode == StudyMode::Chooser) {
    Click(window, "optChoice(1)");
  } else {
    if (mode == StudyMode::Speller) TypeAnswer(window, QStringLiteral("el gato"));
    Click(window, "cmdNext");
  }
  Show(window, name + QStringLiteral("-answer"));
  if (name == QStringLiteral("speller")) ShowRightSpelling(window, name);
  if (mode == StudyMode::Stepper) {
    window.resize(window.minimumSize());
    Show(window, name + QStringLiteral("-smallest"));
    window.resize(QSize(1200, 800).boundedTo(window.screen()->availableSize()));
    Show(window, name + QStringLiteral("-large"));
  }
  window.close();
}

/// Goes on to the next card and answers it with what its other side says.
void WindowTour::ShowRightSpelling(frmStepper& window, const QString& name) {
  Click(window, "cmdNext");
  const Text question = ToText(Find<QLabel>(window, "lblTop").text());
  const CardStack& stack = m_shared.Stacks.Current();
  for (int card = 1; card <= stack.CardCount; ++card) {
    if (TrimRight(stack.SideText(card, Front)) != TrimRight(question)) continue;
    TypeAnswer(window, ToQString(TrimRight(stack.SideText(card, Back))));
  }
  Click(window, "cmdNext");
  Show(window, name + QStringLiteral("-right"));
}

void WindowTour::ShowDialogs() {
  for (const auto& [mode, name] : {std::pair{FileDialogMode::Load, "frmLoad-load"},
                                   {FileDialogMode::Delete, "frmLoad-delete"},
                                   {FileDialogMode::SaveNew, "frmLoad-new"},
                                   {FileDialogMode::SaveEdited, "frmLoad-save"}}) {
    m_shared.Switches.FileDialogMode = mode;
    frmLoad window(m_shared, m_platform, nullptr);
    if (mode == FileDialogMode::Load) {
      Find<QLineEdit>(window, "txtActFile").setText(QStringLiteral("planets.QBC"));
      Click(window, "cmdDesc");
    }
    Show(window, QLatin1String(name));
  }
  {
    m_shared.Timer.TimerInterval = 1500;
    frmTime window(m_shared, m_platform, nullptr);
    Show(window, QStringLiteral("frmTime"));
  }
  ShowTopicDialog(QStringLiteral("frmConfig-add"), true, false);
  ShowTopicDialog(QStringLiteral("frmConfig-change"), false, true);
  ShowTopicDialog(QStringLiteral("frmConfig-delete"), false, false);
  for (const bool printing : {true, false}) {
    m_shared.Switches.PrintMode = printing;
    frmPrint window(m_shared, m_platform, nullptr);
    Show(window, printing ? QStringLiteral("frmPrint-print") : QStringLiteral("frmPrint-fonts"));
  }
  frmDesc window(m_shared, m_platform, nullptr);
  Show(window, QStringLiteral("frmDesc"));
}

void WindowTour::ShowTopicDialog(const QString& name, bool add, bool change) {
  m_shared.Switches.NewTopicMode = add;
  m_shared.Switches.ChangeTopicMode = change;
  m_shared.Switches.NewTopicName = add ? u"Italian" : u"";
  {
    frmConfig window(m_shared, m_platform, nullptr);
    Show(window, name);
  }
  m_shared.Switches.NewTopicMode = false;
  m_shared.Switches.ChangeTopicMode = false;
  m_shared.Switches.NewTopicName.clear();
}

void WindowTour::ShowKeys() {
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
  Show(editor, QStringLiteral("frmAddKey"));
  QTest::mouseClick(&Find<QWidget>(editor, "lblCol2(1)"), Qt::LeftButton);
  Show(editor, QStringLiteral("frmAddKey-selected"));
  frmKeys picker(m_shared, m_platform, nullptr, m_shared.Topic);
  QTest::keyClick(&picker, Qt::Key_Down);
  Show(picker, QStringLiteral("frmKeys"));
  frmMoreKeys chart(m_shared, m_platform, nullptr, m_shared.Topic.Fonts);
  Show(chart, QStringLiteral("frmMoreKeys-first"));
  for (int page = 0; page < 6; ++page) QTest::keyClick(&chart, Qt::Key_PageDown);
  Show(chart, QStringLiteral("frmMoreKeys-letters"));
}

void WindowTour::ShowAuthoring() {
  frmFind find(m_shared, m_platform, nullptr);
  Load(u"flags.QBC");
  frmEdit editor(m_shared, m_platform, nullptr, find);
  Show(editor, QStringLiteral("frmEdit"));
  QTest::mouseClick(&Find<QWidget>(editor, "lblCol1(1)"), Qt::LeftButton);
  Show(editor, QStringLiteral("frmEdit-selected"));
  Show(find, QStringLiteral("frmFind"));
  {
    TopicFonts& fonts = m_shared.Topic.Fonts;
    const TopicFonts before = fonts;
    fonts.FrontSize = fonts.BackSize = 32;
    frmEdit largest(m_shared, m_platform, nullptr, find);
    QTest::mouseClick(&Find<QWidget>(largest, "lblCol1(0)"), Qt::LeftButton);
    Show(largest, QStringLiteral("frmEdit-32-points"));
    fonts = before;
  }
  {
    frmCreate window(m_shared, m_platform, nullptr);
    Show(window, QStringLiteral("frmCreate"));
    Find<QPlainTextEdit>(window, "txtFront").setPlainText(QStringLiteral("the butterfly"));
    Find<QPlainTextEdit>(window, "txtBack").setPlainText(QStringLiteral("la mariposa"));
    Find<QLineEdit>(window, "txtBackWave").setText(QStringLiteral("mariposa.wav"));
    Show(window, QStringLiteral("frmCreate-typed"));
    Find<QLineEdit>(window, "txtFrontPicture").setText(QStringLiteral("butterfly.png"));
    QTest::mouseClick(&Find<QWidget>(window, "cmdCont"), Qt::LeftButton);
    QTest::mouseClick(&Find<QWidget>(window, "cmdPrev"), Qt::LeftButton);
    Show(window, QStringLiteral("frmCreate-correcting"));
  }
  m_shared.Switches.AddCardsMode = true;
  {
    frmCreate window(m_shared, m_platform, nullptr);
    Show(window, QStringLiteral("frmCreate-add"));
  }
  m_shared.Switches.AddCardsMode = false;
}
