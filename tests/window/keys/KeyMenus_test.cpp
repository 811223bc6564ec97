#include "windows/keys/KeyMenus.h"

#include "tests/window/WindowFixture.h"
#include "windows/keys/CardField.h"
#include "windows/keys/frmKeys.h"
#include "windows/keys/frmMoreKeys.h"

#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QVBoxLayout>

namespace {

constexpr CharCode Code(int number) { return static_cast<CharCode>(number); }

/// A window with two card fields and the key menus.
class CardWindow : public Form {
 public:
  CardWindow(SharedState& shared, Platform& platform, const TopicSettings& topic,
             KeyMenuStyle style = KeyMenuStyle::CardWindow)
      : Form("CardWindow", shared, platform, nullptr),
        txtFront(Add<QLineEdit>(QStringLiteral("txtFront"))),
        txtBack(Add<QLineEdit>(QStringLiteral("txtBack"))) {
    auto* const column = new QVBoxLayout(this);
    column->addWidget(txtFront);
    column->addWidget(txtBack);
    QMenuBar* const bar = AddMenuBar();
    menus = new KeyMenus(bar, style, topic, shared, platform);
    AddHelp(bar, HelpContext::Create);
    for (QLineEdit* const edit : {txtFront, txtBack}) {
      menus->AddField(new CardField(edit, topic.Keys));
    }
    menus->SetEnabled(KeySide::Front, true);
    menus->SetEnabled(KeySide::Back, true);
  }

  QLineEdit* txtFront;
  QLineEdit* txtBack;
  KeyMenus* menus = nullptr;
};

class KeyMenusTest : public WindowTest {
 protected:
  void Assign(char side, char modifiers, int key, int character) {
    KeyTable& keys = shared.Topic.Keys;
    ++keys.KeyCount;
    keys.Slots.at(static_cast<std::size_t>(keys.KeyCount)) = {Code(side), Code(modifiers),
                                                              Code(key), Code(character)};
  }
  void AssignThree() {
    Assign('1', '2', 'E', 0xE9);
    Assign('2', '2', 'O', 0xF3);
    Assign('3', '6', 'N', 0xF1);
  }

  void Open(KeyMenuStyle style = KeyMenuStyle::CardWindow) {
    window = std::make_unique<CardWindow>(shared, platform, shared.Topic, style);
    window->show();
    window->activateWindow();
    WaitUntilActive(*window);
    window->txtFront->setFocus();
  }

  QAction* Item(const char* name) const { return window->findChild<QAction*>(QLatin1String(name)); }
  QAction& Head(const char* name) const { return Find<QAction>(*window, name); }
  /// The captions of a menu's items, in their order.
  QStringList Captions(const char* head) const {
    QStringList captions;
    for (const QAction* const item : Head(head).menu<QMenu*>()->actions()) {
      captions << item->objectName() + QStringLiteral(" ") + item->text();
    }
    return captions;
  }

  std::unique_ptr<CardWindow> window;
};

TEST_F(KeyMenusTest, AddsTwoDisabledHeadsBeforeWhatFollows) {
  Open();
  auto& bar = Find<QMenuBar>(*window, "");
  QStringList names;
  for (const QAction* const action : bar.actions()) names << action->objectName();
  EXPECT_EQ(names, QStringList({"mnuFKeysHead", "mnuBKeysHead", "mnuHelp"}));
  EXPECT_EQ(Head("mnuFKeysHead").text(), "&Front Keys");
  EXPECT_EQ(Head("mnuBKeysHead").text(), "&Back Keys");
}

TEST_F(KeyMenusTest, HeadsAreDisabledUntilTheWindowEnablesThem) {
  QMenuBar bar;
  KeyMenus menus(&bar, KeyMenuStyle::CardWindow, shared.Topic, shared, platform);
  const auto enabled = [&](int place) { return bar.actions().at(place)->isEnabled(); };
  EXPECT_FALSE(enabled(0));
  EXPECT_FALSE(enabled(1));
  menus.SetEnabled(KeySide::Back, true);
  EXPECT_FALSE(enabled(0));
  EXPECT_TRUE(enabled(1));
  menus.Rebuild();
  EXPECT_TRUE(enabled(1));
  menus.SetEnabled(KeySide::Back, false);
  EXPECT_FALSE(enabled(1));
}

TEST_F(KeyMenusTest, ListsTheAssignmentsOfEachSideUnderTheirSlotNumbers) {
  AssignThree();
  Open();
  EXPECT_EQ(Captions("mnuFKeysHead"),
            QStringList({"mnuFKeys(0) More Keys...", QStringLiteral(u"mnuFKeys(1) \u00E9 = Ctrl+E"),
                         QStringLiteral(u"mnuFKeys(3) \u00F1 = Ctrl+Alt+N")}));
  EXPECT_EQ(Captions("mnuBKeysHead"),
            QStringList({"mnuBKeys(0) More Keys...", QStringLiteral(u"mnuBKeys(2) \u00F3 = Ctrl+O"),
                         QStringLiteral(u"mnuBKeys(3) \u00F1 = Ctrl+Alt+N")}));
}

TEST_F(KeyMenusTest, ShowsAnAmpersandAsItself) {
  Assign('3', '2', '7', '&');
  Open();
  EXPECT_EQ(Item("mnuFKeys(1)")->text(), "&& = Ctrl+7");
}

TEST_F(KeyMenusTest, HasOnlyMoreKeysWithoutAssignments) {
  Open();
  EXPECT_EQ(Captions("mnuFKeysHead"), QStringList("mnuFKeys(0) More Keys..."));
  EXPECT_EQ(Captions("mnuBKeysHead"), QStringList("mnuBKeys(0) More Keys..."));
}

TEST_F(KeyMenusTest, ASideWithAnotherFontHasNoItems) {
  AssignThree();
  shared.Topic.Fonts.FrontFont = u"Arial";
  Open();
  EXPECT_EQ(Item("mnuFKeys(1)"), nullptr);
  EXPECT_EQ(Item("mnuFKeys(3)"), nullptr);
  EXPECT_NE(Item("mnuBKeys(2)"), nullptr);
}

TEST_F(KeyMenusTest, TheFontsNameIsComparedExactly) {
  AssignThree();
  for (const TextView name : {u"ms sans serif", u"MS Sans Serif ", u"MS Sans Seri", u""}) {
    shared.Topic.Fonts.FrontFont = name;
    Open();
    EXPECT_EQ(Item("mnuFKeys(1)"), nullptr);
  }
}

TEST_F(KeyMenusTest, ASideWithAnotherFontAndNoAssignmentsKeepsItsMenu) {
  shared.Topic.Fonts.FrontFont = u"Arial";
  Open();
  EXPECT_EQ(Captions("mnuFKeysHead"), QStringList("mnuFKeys(0) More Keys..."));
}

TEST_F(KeyMenusTest, InAStudyWindowASideWithAnotherFontHasNoHead) {
  AssignThree();
  shared.Topic.Fonts.BackFont = u"Arial";
  Open(KeyMenuStyle::StudyWindow);
  EXPECT_TRUE(Head("mnuFKeysHead").isVisible());
  EXPECT_FALSE(Head("mnuBKeysHead").isVisible());
}

TEST_F(KeyMenusTest, RebuildFollowsTheTopic) {
  AssignThree();
  Open();
  shared.Topic.Keys = {};
  Assign('3', '2', 'U', 0xFA);
  window->menus->Rebuild();
  EXPECT_EQ(
      Captions("mnuFKeysHead"),
      QStringList({"mnuFKeys(0) More Keys...", QStringLiteral(u"mnuFKeys(1) \u00FA = Ctrl+U")}));
  shared.Topic.Fonts.FrontFont = u"Arial";
  window->menus->Rebuild();
  EXPECT_EQ(Head("mnuFKeysHead").menu<QMenu*>(), nullptr);
  shared.Topic.Fonts.FrontFont = DefaultFontName;
  window->menus->Rebuild();
  EXPECT_EQ(Captions("mnuFKeysHead").size(), 2);
}

TEST_F(KeyMenusTest, AnItemTypesItsCharacterIntoTheFieldThatHadTheFocus) {
  AssignThree();
  Open();
  window->txtBack->setFocus();
  Item("mnuFKeys(1)")->trigger();
  EXPECT_EQ(window->txtBack->text(), QStringLiteral(u"\u00E9"));
  EXPECT_EQ(window->txtFront->text(), "");
  EXPECT_EQ(shared.Switches.KeyCodeToSend, 0xE9);
}

TEST_F(KeyMenusTest, AnItemOfShiftAloneTypesToo) {
  Assign('3', '1', 'E', 0xE9);
  Open();
  Item("mnuFKeys(1)")->trigger();
  EXPECT_EQ(window->txtFront->text(), QStringLiteral(u"\u00E9"));
}

TEST_F(KeyMenusTest, AnItemTypesUpToTheFieldsLimit) {
  AssignThree();
  Open();
  window->txtFront->setText(QString(256, u'a'));
  Item("mnuFKeys(1)")->trigger();
  EXPECT_EQ(window->txtFront->text(), QString(256, u'a'));
}

TEST_F(KeyMenusTest, TheFocusIsBackInTheFieldBeforeTheCharacterIsTyped) {
  AssignThree();
  Open();
  window->txtFront->setText("abcd");
  window->txtFront->setSelection(1, 2);
  auto& bar = Find<QMenuBar>(*window, "");
  bar.setFocus(Qt::MenuBarFocusReason);
  Item("mnuFKeys(1)")->trigger();
  EXPECT_TRUE(window->txtFront->hasFocus());
  EXPECT_EQ(window->txtFront->text(), QStringLiteral(u"a\u00E9d"))
      << "as typing would replace a selection";
}

TEST_F(KeyMenusTest, TheKeyboardReachesAnItem) {
  AssignThree();
  Open();
  window->txtFront->setText("abcd");
  window->txtFront->setSelection(1, 2);
  QTest::keyClick(window->txtFront, Qt::Key_F, Qt::AltModifier);
  auto* const menu = Head("mnuFKeysHead").menu<QMenu*>();
  ASSERT_TRUE(menu->isVisible());
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  EXPECT_EQ(window->txtFront->text(), QStringLiteral(u"a\u00E9d"));
  EXPECT_TRUE(window->txtFront->hasFocus());
}

TEST_F(KeyMenusTest, ASlotThatIsNotInUseTypesNothing) {
  AssignThree();
  Open();
  for (const int index : {4, 31, 1000, -1}) {
    window->menus->KeyMenuChosen(index, KeySide::Front);
  }
  EXPECT_EQ(window->txtFront->text(), "");
}

TEST_F(KeyMenusTest, MoreKeysOpensTheCodeChartForItsSide) {
  shared.Topic.Fonts.BackFont = u"Liberation Serif";
  Open();
  for (const auto& [item, request, title] :
       {std::tuple("mnuFKeys(0)", -1, "More Keys - MS Sans Serif"),
        std::tuple("mnuBKeys(0)", -2, "More Keys - Liberation Serif")}) {
    shared.Switches.KeyCodeToSend = 65;
    WithModal<frmMoreKeys>([this, name = item] { Item(name)->trigger(); },
                           [&, wanted = request, caption = title](frmMoreKeys& chart) {
                             EXPECT_EQ(shared.Switches.KeyCodeToSend, wanted);
                             EXPECT_EQ(chart.windowTitle(), caption);
                             Click(chart, "cmdCancel");
                           });
    EXPECT_EQ(shared.Switches.KeyCodeToSend, request);
  }
  EXPECT_EQ(window->txtFront->text(), "");
}

TEST_F(KeyMenusTest, TypesTheCodeThatTheChartGives) {
  Open();
  WithModal<frmMoreKeys>([this] { Item("mnuFKeys(0)")->trigger(); },
                         [](frmMoreKeys& chart) {
                           QTest::keyClick(&chart, Qt::Key_End, Qt::ControlModifier);
                           Click(chart, "cmdSend");
                         });
  EXPECT_EQ(window->txtFront->text(), QStringLiteral(u"\u00FF"));
}

TEST_F(KeyMenusTest, TheHeadOfAnotherFontOpensTheAssignmentPicker) {
  AssignThree();
  shared.Topic.Fonts.BackFont = u"Liberation Serif";
  Open();
  WithModal<frmKeys>([this] { Head("mnuBKeysHead").trigger(); },
                     [this](frmKeys& picker) {
                       EXPECT_EQ(shared.Switches.KeyCodeToSend, -2);
                       Click(picker, "lblCol1(1)");
                       Click(picker, "cmdSend");
                     });
  EXPECT_EQ(window->txtFront->text(), QStringLiteral(u"\u00F3"));
}

TEST_F(KeyMenusTest, ItsMnemonicOpensTheAssignmentPickerToo) {
  AssignThree();
  shared.Topic.Fonts.FrontFont = u"Liberation Serif";
  Open();
  WithModal<frmKeys>(
      [this] {
        QTest::keyClick(window->txtFront, Qt::Key_F, Qt::AltModifier);
        QCoreApplication::processEvents();
      },
      [](frmKeys& picker) { Click(picker, "cmdCanc"); });
  EXPECT_EQ(window->txtFront->text(), "");
  window->activateWindow();  // as the desktop does
  WaitUntilActive(*window);
  EXPECT_TRUE(window->txtFront->hasFocus());
}

TEST_F(KeyMenusTest, AHeadWithAMenuOpensNoPicker) {
  AssignThree();
  Open();
  Head("mnuFKeysHead").trigger();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(KeyMenusTest, ACancelledPickerTypesNothing) {
  AssignThree();
  shared.Topic.Fonts.FrontFont = u"Liberation Serif";
  Open();
  shared.Switches.KeyCodeToSend = 65;
  WithModal<frmKeys>([this] { Head("mnuFKeysHead").trigger(); },
                     [](frmKeys& picker) { Click(picker, "cmdCanc"); });
  EXPECT_EQ(window->txtFront->text(), "");
  EXPECT_EQ(shared.Switches.KeyCodeToSend, -1);
}

TEST_F(KeyMenusTest, SurvivesTheWindowsEndWhileAPickerIsOpen) {
  Open();
  WithModal<frmMoreKeys>([this] { Item("mnuFKeys(0)")->trigger(); },
                         [this](frmMoreKeys&) { window.reset(); });
  EXPECT_EQ(window, nullptr);
}

TEST_F(KeyMenusTest, SurvivesARebuildWhileAPickerIsOpen) {
  Open();
  WithModal<frmMoreKeys>([this] { Item("mnuFKeys(0)")->trigger(); },
                         [this](frmMoreKeys& chart) {
                           window->menus->Rebuild();
                           QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                           QTest::keyClick(&chart, Qt::Key_End, Qt::ControlModifier);
                           Click(chart, "cmdSend");
                         });
  EXPECT_EQ(window->txtFront->text(), QStringLiteral(u"\u00FF"));
}

TEST_F(KeyMenusTest, WorksOnACopyOfTheTopicToo) {
  AssignThree();
  const TopicSettings copy = shared.Topic;
  shared.Topic = {};
  window = std::make_unique<CardWindow>(shared, platform, copy, KeyMenuStyle::StudyWindow);
  Item("mnuBKeys(2)")->trigger();
  EXPECT_EQ(window->txtFront->text(), QStringLiteral(u"\u00F3"));
}

}  // namespace
