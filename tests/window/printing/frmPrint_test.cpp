#include "windows/printing/frmPrint.h"

#include "tests/window/WindowFixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPrinter>
#include <QProgressDialog>
#include <QTemporaryDir>

namespace {

const QString FrontPreview = QStringLiteral("This is the front font at the selected size.");
const QString BackPreview = QStringLiteral("This is the back font at the selected size.");
const QString NoPreview =
    QStringLiteral("This font is a printer font only.  No preview is possible.");

class frmPrintTest : public WindowTest {
 protected:
  frmPrintTest() {
    services.fontNames = [] {
      return std::vector<Text>{u"DejaVu Sans", u"Liberation Serif", u"Noto Mono"};
    };
    services.defaultPrinter = [] { return nullptr; };
    services.choosePdf = [this](QWidget*, const QString& name) {
      proposed.append(name);
      return pdf;
    };
    InitSettings(profile);
    profile.WriteString(TopicsSection, u"1", u"Spanish");
    LoadTopicList(shared.Topics, profile);
    LoadStack(u"verbs.QBC", 3);
  }

  void SelectSpanish() { SelectTopic(shared.Topics, shared.Topic, profile, 1); }

  void WithDialog(const std::function<void(frmPrint&)>& act) {
    WithModal<frmPrint>([this] { frmPrint(shared, platform, nullptr, services).ShowModal(); }, act);
  }

  void WithPrintDialog(const std::function<void(frmPrint&)>& act) {
    shared.Switches.PrintMode = true;
    WithDialog(act);
  }

  static QLineEdit& Field(frmPrint& window, const char* name) {
    return Find<QLineEdit>(window, name);
  }

  static void Type(frmPrint& window, const char* name, const char* text) {
    Field(window, name).setFocus();
    Field(window, name).selectAll();
    QTest::keyClick(&Field(window, name), Qt::Key_Backspace);
    QTest::keyClicks(&Field(window, name), QLatin1String(text));
  }

  static void Leave(frmPrint& window, const char* name) {
    QTest::keyClick(&Field(window, name), Qt::Key_Tab);
  }

  /// What a field makes of an entry when it is left.
  static QString Left(frmPrint& window, const char* name, const char* text) {
    Type(window, name, text);
    Leave(window, name);
    return Field(window, name).text();
  }

  /// Chooses a font as the user does, from the keyboard.
  static void Choose(frmPrint& window, const char* list, const char* font) {
    auto& combo = Find<QComboBox>(window, list);
    const int wanted = combo.findText(QLatin1String(font));
    ASSERT_GE(wanted, 0) << font;
    while (combo.currentIndex() != wanted) {
      QTest::keyClick(&combo, combo.currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
    }
  }

  static QStringList Items(frmPrint& window, const char* list) {
    const auto& combo = Find<QComboBox>(window, list);
    QStringList items;
    for (int item = 0; item < combo.count(); ++item) items.append(combo.itemText(item));
    return items;
  }

  static QFont FontOf(frmPrint& window, const char* label) {
    return Find<QLabel>(window, label).font();
  }

  void ExpectSaveQuestion(const Prompt& prompt) {
    ExpectPrompt(prompt, u"Save fonts for this topic?", PromptIcon::Question, PromptButtons::YesNo);
  }

  PrintingServices services = DesktopPrintingServices();
  QString pdf = QStringLiteral("/cards/out.pdf");
  QStringList proposed;
};

// --- opening

TEST_F(frmPrintTest, PrintRoleShowsTheStacksNameInItsFullWidth) {
  WithPrintDialog([](frmPrint& window) {
    const QString field = QStringLiteral("verbs.QBC").leftJustified(256);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Quib!Cards 5.50 - ") + field);
    EXPECT_EQ(TextOf(window, "sspAction"), QStringLiteral("Print ") + field);
    EXPECT_TRUE(Find<QLabel>(window, "imgPrint").isVisible());
    EXPECT_FALSE(Find<QLabel>(window, "imgFont").isVisible());
    EXPECT_TRUE(Field(window, "txtMargin").isVisible());
    EXPECT_EQ(Field(window, "txtMargin").text(), "5");
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, DisplayFontRoleShowsTheCurrentTopic) {
  WithDialog([](frmPrint& window) {
    EXPECT_EQ(window.windowTitle(), "Quib!Cards 5.50 (General)");
    EXPECT_EQ(TextOf(window, "sspAction"), "Change Display Font");
    EXPECT_FALSE(Find<QLabel>(window, "imgPrint").isVisible());
    EXPECT_TRUE(Find<QLabel>(window, "imgFont").isVisible());
    EXPECT_FALSE(Field(window, "txtMargin").isVisible());
    EXPECT_EQ(Field(window, "txtMargin").text(), "5");
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, DisplayFontRoleShowsATopicThatIsBeingAdded) {
  shared.Switches.NewTopicName = u"Latin & <b>Greek";
  WithDialog([](frmPrint& window) {
    EXPECT_EQ(window.windowTitle(), "Quib!Cards 5.50 (Latin & <b>Greek)");
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, ShowsTheTopicsFontsAndSizes) {
  shared.Topic.Fonts = {u"Noto Mono", 12, u"Liberation Serif", 9.5F};
  WithDialog([](frmPrint& window) {
    EXPECT_EQ(Find<QComboBox>(window, "cboFrontFont").currentText(), "Noto Mono");
    EXPECT_EQ(Find<QComboBox>(window, "cboBackFont").currentText(), "Liberation Serif");
    EXPECT_EQ(Field(window, "txtFSize").text(), "12");
    EXPECT_EQ(Field(window, "txtBSize").text(), "9.5");
    EXPECT_EQ(TextOf(window, "lblPreFront"), FrontPreview);
    EXPECT_EQ(TextOf(window, "lblPreBack"), BackPreview);
    EXPECT_EQ(FontOf(window, "lblPreFront").family(), "Noto Mono");
    EXPECT_EQ(FontOf(window, "lblPreFront").pointSizeF(), 12);
    EXPECT_EQ(FontOf(window, "lblPreBack").family(), "Liberation Serif");
    EXPECT_EQ(FontOf(window, "lblPreBack").pointSizeF(), 9.5);
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, FontListsHoldTheScreensFontsTheDefaultAndTheTopicsOwn) {
  shared.Topic.Fonts.BackFont = u"Akkadian";
  const QStringList expected{"Akkadian", "DejaVu Sans", "Liberation Serif", "MS Sans Serif",
                             "Noto Mono"};
  for (const bool printing : {false, true}) {
    shared.Switches.PrintMode = printing;
    WithDialog([&](frmPrint& window) {
      EXPECT_EQ(Items(window, "cboFrontFont"), expected);
      EXPECT_EQ(Items(window, "cboBackFont"), expected);
      EXPECT_EQ(Find<QComboBox>(window, "cboBackFont").currentText(), "Akkadian");
      Click(window, "cmdCanc");
    });
  }
}

TEST_F(frmPrintTest, FontNameInAnotherLetterCaseStaysAsItIsStored) {
  shared.Topic.Fonts.FrontFont = u"dejavu sans";
  WithDialog([](frmPrint& window) {
    EXPECT_EQ(Find<QComboBox>(window, "cboFrontFont").currentText(), "dejavu sans");
    Click(window, "cmdOK");
  });
  EXPECT_EQ(shared.Topic.Fonts.FrontFont, u"dejavu sans");
}

TEST_F(frmPrintTest, EveryKeyThatTypesIntoAFontListIsDiscarded) {
  WithDialog([](frmPrint& window) {
    for (const char* const name : {"cboFrontFont", "cboBackFont"}) {
      auto& combo = Find<QComboBox>(window, name);
      combo.setFocus();
      QTest::keyClicks(&combo, QStringLiteral("noto 1"));
      EXPECT_EQ(combo.currentText(), "MS Sans Serif");
      EXPECT_FALSE(combo.isEditable());
    }
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, HelpAsksForItsPage) {
  WithDialog([](frmPrint& window) {
    Find<QAction>(window, "mnuHelp").trigger();
    Click(window, "cmdCanc");
  });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::Print});
}

// --- choosing a font

TEST_F(frmPrintTest, PreviewsTakeTheChosenFont) {
  WithDialog([](frmPrint& window) {
    Choose(window, "cboFrontFont", "Noto Mono");
    EXPECT_EQ(FontOf(window, "lblPreFront").family(), "Noto Mono");
    EXPECT_EQ(FontOf(window, "lblPreBack").family(), "MS Sans Serif");
    Choose(window, "cboBackFont", "DejaVu Sans");
    EXPECT_EQ(FontOf(window, "lblPreBack").family(), "DejaVu Sans");
    EXPECT_EQ(FontOf(window, "lblPreBack").pointSizeF(), 8.25);
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, FontThatIsNotOnTheScreenHasNoPreviewUntilAnotherIsChosen) {
  shared.Topic.Fonts.FrontFont = u"Akkadian";
  shared.Topic.Fonts.BackFont = u"Akkadian";
  WithDialog([](frmPrint& window) {
    for (const auto& [list, label, preview] :
         {std::tuple("cboFrontFont", "lblPreFront", FrontPreview),
          {"cboBackFont", "lblPreBack", BackPreview}}) {
      EXPECT_EQ(TextOf(window, label), preview);
      Choose(window, list, "DejaVu Sans");
      EXPECT_EQ(TextOf(window, label), preview);
      Choose(window, list, "Akkadian");
      EXPECT_EQ(TextOf(window, label), NoPreview);
      Choose(window, list, "DejaVu Sans");
      EXPECT_EQ(TextOf(window, label), preview);
    }
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, DefaultFontHasAPreviewThoughTheScreenDoesNotListIt) {
  WithDialog([](frmPrint& window) {
    Choose(window, "cboFrontFont", "Noto Mono");
    Choose(window, "cboFrontFont", "MS Sans Serif");
    EXPECT_EQ(TextOf(window, "lblPreFront"), FrontPreview);
    Click(window, "cmdCanc");
  });
}

// --- sizes and margin

TEST_F(frmPrintTest, SizeFieldsTakeDigitsAndPointsOnly) {
  WithDialog([](frmPrint& window) {
    for (const char* const name : {"txtFSize", "txtBSize"}) {
      Type(window, name, "a1-,2 e.+5x");
      EXPECT_EQ(Field(window, name).text(), "12.5");
    }
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, SizeIsRepairedWhenItsFieldIsLeft) {
  WithDialog([](frmPrint& window) {
    for (const char* const name : {"txtFSize", "txtBSize"}) {
      for (const auto& [typed, left] : {std::pair("40", "8.25"),
                                        {"32", "32"},
                                        {"32.1", "8.25"},
                                        {"", "8.25"},
                                        {".", "8.25"},
                                        {"0", "8.25"},
                                        {"012.50", "12.5"},
                                        {"9.", "9"},
                                        {"1.2.3", "1.2"}}) {
        EXPECT_EQ(Left(window, name, typed), left) << typed;
      }
    }
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, PreviewTakesTheSizeWhenItsFieldIsLeft) {
  WithDialog([](frmPrint& window) {
    Type(window, "txtFSize", "20");
    EXPECT_EQ(FontOf(window, "lblPreFront").pointSizeF(), 8.25);
    Leave(window, "txtFSize");
    EXPECT_EQ(FontOf(window, "lblPreFront").pointSizeF(), 20);
    EXPECT_EQ(FontOf(window, "lblPreBack").pointSizeF(), 8.25);
    Choose(window, "cboFrontFont", "Noto Mono");
    EXPECT_EQ(FontOf(window, "lblPreFront").pointSizeF(), 20);
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, EnterEndsASizeEntryAndPressesNoButton) {
  WithDialog([](frmPrint& window) {
    for (const auto& [name, label] :
         {std::pair("txtFSize", "lblPreFront"), {"txtBSize", "lblPreBack"}}) {
      Type(window, name, "16.0");
      QTest::keyClick(&Field(window, name), Qt::Key_Return);
      EXPECT_EQ(Field(window, name).text(), "16");
      EXPECT_EQ(FontOf(window, label).pointSizeF(), 16);
      EXPECT_TRUE(window.isVisible());
    }
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, SizeBecomesTheNearestThatTheFontOffers) {
  services.showFont = [](TextView, float size) { return ShownFont{.size = size < 9 ? 8.F : 10.F}; };
  WithDialog([](frmPrint& window) {
    EXPECT_EQ(Left(window, "txtFSize", "12"), "10");
    EXPECT_EQ(FontOf(window, "lblPreFront").pointSizeF(), 10);
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, SaysWhenAFontCannotBeShownAtASmallSize) {
  services.showFont = [](TextView, float size) {
    return ShownFont{.sameName = size >= 8, .size = size};
  };
  prompts.Expect(Answer::Ok);
  WithDialog([](frmPrint& window) {
    Choose(window, "cboBackFont", "Noto Mono");
    EXPECT_EQ(Left(window, "txtBSize", "7"), "8.25");
    EXPECT_EQ(FontOf(window, "lblPreBack").family(), "Noto Mono");
    EXPECT_EQ(FontOf(window, "lblPreBack").pointSizeF(), 8.25);
    Click(window, "cmdCanc");
  });
  ExpectPrompt(prompts.shown.at(0), u"This font does not support this size", PromptIcon::None,
               PromptButtons::Ok);
}

TEST_F(frmPrintTest, SaysNothingWhenAnotherFontStandsInFromSize8On) {
  services.showFont = [](TextView, float size) { return ShownFont{false, size}; };
  WithDialog([](frmPrint& window) {
    EXPECT_EQ(Left(window, "txtFSize", "8"), "8");
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, MarginTakesDigitsUpTo40) {
  WithPrintDialog([](frmPrint& window) {
    Type(window, "txtMargin", "-1a.2 ");
    EXPECT_EQ(Field(window, "txtMargin").text(), "12");
    for (const auto& [typed, left] : {std::pair("41", "5"), {"40", "40"}, {"0", "0"}, {"", ""}}) {
      EXPECT_EQ(Left(window, "txtMargin", typed), left);
    }
    Click(window, "cmdCanc");
  });
}

// --- OK and Cancel for display fonts

TEST_F(frmPrintTest, OkStoresFontsAndSizes) {
  WithDialog([](frmPrint& window) {
    Choose(window, "cboFrontFont", "Noto Mono");
    Choose(window, "cboBackFont", "DejaVu Sans");
    Type(window, "txtFSize", "12");
    Type(window, "txtBSize", "10.5");
    Click(window, "cmdOK");
  });
  EXPECT_EQ(shared.Topic.Fonts, (TopicFonts{u"Noto Mono", 12, u"DejaVu Sans", 10.5F}));
}

TEST_F(frmPrintTest, OkWithoutAChangeKeepsTheFontsAsTheyAre) {
  shared.Topic.Fonts = {u"Akkadian", 9.75F, u"MS Sans Serif", 8.3F};
  const TopicFonts before = shared.Topic.Fonts;
  WithDialog([](frmPrint& window) { Click(window, "cmdOK"); });
  EXPECT_EQ(shared.Topic.Fonts, before);
}

TEST_F(frmPrintTest, OkRepairsAFieldThatStillHasTheFocus) {
  WithDialog([](frmPrint& window) {
    Type(window, "txtFSize", "40");
    Type(window, "txtBSize", "");
    Find<QAbstractButton>(window, "cmdOK").click();
  });
  EXPECT_EQ(shared.Topic.Fonts.FrontSize, 8.25F);
  EXPECT_EQ(shared.Topic.Fonts.BackSize, 8.25F);
}

TEST_F(frmPrintTest, OkAfterAnUnsupportedSizeTellsItOnce) {
  services.showFont = [](TextView, float size) {
    return ShownFont{.sameName = size >= 8, .size = size};
  };
  prompts.Expect(Answer::Ok);
  WithDialog([](frmPrint& window) {
    Type(window, "txtFSize", "6");
    Click(window, "cmdOK");
  });
  EXPECT_EQ(shared.Topic.Fonts.FrontSize, 8.25F);
}

TEST_F(frmPrintTest, CancelAndEscapeStoreNothing) {
  const TopicFonts before = shared.Topic.Fonts;
  WithDialog([](frmPrint& window) {
    Choose(window, "cboFrontFont", "Noto Mono");
    Type(window, "txtFSize", "12");
    Click(window, "cmdCanc");
  });
  WithDialog([](frmPrint& window) {
    Choose(window, "cboFrontFont", "Noto Mono");
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  EXPECT_EQ(shared.Topic.Fonts, before);
}

TEST_F(frmPrintTest, EscapeFromABadSizeSaysNothing) {
  services.showFont = [](TextView, float size) {
    return ShownFont{.sameName = size >= 8, .size = size};
  };
  WithDialog([](frmPrint& window) {
    Type(window, "txtFSize", "6");
    QTest::keyClick(&Field(window, "txtFSize"), Qt::Key_Escape);
  });
  EXPECT_TRUE(prompts.shown.empty());
}

// --- saving a topic's fonts

TEST_F(frmPrintTest, YesSavesTheChosenFontsUnderTheTopic) {
  SelectSpanish();
  prompts.Expect(Answer::Yes);
  WithDialog([](frmPrint& window) {
    EXPECT_EQ(window.windowTitle(), "Quib!Cards 5.50 (Spanish)");
    Choose(window, "cboFrontFont", "Noto Mono");
    Type(window, "txtBSize", "12");
    Click(window, "cmdOK");
  });
  ExpectSaveQuestion(prompts.shown.at(0));
  EXPECT_EQ(LoadTopicSettings(profile, u"Spanish").Fonts,
            (TopicFonts{u"Noto Mono", 8.25F, u"MS Sans Serif", 12}));
}

TEST_F(frmPrintTest, NoLeavesTheFileAloneAndKeepsTheFontsForTheRun) {
  SelectSpanish();
  const std::string before = files.Content(SettingsPath);
  prompts.Expect(Answer::No);
  WithDialog([](frmPrint& window) {
    Choose(window, "cboFrontFont", "Noto Mono");
    Click(window, "cmdOK");
  });
  EXPECT_EQ(files.Content(SettingsPath), before);
  EXPECT_EQ(shared.Topic.Fonts.FrontFont, u"Noto Mono");
}

TEST_F(frmPrintTest, CancelAsksTooAndYesThenWritesTheUnchangedFonts) {
  SelectSpanish();
  shared.Topic.Fonts.FrontSize = 11;
  prompts.Expect(Answer::Yes);
  WithDialog([](frmPrint& window) {
    Type(window, "txtFSize", "20");
    Click(window, "cmdCanc");
  });
  ExpectSaveQuestion(prompts.shown.at(0));
  EXPECT_EQ(LoadTopicSettings(profile, u"Spanish").Fonts.FrontSize, 11);
}

TEST_F(frmPrintTest, CloseBoxAsksToo) {
  SelectSpanish();
  prompts.Expect(Answer::No);
  WithDialog([](frmPrint& window) { window.close(); });
  ExpectSaveQuestion(prompts.shown.at(0));
}

TEST_F(frmPrintTest, GeneralIsNeverSaved) {
  const std::string before = files.Content(SettingsPath);
  WithDialog([](frmPrint& window) {
    Choose(window, "cboFrontFont", "Noto Mono");
    Click(window, "cmdOK");
  });
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(files.Content(SettingsPath), before);
  EXPECT_EQ(shared.Topic.Fonts.FrontFont, u"Noto Mono");
}

TEST_F(frmPrintTest, TopicNumberWithoutATopicCountsAsGeneral) {
  shared.Topics.CurrentTopic = 7;
  WithDialog([](frmPrint& window) { Click(window, "cmdOK"); });
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(frmPrintTest, TopicThatIsBeingAddedIsNotSavedHere) {
  SelectSpanish();
  shared.Switches.NewTopicName = u"Greek";
  const std::string before = files.Content(SettingsPath);
  WithDialog([](frmPrint& window) {
    Choose(window, "cboFrontFont", "Noto Mono");
    Click(window, "cmdOK");
  });
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(files.Content(SettingsPath), before);
  EXPECT_EQ(shared.Topic.Fonts.FrontFont, u"Noto Mono");
}

TEST_F(frmPrintTest, PrintRoleAsksNothingAndStoresNoFonts) {
  SelectSpanish();
  const TopicFonts before = shared.Topic.Fonts;
  WithPrintDialog([](frmPrint& window) {
    Choose(window, "cboFrontFont", "Noto Mono");
    Click(window, "cmdCanc");
  });
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(shared.Topic.Fonts, before);
}

// --- printing

TEST_F(frmPrintTest, WithoutAPrinterItOffersAPdfFileNamedAfterTheStack) {
  prompts.Expect(Answer::Ok);
  WithPrintDialog([](frmPrint& window) { Click(window, "cmdOK"); });
  ExpectPrompt(prompts.shown.at(0), u"There is no printer.  Choose a PDF file to print to.",
               PromptIcon::Information, PromptButtons::Ok);
  EXPECT_EQ(proposed, QStringList{"verbs.pdf"});
  EXPECT_EQ(files.Content(u"/cards/out.pdf").substr(0, 5), "%PDF-");
}

TEST_F(frmPrintTest, CancellingTheChoiceOfAFileLeavesTheDialogOpen) {
  prompts.Expect(Answer::Ok);
  pdf.clear();
  const int writtenBefore = files.commits;
  WithPrintDialog([](frmPrint& window) {
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
    Click(window, "cmdCanc");
  });
  EXPECT_EQ(files.commits, writtenBefore);
}

TEST_F(frmPrintTest, FileThatCannotBeWrittenIsToldAndTheDialogStaysOpen) {
  files.failCommit = FileStatus::DiskFull;
  prompts.Expect(Answer::Ok);
  prompts.Expect(Answer::Ok);
  WithPrintDialog([](frmPrint& window) {
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
    Click(window, "cmdCanc");
  });
  ExpectPrompt(prompts.shown.at(1), u"Disk full", PromptIcon::Exclamation, PromptButtons::Ok);
  EXPECT_FALSE(files.Has(u"/cards/out.pdf"));
}

TEST_F(frmPrintTest, PrintsOnTheDefaultPrinterWithoutAQuestion) {
  const QTemporaryDir folder;
  const QString output = folder.filePath("page.pdf");
  services.defaultPrinter = [&output] {
    auto printer = std::make_unique<QPrinter>();
    printer->setOutputFileName(output);
    return printer;
  };
  WithPrintDialog([](frmPrint& window) { Click(window, "cmdOK"); });
  EXPECT_TRUE(proposed.isEmpty());
  EXPECT_TRUE(QFile::exists(output));
}

TEST_F(frmPrintTest, PrinterThatFailsIsToldAndTheDialogStaysOpen) {
  services.defaultPrinter = [] {
    auto printer = std::make_unique<QPrinter>();
    printer->setOutputFileName("/no such folder/page.pdf");
    return printer;
  };
  prompts.Expect(Answer::Ok);
  WithPrintDialog([](frmPrint& window) {
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
    Click(window, "cmdCanc");
  });
  ExpectPrompt(prompts.shown.at(0), u"Printer error", PromptIcon::Exclamation, PromptButtons::Ok);
}

TEST_F(frmPrintTest, OverflowIsToldAndClosesTheDialogWithoutAPage) {
  shared.Stacks.Current().SetSideText(2, Back, Text(2'000, u'W'));
  prompts.Expect(Answer::Ok);
  prompts.Expect(Answer::Ok);
  WithPrintDialog([](frmPrint& window) { Click(window, "cmdOK"); });
  ExpectPrompt(prompts.shown.at(1), u"Overflow", PromptIcon::Exclamation, PromptButtons::Ok);
  EXPECT_FALSE(files.Has(u"/cards/out.pdf"));
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(frmPrintTest, OkRepairsTheMarginBeforeItPrints) {
  prompts.Expect(Answer::Ok);
  WithPrintDialog([](frmPrint& window) {
    Type(window, "txtMargin", "999");  // would be an overflow
    QTest::keyClick(&Field(window, "txtMargin"), Qt::Key_Return);
  });
  EXPECT_TRUE(files.Has(u"/cards/out.pdf"));
}

TEST_F(frmPrintTest, LongJobCanBeCancelledAndLeavesAnOlderFileAlone) {
  files.Put(u"/cards/out.pdf", "old");
  LoadStack(u"long.QBC", MaxCards);
  services.progressDelay = 0;
  prompts.Expect(Answer::Ok);
  WithPrintDialog([](frmPrint& window) {
    bool seen = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
      auto* const progress = window.findChild<QProgressDialog*>();
      if (progress == nullptr || !progress->isVisible()) return;
      seen = true;
      progress->cancel();
    });
    poll.start(0);
    Click(window, "cmdOK");
    EXPECT_TRUE(seen);
    EXPECT_TRUE(window.isVisible());
    Click(window, "cmdCanc");
  });
  EXPECT_EQ(files.Content(u"/cards/out.pdf"), "old");
}

TEST_F(frmPrintTest, ThousandsOfFontsAreListedWithoutMeasuringEach) {
  services.fontNames = [] {
    std::vector<Text> names;
    for (int i = 0; i < 10000; ++i) names.push_back(u"Font " + NumberText(10000 + i));
    return names;
  };
  WithDialog([](frmPrint& window) {
    const auto& front = Find<QComboBox>(window, "cboFrontFont");
    const auto& back = Find<QComboBox>(window, "cboBackFont");
    EXPECT_EQ(front.count(), 10001);
    EXPECT_EQ(front.model(), back.model());
    for (const QComboBox* const list : {&front, &back}) {
      EXPECT_TRUE(qobject_cast<QListView*>(list->view())->uniformItemSizes());
    }
    Choose(window, "cboFrontFont", "Font 10003");
    EXPECT_EQ(back.currentText(), "MS Sans Serif") << "the lists are chosen from one by one";
    Click(window, "cmdCanc");
  });
}

TEST_F(frmPrintTest, FontsThatCannotBeSavedAreStillThoseOfThisRun) {
  SelectSpanish();
  files.failCommit = FileStatus::DiskFull;
  prompts.Expect(Answer::Yes);
  WithDialog([](frmPrint& window) {
    Choose(window, "cboFrontFont", "Noto Mono");
    Click(window, "cmdOK");
  });
  EXPECT_EQ(shared.Topic.Fonts.FrontFont, u"Noto Mono");
  EXPECT_EQ(profile.Trouble(), ProfileTrouble::NotWritten);
}

}  // namespace
