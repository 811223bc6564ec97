#include "windows/help/frmHelp.h"

#include "tests/window/WindowFixture.h"
#include "windows/help/DesktopHelp.h"
#include "windows/help/HelpBook.h"
#include "windows/main/frmAboutBox.h"

#include <QDir>
#include <QFile>
#include <QHelpContentModel>
#include <QHelpEngine>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QThread>
#include <QTreeView>
#include <QWindow>

#include <algorithm>
#include <array>

namespace {

struct ContextPage {
  HelpContext context;
  const char* file;
  const char* title;
};

constexpr std::array ContextPages = {
    ContextPage{HelpContext::UsingHelp, "using-help.html", "Using help"},
    ContextPage{HelpContext::Index, "index.html", "Quib!Cards Help"},
    ContextPage{HelpContext::AddKey, "add-key.html", "Key assignments"},
    ContextPage{HelpContext::MainMenu, "main-window.html", "The main window"},
    ContextPage{HelpContext::Find, "find.html", "Finding text"},
    ContextPage{HelpContext::Description, "description.html", "The file description"},
    ContextPage{HelpContext::Topics, "topics.html", "Topics"},
    ContextPage{HelpContext::Stepper, "study.html", "Studying"},
    ContextPage{HelpContext::Create, "create.html", "Creating cards"},
    ContextPage{HelpContext::Load, "load.html", "Loading, saving and deleting stack files"},
    ContextPage{HelpContext::Edit, "edit.html", "Editing cards"},
    ContextPage{HelpContext::Timer, "timer.html", "Before you study: Set Timer"},
    ContextPage{HelpContext::Overview, "overview.html", "What Quib!Cards is"},
    ContextPage{HelpContext::Print, "print.html", "Display fonts and printing"},
    ContextPage{HelpContext::MoreKeys, "more-keys.html", "More Keys: the code chart"},
    ContextPage{HelpContext::Keys, "keys.html", "Front Keys and Back Keys: the assignment picker"},
};

QString BuiltHelpFile() {
  return QDir(QCoreApplication::applicationDirPath())
      .filePath(QStringLiteral("../../bin/quib.HLP"));
}

class frmHelpTest : public WindowTest {
 protected:
  frmHelp& Show(HelpContext context) {
    service.Show(context);
    return *service.Viewer();
  }

  static QTextBrowser& Page(frmHelp& viewer) { return Find<QTextBrowser>(viewer, "txtPage"); }

  static void Choose(frmHelp& viewer, const char* action) {
    Find<QAction>(viewer, action).trigger();
  }

  static void WaitForContents(frmHelp& viewer) {
    auto& contents = Find<QTreeView>(viewer, "lstContents");
    EXPECT_TRUE(QTest::qWaitFor([&] { return contents.currentIndex().isValid(); }));
  }

  /// A click that comes from the window system, as a modal window would stop it.
  static void ClickOnScreen(QWidget& widget) {
    QWidget* const window = widget.window();
    const QPoint at = widget.mapTo(window, widget.rect().center());
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, at);
  }

  static QWidget& ButtonOf(frmHelp& viewer, const char* action) {
    auto& item = Find<QAction>(viewer, action);
    for (QObject* const owner : item.associatedObjects()) {
      auto* const button = qobject_cast<QAbstractButton*>(owner);
      if (button != nullptr) return *button;
    }
    throw std::runtime_error("no button");
  }

  DesktopHelp service{prompts, state, {ToText(BuiltHelpFile())}};
};

TEST_F(frmHelpTest, OpensOnThePageOfEveryContext) {
  for (const ContextPage& page : ContextPages) {
    frmHelp& viewer = Show(page.context);
    EXPECT_TRUE(viewer.isVisible());
    EXPECT_EQ(Page(viewer).source().fileName(), page.file);
    EXPECT_EQ(Page(viewer).documentTitle(), page.title);
    EXPECT_GT(Page(viewer).toPlainText().size(), 300) << page.file;
  }
}

TEST_F(frmHelpTest, NamesThePageInItsTitle) {
  EXPECT_EQ(Show(HelpContext::Topics).windowTitle(), "Topics - Quib!Cards Help");
  EXPECT_EQ(Show(HelpContext::Index).windowTitle(), "Quib!Cards Help");
}

TEST_F(frmHelpTest, StaysOneWindow) {
  const frmHelp& first = Show(HelpContext::Topics);
  EXPECT_EQ(&first, &Show(HelpContext::Load));
}

TEST_F(frmHelpTest, IsNotLoadedBeforeItIsAskedFor) { EXPECT_EQ(service.Viewer(), nullptr); }

TEST_F(frmHelpTest, ComesBackAfterItWasClosed) {
  Show(HelpContext::Topics).close();
  EXPECT_TRUE(Show(HelpContext::Topics).isVisible());
}

TEST_F(frmHelpTest, GoesBackAndForward) {
  frmHelp& viewer = Show(HelpContext::Load);
  EXPECT_FALSE(Find<QAction>(viewer, "mnuBack").isEnabled());
  Show(HelpContext::Edit);
  Choose(viewer, "mnuBack");
  EXPECT_EQ(Page(viewer).source().fileName(), "load.html");
  EXPECT_FALSE(Find<QAction>(viewer, "mnuBack").isEnabled());
  Choose(viewer, "mnuForward");
  EXPECT_EQ(Page(viewer).source().fileName(), "edit.html");
  EXPECT_FALSE(Find<QAction>(viewer, "mnuForward").isEnabled());
}

TEST_F(frmHelpTest, StartPageListsAllTopics) {
  frmHelp& viewer = Show(HelpContext::Load);
  Choose(viewer, "mnuStart");
  EXPECT_EQ(Page(viewer).source().fileName(), "index.html");
}

TEST_F(frmHelpTest, SearchFindsAWord) {
  frmHelp& viewer = Show(HelpContext::Index);
  QTest::keyClicks(&Find<QLineEdit>(viewer, "txtSearch"), "russian");
  auto& found = Find<QListWidget>(viewer, "lstFound");
  ASSERT_GE(found.count(), 2);
  QTest::keyClick(&Find<QLineEdit>(viewer, "txtSearch"), Qt::Key_Return);
  EXPECT_EQ(Page(viewer).documentTitle(), found.item(0)->text());
  EXPECT_EQ(Page(viewer).textCursor().selectedText().toLower(), "russian");
}

TEST_F(frmHelpTest, SearchPutsThePageOfThatTitleFirst) {
  frmHelp& viewer = Show(HelpContext::Index);
  QTest::keyClicks(&Find<QLineEdit>(viewer, "txtSearch"), "limits");
  EXPECT_EQ(Find<QListWidget>(viewer, "lstFound").item(0)->text(), "Limits");
}

TEST_F(frmHelpTest, DownChoosesTheNextPageThatWasFound) {
  frmHelp& viewer = Show(HelpContext::Index);
  auto& words = Find<QLineEdit>(viewer, "txtSearch");
  QTest::keyClicks(&words, "card");
  QTest::keyClick(&words, Qt::Key_Down);
  EXPECT_EQ(Find<QListWidget>(viewer, "lstFound").currentRow(), 1);
}

TEST_F(frmHelpTest, SearchSaysWhenNoPageHasTheWord) {
  frmHelp& viewer = Show(HelpContext::Index);
  QTest::keyClicks(&Find<QLineEdit>(viewer, "txtSearch"), "xyzzy");
  EXPECT_EQ(Find<QListWidget>(viewer, "lstFound").count(), 0);
  EXPECT_FALSE(Find<QLabel>(viewer, "lblNothing").isHidden());
}

TEST_F(frmHelpTest, IndexLeadsToAPage) {
  frmHelp& viewer = Show(HelpContext::Index);
  Find<QTabWidget>(viewer, "sspSides").setCurrentIndex(1);
  auto& index = Find<QListView>(viewer, "lstIndex");
  ASSERT_TRUE(QTest::qWaitFor([&] { return index.model()->rowCount() > 0; }));
  QTest::keyClicks(&Find<QLineEdit>(viewer, "txtIndex"), "Polish");
  QTest::keyClick(&Find<QLineEdit>(viewer, "txtIndex"), Qt::Key_Return);
  EXPECT_EQ(Page(viewer).source().fileName(), "languages.html");
  EXPECT_EQ(Page(viewer).source().fragment(), "polish");
}

TEST_F(frmHelpTest, ContentsFollowThePage) {
  frmHelp& viewer = Show(HelpContext::Timer);
  WaitForContents(viewer);
  auto& contents = Find<QTreeView>(viewer, "lstContents");
  EXPECT_EQ(contents.currentIndex().data().toString(), "Before you study: Set Timer");
  Show(HelpContext::Find);
  EXPECT_EQ(contents.currentIndex().data().toString(), "Finding text");
  Show(HelpContext::Create);
  EXPECT_EQ(contents.currentIndex().data().toString(), "Creating cards");
}

TEST_F(frmHelpTest, AClickInTheContentsOpensThePage) {
  frmHelp& viewer = Show(HelpContext::Index);
  WaitForContents(viewer);
  auto& contents = Find<QTreeView>(viewer, "lstContents");
  const QModelIndexList entries =
      contents.model()->match(contents.model()->index(0, 0), Qt::DisplayRole,
                              QStringLiteral("Speller"), 1, Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(entries.size(), 1);
  const QModelIndex& speller = entries.first();
  contents.scrollTo(speller);
  QTest::mouseClick(contents.viewport(), Qt::LeftButton, {}, contents.visualRect(speller).center());
  EXPECT_EQ(Page(viewer).source().fragment(), "speller");
}

TEST_F(frmHelpTest, F1ExplainsHelp) {
  frmHelp& viewer = Show(HelpContext::Load);
  WaitUntilActive(viewer);
  QTest::keyClick(&viewer, Qt::Key_F1);
  EXPECT_EQ(Page(viewer).source().fileName(), "using-help.html");
}

TEST_F(frmHelpTest, EscapeClosesIt) {
  frmHelp& viewer = Show(HelpContext::Load);
  WaitUntilActive(viewer);
  QTest::keyClick(&viewer, Qt::Key_Escape);
  EXPECT_FALSE(viewer.isVisible());
}

TEST_F(frmHelpTest, CanBeUsedWhenAModalWindowOpensIt) {
  WithModal<frmAboutBox>([this] { frmAboutBox(shared, platform, nullptr).ShowModal(); },
                         [this](frmAboutBox& box) {
                           frmHelp& viewer = Show(HelpContext::Load);
                           Show(HelpContext::Edit);
                           WaitUntilActive(viewer);
                           ClickOnScreen(ButtonOf(viewer, "mnuBack"));
                           EXPECT_EQ(Page(viewer).source().fileName(), "load.html");
                           Click(box, "cmdOK");
                         });
}

TEST_F(frmHelpTest, CanBeUsedWhenAModalWindowOpensAfterIt) {
  frmHelp& viewer = Show(HelpContext::Load);
  Show(HelpContext::Edit);
  WaitUntilActive(viewer);
  WithModal<frmAboutBox>([this] { frmAboutBox(shared, platform, nullptr).ShowModal(); },
                         [&](frmAboutBox& box) {
                           ClickOnScreen(ButtonOf(viewer, "mnuBack"));
                           EXPECT_EQ(Page(viewer).source().fileName(), "load.html");
                           Click(box, "cmdOK");
                         });
}

TEST_F(frmHelpTest, CanBeUsedOverTheNextModalWindowWhenOneCloses) {
  WithModal<frmAboutBox>([this] { frmAboutBox(shared, platform, nullptr).ShowModal(); },
                         [this](frmAboutBox& box) {
                           WithModal<QMessageBox>([&] { QMessageBox(&box).exec(); },
                                                  [this](QMessageBox& message) {
                                                    Show(HelpContext::Load);
                                                    Show(HelpContext::Edit);
                                                    message.accept();
                                                  });
                           frmHelp& viewer = *service.Viewer();
                           QCoreApplication::processEvents();
                           ClickOnScreen(ButtonOf(viewer, "mnuBack"));
                           EXPECT_EQ(Page(viewer).source().fileName(), "load.html");
                           Click(box, "cmdOK");
                         });
}

TEST_F(frmHelpTest, OutlivesTheModalWindowThatOpenedIt) {
  WithModal<frmAboutBox>([this] { frmAboutBox(shared, platform, nullptr).ShowModal(); },
                         [this](frmAboutBox& box) {
                           Show(HelpContext::Load);
                           Show(HelpContext::Edit);
                           Click(box, "cmdOK");
                         });
  frmHelp& viewer = *service.Viewer();
  EXPECT_TRUE(viewer.isVisible());
  ClickOnScreen(ButtonOf(viewer, "mnuBack"));
  EXPECT_EQ(Page(viewer).source().fileName(), "load.html");
}

TEST_F(frmHelpTest, LeavesTheOtherWindowsBlocked) {
  QPushButton other;
  int presses = 0;
  QObject::connect(&other, &QPushButton::clicked, [&] { ++presses; });
  other.show();
  WaitUntilActive(other);
  ClickOnScreen(other);
  ASSERT_EQ(presses, 1);
  WithModal<frmAboutBox>([this] { frmAboutBox(shared, platform, nullptr).ShowModal(); },
                         [&](frmAboutBox& box) {
                           Show(HelpContext::Load);
                           ClickOnScreen(other);
                           Click(box, "cmdOK");
                         });
  EXPECT_EQ(presses, 1);
}

class DesktopHelpTest : public WindowTest {
 protected:
  QTemporaryDir folder;
  Text InFolder(const char* name) { return ToText(folder.filePath(QLatin1String(name))); }
};

TEST_F(DesktopHelpTest, SaysWhichFileIsMissingAndOpensNothing) {
  prompts.Expect(Answer::Ok);
  DesktopHelp service(prompts, state, {InFolder("quib.HLP"), InFolder("share/quib.HLP")});
  service.Show(HelpContext::Load);
  ASSERT_EQ(prompts.shown.size(), 1U);
  EXPECT_EQ(prompts.shown[0].text, MissingHelpPrompt(InFolder("quib.HLP")).text);
  EXPECT_EQ(service.Viewer(), nullptr);
}

TEST_F(DesktopHelpTest, FindsTheFileAtTheSecondPlace) {
  DesktopHelp service(prompts, state, {InFolder("quib.HLP"), ToText(BuiltHelpFile())});
  service.Show(HelpContext::Load);
  ASSERT_NE(service.Viewer(), nullptr);
  EXPECT_TRUE(service.Viewer()->isVisible());
}

TEST_F(DesktopHelpTest, SaysThatABrokenFileCannotBeRead) {
  QFile broken(folder.filePath(QStringLiteral("quib.HLP")));
  ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
  broken.write("no help");
  broken.close();
  prompts.Expect(Answer::Ok);
  DesktopHelp service(prompts, state, {InFolder("quib.HLP")});
  service.Show(HelpContext::Load);
  ASSERT_EQ(prompts.shown.size(), 1U);
  EXPECT_EQ(prompts.shown[0].text, u"The help file can't be read:\r\n" + InFolder("quib.HLP"));
  EXPECT_EQ(service.Viewer(), nullptr);
}

TEST_F(DesktopHelpTest, LeavesNothingBesideTheHelpFile) {
  ASSERT_TRUE(QFile::copy(BuiltHelpFile(), folder.filePath(QStringLiteral("quib.HLP"))));
  {
    DesktopHelp service(prompts, state, {InFolder("quib.HLP")});
    service.Show(HelpContext::Load);
    EXPECT_NE(service.Viewer(), nullptr);
  }
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("quib.HLP")});
}

// Breaking off a thread of the toolkit's that reads the file damaged the memory now and then.
TEST(HelpBook, LetsThoseWhoReadTheFileFinish) {
  auto book = std::make_unique<HelpBook>(BuiltHelpFile());
  const QHelpContentModel& contents = *book->Engine().contentModel();
  bool started = false;
  QObject::connect(&contents, &QHelpContentModel::contentsCreationStarted, [&] { started = true; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return started; }));
  std::vector<QPointer<QThread>> readers;
  const QObject* const engine = static_cast<const QObject&>(contents).parent();
  for (QThread* const reader : engine->findChildren<QThread*>()) readers.emplace_back(reader);
  ASSERT_FALSE(readers.empty());
  const auto running = [&] {
    return std::count_if(readers.begin(), readers.end(), [](const auto& reader) {
      return reader != nullptr && reader->isRunning();
    });
  };
  std::ptrdiff_t brokenOff = -1;
  // The model goes before the threads that fill it.
  QObject::connect(&contents, &QObject::destroyed, [&] { brokenOff = running(); });
  book.reset();
  EXPECT_EQ(brokenOff, 0);
}

TEST(HelpFilePlaces, AreBesideTheProgramAndInItsData) {
  EXPECT_EQ(HelpFilePlaces(u"/usr/bin"),
            (std::vector<Text>{u"/usr/bin/quib.HLP", u"/usr/share/quibcards/quib.HLP"}));
}

}  // namespace
