#include "windows/keys/frmAddKey.h"

#include "tests/window/WindowFixture.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/Pointer.h"
#include "windows/keys/frmMoreKeys.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>

namespace {

constexpr auto GeneralSection =
    "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n"
    "[General]\r\n"
    "FRONTFONT=MS Sans Serif\r\nFRONTSIZE=8.25\r\n"
    "BACKFONT=MS Sans Serif\r\nBACKSIZE=8.25\r\n";

std::string KeysLine(std::string records) {
  records.resize(120, ' ');
  return "KEYS=" + records + "\r\n";
}

class frmAddKeyTest : public WindowTest {
 protected:
  frmAddKeyTest() {
    InitSettings(profile);
    LoadTopicList(shared.Topics, profile);
    SelectTopic(shared.Topics, shared.Topic, profile, 0);
  }
  ~frmAddKeyTest() override { SetPointer(PointerShape::Normal); }

  void WithEditor(const std::function<void(frmAddKey&)>& act) {
    WithModal<frmAddKey>([this] { frmAddKey(shared, platform, nullptr).ShowModal(); },
                         [&](frmAddKey& window) {
                           act(window);
                           Click(window, "cmdDone");
                         });
  }

  /// Gives the topic Ctrl+A, Ctrl+B, ... on the fronts, with the characters 192, 193, ...
  void GiveKeys(int count) {
    KeyTable& keys = shared.Topic.Keys;
    for (int i = 1; i <= count; ++i) {
      keys.Slots.at(static_cast<std::size_t>(i)) = {FrontSideMark, CharCode{u'2'},
                                                    static_cast<CharCode>(u'A' + i - 1),
                                                    static_cast<CharCode>(191 + i)};
    }
    keys.KeyCount = count;
  }

  void GiveKey(CharCode side, CharCode character) {
    KeyTable& keys = shared.Topic.Keys;
    ++keys.KeyCount;
    keys.Slots.at(static_cast<std::size_t>(keys.KeyCount)) = {side, CharCode{u'2'}, CharCode{u'E'},
                                                              character};
  }

  void BeginNewTopic(const Text& name) {
    shared.Switches.NewTopicMode = true;
    shared.Switches.NewTopicName = name;
  }

  static QListWidget& List(QObject& window) { return Find<QListWidget>(window, "lstAddKey"); }
  static QComboBox& Keystroke(QObject& window) { return Find<QComboBox>(window, "cboControlKey"); }
  static QScrollBar& Bar(QObject& window) { return Find<QScrollBar>(window, "vsbBar"); }
  static QString Caption(QObject& window) { return Find<QPushButton>(window, "cmdAction").text(); }
  static QString Row(QObject& window, int row) {
    return TextOf(window, QStringLiteral("lblCol1(%1)").arg(row).toLatin1().constData()) + ' ' +
           TextOf(window, QStringLiteral("lblCol2(%1)").arg(row).toLatin1().constData());
  }

  static void ClickRow(QObject& window, const char* label) { Click(window, label); }

  static bool IsHighlighted(QObject& window, const char* label) {
    const auto& shown = Find<QLabel>(window, label);
    const bool highlighted = shown.backgroundRole() == QPalette::Highlight;
    EXPECT_EQ(shown.foregroundRole(), highlighted ? QPalette::HighlightedText : QPalette::Text);
    EXPECT_TRUE(highlighted || shown.backgroundRole() == QPalette::Base);
    return highlighted;
  }

  static void ChooseCharacter(QObject& window, char16_t character) {
    List(window).setFocus();
    const int key = character == u' ' ? Qt::Key_Space : 0;
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(QChar(character)));
    QApplication::sendEvent(&List(window), &press);
  }

  static void Press(QObject& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    Keystroke(window).setFocus();
    QTest::keyClick(&Keystroke(window), key, modifiers);
  }

  static void ChooseSides(QObject& window, bool front, bool back) {
    // A side that is ticked first never leaves both unticked.
    for (const bool ticked : {true, false}) {
      for (const auto& [name, wanted] : {std::pair("sscFront", front), {"sscBack", back}}) {
        if (wanted == ticked && Find<QCheckBox>(window, name).isChecked() != ticked) {
          Click(window, name);
        }
      }
    }
  }

  /// Adds Ctrl+`key` for both sides, or for those that are ticked.
  static void AddKey(QObject& window, char16_t character, Qt::Key key,
                     Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    ChooseCharacter(window, character);
    Press(window, key, modifiers);
    Click(window, "cmdAction");
  }

  static void ExpectReset(QObject& window) {
    EXPECT_EQ(Caption(window), "Action: None");
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
    EXPECT_TRUE(List(window).selectedItems().isEmpty());
    EXPECT_FALSE(IsEnabled(window, "sspControlKey"));
    EXPECT_FALSE(IsEnabled(window, "cboControlKey"));
    EXPECT_EQ(Keystroke(window).currentText(), "");
    for (int row = 0; row < 7; ++row) {
      EXPECT_FALSE(
          IsHighlighted(window, QStringLiteral("lblCol2(%1)").arg(row).toLatin1().constData()));
    }
  }

  std::string SettingsFile() const { return files.Content(SettingsPath); }
};

TEST_F(frmAddKeyTest, ShowsItsCaptions) {
  WithEditor([](frmAddKey& window) {
    EXPECT_EQ(Find<QGroupBox>(window, "sspKeyAss").title(), "Key Assignments:");
    EXPECT_EQ(Find<QGroupBox>(window, "sspAddKey").title(), "Add Key:");
    EXPECT_EQ(Find<QGroupBox>(window, "sspControlKey").title(), "Control Keys:");
    EXPECT_EQ(Find<QCheckBox>(window, "sscFront").text(), "Front");
    EXPECT_EQ(Find<QCheckBox>(window, "sscBack").text(), "Back");
    EXPECT_EQ(Find<QPushButton>(window, "cmdMore").text(), "More");
    EXPECT_EQ(Find<QPushButton>(window, "cmdCancel").text(), "Cancel");
    EXPECT_EQ(Find<QPushButton>(window, "cmdDone").text(), "Done");
    EXPECT_EQ(Find<QAction>(window, "mnuHelp").text(), "&Help");
    EXPECT_EQ(TextOf(window, "sspAscCode"), "0000");
  });
}

TEST_F(frmAddKeyTest, IsTitledAfterTheCurrentTopic) {
  WithEditor(
      [](frmAddKey& window) { EXPECT_EQ(window.windowTitle(), "Key Assignments - General"); });
}

TEST_F(frmAddKeyTest, IsTitledAfterTheTopicBeingAdded) {
  BeginNewTopic(u"R&B <i>");
  prompts.Expect(Answer::No);
  WithEditor(
      [](frmAddKey& window) { EXPECT_EQ(window.windowTitle(), "Key Assignments - R&B <i>"); });
}

TEST_F(frmAddKeyTest, OpensWithBothSidesTickedAndNothingChosen) {
  WithEditor([](frmAddKey& window) {
    EXPECT_TRUE(Find<QCheckBox>(window, "sscFront").isChecked());
    EXPECT_TRUE(Find<QCheckBox>(window, "sscBack").isChecked());
    ExpectReset(window);
  });
}

TEST_F(frmAddKeyTest, UsesTheWindowColoursOfTheSystem) {
  WithEditor([](frmAddKey& window) {
    for (const char* const panel : {"sspCol1", "sspCol2", "sspControlOutline"}) {
      EXPECT_EQ(Find<QWidget>(window, panel).backgroundRole(), QPalette::Base) << panel;
    }
  });
}

TEST_F(frmAddKeyTest, OffersEveryCharacterInItsOrder) {
  WithEditor([](frmAddKey& window) {
    const auto characters = AssignableCharacters();
    ASSERT_EQ(List(window).count(), 255);
    for (std::size_t i = 0; i < characters.size(); ++i) {
      EXPECT_EQ(List(window).item(static_cast<int>(i))->text(),
                QString(QChar(CharOfCode(characters[i]))));
    }
  });
}

TEST_F(frmAddKeyTest, SuggestsThirtyKeystrokes) {
  WithEditor([](frmAddKey& window) {
    const auto& combo = Keystroke(window);
    ASSERT_EQ(combo.count(), 30);
    EXPECT_EQ(combo.itemText(0), "Ctrl+A");
    EXPECT_EQ(combo.itemText(29), "Shift+Ctrl+Alt+U");
  });
}

TEST_F(frmAddKeyTest, ShowsSevenAssignmentsOfTheTopic) {
  GiveKeys(9);
  WithEditor([](frmAddKey& window) {
    EXPECT_EQ(Row(window, 0), u"À [F] Ctrl+A");
    EXPECT_EQ(Row(window, 6), u"Æ [F] Ctrl+G");
  });
}

TEST_F(frmAddKeyTest, LeavesTheRowsBelowTheLastAssignmentBlank) {
  GiveKeys(2);
  WithEditor([](frmAddKey& window) {
    EXPECT_EQ(Row(window, 1), u"Á [F] Ctrl+B");
    for (int row = 2; row < 7; ++row) EXPECT_EQ(Row(window, row), " ");
  });
}

TEST_F(frmAddKeyTest, MarksTheSideOfARow) {
  GiveKey(FrontSideMark, CharCode{233});
  GiveKey(BackSideMark, CharCode{233});
  GiveKey(BothSidesMark, CharCode{233});
  WithEditor([](frmAddKey& window) {
    EXPECT_EQ(TextOf(window, "lblCol2(0)"), "[F] Ctrl+E");
    EXPECT_EQ(TextOf(window, "lblCol2(1)"), "[B] Ctrl+E");
    EXPECT_EQ(TextOf(window, "lblCol2(2)"), "Ctrl+E");
  });
}

TEST_F(frmAddKeyTest, ShowsARowInTheFontOfItsSide) {
  shared.Topic.Fonts = {u"DejaVu Serif", 12, u"DejaVu Sans Mono", 14};
  GiveKey(FrontSideMark, CharCode{233});
  GiveKey(BackSideMark, CharCode{233});
  GiveKey(BothSidesMark, CharCode{233});
  WithEditor([](frmAddKey& window) {
    const auto fontOf = [&](const char* name) { return Find<QLabel>(window, name).font(); };
    EXPECT_EQ(fontOf("lblCol1(0)"), DisplayFont(u"DejaVu Serif", 12));
    EXPECT_EQ(fontOf("lblCol1(1)"), DisplayFont(u"DejaVu Sans Mono", 14));
    EXPECT_EQ(fontOf("lblCol1(2)"), DisplayFont(u"MS Sans Serif", 8.25F));
    ChooseSides(window, true, false);
    EXPECT_EQ(fontOf("lblCol1(2)"), DisplayFont(u"DejaVu Serif", 12));
    ChooseSides(window, false, true);
    EXPECT_EQ(fontOf("lblCol1(2)"), DisplayFont(u"DejaVu Sans Mono", 14));
  });
}

TEST_F(frmAddKeyTest, TheListFollowsTheSideBoxes) {
  shared.Topic.Fonts = {u"DejaVu Serif", 12, u"DejaVu Sans Mono", 14};
  WithEditor([](frmAddKey& window) {
    EXPECT_EQ(List(window).font().family(), "MS Sans Serif");
    ChooseSides(window, true, false);
    EXPECT_EQ(List(window).font().family(), "DejaVu Serif");
    ChooseSides(window, false, true);
    EXPECT_EQ(List(window).font().family(), "DejaVu Sans Mono");
    ChooseSides(window, true, true);
    EXPECT_EQ(List(window).font().family(), "MS Sans Serif");
  });
}

TEST_F(frmAddKeyTest, TheLastTickedSideStaysTicked) {
  WithEditor([](frmAddKey& window) {
    Click(window, "sscFront");
    EXPECT_FALSE(Find<QCheckBox>(window, "sscFront").isChecked());
    Click(window, "sscBack");
    EXPECT_TRUE(Find<QCheckBox>(window, "sscBack").isChecked());
    Click(window, "sscFront");
    Click(window, "sscBack");
    Click(window, "sscFront");
    EXPECT_TRUE(Find<QCheckBox>(window, "sscFront").isChecked());
    EXPECT_FALSE(Find<QCheckBox>(window, "sscBack").isChecked());
  });
}

TEST_F(frmAddKeyTest, DoesNotScrollUpToSevenAssignments) {
  GiveKeys(7);
  WithEditor([](frmAddKey& window) {
    EXPECT_FALSE(IsEnabled(window, "vsbBar"));
    EXPECT_EQ(Bar(window).minimum(), 1);
    EXPECT_EQ(Bar(window).maximum(), 7);
    EXPECT_EQ(Bar(window).value(), 1);
  });
}

TEST_F(frmAddKeyTest, ScrollsFromTheEighthAssignmentOn) {
  GiveKeys(8);
  WithEditor([](frmAddKey& window) {
    EXPECT_TRUE(IsEnabled(window, "vsbBar"));
    EXPECT_EQ(Bar(window).maximum(), 8);
    Bar(window).setValue(2);
    EXPECT_EQ(Row(window, 0), u"Á [F] Ctrl+B");
    EXPECT_EQ(Row(window, 6), u"Ç [F] Ctrl+H");
  });
}

TEST_F(frmAddKeyTest, AChosenCharacterShowsItsCodeAndAction) {
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    EXPECT_EQ(TextOf(window, "sspAscCode"), "0233");
    EXPECT_EQ(Caption(window), "ADD - 0233 = ");
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
  });
}

TEST_F(frmAddKeyTest, ACharacterTypedInTheListSelectsItsOwnEntryInEitherLetterCase) {
  WithEditor([](frmAddKey& window) {
    for (const auto& [character, code] : {std::pair(u'e', "0101"),
                                          {u'E', "0069"},
                                          {u'É', "0201"},
                                          {u' ', "0032"},
                                          {u'€', "0128"}}) {
      ChooseCharacter(window, character);
      EXPECT_EQ(TextOf(window, "sspAscCode"), code);
    }
  });
}

TEST_F(frmAddKeyTest, TheFirstArrowKeyInTheListChoosesItsFirstEntry) {
  WithEditor([](frmAddKey& window) {
    List(window).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&List(window), Qt::Key_Down);
    EXPECT_EQ(TextOf(window, "sspAscCode"), "0192");
  });
}

TEST_F(frmAddKeyTest, ASuggestionCompletesTheAction) {
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    Keystroke(window).setFocus();
    QTest::keyClick(&Keystroke(window), Qt::Key_Down);
    QTest::keyClick(&Keystroke(window), Qt::Key_Down);
    EXPECT_EQ(Caption(window), "ADD - 0233 = Ctrl+E");
    EXPECT_TRUE(IsEnabled(window, "cmdAction"));
  });
}

TEST_F(frmAddKeyTest, APressedKeystrokeNamesItself) {
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    for (const auto& [key, modifiers, text] :
         {std::tuple(Qt::Key_E, Qt::KeyboardModifiers(Qt::ControlModifier), "Ctrl+E"),
          {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, "Shift+Ctrl+Z"},
          {Qt::Key_H, Qt::AltModifier, "Alt+H"},
          {Qt::Key_BracketLeft, Qt::ControlModifier | Qt::AltModifier, "Ctrl+Alt+["},
          {Qt::Key_V, Qt::ControlModifier, "Ctrl+V"}}) {
      Press(window, key, modifiers);
      EXPECT_EQ(Keystroke(window).currentText(), text);
      EXPECT_EQ(Caption(window), QStringLiteral("ADD - 0233 = ") + text);
      EXPECT_TRUE(IsEnabled(window, "cmdAction"));
    }
  });
}

TEST_F(frmAddKeyTest, OtherKeystrokesAreIgnored) {
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_Period, Qt::KeyboardModifiers(Qt::ControlModifier)),
          {Qt::Key_Period, Qt::AltModifier},
          {Qt::Key_0, Qt::ControlModifier},
          {Qt::Key_0, Qt::AltModifier},
          {Qt::Key_Home, Qt::ControlModifier}}) {
      Press(window, key, modifiers);
      EXPECT_EQ(Keystroke(window).currentText(), "") << key;
      EXPECT_EQ(Caption(window), "ADD - 0233 = ");
      EXPECT_FALSE(IsEnabled(window, "cmdAction"));
    }
  });
}

TEST_F(frmAddKeyTest, CharactersAreTypedOnlyWhileTheCaptionNamesNoKeystroke) {
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    Keystroke(window).setFocus();
    QTest::keyClicks(&Keystroke(window), "ab");
    EXPECT_EQ(Keystroke(window).currentText(), "ab");
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
    Press(window, Qt::Key_E, Qt::ControlModifier);
    QTest::keyClicks(&Keystroke(window), "x");
    QTest::keyClick(&Keystroke(window), Qt::Key_Backspace);
    EXPECT_EQ(Keystroke(window).currentText(), "Ctrl+E");
  });
}

TEST_F(frmAddKeyTest, AnInputMethodTypesNothingOnceTheCaptionNamesAKeystroke) {
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    Press(window, Qt::Key_E, Qt::ControlModifier);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("ä"));
    QApplication::sendEvent(&Keystroke(window), &event);
    EXPECT_EQ(Keystroke(window).currentText(), "Ctrl+E");
  });
}

TEST_F(frmAddKeyTest, TheButtonSaysWhatItWillDoWithALetterTypedBehindAKeystroke) {
  prompts.Expect(Answer::No);  // to keeping the assignment
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    Press(window, Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(Caption(window), "ADD - 0233 = Alt+L");
    QTest::keyClicks(&Keystroke(window), "X");
    EXPECT_EQ(Keystroke(window).currentText(), "Alt+LX");
    EXPECT_EQ(Caption(window), "ADD - 0233 = Alt+X");
    EXPECT_TRUE(IsEnabled(window, "cmdAction"));
    Click(window, "cmdAction");
    EXPECT_EQ(TextOf(window, "lblCol2(0)"), "Alt+X");
  });
}

TEST_F(frmAddKeyTest, TheButtonOffersNothingForATextThatIsNoKeystroke) {
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    Press(window, Qt::Key_L, Qt::AltModifier);
    Keystroke(window).lineEdit()->selectAll();
    QTest::keyClicks(&Keystroke(window), "x");
    EXPECT_EQ(Caption(window), "ADD - 0233 = ");
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
  });
}

TEST_F(frmAddKeyTest, AComposedLetterSelectsItsEntryInTheList) {
  WithEditor([](frmAddKey& window) {
    List(window).setFocus();
    for (const auto& [letter, code] : {std::pair(u'é', "0233"), {u'ñ', "0241"}}) {
      EXPECT_TRUE(List(window).testAttribute(Qt::WA_InputMethodEnabled));
      QInputMethodEvent composed;
      composed.setCommitString(QString(QChar(letter)));
      QApplication::sendEvent(&List(window), &composed);
      EXPECT_EQ(TextOf(window, "sspAscCode"), code);
    }
  });
}

TEST_F(frmAddKeyTest, TabLeavesTheKeystrokeBoxForTheAction) {
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    Press(window, Qt::Key_E, Qt::ControlModifier);
    QTest::keyClick(&Keystroke(window), Qt::Key_Tab);
    EXPECT_TRUE(Find<QPushButton>(window, "cmdAction").hasFocus());
  });
}

TEST_F(frmAddKeyTest, ADoubleClickGoesOnToTheNextStep) {
  WithEditor([](frmAddKey& window) {
    auto& list = List(window);
    const QPoint entry = list.visualItemRect(list.item(0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, entry);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, entry);
    EXPECT_TRUE(Keystroke(window).hasFocus());
    Press(window, Qt::Key_E, Qt::ControlModifier);
    QTest::mouseDClick(Keystroke(window).lineEdit(), Qt::LeftButton);
    EXPECT_TRUE(Find<QPushButton>(window, "cmdAction").hasFocus());
    EXPECT_EQ(Caption(window), "ADD - 0192 = Ctrl+E");
  });
}

TEST_F(frmAddKeyTest, TheFocusOfTheListBeginsANewAssignment) {
  GiveKeys(1);
  WithEditor([](frmAddKey& window) {
    ClickRow(window, "lblCol2(0)");
    List(window).setFocus();
    EXPECT_FALSE(IsHighlighted(window, "lblCol2(0)"));
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
    EXPECT_TRUE(IsEnabled(window, "sspControlKey"));
    EXPECT_TRUE(IsEnabled(window, "cboControlKey"));
    Press(window, Qt::Key_E, Qt::ControlModifier);
    List(window).setFocus();
    EXPECT_EQ(Keystroke(window).currentText(), "");
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
  });
}

TEST_F(frmAddKeyTest, AFocusThatComesBackFromAnotherWindowKeepsTheChoices) {
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    Press(window, Qt::Key_E, Qt::ControlModifier);
    for (const Qt::FocusReason reason :
         {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
      QFocusEvent back(QEvent::FocusIn, reason);
      QApplication::sendEvent(&List(window), &back);
    }
    EXPECT_EQ(Keystroke(window).currentText(), "Ctrl+E");
    EXPECT_TRUE(IsEnabled(window, "cmdAction"));
  });
}

TEST_F(frmAddKeyTest, AClickOnEitherColumnOffersToDeleteTheRow) {
  GiveKeys(3);
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    for (const char* const label : {"lblCol1(1)", "lblCol2(1)"}) {
      ClickRow(window, "lblCol2(0)");
      ClickRow(window, label);
      EXPECT_EQ(Caption(window), "DELETE - 0193 = [F] Ctrl+B");
      EXPECT_TRUE(Find<QPushButton>(window, "cmdAction").hasFocus());
      EXPECT_TRUE(IsEnabled(window, "cmdAction"));
      EXPECT_FALSE(IsEnabled(window, "cboControlKey"));
      EXPECT_TRUE(List(window).selectedItems().isEmpty());
      EXPECT_FALSE(IsHighlighted(window, "lblCol1(0)"));
      EXPECT_TRUE(IsHighlighted(window, "lblCol1(1)"));
      EXPECT_TRUE(IsHighlighted(window, "lblCol2(1)"));
    }
  });
}

TEST_F(frmAddKeyTest, ARowIsOfferedEvenWhenAKeystrokeWasBeingPressed) {
  GiveKeys(1);
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    Press(window, Qt::Key_E, Qt::ControlModifier);
    ClickRow(window, "lblCol2(0)");
    EXPECT_EQ(Caption(window), "DELETE - 0192 = [F] Ctrl+A");
    EXPECT_EQ(Keystroke(window).currentText(), "");
  });
}

TEST_F(frmAddKeyTest, ABlankRowCannotBeChosen) {
  GiveKeys(1);
  WithEditor([](frmAddKey& window) {
    ClickRow(window, "lblCol2(1)");
    ExpectReset(window);
  });
}

TEST_F(frmAddKeyTest, EnterOnTheScrollBarChoosesTheFirstRow) {
  GiveKeys(8);
  WithEditor([](frmAddKey& window) {
    Bar(window).setFocus();
    QTest::keyClick(&Bar(window), Qt::Key_Down);
    QTest::keyClick(&Bar(window), Qt::Key_Return);
    EXPECT_EQ(Caption(window), "DELETE - 0193 = [F] Ctrl+B");
    Bar(window).setFocus();
    ClickRow(window, "lblCol2(3)");
    QTest::keyClick(&Bar(window), Qt::Key_Return);
    EXPECT_TRUE(IsHighlighted(window, "lblCol2(3)"));
  });
}

TEST_F(frmAddKeyTest, RowsAreChosenFromTheKeyboard) {
  GiveKeys(9);
  WithEditor([](frmAddKey& window) {
    Find<QPushButton>(window, "cmdDone").setFocus();
    QTest::keyClick(&window, Qt::Key_Tab);
    for (int i = 0; i < 7; ++i) QTest::keyClick(window.focusWidget(), Qt::Key_Down);
    EXPECT_EQ(Bar(window).value(), 2);
    QTest::keyClick(window.focusWidget(), Qt::Key_Up);
    QTest::keyClick(window.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(Caption(window), "DELETE - 0198 = [F] Ctrl+G");
  });
}

TEST_F(frmAddKeyTest, ScrollingTakesTheHighlightAndItsActionAway) {
  GiveKeys(9);
  WithEditor([](frmAddKey& window) {
    ClickRow(window, "lblCol2(3)");
    Bar(window).setValue(2);
    EXPECT_FALSE(IsHighlighted(window, "lblCol2(3)"));
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
  });
}

TEST_F(frmAddKeyTest, TheWheelOverARowScrolls) {
  GiveKeys(9);
  WithEditor([](frmAddKey& window) {
    auto& row = Find<QLabel>(window, "lblCol2(0)");
    const QPointF middle = row.rect().center();
    QWheelEvent wheel(middle, row.mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&row, &wheel);
    EXPECT_GT(Bar(window).value(), 1);
  });
}

TEST_F(frmAddKeyTest, CancelTakesEveryChoiceBack) {
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    Press(window, Qt::Key_E, Qt::ControlModifier);
    Click(window, "cmdCancel");
    ExpectReset(window);
  });
}

TEST_F(frmAddKeyTest, AnAddedAssignmentIsShownAndTheChoicesTakenBack) {
  prompts.Expect(Answer::No);
  WithEditor([](frmAddKey& window) {
    AddKey(window, u'é', Qt::Key_E);
    EXPECT_EQ(Row(window, 0), u"é Ctrl+E");
    ExpectReset(window);
  });
}

TEST_F(frmAddKeyTest, TheEighthAssignmentIsScrolledIntoView) {
  GiveKeys(7);
  prompts.Expect(Answer::No);
  WithEditor([](frmAddKey& window) {
    AddKey(window, u'é', Qt::Key_Z);
    EXPECT_TRUE(IsEnabled(window, "vsbBar"));
    EXPECT_EQ(Bar(window).maximum(), 2);
    EXPECT_EQ(Bar(window).value(), 2);
    EXPECT_EQ(Row(window, 6), u"é Ctrl+Z");
  });
}

TEST_F(frmAddKeyTest, TheThirtyFirstAssignmentIsRefused) {
  GiveKeys(30);
  prompts.Expect(Answer::Ok);
  WithEditor([this](frmAddKey& window) {
    AddKey(window, u'é', Qt::Key_Z, Qt::AltModifier);
    ExpectPrompt(prompts.shown.at(0), u"Maximum of 30 Key Assignments!", PromptIcon::Exclamation,
                 PromptButtons::Ok);
    ExpectReset(window);
  });
  EXPECT_EQ(prompts.shown.size(), 1U);
}

TEST_F(frmAddKeyTest, AKeystrokeOfBothSidesMayStandOnlyOnce) {
  prompts.Expect(Answer::Ok);
  prompts.Expect(Answer::No);
  WithEditor([this](frmAddKey& window) {
    ChooseSides(window, true, false);
    AddKey(window, u'é', Qt::Key_E);
    ChooseSides(window, false, true);
    AddKey(window, u'è', Qt::Key_E);
    EXPECT_EQ(Row(window, 0), u"é [F] Ctrl+E");
    EXPECT_EQ(Row(window, 1), u"è [B] Ctrl+E");
    ChooseSides(window, true, true);
    AddKey(window, u'ê', Qt::Key_E);
    ExpectPrompt(prompts.shown.at(0), u"This Control Key Assignment Already Exists!",
                 PromptIcon::Exclamation, PromptButtons::Ok);
    EXPECT_EQ(Row(window, 2), " ");
    ExpectReset(window);
  });
}

TEST_F(frmAddKeyTest, WithoutAChosenCharacterNothingIsAdded) {
  WithEditor([](frmAddKey& window) {
    List(window).setFocus();
    Press(window, Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(Caption(window), "ADD - 0000 = Ctrl+E");
    Click(window, "cmdAction");
    EXPECT_EQ(Row(window, 0), " ");
    ExpectReset(window);
  });
}

TEST_F(frmAddKeyTest, DeletingTheEighthAssignmentShowsAllOthers) {
  GiveKeys(8);
  prompts.Expect(Answer::No);
  WithEditor([](frmAddKey& window) {
    Bar(window).setValue(2);
    ClickRow(window, "lblCol2(6)");
    Click(window, "cmdAction");
    EXPECT_FALSE(IsEnabled(window, "vsbBar"));
    EXPECT_EQ(Bar(window).value(), 1);
    EXPECT_EQ(Row(window, 0), u"À [F] Ctrl+A");
    EXPECT_EQ(Row(window, 6), u"Æ [F] Ctrl+G");
    ExpectReset(window);
  });
}

TEST_F(frmAddKeyTest, DeletingOneOfManyScrollsBackByOne) {
  GiveKeys(10);
  prompts.Expect(Answer::No);
  WithEditor([](frmAddKey& window) {
    Bar(window).setValue(3);
    ClickRow(window, "lblCol1(0)");
    QTest::keyClick(&Find<QPushButton>(window, "cmdAction"), Qt::Key_Return);
    EXPECT_EQ(Bar(window).maximum(), 3);
    EXPECT_EQ(Bar(window).value(), 2);
    EXPECT_EQ(Row(window, 0), u"Á [F] Ctrl+B");
    EXPECT_EQ(Row(window, 1), u"Ã [F] Ctrl+D");
  });
}

TEST_F(frmAddKeyTest, MoreChoosesACharacterFromTheChart) {
  WithEditor([this](frmAddKey& window) {
    WithModal<frmMoreKeys>([&] { Click(window, "cmdMore"); },
                           [](frmMoreKeys& chart) {
                             Find<QScrollBar>(chart, "hsbBar").setValue(6);
                             Click(chart, "lblKey(9)");
                             Click(chart, "cmdSend");
                           });
    EXPECT_EQ(shared.Switches.KeyCodeToSend, 201);
    EXPECT_EQ(TextOf(window, "sspAscCode"), "0201");
    EXPECT_EQ(Caption(window), "ADD - 0201 = ");
    EXPECT_TRUE(IsEnabled(window, "cboControlKey"));
    window.activateWindow();
    WaitUntilActive(window);
    EXPECT_TRUE(List(window).hasFocus());
  });
}

TEST_F(frmAddKeyTest, MoreChoosesNothingWhenTheChartIsCancelled) {
  WithEditor([this](frmAddKey& window) {
    WithModal<frmMoreKeys>([&] { Click(window, "cmdMore"); },
                           [](frmMoreKeys& chart) { Click(chart, "cmdCancel"); });
    EXPECT_LT(shared.Switches.KeyCodeToSend, 0);
    ExpectReset(window);
  });
}

TEST_F(frmAddKeyTest, MoreSelectsNoEntryForTheCodeZero) {
  WithEditor([this](frmAddKey& window) {
    WithModal<frmMoreKeys>([&] { Click(window, "cmdMore"); },
                           [](frmMoreKeys& chart) { Click(chart, "cmdSend"); });
    EXPECT_EQ(shared.Switches.KeyCodeToSend, 0);
    EXPECT_TRUE(List(window).selectedItems().isEmpty());
    EXPECT_EQ(Caption(window), "Action: None");
  });
}

TEST_F(frmAddKeyTest, MoreAsksForTheSideWhoseFontTheListHas) {
  shared.Topic.Fonts = {u"DejaVu Serif", 12, u"DejaVu Sans Mono", 14};
  WithEditor([this](frmAddKey& window) {
    const auto requestWith = [&](bool front, bool back) {
      ChooseSides(window, front, back);
      Int16 request = 0;
      WithModal<frmMoreKeys>([&] { Click(window, "cmdMore"); },
                             [&](frmMoreKeys& chart) {
                               request = shared.Switches.KeyCodeToSend;
                               Click(chart, "cmdCancel");
                             });
      return request;
    };
    EXPECT_EQ(requestWith(true, false), -1);
    EXPECT_EQ(requestWith(false, true), -2);
    EXPECT_EQ(requestWith(true, true), -1);
    shared.Topic.Fonts.BackFont = u"MS Sans Serif";
    EXPECT_EQ(requestWith(true, true), -2);
  });
}

TEST_F(frmAddKeyTest, EscapeDoesNothing) {
  WithEditor([](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Caption(window), "ADD - 0233 = ");
  });
}

TEST_F(frmAddKeyTest, WithoutChangesItClosesWithoutAQuestion) {
  GiveKeys(2);
  WithEditor([](frmAddKey&) {});
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(SettingsFile(), GeneralSection);
}

TEST_F(frmAddKeyTest, YesSavesTheAssignments) {
  prompts.Expect(Answer::Yes);
  WithEditor([](frmAddKey& window) {
    ChooseSides(window, true, false);
    AddKey(window, u'é', Qt::Key_E);
    ChooseSides(window, true, true);
    AddKey(window, u'ñ', Qt::Key_N, Qt::ControlModifier | Qt::AltModifier);
  });
  ExpectPrompt(prompts.shown.at(0), u"Save These Key Assignments for General?",
               PromptIcon::Question, PromptButtons::YesNo);
  EXPECT_EQ(SettingsFile(), GeneralSection + KeysLine("12E\xE9"
                                                      "36N\xF1"));
  EXPECT_EQ(shared.Topic.Keys.KeyCount, 2);
  EXPECT_EQ(shared.Topic.Keys.Slot(2),
            (KeyAssignment{CharCode{u'3'}, CharCode{u'6'}, CharCode{u'N'}, CharCode{241}}));
}

TEST_F(frmAddKeyTest, YesClearsTheSlotsOfDeletedAssignments) {
  GiveKeys(2);
  prompts.Expect(Answer::Yes);
  WithEditor([](frmAddKey& window) {
    ClickRow(window, "lblCol2(0)");
    Click(window, "cmdAction");
  });
  EXPECT_EQ(SettingsFile(), GeneralSection + KeysLine("12B\xC1"));
  EXPECT_EQ(shared.Topic.Keys.KeyCount, 1);
  EXPECT_EQ(shared.Topic.Keys.Slot(2), KeyAssignment());
}

TEST_F(frmAddKeyTest, NoLeavesFileAndAssignmentsAlone) {
  GiveKeys(1);
  prompts.Expect(Answer::No);
  WithEditor([](frmAddKey& window) { AddKey(window, u'é', Qt::Key_E); });
  EXPECT_EQ(SettingsFile(), GeneralSection);
  EXPECT_EQ(shared.Topic.Keys.KeyCount, 1);
}

TEST_F(frmAddKeyTest, TheCloseBoxAsksAsWell) {
  prompts.Expect(Answer::Yes);
  WithModal<frmAddKey>([this] { frmAddKey(shared, platform, nullptr).ShowModal(); },
                       [](frmAddKey& window) {
                         AddKey(window, u'é', Qt::Key_E);
                         window.close();
                       });
  EXPECT_EQ(shared.Topic.Keys.KeyCount, 1);
}

TEST_F(frmAddKeyTest, ATopicBeingAddedBeginsWithoutAssignments) {
  GiveKeys(9);
  BeginNewTopic(u"Spanish");
  prompts.Expect(Answer::No);
  WithEditor([](frmAddKey& window) {
    EXPECT_EQ(Row(window, 0), " ");
    EXPECT_FALSE(IsEnabled(window, "vsbBar"));
    EXPECT_EQ(Bar(window).maximum(), 1);
  });
}

TEST_F(frmAddKeyTest, YesAddsTheTopicWithItsFontsAndKeys) {
  GiveKeys(1);
  shared.Topic.Fonts = {u"DejaVu Serif", 12, u"DejaVu Sans Mono", 14.5F};
  BeginNewTopic(u"Spanish ");
  prompts.Expect(Answer::Yes);
  WithEditor([](frmAddKey& window) { AddKey(window, u'ñ', Qt::Key_N); });
  ExpectPrompt(prompts.shown.at(0), u"Add Spanish and keys to File?", PromptIcon::Question,
               PromptButtons::YesNo);
  std::string expected = GeneralSection;
  expected.insert(expected.find("[General]"), "1=Spanish\r\n");
  EXPECT_EQ(SettingsFile(), expected +
                                "[Spanish]\r\n"
                                "FRONTFONT=DejaVu Serif\r\nFRONTSIZE=12\r\n"
                                "BACKFONT=DejaVu Sans Mono\r\nBACKSIZE=14.5\r\n" +
                                KeysLine("32N\xF1"));
  EXPECT_EQ(shared.Topics.TopicCount, 1);
  EXPECT_EQ(shared.Topics.CurrentTopic, 1);
  EXPECT_EQ(shared.Topics.Name(1), u"Spanish");
  EXPECT_EQ(shared.Switches.NewTopicName, u"");
}

TEST_F(frmAddKeyTest, ATopicWithoutKeysIsAddedAsWell) {
  BeginNewTopic(u"Spanish");
  prompts.Expect(Answer::Yes);
  WithEditor([](frmAddKey&) {});
  EXPECT_TRUE(SettingsFile().ends_with(KeysLine("")));
  EXPECT_EQ(shared.Topics.TopicCount, 1);
}

TEST_F(frmAddKeyTest, NoAddsNoTopic) {
  BeginNewTopic(u"Spanish");
  prompts.Expect(Answer::No);
  WithEditor([](frmAddKey& window) { AddKey(window, u'ñ', Qt::Key_N); });
  EXPECT_EQ(SettingsFile(), GeneralSection);
  EXPECT_EQ(shared.Topics.TopicCount, 0);
  EXPECT_EQ(shared.Switches.NewTopicName, u"");
}

TEST_F(frmAddKeyTest, TheTwelfthTopicIsRefused) {
  for (int i = 1; i <= 10; ++i) profile.WriteString(u"TOPICS", NumberText(i), u"T" + NumberText(i));
  LoadTopicList(shared.Topics, profile);
  const std::string before = SettingsFile();
  BeginNewTopic(u"Spanish");
  prompts.Expect(Answer::Yes);
  prompts.Expect(Answer::Ok);
  WithEditor([](frmAddKey&) {});
  ExpectPrompt(prompts.shown.at(1), u"Cannot Add.  Maximum of 10 Topics", PromptIcon::Exclamation,
               PromptButtons::Ok);
  EXPECT_EQ(SettingsFile(), before);
  EXPECT_EQ(shared.Topics.TopicCount, 10);
  EXPECT_EQ(shared.Switches.NewTopicName, u"");
}

TEST_F(frmAddKeyTest, KeysThatCannotBeSavedKeepTheWindowOpen) {
  const std::string before = SettingsFile();
  files.failCommit = FileStatus::DiskFull;
  prompts.Expect(Answer::Yes);
  prompts.Expect(Answer::Yes);
  WithEditor([&](frmAddKey& window) {
    AddKey(window, u'ñ', Qt::Key_N);
    Click(window, "cmdDone");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(TextOf(window, "lblSettings"), "The settings cannot be saved.");
    EXPECT_EQ(shared.Topic.Keys.KeyCount, 0);
    EXPECT_EQ(SettingsFile(), before);
    files.failCommit = FileStatus::Ok;
  });
  EXPECT_EQ(shared.Topic.Keys.KeyCount, 1);
  EXPECT_NE(SettingsFile(), before);
}

TEST_F(frmAddKeyTest, ClosingLeavesTheBusyPointerToTheCaller) {
  SetPointer(PointerShape::Busy);
  WithEditor([](frmAddKey&) { EXPECT_EQ(QApplication::overrideCursor(), nullptr); });
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
}

TEST_F(frmAddKeyTest, HelpAsksForItsPage) {
  WithEditor([](frmAddKey& window) { Find<QAction>(window, "mnuHelp").trigger(); });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::AddKey});
}

TEST_F(frmAddKeyTest, CtrlAndAltKeystrokesReachTheBoxBeforeTheMenu) {
  WithEditor([this](frmAddKey& window) {
    ChooseCharacter(window, u'é');
    Press(window, Qt::Key_H, Qt::AltModifier);
    EXPECT_EQ(Caption(window), "ADD - 0233 = Alt+H");
    EXPECT_TRUE(help.contexts.empty());
  });
}

}  // namespace
