#include "tests/window/authoring/AuthoringFixture.h"
#include "windows/authoring/RowLabel.h"
#include "windows/authoring/frmEdit.h"
#include "windows/authoring/frmFind.h"
#include "windows/frame/Announcer.h"

#include <QAccessible>
#include <QCheckBox>

namespace {

/// The card editor on cards as they are loaded: every side ends in the format's two blanks.
class LoadedCardsTest : public AuthoringTest {
 protected:
  using Act = std::function<void(frmEdit&)>;

  LoadedCardsTest() {
    LoadStack(u"verbs", 2);
    for (int card = 1; card <= 2; ++card) {
      for (const int side : {Front, Back}) {
        Stack().SetSideText(card, side, Text(Stack().SideText(card, side)) + u"  ");
      }
    }
  }

  void WithEditor(const Act& act) {
    WithModal<frmEdit>([this] { frmEdit(shared, platform, nullptr, find).ShowModal(); },
                       [&](frmEdit& window) {
                         act(window);
                         if (!window.isVisible()) return;
                         prompts.Expect(Answer::Yes);
                         Click(window, "cmdCancAll");
                       });
  }
  static void ClickRow(frmEdit& window, const char* label) {
    QTest::mouseClick(&Find<RowLabel>(window, label), Qt::LeftButton);
  }
  CardStack& Stack() { return shared.Stacks.Current(); }

  frmFind find{shared, platform, nullptr};
};

TEST_F(LoadedCardsTest, NoRowFieldOrCaretShowsTheBlanks) {
  WithEditor([](frmEdit& window) {
    EXPECT_EQ(TextOf(window, "lblCol1(0)"), "front 1");
    ClickRow(window, "lblCol1(0)");
    EXPECT_EQ(Shown(window, "txtFront"), "front 1");
    Box(window, "txtFront").setFocus();
    QTest::keyClick(&Box(window, "txtFront"), Qt::Key_End);
    QTest::keyClicks(&Box(window, "txtFront"), "!");
    EXPECT_EQ(Shown(window, "txtFront"), "front 1!");
  });
  EXPECT_EQ(Stack().SideText(1, Front), u"front 1!");
}

TEST_F(LoadedCardsTest, LookingAtACardNeverChangesIt) {
  WithEditor([](frmEdit& window) {
    for (const char* const row : {"lblCol1(0)", "lblCol2(1)", "lblCol1(0)"}) {
      ClickRow(window, row);
      for (const char* const field : {"txtFront", "txtBack"}) {
        Box(window, field).setFocus();
        QTest::keyClicks(&Box(window, field), " ");
        QTest::keyClick(&Box(window, field), Qt::Key_Backspace);
      }
    }
  });
  EXPECT_EQ(Stack().SideText(1, Front), u"front 1  ");
  EXPECT_EQ(Stack().SideText(1, Back), u"back 1  ");
  EXPECT_EQ(Stack().SideText(2, Back), u"back 2  ");
}

TEST_F(LoadedCardsTest, ASideOfBlanksAloneCanBeChosenAndEdited) {
  Stack().SetSideText(1, Front, u"  ");
  WithEditor([](frmEdit& window) {
    EXPECT_EQ(TextOf(window, "lblCol1(0)"), "");
    ClickRow(window, "lblCol1(0)");
    EXPECT_EQ(TextOf(window, "lblCardCount"), "1/2");
    Click(window, "cmdEdit");
    EXPECT_TRUE(Box(window, "txtFront").hasFocus());
  });
}

TEST_F(LoadedCardsTest, ACardOfMediaAloneCanBeClickedReachedByKeysAndMarked) {
  for (const int side : {Front, Back}) Stack().SetSideText(2, side, u"");
  Stack().SetSidePicture(2, Front, u"/cards/dog.bmp");
  WithEditor([](frmEdit& window) {
    auto& list = Find<QWidget>(window, "sspListBox");
    for (int press = 0; press < 2; ++press) QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(TextOf(window, "lblCardCount"), "2/2");
    EXPECT_EQ(Line(window, "txtFrontPicture").text(), "/cards/dog.bmp");
    ClickRow(window, "lblCol1(0)");
    ClickRow(window, "lblCol1(1)");
    EXPECT_EQ(TextOf(window, "lblCardCount"), "2/2");
    Click(window, "cmdDel");
    EXPECT_EQ(Find<RowLabel>(window, "lblCol1(1)").accessibleDescription(), "marked for deletion");
    ClickRow(window, "lblCol1(2)");
    EXPECT_EQ(TextOf(window, "lblCardCount"), "2/2");
  });
}

TEST_F(LoadedCardsTest, AFailedSaveLeadsToTheCaret) {
  Stack().SetSideText(2, Back, u"a^b  ");
  prompts.Expect(Answer::Ok);
  WithEditor([this](frmEdit& window) {
    SaveAs([&] { Click(window, "cmdEnd"); }, "verbs");
    EXPECT_TRUE(prompts.shown.at(0).text.starts_with(u"Overflow\r\n\r\nCard 2, back: a^b\r\n"));
    EXPECT_EQ(TextOf(window, "lblCardCount"), "2/2");
    Reactivate(window);
    EXPECT_TRUE(Box(window, "txtBack").hasFocus());
    EXPECT_EQ(Box(window, "txtBack").textCursor().selectedText(), "^");
    QTest::keyClicks(&Box(window, "txtBack"), "-");
    prompts.Expect(Answer::Ok);
    SaveAs([&] { Click(window, "cmdEnd"); }, "verbs");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_TRUE(files.Content(u"/cards/verbs.QBC").ends_with("front 2    \r\na-b  \r\n"));
}

TEST_F(LoadedCardsTest, TheSelectedCardIsAnnounced) {
  const auto said = [] {
    QString words;
    for (const QWidget* const widget : QApplication::allWidgets()) {
      if (widget->objectName() != QLatin1String("announcement")) continue;
      if (!widget->accessibleName().isEmpty()) words = widget->accessibleName();
    }
    return words;
  };
  WithEditor([&](frmEdit& window) {
    QTest::keyClick(&Find<QWidget>(window, "sspListBox"), Qt::Key_Down);
    EXPECT_EQ(said(), "Card 1 of 2. Front: front 1. Back: back 1.");
    ClickRow(window, "lblCol2(1)");
    EXPECT_EQ(said(), "Card 2 of 2. Front: front 2. Back: back 2.");
    Click(window, "cmdDel");
    EXPECT_EQ(said(), "Card 2 of 2. Front: front 2. Back: back 2. Marked for deletion.");
  });
}

TEST_F(LoadedCardsTest, FindsBoxesAreAnnouncedByTheirCaptions) {
  for (const auto& [name, caption] : {std::pair{"sscFront", "Front of Card"},
                                      {"sscBack", "Back of Card"},
                                      {"sscCase", "Case Sensitive"}}) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&Find<QCheckBox>(find, name))
                  ->text(QAccessible::Name),
              caption);
  }
}

TEST_F(LoadedCardsTest, NoRowDescribesItselfInMarkup) {
  Stack().SetSideText(1, Front, u"<b>R&D</b>");
  WithEditor([](frmEdit& window) {
    auto& row = Find<RowLabel>(window, "lblCol1(0)");
    const QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&row);
    EXPECT_EQ(spoken.text(QAccessible::Name), "<b>R&D</b>");
    EXPECT_EQ(spoken.text(QAccessible::Description), "");
  });
}

}  // namespace
