#include "windows/authoring/frmCreate.h"

#include "tests/window/authoring/AuthoringFixture.h"
#include "windows/keys/frmKeys.h"
#include "windows/keys/frmMoreKeys.h"

#include <QMimeData>
#include <QScrollBar>

namespace {

class frmCreateTest : public AuthoringTest {
 protected:
  using Act = std::function<void(frmCreate&)>;

  /// Creates a stack; a window that is left open is closed by its close box.
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

  /// Presses Save/End, and OK in the dialogs that follow.
  static void SaveEnd(frmCreate& window, const QString& name) {
    WithModal<frmDesc>([&] { SaveAs([&] { Click(window, "cmdEnd"); }, name); },
                       [](frmDesc& asked) { Click(asked, "cmdOK"); });
  }

  static void TypeCard(frmCreate& window, const QString& front, const QString& back) {
    Type(window, "txtFront", front);
    Type(window, "txtBack", back);
  }

  CardStack& Stack() { return shared.Stacks.Current(); }
  Text Front(int card) { return Text(Stack().SideText(card, ::Front)); }
  Text Back(int card) { return Text(Stack().SideText(card, ::Back)); }
};

// --- Opening ---

TEST_F(frmCreateTest, StartsAnEmptyNamelessStackOfTheSelectedTopic) {
  LoadStack(u"other", 2);
  UseTopic(1);
  WithNew([this](frmCreate& window) {
    EXPECT_EQ(window.windowTitle(), "Create Cards - Spanish");
    EXPECT_EQ(shared.Stacks.StackCount, 1);
    EXPECT_EQ(shared.Stacks.CurrentStack, 1);
    EXPECT_EQ(Stack().StackName, u"");
    EXPECT_EQ(Stack().TopicIndex, 1);
    EXPECT_EQ(Stack().CardCount, 0);
    EXPECT_EQ(TextOf(window, "lblCardCount"), "0");
    EXPECT_TRUE(Box(window, "txtFront").hasFocus());
    EXPECT_FALSE(IsEnabled(window, "cmdCont"));
    EXPECT_TRUE(IsEnabled(window, "cmdCancAll"));
    EXPECT_TRUE(IsPointerNormal());
  });
}

TEST_F(frmCreateTest, ShowsTheCaptionsOfItsControls) {
  WithNew([](frmCreate& window) {
    EXPECT_EQ(Button(window, "cmdCont").text(), "Continue");
    EXPECT_EQ(Button(window, "cmdCanc").text(), "Cancel Entry");
    EXPECT_EQ(Button(window, "cmdEnd").text(), "Save/End");
    EXPECT_EQ(Button(window, "cmdCancAll").text(), "Cancel All");
    QStringList heads;
    for (const QAction* const head : window.findChild<QMenuBar*>()->actions()) {
      heads << head->text();
    }
    EXPECT_EQ(heads, QStringList({"&Edit", "&View", "&Front Keys", "&Back Keys", "&Help"}));
  });
}

TEST_F(frmCreateTest, AddingShowsTheStacksNameInItsFullWidth) {
  LoadStack(u"verbs", 3);
  UseTopic(1);
  WithAdd([this](frmCreate& window) {
    EXPECT_EQ(ToText(window.windowTitle()),
              u"Add Cards to " + FixedWidth(u"verbs", 256) + u" (Spanish)");
    EXPECT_EQ(Button(window, "cmdEnd").text(), "Done");
    EXPECT_FALSE(IsEnabled(window, "cmdCancAll"));
    EXPECT_EQ(TextOf(window, "lblCardCount"), "3");
    EXPECT_EQ(shared.Stacks.StackCount, 0);
  });
}

TEST_F(frmCreateTest, TextsStandTwoPointsLargerThanInStudy) {
  UseTopic(2);
  WithNew([](frmCreate& window) {
    const QFont front = Box(window, "txtFront").font();
    EXPECT_EQ(front.family(), "Liberation Serif");
    EXPECT_EQ(front.pointSizeF(), 16);
    EXPECT_EQ(Box(window, "txtBack").font().family(), "MS Sans Serif");
    EXPECT_EQ(Box(window, "txtBack").font().pointSizeF(), 11);
  });
}

TEST_F(frmCreateTest, TabVisitsTheFieldsInTheOrderOfACard) {
  WithNew([](frmCreate& window) {
    for (const char* const name : {"txtFront", "txtFrontWave", "txtFrontPicture", "txtBack",
                                   "txtBackWave", "txtBackPicture", "cmdCanc"}) {
      EXPECT_EQ(window.focusWidget()->objectName(), name);
      QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    }
  });
}

// --- Typing ---

TEST_F(frmCreateTest, TypingATextEnablesContinue) {
  for (const char* const name : {"txtFront", "txtBack"}) {
    WithNew([&](frmCreate& window) {
      Type(window, name, "a");
      EXPECT_TRUE(IsEnabled(window, "cmdCont"));
    });
  }
}

TEST_F(frmCreateTest, TypingAMediaNameDoesNotEnableContinue) {
  WithNew([](frmCreate& window) {
    for (const char* const name :
         {"txtFrontWave", "txtFrontPicture", "txtBackWave", "txtBackPicture"}) {
      Type(window, name, "a");
    }
    EXPECT_FALSE(IsEnabled(window, "cmdCont"));
  });
}

TEST_F(frmCreateTest, EnterNeitherTypesNorCommitsNorMoves) {
  WithNew([this](frmCreate& window) {
    TypeCard(window, "a", "b");
    for (const char* const name :
         {"txtFront", "txtBack", "txtFrontWave", "txtFrontPicture", "txtBackWave"}) {
      auto& field = Find<QWidget>(window, name);
      field.setFocus();
      for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(&field, static_cast<Qt::Key>(key));
        EXPECT_TRUE(field.hasFocus());
      }
    }
    EXPECT_EQ(Shown(window, "txtFront"), "a");
    EXPECT_EQ(Shown(window, "txtBack"), "b");
    EXPECT_EQ(Stack().CardCount, 0);
  });
}

TEST_F(frmCreateTest, EscapeDoesNothing) {
  WithNew([this](frmCreate& window) {
    Type(window, "txtFront", "a");
    QTest::keyClick(&Box(window, "txtFront"), Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Shown(window, "txtFront"), "a");
    EXPECT_EQ(shared.Stacks.StackCount, 0);
  });
}

TEST_F(frmCreateTest, TypingEndsAt256CharactersAndPastingDoesNot) {
  WithNew([](frmCreate& window) {
    Paste(window, "txtFront", QString(255, u'x'));
    Type(window, "txtFront", "yz");
    EXPECT_EQ(Shown(window, "txtFront"), QString(255, u'x') + u'y');
    Paste(window, "txtFront", QString(70'000, u'p'));
    EXPECT_EQ(Shown(window, "txtFront").size(), 70'256);
  });
}

TEST_F(frmCreateTest, AKeyAssignmentTypesItsCharacter) {
  UseTopic(1);
  WithNew([](frmCreate& window) {
    Type(window, "txtBack", "caf");
    QTest::keyClick(&Box(window, "txtBack"), Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(Shown(window, "txtBack"), QStringLiteral(u"caf\u00E9"));
  });
}

TEST_F(frmCreateTest, ASidesKeyMenuIsEnabledWhileItsTextHasTheFocus) {
  WithNew([](frmCreate& window) {
    const auto enabled = [&](const char* head) { return Find<QAction>(window, head).isEnabled(); };
    EXPECT_TRUE(enabled("mnuFKeysHead"));
    EXPECT_FALSE(enabled("mnuBKeysHead"));
    Box(window, "txtBack").setFocus();
    EXPECT_FALSE(enabled("mnuFKeysHead"));
    EXPECT_TRUE(enabled("mnuBKeysHead"));
    Line(window, "txtBackWave").setFocus();
    EXPECT_FALSE(enabled("mnuFKeysHead"));
    EXPECT_FALSE(enabled("mnuBKeysHead"));
  });
}

TEST_F(frmCreateTest, AKeyItemTypesIntoTheFieldOfItsSide) {
  UseTopic(1);
  WithNew([](frmCreate& window) {
    TypeCard(window, "caf", "n");
    Choose(window, "mnuBKeysHead", "mnuBKeys(2)");
    EXPECT_EQ(Shown(window, "txtBack"), QStringLiteral(u"n\u00F3"));
    EXPECT_TRUE(Box(window, "txtBack").hasFocus());
    Box(window, "txtFront").setFocus();
    Choose(window, "mnuFKeysHead", "mnuFKeys(1)");
    EXPECT_EQ(Shown(window, "txtFront"), QStringLiteral(u"caf\u00E9"));
  });
}

TEST_F(frmCreateTest, MoreKeysTypesTheCharacterOfTheChart) {
  WithNew([this](frmCreate& window) {
    Type(window, "txtFront", "a");
    WithModal<frmMoreKeys>([&] { Choose(window, "mnuFKeysHead", "mnuFKeys(0)"); },
                           [](frmMoreKeys& chart) {
                             Find<QScrollBar>(chart, "hsbBar").setValue(3);
                             Click(chart, "sspKey(5)");
                             Click(chart, "cmdSend");
                           });
    Reactivate(window);
    const auto chosen = static_cast<CharCode>(int{shared.Switches.KeyCodeToSend});
    EXPECT_EQ(ToText(Shown(window, "txtFront")), Text(u"a") + CharOfCode(chosen));
    EXPECT_TRUE(Box(window, "txtFront").hasFocus());
  });
}

TEST_F(frmCreateTest, ACancelledChartTypesNothing) {
  WithNew([](frmCreate& window) {
    Type(window, "txtFront", "a");
    WithModal<frmMoreKeys>([&] { Choose(window, "mnuFKeysHead", "mnuFKeys(0)"); },
                           [](frmMoreKeys& chart) { Click(chart, "cmdCancel"); });
    Reactivate(window);
    EXPECT_EQ(Shown(window, "txtFront"), "a");
    EXPECT_TRUE(Box(window, "txtFront").hasFocus());
  });
}

TEST_F(frmCreateTest, ASideWithAnotherFontOpensTheAssignmentPicker) {
  UseTopic(2);
  WithNew([&](frmCreate& window) {
    auto& bar = *window.findChild<QMenuBar*>();
    auto& head = Find<QAction>(window, "mnuFKeysHead");
    WithModal<frmKeys>(
        [&] { QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(&head).center()); },
        [&](frmKeys& picker) {
          EXPECT_EQ(shared.Switches.KeyCodeToSend, -1);
          Click(picker, "lblCol1(0)");
          Click(picker, "cmdSend");
        });
    EXPECT_EQ(Shown(window, "txtFront"), QStringLiteral(u"\u00F1"));
  });
}

// --- Continue and Cancel Entry ---

TEST_F(frmCreateTest, ContinueStoresTheCardAndStartsTheNext) {
  WithNew([this](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    Click(window, "cmdCont");
    EXPECT_EQ(Stack().CardCount, 1);
    EXPECT_EQ(Front(1), u"dog");
    EXPECT_EQ(Back(1), u"perro");
    EXPECT_EQ(TextOf(window, "lblCardCount"), "1");
    EXPECT_EQ(Shown(window, "txtFront"), "");
    EXPECT_EQ(Shown(window, "txtBack"), "");
    EXPECT_FALSE(IsEnabled(window, "cmdCont"));
    EXPECT_TRUE(Box(window, "txtFront").hasFocus());
  });
}

TEST_F(frmCreateTest, MediaNamesAreStoredAsTypedAndStayForTheNextCard) {
  WithNew([this](frmCreate& window) {
    Type(window, "txtFrontWave", " bark ^ .wav ");
    Type(window, "txtFrontPicture", "no such.bmp");
    Type(window, "txtBackWave", "C:\\x\\b.wav");
    Type(window, "txtBackPicture", "d");
    for (int card = 1; card <= 2; ++card) {
      TypeCard(window, "f", "b");
      Click(window, "cmdCont");
      EXPECT_EQ(Stack().SideSound(card, ::Front), u" bark ^ .wav ");
      EXPECT_EQ(Stack().SidePicture(card, ::Front), u"no such.bmp");
      EXPECT_EQ(Stack().SideSound(card, ::Back), u"C:\\x\\b.wav");
      EXPECT_EQ(Stack().SidePicture(card, ::Back), u"d");
    }
  });
}

TEST_F(frmCreateTest, ContinueWithOneEmptySideStoresTheCardEachTime) {
  WithNew([this](frmCreate& window) {
    Type(window, "txtFront", "alone");
    Click(window, "cmdCont");
    Click(window, "cmdCont");
    EXPECT_EQ(Stack().CardCount, 2);
    EXPECT_EQ(Front(2), u"alone");
    EXPECT_EQ(Back(2), u"");
    EXPECT_EQ(Shown(window, "txtFront"), "alone");
    EXPECT_TRUE(IsEnabled(window, "cmdCont"));
    EXPECT_EQ(TextOf(window, "lblCardCount"), "2");
  });
}

TEST_F(frmCreateTest, CancelEntryDropsTheTypedTextsAndKeepsTheMediaNames) {
  WithNew([this](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    Type(window, "txtBackWave", "perro.wav");
    Click(window, "cmdCanc");
    EXPECT_EQ(Stack().CardCount, 0);
    EXPECT_EQ(Shown(window, "txtFront"), "");
    EXPECT_EQ(Shown(window, "txtBack"), "");
    EXPECT_EQ(Line(window, "txtBackWave").text(), "perro.wav");
    EXPECT_FALSE(IsEnabled(window, "cmdCont"));
    EXPECT_TRUE(Box(window, "txtFront").hasFocus());
  });
}

TEST_F(frmCreateTest, ATypedCaretIsALineBreakAndTwoAreOneCaret) {
  WithNew([this](frmCreate& window) {
    TypeCard(window, "a^b", "c^^d");
    Click(window, "cmdCont");
    EXPECT_EQ(Front(1), u"a\r\nb");
    EXPECT_EQ(Back(1), u"c^d");
  });
}

TEST_F(frmCreateTest, PastedLineBreaksAreCrLfOnTheCard) {
  WithNew([this](frmCreate& window) {
    Paste(window, "txtFront", "a\nb\r\nc\rd");
    Type(window, "txtBack", "x");
    Click(window, "cmdCont");
    EXPECT_EQ(Front(1), u"a\r\nb\r\nc\r\nd");
  });
}

TEST_F(frmCreateTest, EveryCharacterArrivesOnTheCard) {
  Text text = u"  \u00A0\u043F\u0440\u65E5\U0001F600<b>&amp;</b>\t  ";
  text.insert(3, 1, u'\0');
  WithNew([&](frmCreate& window) {
    Paste(window, "txtFront", ToQString(text));
    Paste(window, "txtBack", ToQString(text));
    Click(window, "cmdCont");
    EXPECT_EQ(Front(1), text);
    EXPECT_EQ(Back(1), text);
  });
}

TEST_F(frmCreateTest, RichTextIsPastedPlain) {
  WithNew([this](frmCreate& window) {
    auto* const rich = new QMimeData;
    rich->setHtml("<b>bold</b><img src='x'>");
    rich->setText("bold");
    for (const char* const name : {"txtFront", "txtBack", "txtFrontWave"}) {
      auto& field = Find<QWidget>(window, name);
      field.setFocus();
      if (QApplication::clipboard()->mimeData() != rich) {
        QApplication::clipboard()->setMimeData(rich);
      }
      QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    }
    Click(window, "cmdCont");
    EXPECT_EQ(Front(1), u"bold");
    EXPECT_EQ(Back(1), u"bold");
    EXPECT_EQ(Stack().SideSound(1, ::Front), u"bold");
  });
}

TEST_F(frmCreateTest, APastedMediaNameEndsAtItsLineBreak) {
  WithNew([this](frmCreate& window) {
    Paste(window, "txtBackPicture", "a.bmp\nb.bmp");
    TypeCard(window, "f", "b");
    Click(window, "cmdCont");
    EXPECT_EQ(Stack().SidePicture(1, ::Back), u"a.bmp");
  });
}

// --- The limit ---

class frmCreateAtTheLimit : public frmCreateTest {
 protected:
  frmCreateAtTheLimit() {
    LoadStack(u"full", MaxCards);
    prompts.Expect(Answer::Ok);
  }
  void ExpectLimitMessage() {
    ExpectPrompt(prompts.shown.at(0), u"Maximum of 300 Cards per Stack", PromptIcon::Exclamation,
                 PromptButtons::Ok);
    EXPECT_EQ(Stack().CardCount, MaxCards);
    EXPECT_EQ(Front(MaxCards), u"front 300");
  }
};

TEST_F(frmCreateAtTheLimit, ContinueLosesAFullyTypedCard) {
  WithAdd([](frmCreate& window) {
    TypeCard(window, "f", "b");
    Click(window, "cmdCont");
    EXPECT_EQ(Shown(window, "txtFront"), "");
    EXPECT_EQ(Shown(window, "txtBack"), "");
  });
  ExpectLimitMessage();
}

TEST_F(frmCreateAtTheLimit, ContinueLeavesAHalfTypedCard) {
  WithAdd([](frmCreate& window) {
    Type(window, "txtBack", "b");
    Click(window, "cmdCont");
    EXPECT_EQ(Shown(window, "txtBack"), "b");
  });
  ExpectLimitMessage();
}

TEST_F(frmCreateAtTheLimit, DoneTellsOfItAndCloses) {
  WithAdd([](frmCreate& window) {
    TypeCard(window, "f", "b");
    Click(window, "cmdEnd");
    EXPECT_FALSE(window.isVisible());
  });
  ExpectLimitMessage();
}

TEST_F(frmCreateTest, Card300CanStillBeAdded) {
  LoadStack(u"nearly full", MaxCards - 1);
  WithAdd([](frmCreate& window) {
    TypeCard(window, "f", "b");
    Click(window, "cmdCont");
    EXPECT_EQ(TextOf(window, "lblCardCount"), "300");
  });
  EXPECT_EQ(Front(300), u"f");
}

// --- Save/End ---

TEST_F(frmCreateTest, SaveEndStoresTheTypedCardAndSavesTheStack) {
  UseTopic(1);
  WithNew([](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    Click(window, "cmdCont");
    TypeCard(window, "cat", "gato");
    SaveEnd(window, "animals");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(Stack().StackName, u"animals");
  EXPECT_EQ(Stack().CardCount, 2);
  const std::string blanks(64, ' ');
  EXPECT_EQ(files.Content(u"/cards/animals.QBC"),
            "Spanish\r\n" + blanks + "\r\ndog  \r\nperro  \r\ncat  \r\ngato  \r\n");
}

TEST_F(frmCreateTest, SaveEndWithNothingTypedDropsTheStackWithoutADialog) {
  WithNew([](frmCreate& window) {
    Click(window, "cmdEnd");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.StackCount, -1);
}

TEST_F(frmCreateTest, SaveEndDropsACardWithTheFrontAlone) {
  WithNew([this](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    Click(window, "cmdCont");
    Type(window, "txtFront", "cat");
    SaveEnd(window, "animals");
    EXPECT_EQ(Stack().CardCount, 1);
  });
}

TEST_F(frmCreateTest, SaveEndStoresACardWithTheBackAloneBehindOthers) {
  WithNew([this](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    Click(window, "cmdCont");
    Type(window, "txtBack", "gato");
    SaveEnd(window, "animals");
    EXPECT_EQ(Stack().CardCount, 2);
  });
  const std::string content = files.Content(u"/cards/animals.QBC");
  EXPECT_TRUE(content.ends_with("perro  \r\n  \r\ngato  \r\n")) << content;
}

TEST_F(frmCreateTest, SaveEndDropsTheBackAloneWithAStackThatIsStillEmpty) {
  WithNew([](frmCreate& window) {
    Type(window, "txtBack", "gato");
    Click(window, "cmdEnd");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.StackCount, -1);
}

TEST_F(frmCreateTest, ACancelledSaveKeepsTheWindowAndItsCards) {
  WithNew([this](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    CancelSave([&] { Click(window, "cmdEnd"); });
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(IsPointerNormal());
    EXPECT_EQ(TextOf(window, "lblCardCount"), "1");
    TypeCard(window, "cat", "gato");
    Click(window, "cmdCont");
    SaveEnd(window, "animals");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(Stack().CardCount, 2);
  });
  EXPECT_TRUE(files.Has(u"/cards/animals.QBC"));
}

TEST_F(frmCreateTest, EachCancelledSaveStoresTheBackAloneOnceMore) {
  WithNew([this](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    Click(window, "cmdCont");
    Type(window, "txtBack", "gato");
    for (int count = 2; count <= 3; ++count) {
      CancelSave([&] { Click(window, "cmdEnd"); });
      EXPECT_EQ(Stack().CardCount, count);
      EXPECT_EQ(Back(count), u"gato");
      EXPECT_EQ(TextOf(window, "lblCardCount"), QString::number(count));
    }
  });
}

TEST_F(frmCreateTest, AfterACancelledSaveTheCloseBoxDropsTheStack) {
  WithNew([](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    CancelSave([&] { Click(window, "cmdEnd"); });
    window.close();
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.StackCount, -1);
}

TEST_F(frmCreateTest, ASaveThatFailsKeepsTheWindow) {
  prompts.Expect(Answer::Ok);
  files.failReplace = FileStatus::PathAccess;
  WithNew([this](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    SaveEnd(window, "animals");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Stack().StackName, u"");
    EXPECT_EQ(Stack().CardCount, 1);
  });
  EXPECT_EQ(prompts.shown.at(0).title, u"Quib!Cards 5.50 Error");
}

TEST_F(frmCreateTest, ACardWithACaretCannotBeSaved) {
  prompts.Expect(Answer::Ok);
  WithNew([](frmCreate& window) {
    TypeCard(window, "2^^3", "8");
    SaveEnd(window, "powers");
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_TRUE(prompts.shown.at(0).text.starts_with(u"Overflow\r\n\r\nCard 1, front: 2^3\r\n"));
  EXPECT_EQ(prompts.shown.at(0).title, u"Quib!Cards 5.50 Error");
}

// --- Leaving without saving ---

TEST_F(frmCreateTest, CancelAllDropsTheStackAndSelectsTheOneBefore) {
  LoadStack(u"first", 1);
  LoadStack(u"second", 1);
  shared.Stacks.CurrentStack = 0;
  WithNew([](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    Click(window, "cmdCont");
    Click(window, "cmdCancAll");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.StackCount, 1);
  EXPECT_EQ(shared.Stacks.CurrentStack, 1);
  EXPECT_EQ(Stack().StackName, u"second");
  EXPECT_EQ(shared.Stacks.StackList.size(), 2U);
}

TEST_F(frmCreateTest, OfTheOnlyStackABlankRecordIsLeft) {
  WithNew([](frmCreate& window) { Click(window, "cmdCancAll"); });
  EXPECT_EQ(shared.Stacks.StackCount, -1);
  EXPECT_EQ(shared.Stacks.CurrentStack, 0);
  ASSERT_EQ(shared.Stacks.StackList.size(), 1U);
  EXPECT_EQ(Stack().StackName, u"");
  EXPECT_EQ(Stack().CardCount, 0);
}

TEST_F(frmCreateTest, TheCloseBoxDropsTheStackWithoutAQuestion) {
  WithNew([](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    Click(window, "cmdCont");
    TypeCard(window, "cat", "gato");
    window.close();
  });
  EXPECT_EQ(shared.Stacks.StackCount, -1);
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(frmCreateTest, DoneStoresTheTypedCardInMemoryAlone) {
  LoadStack(u"verbs", 2);
  WithAdd([](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    Click(window, "cmdEnd");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(Stack().CardCount, 3);
  EXPECT_EQ(Front(3), u"dog");
  EXPECT_EQ(Stack().StackName, u"verbs");
  EXPECT_EQ(files.commits, 0);
}

TEST_F(frmCreateTest, DoneDropsAHalfTypedCard) {
  LoadStack(u"verbs", 2);
  WithAdd([](frmCreate& window) {
    Type(window, "txtBack", "perro");
    Click(window, "cmdEnd");
  });
  EXPECT_EQ(Stack().CardCount, 2);
}

TEST_F(frmCreateTest, TheCloseBoxKeepsTheAddedCards) {
  LoadStack(u"verbs", 2);
  WithAdd([](frmCreate& window) {
    TypeCard(window, "dog", "perro");
    Click(window, "cmdCont");
    window.close();
  });
  EXPECT_EQ(Stack().CardCount, 3);
  EXPECT_EQ(shared.Stacks.StackCount, 0);
}

TEST_F(frmCreateTest, HelpOpensItsPage) {
  WithNew([](frmCreate& window) { QTest::keyClick(&window, Qt::Key_F1); });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::Create});
}

}  // namespace
