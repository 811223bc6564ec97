#include "tests/window/authoring/AuthoringFixture.h"
#include "windows/authoring/frmCreate.h"

namespace {

/// Going back, in the create window, to cards that were typed.
class CorrectingTest : public AuthoringTest {
 protected:
  using Act = std::function<void(frmCreate&)>;

  void WithNew(const Act& act) {
    WithModal<frmCreate>([this] { frmCreate(shared, platform, nullptr).ShowModal(); },
                         [&](frmCreate& window) {
                           act(window);
                           if (window.isVisible()) window.close();
                         });
  }
  void WithAdd(const Act& act) {
    shared.Switches.AddCardsMode = true;
    WithNew(act);
    shared.Switches.AddCardsMode = false;
  }
  static void TypeCard(frmCreate& window, const QString& front, const QString& back) {
    Type(window, "txtFront", front);
    Type(window, "txtBack", back);
    Click(window, "cmdCont");
  }
  static void SaveEnd(frmCreate& window, const QString& name) {
    WithModal<frmDesc>([&] { SaveAs([&] { Click(window, "cmdEnd"); }, name); },
                       [](frmDesc& asked) { Click(asked, "cmdOK"); });
  }
  static QString Notice(frmCreate& window) { return TextOf(window, "lblNotice"); }

  CardStack& Stack() { return shared.Stacks.Current(); }
  Text Front(int card) { return Text(Stack().SideText(card, ::Front)); }
  Text Back(int card) { return Text(Stack().SideText(card, ::Back)); }
};

TEST_F(CorrectingTest, TheWayBackOpensWithTheFirstCard) {
  WithNew([](frmCreate& window) {
    EXPECT_EQ(Button(window, "cmdPrev").text(), "&Previous Card");
    EXPECT_FALSE(IsEnabled(window, "cmdPrev"));
    TypeCard(window, "dog", "perro");
    EXPECT_TRUE(IsEnabled(window, "cmdPrev"));
    EXPECT_EQ(Notice(window), "");
  });
}

TEST_F(CorrectingTest, ACardIsCorrectedInItsPlaceAndTheEntryWaits) {
  WithNew([this](frmCreate& window) {
    TypeCard(window, "dog", "pero");
    TypeCard(window, "cat", "gato");
    Type(window, "txtFront", "half");
    Click(window, "cmdPrev");
    EXPECT_EQ(Shown(window, "txtFront"), "cat");
    EXPECT_TRUE(Box(window, "txtFront").hasFocus());
    Click(window, "cmdPrev");
    EXPECT_EQ(Shown(window, "txtBack"), "pero");
    EXPECT_EQ(Notice(window), "Correcting card 1. Continue goes on from it.");
    EXPECT_FALSE(IsEnabled(window, "cmdPrev"));
    Retype(window, "txtBack", "perro");
    Click(window, "cmdCont");
    EXPECT_EQ(Back(1), u"perro");
    EXPECT_EQ(Shown(window, "txtFront"), "cat");
    Click(window, "cmdCont");
    EXPECT_EQ(Shown(window, "txtFront"), "half");
    EXPECT_EQ(Notice(window), "");
    EXPECT_EQ(Stack().CardCount, 2);
    EXPECT_EQ(TextOf(window, "lblCardCount"), "2");
    Type(window, "txtBack", "medio");
    Click(window, "cmdCont");
    EXPECT_EQ(Back(3), u"medio");
  });
}

TEST_F(CorrectingTest, CancelEntryDropsTheCorrection) {
  WithNew([this](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    Type(window, "txtFront", "half");
    Click(window, "cmdPrev");
    Retype(window, "txtFront", "wrong");
    Click(window, "cmdCanc");
    EXPECT_EQ(Front(1), u"dog");
    EXPECT_EQ(Shown(window, "txtFront"), "half");
  });
}

TEST_F(CorrectingTest, SaveEndTakesTheCorrectionAndStoresNoCardTwice) {
  WithNew([](frmCreate& window) {
    TypeCard(window, "dog", "pero");
    Click(window, "cmdPrev");
    Retype(window, "txtBack", "perro");
    SaveEnd(window, "animals");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_TRUE(files.Content(u"/cards/animals.QBC").ends_with(" \r\ndog  \r\nperro  \r\n"));
}

TEST_F(CorrectingTest, AddedCardsCanBeCorrectedAndTheOlderOnesAreTheEditors) {
  LoadStack(u"verbs", 2);
  WithAdd([](frmCreate& window) {
    EXPECT_FALSE(IsEnabled(window, "cmdPrev"));
    TypeCard(window, "dog", "pero");
    Click(window, "cmdPrev");
    EXPECT_FALSE(IsEnabled(window, "cmdPrev"));
    Retype(window, "txtBack", "perro");
    window.close();
  });
  EXPECT_EQ(Stack().CardCount, 3);
  EXPECT_EQ(Back(3), u"perro");
  EXPECT_EQ(Back(2), u"back 2");
}

TEST_F(CorrectingTest, ControlEnterContinuesAndEnterAloneDoesNot) {
  WithNew([this](frmCreate& window) {
    QTest::keyClick(&Box(window, "txtFront"), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Stack().CardCount, 0) << "Continue is not enabled";
    Type(window, "txtFront", "dog");
    Type(window, "txtBack", "perro");
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Stack().CardCount, 0);
    QTest::keyClick(window.focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Stack().CardCount, 1);
    EXPECT_TRUE(Box(window, "txtFront").hasFocus());
  });
}

// --- A caret ---

TEST_F(CorrectingTest, ACaretIsExplainedShownCorrectedAndSaved) {
  prompts.Expect(Answer::Ok);
  WithNew([this](frmCreate& window) {
    TypeCard(window, "the cat^el gato", "gato");
    Type(window, "txtFrontWave", "dog.wav");
    TypeCard(window, "2^^3", "8");
    TypeCard(window, "dog", "perro");
    SaveEnd(window, "powers");
    ASSERT_TRUE(window.isVisible());
    ExpectPrompt(prompts.shown.at(0),
                 u"Overflow\r\n\r\nCard 2, front: 2^3\r\n"
                 u"The character ^ cannot be saved. Change this text, then save again.",
                 PromptIcon::Exclamation, PromptButtons::Ok, u"Quib!Cards 5.50 Error");
    EXPECT_EQ(Front(1), u"the cat\r\nel gato");
    EXPECT_EQ(Front(3), u"dog");
    Reactivate(window);
    EXPECT_EQ(Notice(window), "Correcting card 2. Continue goes on from it.");
    EXPECT_EQ(Shown(window, "txtFront"), "2^^3");
    EXPECT_TRUE(Box(window, "txtFront").hasFocus());
    EXPECT_EQ(Box(window, "txtFront").textCursor().selectedText(), "^^");
    QTest::keyClicks(&Box(window, "txtFront"), " to the ");
    prompts.Expect(Answer::Ok);  // what was left of the first try is overwritten
    SaveEnd(window, "powers");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_TRUE(files.Content(u"/cards/powers.QBC")
                  .ends_with(" \r\nthe cat^el gato  \r\ngato  \r\n2 to the 3 dog.wav \r\n8  \r\n"
                             "dog dog.wav \r\nperro  \r\n"));
}

}  // namespace
