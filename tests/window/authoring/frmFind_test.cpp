#include "windows/authoring/frmFind.h"

#include "tests/window/authoring/AuthoringFixture.h"
#include "windows/frame/Pointer.h"
#include "windows/keys/frmMoreKeys.h"

#include <QCheckBox>
#include <QScrollBar>

namespace {

class frmFindTest : public AuthoringTest {
 protected:
  frmFindTest() { LoadStack(u"verbs", 7); }

  /// Shows the window; one that is left open is cancelled.
  void WithFind(const std::function<void()>& act) {
    WithModal<frmFind>([this] { find.ShowForSearch(); },
                       [&](frmFind&) {
                         act();
                         if (find.isVisible()) Click(find, "cmdCanc");
                       });
  }
  void Search(const QString& text) {
    WithFind([&] {
      Retype(find, "txtFind", text);
      Click(find, "cmdOK");
      EXPECT_FALSE(find.isVisible());
    });
  }
  void ExpectNotFound() {
    ASSERT_EQ(prompts.shown.size(), 1U);
    ExpectPrompt(prompts.shown.at(0), u"Text Not Found", PromptIcon::Exclamation,
                 PromptButtons::Ok);
  }

  bool IsTicked(const char* name) { return Find<QCheckBox>(find, name).isChecked(); }
  QFont FieldFont() { return Line(find, "txtFind").font(); }

  Int16& found = shared.Switches.FoundCard;
  frmFind find{shared, platform, nullptr};
};

TEST_F(frmFindTest, OpensWithBothSidesAndTheEmptyCaseBox) {
  SetPointer(PointerShape::Busy);
  WithFind([this] {
    EXPECT_EQ(find.windowTitle(), "Finder - Using verbs");
    EXPECT_TRUE(IsTicked("sscFront"));
    EXPECT_TRUE(IsTicked("sscBack"));
    EXPECT_FALSE(IsTicked("sscCase"));
    EXPECT_TRUE(Line(find, "txtFind").hasFocus());
    EXPECT_TRUE(IsPointerNormal());
    EXPECT_EQ(Find<QCheckBox>(find, "sscFront").text(), "&Front of Card");
    EXPECT_EQ(Find<QCheckBox>(find, "sscBack").text(), "&Back of Card");
    EXPECT_EQ(Find<QCheckBox>(find, "sscCase").text(), "&Case Sensitive");
    EXPECT_EQ(Button(find, "cmdOK").text(), "OK");
    EXPECT_EQ(Button(find, "cmdCanc").text(), "Cancel");
  });
}

TEST_F(frmFindTest, ThePointerIsNormalAtEveryShowing) {
  WithFind([] {});
  SetPointer(PointerShape::Busy);
  WithFind([] { EXPECT_TRUE(IsPointerNormal()); });
}

TEST_F(frmFindTest, FindsTheFirstCardAndHides) {
  Search("back 3");
  EXPECT_EQ(found, 3);
}

TEST_F(frmFindTest, AHitOnBothSidesIsOneHit) {
  shared.Stacks.Current().SetSideText(2, Front, u"ser");
  shared.Stacks.Current().SetSideText(2, Back, u"ser");
  shared.Stacks.Current().SetSideText(5, Back, u"ser");
  Search("ser");
  EXPECT_EQ(found, 2);
  find.FindNext();
  EXPECT_EQ(found, 5);
}

TEST_F(frmFindTest, TellsWhenNothingIsFound) {
  prompts.Expect(Answer::Ok);
  prompts.WhileShown([this] { EXPECT_TRUE(find.isVisible()); });
  Search("absent");
  EXPECT_EQ(found, 0);
  ExpectNotFound();
}

TEST_F(frmFindTest, BehindTheLastHitTheHitIsKept) {
  prompts.Expect(Answer::Ok);
  Search("front 7");
  EXPECT_EQ(found, 7);
  find.FindNext();
  EXPECT_EQ(found, 7);
  ExpectNotFound();
}

TEST_F(frmFindTest, AnEmptyTextSearchesNothing) {
  WithFind([this] {
    Click(find, "cmdOK");
    EXPECT_TRUE(find.isVisible());
  });
  EXPECT_EQ(found, 0);
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(frmFindTest, ABlankIsATextToFind) {
  shared.Stacks.Current().SetSideText(1, Front, u"x");
  shared.Stacks.Current().SetSideText(1, Back, u"y");
  Search(" ");
  EXPECT_EQ(found, 2);
}

TEST_F(frmFindTest, LetterCaseCountsUntilTheCaseBoxIsTicked) {
  prompts.Expect(Answer::Ok);
  Search("FRONT 2");
  ExpectNotFound();
  WithFind([this] {
    Click(find, "sscCase");
    Click(find, "cmdOK");
  });
  EXPECT_EQ(found, 2);
}

TEST_F(frmFindTest, SearchesTheTickedSideAlone) {
  prompts.Expect(Answer::Ok);
  WithFind([this] {
    Click(find, "sscBack");
    Retype(find, "txtFind", "back");
    Click(find, "cmdOK");
  });
  ExpectNotFound();
}

TEST_F(frmFindTest, OneSideStaysTicked) {
  WithFind([this] {
    for (const char* const name : {"sscFront", "sscBack"}) {
      const char* const other = name == std::string("sscFront") ? "sscBack" : "sscFront";
      Click(find, other);
      Click(find, name);
      EXPECT_TRUE(IsTicked(name));
      EXPECT_FALSE(IsTicked(other));
      Click(find, other);
    }
  });
}

TEST_F(frmFindTest, EveryWayOutOnlyHidesAndKeepsTheSettings) {
  const std::vector<std::function<void()>> ways = {
      [this] { Click(find, "cmdCanc"); }, [this] { find.close(); },
      [this] { QTest::keyClick(&Line(find, "txtFind"), Qt::Key_Escape); }};
  for (const auto& leave : ways) {
    WithFind([&] {
      Retype(find, "txtFind", "ser");
      Click(find, "sscBack");
      leave();
      EXPECT_FALSE(find.isVisible());
    });
    WithFind([this] {
      EXPECT_EQ(Line(find, "txtFind").text(), "ser");
      EXPECT_FALSE(IsTicked("sscBack"));
      Click(find, "sscBack");
    });
  }
  EXPECT_EQ(found, 0);
}

TEST_F(frmFindTest, EnterIsOk) {
  for (const char* const name : {"txtFind", "sscBack"}) {
    shared.Switches.FoundCard = 0;
    WithFind([&] {
      Find<QWidget>(find, "txtFind").setFocus();
      QTest::keyClick(&Line(find, "txtFind"), Qt::Key_A, Qt::ControlModifier);
      QTest::keyClick(&Line(find, "txtFind"), Qt::Key_Delete);
      QTest::keyClick(&Line(find, "txtFind"), Qt::Key_Return);
      EXPECT_TRUE(find.isVisible()) << "there is nothing to look for";
      QTest::keyClicks(&Line(find, "txtFind"), "front 2");
      Find<QWidget>(find, name).setFocus();
      QTest::keyClick(&Find<QWidget>(find, name), Qt::Key_Return);
      EXPECT_FALSE(find.isVisible());
    });
    EXPECT_EQ(shared.Switches.FoundCard, 2) << name;
  }
}

TEST_F(frmFindTest, TypingReplacesTheTextOfTheLastSearch) {
  Search("front 2");
  WithFind([this] {
    EXPECT_TRUE(Line(find, "txtFind").hasFocus());
    QTest::keyClicks(&Line(find, "txtFind"), "b");
    EXPECT_EQ(Line(find, "txtFind").text(), "b");
  });
}

TEST_F(frmFindTest, APickedCharacterIsAddedAndReplacesNothing) {
  WithFind([this] {
    Retype(find, "txtFind", "caf");
    WithModal<frmMoreKeys>([this] { Choose(find, "mnuFKeysHead", "mnuFKeys(0)"); },
                           [](frmMoreKeys& chart) {
                             Find<QScrollBar>(chart, "hsbBar").setValue(3);
                             Click(chart, "sspKey(5)");
                             Click(chart, "cmdSend");
                           });
    Reactivate(find);
    EXPECT_EQ(Line(find, "txtFind").text().size(), 4);
    EXPECT_TRUE(Line(find, "txtFind").text().startsWith("caf"));
    EXPECT_FALSE(Line(find, "txtFind").hasSelectedText());
  });
}

TEST_F(frmFindTest, TheKeyMenusFollowTheTickedSidesWhileTheFieldHasTheFocus) {
  WithFind([this] {
    const auto enabled = [this](const char* head) { return Find<QAction>(find, head).isEnabled(); };
    EXPECT_TRUE(enabled("mnuFKeysHead"));
    EXPECT_TRUE(enabled("mnuBKeysHead"));
    Click(find, "sscBack");
    Find<QWidget>(find, "sscBack").setFocus();
    EXPECT_FALSE(enabled("mnuFKeysHead"));
    EXPECT_FALSE(enabled("mnuBKeysHead"));
    Line(find, "txtFind").setFocus();
    EXPECT_TRUE(enabled("mnuFKeysHead"));
    EXPECT_FALSE(enabled("mnuBKeysHead"));
  });
}

TEST_F(frmFindTest, TheKeyItemsAreThoseOfTheTopicAtEachShowing) {
  WithFind([this] { EXPECT_EQ(find.findChild<QAction*>("mnuFKeys(1)"), nullptr); });
  UseTopic(1);
  WithFind([this] {
    Choose(find, "mnuFKeysHead", "mnuFKeys(1)");
    EXPECT_EQ(Line(find, "txtFind").text(), QStringLiteral(u"\u00E9"));
    QTest::keyClick(&Line(find, "txtFind"), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(Line(find, "txtFind").text(), QStringLiteral(u"\u00E9\u00F3"));
  });
}

TEST_F(frmFindTest, TheFontIsThatOfTheOnlyTickedSide) {
  UseTopic(2);
  WithFind([this] {
    EXPECT_EQ(FieldFont().family(), "MS Sans Serif");
    EXPECT_EQ(FieldFont().pointSizeF(), 8.25);
    Click(find, "sscBack");
    EXPECT_EQ(FieldFont().family(), "Liberation Serif");
    EXPECT_EQ(FieldFont().pointSizeF(), 14);
    Click(find, "sscBack");
    EXPECT_EQ(FieldFont().pointSizeF(), 8.25);
  });
}

TEST_F(frmFindTest, ASizeAloneDoesNotChangeTheFont) {
  UseTopic(2);
  WithFind([this] {
    Click(find, "sscFront");  // the back's font is the same at 9 points
    EXPECT_EQ(FieldFont().pointSizeF(), 8.25);
  });
}

TEST_F(frmFindTest, TheFontIsNeitherBoldNorItalic) {
  WithFind([this] {
    EXPECT_FALSE(FieldFont().bold());
    EXPECT_FALSE(FieldFont().italic());
  });
}

TEST_F(frmFindTest, TypingEndsAt256CharactersAndPastingDoesNot) {
  WithFind([this] {
    Paste(find, "txtFind", QString(256, u'x'));
    QTest::keyClicks(&Line(find, "txtFind"), "y");
    EXPECT_EQ(Line(find, "txtFind").text().size(), 256);
    Paste(find, "txtFind", "z\nlost");
    EXPECT_EQ(Line(find, "txtFind").text(), QString(256, u'x') + 'z');
  });
}

TEST_F(frmFindTest, FindsOtherScriptsAndNoBreakSpaces) {
  const Text text = u"\u0434\u043E\u043C\u00A0\u65E5";
  shared.Stacks.Current().SetSideText(6, Back, u"the " + text);
  WithFind([&] {
    Paste(find, "txtFind", ToQString(text));
    Click(find, "cmdOK");
  });
  EXPECT_EQ(found, 6);
}

TEST_F(frmFindTest, HelpOpensItsPage) {
  WithFind([this] { QTest::keyClick(&find, Qt::Key_F1); });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::Find});
}

}  // namespace
