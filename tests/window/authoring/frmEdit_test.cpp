#include "windows/authoring/frmEdit.h"

#include "cards/StackFileOperations.h"
#include "tests/window/authoring/AuthoringFixture.h"
#include "windows/authoring/RowLabel.h"
#include "windows/authoring/frmCreate.h"
#include "windows/authoring/frmFind.h"
#include "windows/topics/frmConfig.h"

#include <QLayout>
#include <QListWidget>
#include <QScrollBar>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

namespace {

class frmEditTest : public AuthoringTest {
 protected:
  using Act = std::function<void(frmEdit&)>;

  /// Opens the editor; one that is left open is cancelled.
  void WithEditor(const Act& act) {
    WithModal<frmEdit>([this] { frmEdit(shared, platform, nullptr, find).ShowModal(); },
                       [&](frmEdit& window) {
                         act(window);
                         if (!window.isVisible()) return;
                         prompts.Expect(Answer::Yes);
                         Click(window, "cmdCancAll");
                       });
  }
  void WithEditor(int cards, const Act& act) {
    LoadStack(u"verbs", cards);
    WithEditor(act);
  }

  CardStack& Stack() { return shared.Stacks.Current(); }
  Text Front(int card) { return Text(Stack().SideText(card, ::Front)); }
  Text Back(int card) { return Text(Stack().SideText(card, ::Back)); }

  static QString Column(int column, int row) {
    return QStringLiteral("lblCol%1(%2)").arg(column).arg(row);
  }
  static RowLabel& Row(frmEdit& window, int row, int column = 1) {
    return Find<RowLabel>(window, Column(column, row).toLatin1().constData());
  }
  static void ClickRow(frmEdit& window, int row, int column = 1) {
    QTest::mouseClick(&Row(window, row, column), Qt::LeftButton);
  }
  static QScrollBar& Bar(frmEdit& window) { return Find<QScrollBar>(window, "vsbBar"); }
  static QWidget& List(frmEdit& window) { return Find<QWidget>(window, "sspListBox"); }

  static QStringList Fronts(frmEdit& window) {
    QStringList shown;
    for (int row = 0; row < RowsPerPage; ++row) shown << Row(window, row).text();
    return shown;
  }

  /// The highlighted row, -1 for none. Both columns and no other row must agree.
  static int Highlighted(frmEdit& window) {
    int highlighted = -1;
    for (int row = 0; row < RowsPerPage; ++row) {
      const bool front = Row(window, row, 1).backgroundRole() == QPalette::Highlight;
      const bool back = Row(window, row, 2).backgroundRole() == QPalette::Highlight;
      EXPECT_EQ(front, back);
      if (!front) continue;
      EXPECT_EQ(highlighted, -1);
      highlighted = row;
    }
    return highlighted;
  }
  static bool IsStruckOut(frmEdit& window, int row) {
    const bool front = Row(window, row, 1).font().strikeOut();
    EXPECT_EQ(front, Row(window, row, 2).font().strikeOut());
    return front;
  }
  static QString Position(frmEdit& window) { return TextOf(window, "lblCardCount"); }

  static void Turn(QWidget& widget, int delta) {
    const QPointF place(3, 3);
    QWheelEvent event(place, widget.mapToGlobal(place), {}, QPoint(0, delta), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    // Other events do not go on to the parents of the widget.
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::instance()->notify(&widget, &event);
  }

  /// Presses Save/End and OK in the save dialog.
  static void SaveEnd(frmEdit& window, const QString& name = "verbs") {
    SaveAs([&] { Click(window, "cmdEnd"); }, name);
  }
  static void WithAdding(frmEdit& window, const std::function<void(frmCreate&)>& act) {
    WithModal<frmCreate>([&] { Click(window, "cmdAppend"); },
                         [&](frmCreate& adding) {
                           act(adding);
                           Click(adding, "cmdEnd");
                         });
  }
  static void Search(frmEdit& window, const QString& text) {
    WithModal<frmFind>([&] { Choose(window, "mnuSearch", "mnuFind"); },
                       [&](frmFind& asked) {
                         Retype(asked, "txtFind", text);
                         Click(asked, text.isEmpty() ? "cmdCanc" : "cmdOK");
                       });
    Reactivate(window);
  }
  static void FindNext(frmEdit& window) { QTest::keyClick(&window, Qt::Key_F3); }

  frmFind find{shared, platform, nullptr};
};

// --- Opening ---

TEST_F(frmEditTest, OpensWithoutASelectedCard) {
  UseTopic(1);
  WithEditor(7, [](frmEdit& window) {
    EXPECT_EQ(ToText(window.windowTitle()),
              u"Edit Cards: " + FixedWidth(u"verbs", 256) + u"  (Spanish)");
    EXPECT_EQ(Highlighted(window), -1);
    EXPECT_EQ(Position(window), "0/7");
    for (const char* const name : {"txtFront", "txtBack"}) EXPECT_EQ(Shown(window, name), "");
    EXPECT_EQ(Fronts(window), QStringList({"front 1", "front 2", "front 3", "front 4", "front 5"}));
    EXPECT_EQ(Row(window, 4, 2).text(), "back 5");
    EXPECT_TRUE(IsEnabled(window, "cmdDel"));
    EXPECT_FALSE(Find<QAction>(window, "mnuReFind").isEnabled());
    EXPECT_TRUE(IsPointerNormal());
  });
}

TEST_F(frmEditTest, ShowsTheCaptionsOfItsControls) {
  WithEditor(1, [](frmEdit& window) {
    EXPECT_EQ(Button(window, "cmdEdit").text(), "&Edit");
    EXPECT_EQ(Button(window, "cmdAppend").text(), "&Add Cards");
    EXPECT_EQ(Button(window, "cmdDel").text(), "&Delete Card");
    EXPECT_EQ(Button(window, "cmdEnd").text(), "&Save/End");
    EXPECT_EQ(Button(window, "cmdCancAll").text(), "&Cancel");
    EXPECT_EQ(Find<QMenu>(window, "mnuChange").title(), "Cha&nge");
    EXPECT_EQ(Find<QAction>(window, "mnuTopic").text(), "&Topic...");
    EXPECT_EQ(Find<QAction>(window, "mnuDesc").text(), "&Description...");
    EXPECT_EQ(Find<QAction>(window, "mnuFind").text(), "&Find...");
    EXPECT_EQ(Find<QAction>(window, "mnuReFind").text(), "Find &Next");
  });
}

TEST_F(frmEditTest, FiveCardsNeedNoScrolling) {
  WithEditor(5, [](frmEdit& window) {
    EXPECT_FALSE(Bar(window).isEnabled());
    EXPECT_EQ(Bar(window).minimum(), 1);
    EXPECT_EQ(Bar(window).maximum(), 1);
    EXPECT_EQ(Row(window, 4).text(), "front 5");
  });
}

TEST_F(frmEditTest, TheBarGoesUntilTheLastCardIsAtTheBottom) {
  WithEditor(12, [](frmEdit& window) {
    EXPECT_TRUE(Bar(window).isEnabled());
    EXPECT_EQ(Bar(window).minimum(), 1);
    EXPECT_EQ(Bar(window).maximum(), 8);
    Bar(window).setValue(8);
    EXPECT_EQ(Fronts(window),
              QStringList({"front 8", "front 9", "front 10", "front 11", "front 12"}));
  });
}

TEST_F(frmEditTest, AnEmptyStackHasNothingToDelete) {
  WithEditor(0, [](frmEdit& window) {
    EXPECT_FALSE(IsEnabled(window, "cmdDel"));
    EXPECT_EQ(Position(window), "0/0");
    EXPECT_EQ(Fronts(window), QStringList({"", "", "", "", ""}));
    for (const int key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_PageDown}) {
      QTest::keyClick(&List(window), static_cast<Qt::Key>(key));
    }
    EXPECT_EQ(Highlighted(window), -1);
  });
}

TEST_F(frmEditTest, TextsStandInTheFontsOfTheTopic) {
  UseTopic(2);
  WithEditor(1, [](frmEdit& window) {
    for (const QFont& font : {Box(window, "txtFront").font(), Row(window, 0, 1).font()}) {
      EXPECT_EQ(font.family(), "Liberation Serif");
      EXPECT_EQ(font.pointSizeF(), 14);
    }
    for (const QFont& font : {Box(window, "txtBack").font(), Row(window, 0, 2).font()}) {
      EXPECT_EQ(font.family(), "MS Sans Serif");
      EXPECT_EQ(font.pointSizeF(), 9);
    }
  });
}

// --- Choosing a card ---

TEST_F(frmEditTest, AClickOnEitherColumnShowsTheCard) {
  LoadStack(u"verbs", 7);
  Stack().SetSideSound(2, ::Front, u"f.wav");
  Stack().SetSideSound(2, ::Back, u"b.wav");
  Stack().SetSidePicture(2, ::Front, u"f.bmp");
  Stack().SetSidePicture(2, ::Back, u"b.bmp");
  WithEditor([](frmEdit& window) {
    for (const int column : {1, 2}) {
      ClickRow(window, 0);
      ClickRow(window, 1, column);
      EXPECT_EQ(Highlighted(window), 1);
      EXPECT_EQ(Position(window), "2/7");
      EXPECT_EQ(Shown(window, "txtFront"), "front 2");
      EXPECT_EQ(Shown(window, "txtBack"), "back 2");
      EXPECT_EQ(Line(window, "txtFrontWave").text(), "f.wav");
      EXPECT_EQ(Line(window, "txtBackWave").text(), "b.wav");
      EXPECT_EQ(Line(window, "txtFrontPicture").text(), "f.bmp");
      EXPECT_EQ(Line(window, "txtBackPicture").text(), "b.bmp");
    }
  });
}

TEST_F(frmEditTest, AClickOnAnEmptyLabelDoesNothing) {
  LoadStack(u"verbs", 3);
  Stack().SetSideText(2, ::Back, u"");
  WithEditor([](frmEdit& window) {
    ClickRow(window, 0);
    ClickRow(window, 4);
    ClickRow(window, 1, 2);
    EXPECT_EQ(Highlighted(window), 0);
    EXPECT_EQ(Shown(window, "txtFront"), "front 1");
  });
}

TEST_F(frmEditTest, ACardWithTheBackAloneIsChosenByItsBack) {
  LoadStack(u"verbs", 3);
  Stack().SetSideText(2, ::Front, u"");
  WithEditor([](frmEdit& window) {
    ClickRow(window, 1, 2);
    EXPECT_EQ(Highlighted(window), 1);
    EXPECT_EQ(Shown(window, "txtBack"), "back 2");
    Click(window, "cmdEdit");
    EXPECT_FALSE(Box(window, "txtFront").hasFocus());
  });
}

TEST_F(frmEditTest, ADoubleClickPutsTheFocusIntoTheTextOfItsColumn) {
  WithEditor(3, [](frmEdit& window) {
    ClickRow(window, 1, 1);
    QTest::mouseDClick(&Row(window, 1, 1), Qt::LeftButton);
    EXPECT_TRUE(Box(window, "txtFront").hasFocus());
    ClickRow(window, 1, 2);
    QTest::mouseDClick(&Row(window, 1, 2), Qt::LeftButton);
    EXPECT_TRUE(Box(window, "txtBack").hasFocus());
  });
}

TEST_F(frmEditTest, EditPutsTheFocusIntoTheFrontOfAShownCard) {
  WithEditor(3, [](frmEdit& window) {
    Click(window, "cmdEdit");
    EXPECT_FALSE(Box(window, "txtFront").hasFocus());
    ClickRow(window, 1);
    Click(window, "cmdEdit");
    EXPECT_TRUE(Box(window, "txtFront").hasFocus());
  });
}

TEST_F(frmEditTest, TheSelectionKeepsItsRowWhileScrolling) {
  WithEditor(9, [](frmEdit& window) {
    ClickRow(window, 1);
    Bar(window).setValue(4);
    EXPECT_EQ(Highlighted(window), 1);
    EXPECT_EQ(Shown(window, "txtFront"), "front 5");
    EXPECT_EQ(Position(window), "5/9");
  });
}

TEST_F(frmEditTest, ScrollingOntoAnEmptyFrontDeselects) {
  LoadStack(u"verbs", 9);
  Stack().SetSideText(5, ::Front, u"");
  WithEditor([](frmEdit& window) {
    ClickRow(window, 1);
    Bar(window).setValue(4);
    EXPECT_EQ(Highlighted(window), -1);
    EXPECT_EQ(Shown(window, "txtBack"), "");
    EXPECT_EQ(Position(window), "3/9");
  });
}

TEST_F(frmEditTest, EnterOnTheBarShowsTheCardAnew) {
  WithEditor(9, [this](frmEdit& window) {
    ClickRow(window, 1);
    Retype(window, "txtFront", "typed");
    Bar(window).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Bar(window), Qt::Key_Return);
    EXPECT_EQ(Front(2), u"typed");
    EXPECT_EQ(Shown(window, "txtFront"), "typed");
    EXPECT_EQ(Highlighted(window), 1);
  });
}

TEST_F(frmEditTest, EnterOnTheBarWithoutASelectionDoesNothing) {
  WithEditor(9, [](frmEdit& window) {
    Bar(window).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Bar(window), Qt::Key_Return);
    EXPECT_EQ(Highlighted(window), -1);
    EXPECT_EQ(Position(window), "0/9");
  });
}

TEST_F(frmEditTest, TheArrowKeysMoveThroughTheList) {
  WithEditor(12, [](frmEdit& window) {
    struct Step {
      Qt::Key key;
      const char* position;
      int row;
    };
    for (const Step& step : {Step{Qt::Key_Down, "1/12", 0}, Step{Qt::Key_Down, "2/12", 1},
                             Step{Qt::Key_PageDown, "7/12", 4}, Step{Qt::Key_Up, "6/12", 3},
                             Step{Qt::Key_End, "12/12", 4}, Step{Qt::Key_Down, "12/12", 4},
                             Step{Qt::Key_PageUp, "7/12", 0}, Step{Qt::Key_Home, "1/12", 0},
                             Step{Qt::Key_Up, "1/12", 0}}) {
      QTest::keyClick(&List(window), step.key);
      EXPECT_EQ(Position(window), step.position);
      EXPECT_EQ(Highlighted(window), step.row);
    }
    QTest::keyClick(&List(window), Qt::Key_Return);
    EXPECT_TRUE(Box(window, "txtFront").hasFocus());
  });
}

TEST_F(frmEditTest, TheKeysReachCardsWithoutAnyText) {
  LoadStack(u"verbs", 8);
  for (const int card : {2, 3, 8}) {
    Stack().SetSideText(card, ::Front, u"");
    Stack().SetSideText(card, ::Back, u"");
  }
  Stack().SetSideText(4, ::Front, u"");
  WithEditor([](frmEdit& window) {
    struct Step {
      Qt::Key key;
      const char* position;
    };
    for (const Step& step :
         {Step{Qt::Key_Down, "1/8"}, Step{Qt::Key_Down, "2/8"}, Step{Qt::Key_End, "8/8"},
          Step{Qt::Key_Down, "8/8"}, Step{Qt::Key_PageUp, "3/8"}}) {
      QTest::keyClick(&List(window), step.key);
      EXPECT_EQ(Position(window), step.position);
    }
  });
}

TEST_F(frmEditTest, TheWheelScrollsACardForEachNotch) {
  WithEditor(12, [](frmEdit& window) {
    Turn(Row(window, 2), -120);
    EXPECT_EQ(Bar(window).value(), 2);
    Turn(Bar(window), -240);
    EXPECT_EQ(Bar(window).value(), 4);
    Turn(Row(window, 2), 360);
    EXPECT_EQ(Bar(window).value(), 1);
    for (int part = 0; part < 4; ++part) Turn(Row(window, 2), -30);
    EXPECT_EQ(Bar(window).value(), 2);
  });
}

TEST_F(frmEditTest, TheWheelOverATextLeavesTheListAlone) {
  WithEditor(12, [](frmEdit& window) {
    ClickRow(window, 0);
    Turn(*Box(window, "txtFront").viewport(), -120);
    Turn(Line(window, "txtFrontWave"), -120);
    EXPECT_EQ(Bar(window).value(), 1);
  });
}

// --- Editing ---

TEST_F(frmEditTest, LookingAtCardsChangesNone) {
  const std::vector<Text> texts = {u"a\r\nb",        u"lone\rreturn",  u"lone\nfeed",
                                   u"blanks   ",     u"no\u00A0break", u"\u043F\u65E5\U0001F600",
                                   u"\r\n\r\n",      u"tab\t\u2028x",  u"<b>&</b>",
                                   Text(5000, u'x'), u"\u2029y",       u"^^"};
  LoadStack(u"verbs", static_cast<int>(texts.size()));
  for (std::size_t i = 0; i < texts.size(); ++i) {
    Stack().SetSideText(static_cast<int>(i) + 1, ::Front, texts[i]);
    Stack().SetSideText(static_cast<int>(i) + 1, ::Back, texts[i]);
  }
  WithEditor([](frmEdit& window) {
    for (int step = 0; step < 14; ++step) {
      QTest::keyClick(&List(window), Qt::Key_Down);
      Box(window, "txtFront").setFocus();
      Box(window, "txtBack").setFocus();
      List(window).setFocus();
    }
    Bar(window).setValue(1);
    ClickRow(window, 2);
  });
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(Front(static_cast<int>(i) + 1), texts[i]);
    EXPECT_EQ(Back(static_cast<int>(i) + 1), texts[i]);
  }
}

TEST_F(frmEditTest, ATextIsStoredWhenItsFieldLosesTheFocus) {
  WithEditor(3, [this](frmEdit& window) {
    ClickRow(window, 1);
    Retype(window, "txtFront", "new ^front^^");
    EXPECT_EQ(Front(2), u"front 2");
    QTest::keyClick(&Box(window, "txtFront"), Qt::Key_Tab);
    EXPECT_EQ(Front(2), u"new ^front^^");
    EXPECT_EQ(Row(window, 1).text(), "new ^front^^");
    Retype(window, "txtBack", "new back");
    Line(window, "txtBackWave").setFocus();
    EXPECT_EQ(Back(2), u"new back");
    EXPECT_EQ(Row(window, 1, 2).text(), "new back");
  });
}

TEST_F(frmEditTest, ArrowKeysOnAButtonMoveTheSelectionAndNeverTheFocus) {
  WithEditor(8, [](frmEdit& window) {
    ClickRow(window, 1);
    QTest::keyClick(window.focusWidget(), Qt::Key_D, Qt::AltModifier);
    ASSERT_TRUE(Button(window, "cmdDel").hasFocus());
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Left}) {
      QTest::keyClick(window.focusWidget(), key);
      EXPECT_TRUE(Button(window, "cmdDel").hasFocus());
    }
    EXPECT_EQ(Position(window), "3/8");
    QTest::keyClick(window.focusWidget(), Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(IsStruckOut(window, 1));
    EXPECT_TRUE(IsStruckOut(window, 2));
    QTest::keyClick(window.focusWidget(), Qt::Key_Up);
    EXPECT_EQ(Position(window), "2/8");
  });
}

// --- No way out of a field loses what was typed ---

class frmEditWaysOut : public frmEditTest {
 protected:
  /// Types into both texts of card 2 of eight, leaves by `way`, and expects the card to have them.
  void ExpectStored(const Act& way, const char* lastField = "txtBack") {
    WithEditor(8, [&](frmEdit& window) {
      ClickRow(window, 1);
      Retype(window, lastField == std::string("txtBack") ? "txtFront" : "txtBack", "first");
      Retype(window, lastField, "last");
      EXPECT_NE(Back(2), u"last");
      EXPECT_NE(Front(2), u"last");
      way(window);
      const bool backLast = lastField == std::string("txtBack");
      EXPECT_EQ(Front(2), backLast ? u"first" : u"last");
      EXPECT_EQ(Back(2), backLast ? u"last" : u"first");
    });
  }
};

TEST_F(frmEditWaysOut, AnotherRow) {
  ExpectStored([](frmEdit& window) { ClickRow(window, 3); });
}
TEST_F(frmEditWaysOut, TheSameRow) {
  ExpectStored([](frmEdit& window) { ClickRow(window, 1); });
}
TEST_F(frmEditWaysOut, TheBar) {
  ExpectStored([](frmEdit& window) {
    Bar(window).triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_GT(Bar(window).value(), 1);
  });
}
TEST_F(frmEditWaysOut, TheWheel) {
  ExpectStored([](frmEdit& window) { Turn(Row(window, 0), -120); });
}
TEST_F(frmEditWaysOut, TheMnemonicOfDelete) {
  ExpectStored([](frmEdit& window) {
    QTest::keyClick(window.focusWidget(), Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(IsStruckOut(window, 1));
  });
}
TEST_F(frmEditWaysOut, Find) {
  ExpectStored([](frmEdit& window) { Search(window, "back 7"); });
}
TEST_F(frmEditWaysOut, TheShortcutOfFind) {
  ExpectStored([](frmEdit& window) {
    WithModal<frmFind>(
        [&] { QTest::keyClick(window.focusWidget(), Qt::Key_F, Qt::ControlModifier); },
        [](frmFind& asked) { Click(asked, "cmdCanc"); });
  });
}
TEST_F(frmEditWaysOut, FindNext) {
  LoadStack(u"verbs", 8);
  WithEditor([this](frmEdit& window) {
    Search(window, "front 2");
    Retype(window, "txtBack", "front 2b");
    Stack().SetSideText(6, ::Back, u"front 2");
    FindNext(window);
    EXPECT_EQ(Back(2), u"front 2b");
    EXPECT_EQ(Position(window), "6/8");
  });
}
TEST_F(frmEditWaysOut, AddingCards) {
  ExpectStored([](frmEdit& window) { WithAdding(window, [](frmCreate&) {}); });
}
TEST_F(frmEditWaysOut, TheTopic) {
  ExpectStored([](frmEdit& window) {
    WithModal<frmConfig>([&] { Choose(window, "mnuChange", "mnuTopic"); },
                         [](frmConfig& topics) { Click(topics, "cmdCancel"); });
  });
}
TEST_F(frmEditWaysOut, TheDescription) {
  ExpectStored([](frmEdit& window) {
    WithModal<frmDesc>([&] { Choose(window, "mnuChange", "mnuDesc"); },
                       [](frmDesc& asked) { Click(asked, "cmdCanc"); });
  });
}
TEST_F(frmEditWaysOut, ACancelledSave) {
  ExpectStored([](frmEdit& window) { CancelSave([&] { Click(window, "cmdEnd"); }); });
}
TEST_F(frmEditWaysOut, CancelByItsMnemonic) {
  prompts.Expect(Answer::Yes);
  ExpectStored(
      [](frmEdit& window) { QTest::keyClick(window.focusWidget(), Qt::Key_C, Qt::AltModifier); });
}
TEST_F(frmEditWaysOut, TheCloseBox) {
  prompts.Expect(Answer::No);
  ExpectStored([](frmEdit& window) { window.close(); });
}
TEST_F(frmEditWaysOut, TheCloseBoxFromTheFront) {
  prompts.Expect(Answer::No);
  ExpectStored([](frmEdit& window) { window.close(); }, "txtFront");
}
TEST_F(frmEditWaysOut, SaveByItsMnemonic) {
  LoadStack(u"verbs", 2);
  WithEditor([](frmEdit& window) {
    ClickRow(window, 1);
    Retype(window, "txtFront", "typed");
    SaveAs([&] { QTest::keyClick(window.focusWidget(), Qt::Key_S, Qt::AltModifier); }, "verbs");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_TRUE(files.Content(u"/cards/verbs.QBC").ends_with("typed  \r\nback 2  \r\n"));
}

// --- The fields ---

TEST_F(frmEditTest, MediaNamesAreStoredAtEveryChange) {
  WithEditor(3, [this](frmEdit& window) {
    ClickRow(window, 1);
    Type(window, "txtFrontWave", "a ");
    EXPECT_EQ(Stack().SideSound(2, ::Front), u"a ");
    Type(window, "txtBackWave", "b");
    EXPECT_EQ(Stack().SideSound(2, ::Back), u"b");
    Type(window, "txtFrontPicture", "c");
    EXPECT_EQ(Stack().SidePicture(2, ::Front), u"c");
    Type(window, "txtBackPicture", "d");
    EXPECT_EQ(Stack().SidePicture(2, ::Back), u"d");
    QTest::keyClick(&Line(window, "txtBackPicture"), Qt::Key_Backspace);
    EXPECT_EQ(Stack().SidePicture(2, ::Back), u"");
  });
}

TEST_F(frmEditTest, OneCardsMediaNamesNeverLandInAnother) {
  LoadStack(u"verbs", 8);
  Stack().SetSideSound(1, ::Front, u"one.wav");
  Stack().SetSidePicture(3, ::Back, u"three.bmp");
  WithEditor([](frmEdit& window) {
    for (int step = 0; step < 9; ++step) QTest::keyClick(&List(window), Qt::Key_Down);
    Bar(window).setValue(1);
    ClickRow(window, 0);
    ClickRow(window, 2);
  });
  for (int card = 1; card <= 8; ++card) {
    EXPECT_EQ(Stack().SideSound(card, ::Front), card == 1 ? u"one.wav" : u"");
    EXPECT_EQ(Stack().SidePicture(card, ::Back), card == 3 ? u"three.bmp" : u"");
    EXPECT_EQ(Stack().SideSound(card, ::Back), u"");
    EXPECT_EQ(Stack().SidePicture(card, ::Front), u"");
  }
}

TEST_F(frmEditTest, APastedMediaNameEndsAtItsLineBreakInTheStackToo) {
  WithEditor(1, [this](frmEdit& window) {
    ClickRow(window, 0);
    Paste(window, "txtFrontWave", "a.wav\r\nb.wav");
    EXPECT_EQ(Line(window, "txtFrontWave").text(), "a.wav");
    EXPECT_EQ(Stack().SideSound(1, ::Front), u"a.wav");
    QTest::keyClick(&Line(window, "txtFrontWave"), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Stack().SideSound(1, ::Front), u"");
  });
}

TEST_F(frmEditTest, WithoutASelectedCardNothingIsStored) {
  WithEditor(2, [this](frmEdit& window) {
    for (const char* const name : {"txtFront", "txtBack", "txtFrontWave", "txtBackWave",
                                   "txtFrontPicture", "txtBackPicture"}) {
      Type(window, name, "typed");
    }
    Click(window, "cmdDel");
    List(window).setFocus();
    for (int card = 0; card <= 3; ++card) {
      for (const int side : {::Front, ::Back}) {
        EXPECT_EQ(Stack().SideSound(card, side), u"");
        EXPECT_EQ(Stack().SidePicture(card, side), u"");
        EXPECT_NE(Stack().SideText(card, side), u"typed");
      }
    }
    for (int row = 0; row < RowsPerPage; ++row) EXPECT_FALSE(IsStruckOut(window, row));
  });
}

TEST_F(frmEditTest, EveryCharacterArrivesInTheStack) {
  const Text text = u"  \u00A0\u043F\u65E5\U0001F600<b>&amp;</b>\t  ";
  WithEditor(1, [&](frmEdit& window) {
    ClickRow(window, 0);
    Box(window, "txtFront").selectAll();
    Paste(window, "txtFront", ToQString(text));
    List(window).setFocus();
    EXPECT_EQ(Front(1), text);
  });
}

TEST_F(frmEditTest, ANoBreakSpaceInPlaceOfABlankIsAChange) {
  LoadStack(u"verbs", 1);
  Stack().SetSideText(1, ::Front, u"a b");
  WithEditor([this](frmEdit& window) {
    ClickRow(window, 0);
    Box(window, "txtFront").selectAll();
    Paste(window, "txtFront", QStringLiteral(u"a\u00A0b"));
    List(window).setFocus();
    EXPECT_EQ(Front(1), u"a\u00A0b");
  });
}

TEST_F(frmEditTest, AnEditedTextKeepsItsLineBreaks) {
  LoadStack(u"verbs", 1);
  Stack().SetSideText(1, ::Front, u"a\r\nb");
  WithEditor([this](frmEdit& window) {
    EXPECT_EQ(Row(window, 0).text(), QStringLiteral(u"a \u21B5 b"));
    ClickRow(window, 0);
    Box(window, "txtFront").moveCursor(QTextCursor::End);
    Type(window, "txtFront", "c");
    QTest::keyClick(&Box(window, "txtFront"), Qt::Key_Return);
    List(window).setFocus();
    EXPECT_EQ(Front(1), u"a\r\nbc");
  });
}

TEST_F(frmEditTest, TypingEndsAt256CharactersOfTheStoredText) {
  LoadStack(u"verbs", 1);
  Stack().SetSideText(1, ::Front, Text(253, u'x') + u"\r\n");
  WithEditor([this](frmEdit& window) {
    ClickRow(window, 0);
    Box(window, "txtFront").moveCursor(QTextCursor::End);
    Type(window, "txtFront", "yz");
    List(window).setFocus();
    EXPECT_EQ(Front(1), Text(253, u'x') + u"\r\ny");
  });
}

TEST_F(frmEditTest, TypingCanBeUndoneAlsoAfterItWasStored) {
  WithEditor(2, [this](frmEdit& window) {
    ClickRow(window, 0);
    Box(window, "txtFront").moveCursor(QTextCursor::End);
    Type(window, "txtFront", "!!");
    Box(window, "txtBack").setFocus();
    EXPECT_EQ(Front(1), u"front 1!!");
    Box(window, "txtFront").setFocus();
    QTest::keyClick(&Box(window, "txtFront"), Qt::Key_Z, Qt::ControlModifier);
    List(window).setFocus();
    EXPECT_EQ(Front(1), u"front 1");
  });
}

TEST_F(frmEditTest, UndoNeverBringsBackTheTextOfAnotherCard) {
  WithEditor(2, [this](frmEdit& window) {
    ClickRow(window, 0);
    ClickRow(window, 1);
    Box(window, "txtFront").setFocus();
    QTest::keyClick(&Box(window, "txtFront"), Qt::Key_Z, Qt::ControlModifier);
    List(window).setFocus();
    EXPECT_EQ(Front(2), u"front 2");
  });
}

TEST_F(frmEditTest, AnEmptiedFrontStaysSelectedUntilTheListIsScrolled) {
  WithEditor(8, [this](frmEdit& window) {
    ClickRow(window, 1);
    Retype(window, "txtFront", "");
    List(window).setFocus();
    EXPECT_EQ(Front(2), u"");
    EXPECT_EQ(Highlighted(window), 1);
    Bar(window).setValue(2);
    EXPECT_EQ(Shown(window, "txtFront"), "front 3");
  });
}

TEST_F(frmEditTest, AKeyAssignmentTypesAndItsMenuFollowsTheFocus) {
  UseTopic(1);
  WithEditor(1, [this](frmEdit& window) {
    const auto enabled = [&](const char* head) { return Find<QAction>(window, head).isEnabled(); };
    EXPECT_FALSE(enabled("mnuFKeysHead"));
    ClickRow(window, 0);
    Box(window, "txtFront").setFocus();
    EXPECT_TRUE(enabled("mnuFKeysHead"));
    Box(window, "txtFront").moveCursor(QTextCursor::End);
    QTest::keyClick(&Box(window, "txtFront"), Qt::Key_E, Qt::ControlModifier);
    Choose(window, "mnuFKeysHead", "mnuFKeys(1)");
    Box(window, "txtBack").setFocus();
    EXPECT_FALSE(enabled("mnuFKeysHead"));
    EXPECT_TRUE(enabled("mnuBKeysHead"));
    EXPECT_EQ(Front(1), u"front 1\u00E9\u00E9");
  });
}

// --- Marks ---

TEST_F(frmEditTest, DeleteStrikesACardOutAndTakesItBack) {
  WithEditor(7, [this](frmEdit& window) {
    ClickRow(window, 1);
    Click(window, "cmdDel");
    EXPECT_TRUE(IsStruckOut(window, 1));
    EXPECT_FALSE(IsStruckOut(window, 0));
    EXPECT_EQ(Stack().CardCount, 7);
    Bar(window).setValue(2);
    EXPECT_TRUE(IsStruckOut(window, 0));
    EXPECT_FALSE(IsStruckOut(window, 1));
    Bar(window).setValue(1);
    Click(window, "cmdDel");
    EXPECT_FALSE(IsStruckOut(window, 1));
  });
}

TEST_F(frmEditTest, MarksAreForgottenWithoutSaving) {
  WithEditor(3, [](frmEdit& window) {
    ClickRow(window, 1);
    Click(window, "cmdDel");
  });
  EXPECT_EQ(Stack().CardCount, 3);
  WithEditor([](frmEdit& window) { EXPECT_FALSE(IsStruckOut(window, 1)); });
}

// --- Adding ---

TEST_F(frmEditTest, AddedCardsAppearAndTheFirstPageIsShown) {
  WithEditor(5, [this](frmEdit& window) {
    WithAdding(window, [this](frmCreate& adding) {
      EXPECT_TRUE(shared.Switches.AddCardsMode);
      EXPECT_TRUE(adding.windowTitle().startsWith("Add Cards to verbs "));
      for (int card = 6; card <= 7; ++card) {
        Type(adding, "txtFront", QStringLiteral("f%1").arg(card));
        Type(adding, "txtBack", "b");
        Click(adding, "cmdCont");
      }
    });
    EXPECT_FALSE(shared.Switches.AddCardsMode);
    EXPECT_EQ(Position(window), "0/7");
    EXPECT_TRUE(Bar(window).isEnabled());
    EXPECT_EQ(Bar(window).maximum(), 3);
    EXPECT_TRUE(IsPointerNormal());
    Bar(window).setValue(3);
    EXPECT_EQ(Row(window, 4).text(), "f7");
    WithAdding(window, [](frmCreate&) {});
    EXPECT_EQ(Bar(window).value(), 1);
  });
}

TEST_F(frmEditTest, AfterAddingDeleteCanBePressedWhateverWasAdded) {
  WithEditor(0, [](frmEdit& window) {
    WithAdding(window, [](frmCreate&) {});
    EXPECT_TRUE(IsEnabled(window, "cmdDel"));
    Click(window, "cmdDel");
  });
}

// --- Finding ---

TEST_F(frmEditTest, AFoundCardIsShownInTheBottomRowWherePossible) {
  WithEditor(25, [](frmEdit& window) {
    for (const auto& [text, top, row] : {std::tuple("front 3", 1, 2), std::tuple("back 20", 16, 4),
                                         std::tuple("back 25", 21, 4)}) {
      Search(window, text);
      EXPECT_EQ(Bar(window).value(), top);
      EXPECT_EQ(Highlighted(window), row);
      EXPECT_EQ(Row(window, row).text(), Shown(window, "txtFront"));
      EXPECT_TRUE(Find<QAction>(window, "mnuReFind").isEnabled());
    }
    EXPECT_EQ(Position(window), "25/25");
  });
}

TEST_F(frmEditTest, FindNextGoesOnBehindTheLastHit) {
  prompts.Expect(Answer::Ok);
  WithEditor(25, [this](frmEdit& window) {
    Search(window, "back 1");
    EXPECT_EQ(Position(window), "1/25");
    Choose(window, "mnuSearch", "mnuReFind");
    EXPECT_EQ(Position(window), "10/25");
    for (int card = 11; card <= 19; ++card) FindNext(window);
    EXPECT_EQ(Position(window), "19/25");
    Bar(window).setValue(1);
    FindNext(window);
    ExpectPrompt(prompts.shown.at(0), u"Text Not Found", PromptIcon::Exclamation,
                 PromptButtons::Ok);
    EXPECT_EQ(Position(window), "19/25");
    EXPECT_EQ(Bar(window).value(), 15);
    EXPECT_EQ(Highlighted(window), 4);
  });
}

TEST_F(frmEditTest, ASearchThatFindsNothingDisablesFindNext) {
  prompts.Expect(Answer::Ok);
  WithEditor(7, [this](frmEdit& window) {
    Search(window, "back 6");
    Search(window, "absent");
    EXPECT_EQ(prompts.shown.size(), 1U);
    EXPECT_FALSE(Find<QAction>(window, "mnuReFind").isEnabled());
    EXPECT_EQ(Position(window), "6/7");
    FindNext(window);
    EXPECT_EQ(prompts.shown.size(), 1U);
  });
}

TEST_F(frmEditTest, ACancelledSearchDisablesFindNext) {
  WithEditor(7, [this](frmEdit& window) {
    Search(window, "back 6");
    Search(window, "");
    EXPECT_EQ(shared.Switches.FoundCard, 0);
    EXPECT_FALSE(Find<QAction>(window, "mnuReFind").isEnabled());
    EXPECT_EQ(Position(window), "6/7");
  });
}

// --- Topic and description ---

TEST_F(frmEditTest, AnotherTopicIsTakenOverByStackAndWindow) {
  WithEditor(3, [this](frmEdit& window) {
    ClickRow(window, 1);
    WithModal<frmConfig>([&] { Choose(window, "mnuChange", "mnuTopic"); },
                         [](frmConfig& topics) {
                           auto& list = Find<QListWidget>(topics, "lstTopic");
                           QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                                             list.visualItemRect(list.item(1)).center());
                           Click(topics, "cmdAction");
                         });
    EXPECT_EQ(shared.Topics.CurrentTopic, 1);
    EXPECT_EQ(Stack().TopicIndex, 1);
    EXPECT_TRUE(window.windowTitle().endsWith("  (Spanish)"));
    EXPECT_EQ(Box(window, "txtFront").font().pointSizeF(), 10);
    EXPECT_EQ(Row(window, 0, 2).font().pointSizeF(), 12.5);
    EXPECT_NE(window.findChild<QAction*>("mnuFKeys(1)"), nullptr);
    EXPECT_EQ(Highlighted(window), 1);
    EXPECT_EQ(Shown(window, "txtFront"), "front 2");
  });
}

TEST_F(frmEditTest, TheSelectedTopicCanBeChosenForAStackOfAnother) {
  WithEditor(3, [this](frmEdit& window) {
    Stack().TopicIndex = 2;
    WithModal<frmConfig>([&] { Choose(window, "mnuChange", "mnuTopic"); },
                         [](frmConfig& topics) {
                           auto& list = Find<QListWidget>(topics, "lstTopic");
                           QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                                             list.visualItemRect(list.item(0)).center());
                           Click(topics, "cmdAction");
                         });
    EXPECT_EQ(shared.Topics.CurrentTopic, 0);
    EXPECT_EQ(Stack().TopicIndex, 0);
  });
}

TEST_F(frmEditTest, ACancelledTopicChangesNothing) {
  WithEditor(3, [this](frmEdit& window) {
    Stack().TopicIndex = 2;
    WithModal<frmConfig>([&] { Choose(window, "mnuChange", "mnuTopic"); },
                         [](frmConfig& topics) { Click(topics, "cmdCancel"); });
    EXPECT_EQ(shared.Topics.CurrentTopic, 0);
    EXPECT_EQ(Stack().TopicIndex, 2);
    EXPECT_TRUE(window.windowTitle().endsWith("  (General)"));
  });
}

TEST_F(frmEditTest, DescriptionChangesTheProgramsDescription) {
  shared.Stacks.StackDescription = u"old";
  shared.Switches.NewDescription = true;
  WithEditor(1, [this](frmEdit& window) {
    WithModal<frmDesc>([&] { Choose(window, "mnuChange", "mnuDesc"); },
                       [](frmDesc& asked) {
                         EXPECT_EQ(asked.windowTitle(), "Change File Description");
                         EXPECT_EQ(Line(asked, "txtDesc").text(), "old");
                         Retype(asked, "txtDesc", "new");
                         Click(asked, "cmdOK");
                       });
    EXPECT_EQ(shared.Stacks.StackDescription, u"new");
    EXPECT_TRUE(IsPointerNormal());
  });
}

// --- Saving ---

TEST_F(frmEditTest, SaveEndWritesTheUnmarkedCardsAndCloses) {
  shared.Stacks.StackDescription = u"Some verbs";
  LoadStack(u"verbs", 3);
  Stack().SetSideText(3, ::Back, u"a\r\nb");
  Stack().SetSideSound(3, ::Front, u"/x/c.wav");
  WithEditor([](frmEdit& window) {
    ClickRow(window, 1);
    Click(window, "cmdDel");
    SaveEnd(window);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_TRUE(IsPointerNormal());
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(Stack().CardCount, 2);
  EXPECT_EQ(Front(2), u"front 3");
  EXPECT_EQ(Back(2), u"a\r\nb");
  EXPECT_EQ(Front(3), u"");
  EXPECT_EQ(shared.Stacks.StackFileNumber, nullptr);
  EXPECT_EQ(files.Content(u"/cards/verbs.QBC"),
            "General\r\nSome verbs" + std::string(54, ' ') +
                "\r\nfront 1  \r\nback 1  \r\nfront 3 c.wav \r\na^b  \r\n");
}

TEST_F(frmEditTest, SavingWithEveryCardMarkedLeavesNone) {
  WithEditor(2, [](frmEdit& window) {
    for (const int row : {0, 1}) {
      ClickRow(window, row);
      Click(window, "cmdDel");
    }
    SaveEnd(window);
  });
  EXPECT_EQ(Stack().CardCount, 0);
  EXPECT_EQ(files.Content(u"/cards/verbs.QBC"), "General\r\n" + std::string(64, ' ') + "\r\n");
}

TEST_F(frmEditTest, SavingUnderAnotherNameRenamesTheStack) {
  WithEditor(1, [](frmEdit& window) { SaveEnd(window, "nouns"); });
  EXPECT_EQ(Stack().StackName, u"nouns");
  EXPECT_TRUE(files.Has(u"/cards/nouns.QBC"));
}

TEST_F(frmEditTest, ACancelledSaveKeepsTheEditorAndEverythingInIt) {
  files.Put(u"b7c891aq.6nq", "a file of this name changes nothing");
  WithEditor(3, [this](frmEdit& window) {
    ClickRow(window, 1);
    Click(window, "cmdDel");
    CancelSave([&] { Click(window, "cmdEnd"); });
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(IsStruckOut(window, 1));
    EXPECT_EQ(Stack().CardCount, 3);
    EXPECT_TRUE(IsPointerNormal());
  });
  EXPECT_EQ(files.commits, 0);
  EXPECT_EQ(files.Content(u"b7c891aq.6nq"), "a file of this name changes nothing");
}

TEST_F(frmEditTest, ACancelledSaveNeverMakesTheFileThatItProbesFor) {
  WithEditor(1, [](frmEdit& window) { CancelSave([&] { Click(window, "cmdEnd"); }); });
  EXPECT_FALSE(files.Has(u"b7c891aq.6nq"));
}

TEST_F(frmEditTest, AFileThatAnEarlierSaveLeftOpenIsNotTakenForAnAnswer) {
  LoadStack(u"verbs", 1);
  files.Put(u"/cards/other.QBC", "other");
  std::unique_ptr<FileReplacement> replacement;
  ASSERT_EQ(files.Replace(u"/cards/other.QBC", replacement), FileStatus::Ok);
  shared.Stacks.StackFileNumber = std::make_unique<StackFile>(std::move(replacement), u"x.QBC");
  WithEditor([](frmEdit& window) {
    CancelSave([&] { Click(window, "cmdEnd"); });
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_EQ(files.Content(u"/cards/other.QBC"), "other");
}

TEST_F(frmEditTest, AFailedSaveIsToldAndLosesNothing) {
  prompts.Expect(Answer::Ok);
  prompts.Expect(Answer::Ok);
  files.Put(u"/cards/nouns.QBC", "old");
  WithEditor(3, [this](frmEdit& window) {
    ClickRow(window, 1);
    Click(window, "cmdDel");
    ClickRow(window, 0);
    Retype(window, "txtFront", "2^3");
    SaveEnd(window, "nouns");
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(IsStruckOut(window, 1));
    EXPECT_TRUE(IsPointerNormal());
    EXPECT_EQ(Stack().CardCount, 3);
    EXPECT_EQ(Front(1), u"2^3");
    EXPECT_EQ(Stack().StackName, u"verbs");
    EXPECT_EQ(shared.Stacks.StackFileNumber, nullptr);
  });
  EXPECT_EQ(files.Content(u"/cards/nouns.QBC"), "old");
  EXPECT_TRUE(prompts.shown.at(1).text.starts_with(u"Overflow\r\n\r\nCard 1, front: 2^3\r\n"));
  EXPECT_EQ(prompts.shown.at(1).title, u"Quib!Cards 5.50 Error");
}

TEST_F(frmEditTest, AFullDiskIsToldAndTheNextSaveSucceeds) {
  prompts.Expect(Answer::Ok);
  files.failCommit = FileStatus::DiskFull;
  WithEditor(2, [this](frmEdit& window) {
    SaveEnd(window);
    EXPECT_TRUE(window.isVisible());
    files.failCommit = FileStatus::Ok;
    SaveEnd(window);
    EXPECT_FALSE(window.isVisible());
  });
  ExpectPrompt(prompts.shown.at(0), u"Disk full", PromptIcon::Exclamation, PromptButtons::Ok,
               u"Quib!Cards 5.50 Error");
  EXPECT_TRUE(files.Has(u"/cards/verbs.QBC"));
}

TEST_F(frmEditTest, AStackCanBeEditedAndSavedAgainAndAgain) {
  LoadStack(u"verbs", 1);
  Stack().SetSideText(1, ::Front, u"a\r\nb");
  Stack().SetSideSound(1, ::Front, u"/x/c.wav");
  std::string first;
  for (int time = 0; time < 3; ++time) {
    if (time > 0) prompts.Expect(Answer::Ok);
    WithEditor([](frmEdit& window) { SaveEnd(window); });
    if (time == 0) first = files.Content(u"/cards/verbs.QBC");
    EXPECT_EQ(files.Content(u"/cards/verbs.QBC"), first);
  }
}

TEST_F(frmEditTest, AFileThatWasChangedElsewhereIsKeptUnlessTheUserInsists) {
  const std::string theirs = "General\r\ntheirs\r\nx\r\ny\r\n";
  files.Put(u"/cards/verbs.QBC", "General\r\nSome verbs\r\na\r\nb\r\n");
  ASSERT_EQ(::LoadStack(shared.Stacks, files, prompts, u"/cards", u"verbs.QBC",
                        [](const Text&) { return 0; }),
            FileStatus::Ok);
  files.Put(u"/cards/verbs.QBC", theirs);
  WithEditor([&](frmEdit& window) {
    prompts.Expect(Answer::Ok);
    prompts.Expect(Answer::Cancel);
    SaveEnd(window);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(files.Content(u"/cards/verbs.QBC"), theirs);
    EXPECT_EQ(shared.Stacks.StackFileNumber, nullptr);
    prompts.Expect(Answer::Ok);
    prompts.Expect(Answer::Ok);
    SaveEnd(window);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_TRUE(files.Content(u"/cards/verbs.QBC").ends_with("\r\na  \r\nb  \r\n"));
  ASSERT_EQ(prompts.shown.size(), 4U);
  EXPECT_TRUE(prompts.shown[1].text.starts_with(u"The file was changed elsewhere"));
  WithEditor([&](frmEdit& window) {
    prompts.Expect(Answer::Ok);
    SaveEnd(window);
    EXPECT_FALSE(window.isVisible()) << "what the editor saved itself is no change";
  });
}

// --- Leaving ---

TEST_F(frmEditTest, CancelAsksAndYesLeaves) {
  prompts.Expect(Answer::Yes);
  WithEditor(2, [this](frmEdit& window) {
    ClickRow(window, 0);
    Retype(window, "txtFront", "typed");
    Click(window, "cmdCancAll");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(prompts.shown.size(), 1U);
  });
  ExpectPrompt(prompts.shown.at(0),
               u"Changes will not be saved to disk.\r\nAre you sure you want to cancel?",
               PromptIcon::Exclamation, PromptButtons::YesNo);
  EXPECT_EQ(Front(1), u"typed");
  EXPECT_EQ(files.commits, 0);
}

TEST_F(frmEditTest, CancelAsksAndNoStays) {
  prompts.Expect(Answer::No);
  WithEditor(2, [](frmEdit& window) {
    Click(window, "cmdCancAll");
    EXPECT_TRUE(window.isVisible());
  });
}

TEST_F(frmEditTest, TheCloseBoxAsksAndNoLeavesWithoutSaving) {
  prompts.Expect(Answer::No);
  WithEditor(2, [](frmEdit& window) {
    window.close();
    EXPECT_FALSE(window.isVisible());
  });
  ExpectPrompt(prompts.shown.at(0),
               u"Changes will not be saved to disk.\r\nDo you wish to save changes?",
               PromptIcon::Exclamation, PromptButtons::YesNo);
  EXPECT_EQ(files.commits, 0);
  EXPECT_TRUE(IsPointerNormal());
}

TEST_F(frmEditTest, TheCloseBoxAsksAndYesSaves) {
  prompts.Expect(Answer::Yes);
  WithEditor(2, [](frmEdit& window) {
    SaveAs([&] { window.close(); }, "verbs");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(prompts.shown.size(), 1U);
  EXPECT_TRUE(files.Has(u"/cards/verbs.QBC"));
}

TEST_F(frmEditTest, ASaveCancelledAtTheCloseBoxClosesAllTheSame) {
  prompts.Expect(Answer::Yes);
  WithEditor(2, [](frmEdit& window) {
    ClickRow(window, 0);
    Retype(window, "txtFront", "typed");
    Click(window, "cmdDel");
    CancelSave([&] { window.close(); });
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(Stack().CardCount, 2);
  EXPECT_EQ(Front(1), u"typed");
  EXPECT_EQ(files.commits, 0);
}

TEST_F(frmEditTest, ASaveThatFailsAtTheCloseBoxIsToldAndClosesAllTheSame) {
  prompts.Expect(Answer::Yes);
  prompts.Expect(Answer::Ok);
  files.failCommit = FileStatus::DiskFull;
  WithEditor(2, [](frmEdit& window) {
    SaveAs([&] { window.close(); }, "nouns");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(prompts.shown.at(1).text, u"Disk full");
  EXPECT_EQ(Stack().StackName, u"verbs");
  EXPECT_EQ(Stack().CardCount, 2);
}

TEST_F(frmEditTest, EscapeAndEnterDoNothing) {
  WithEditor(2, [](frmEdit& window) {
    ClickRow(window, 0);
    for (const char* const name : {"txtFront", "txtFrontWave", "sspListBox"}) {
      auto& control = Find<QWidget>(window, name);
      control.setFocus();
      QTest::keyClick(&control, Qt::Key_Escape);
      EXPECT_TRUE(control.hasFocus());
      EXPECT_TRUE(window.isVisible());
    }
    Box(window, "txtBack").setFocus();
    QTest::keyClick(&Box(window, "txtBack"), Qt::Key_Enter);
    EXPECT_EQ(Shown(window, "txtBack"), "back 1");
    EXPECT_TRUE(Box(window, "txtBack").hasFocus());
  });
}

TEST_F(frmEditTest, TabVisitsTheListTheFieldsAndTheButtons) {
  WithEditor(7, [](frmEdit& window) {
    ClickRow(window, 0);
    for (const char* const name : {"sspListBox", "vsbBar", "txtFront", "txtFrontWave",
                                   "txtFrontPicture", "txtBack", "txtBackWave", "txtBackPicture",
                                   "cmdEdit", "cmdAppend", "cmdDel", "cmdEnd", "cmdCancAll"}) {
      EXPECT_EQ(window.focusWidget()->objectName(), name);
      QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    }
  });
}

TEST_F(frmEditTest, TheFocusOfTheListIsSeenAndMovesNothing) {
  WithEditor(7, [](frmEdit& window) {
    List(window).setFocus();
    const QImage focused = List(window).grab().toImage();
    const QRect place = Row(window, 0).geometry();
    Box(window, "txtFront").setFocus();
    window.layout()->activate();
    EXPECT_NE(List(window).grab().toImage(), focused);
    EXPECT_EQ(Row(window, 0).geometry(), place);
  });
}

TEST_F(frmEditTest, HelpOpensItsPage) {
  WithEditor(1, [](frmEdit& window) { QTest::keyClick(&window, Qt::Key_F1); });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::Edit});
}

}  // namespace
