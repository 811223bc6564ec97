#include "tests/window/WindowFixture.h"
#include "windows/authoring/frmEdit.h"
#include "windows/main/frmMain.h"
#include "windows/stacks/frmLoad.h"

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace {

/// What a screen reader can ask of windows that a modal window stands before.
class BehindTest : public WindowTest {
 protected:
  BehindTest() {
    files.Put(SettingsPath,
              "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Spanish\r\n[General]\r\n[Spanish]\r\n");
    files.Put(u"/cards/animals.QBC", Animals);
    files.Put(u"/cards/plants.QBC", Plants);
    main = std::make_unique<frmMain>(shared, platform, u"/cards/plants.QBC", nullptr);
    main->show();
    WaitUntilActive(*main);
    WithModal<frmLoad>([this] { Find<QAction>(*main, "mnuLoad").trigger(); },
                       [](frmLoad& window) {
                         Find<QLineEdit>(window, "txtActFile").setText("animals.QBC");
                         Click(window, "cmdOK");
                       });
  }

  /// Opens the editor of the animals and changes its first card.
  void Edit(const std::function<void(frmEdit&)>& act) {
    WithModal<frmEdit>([this] { Find<QAction>(*main, "mnuEdit").trigger(); },
                       [&](frmEdit& window) {
                         QTest::mouseClick(&Find<QLabel>(window, "lblCol1(0)"), Qt::LeftButton);
                         Find<QPlainTextEdit>(window, "txtFront").setPlainText("hound");
                         act(window);
                       });
  }

  static void SaveAsProposed(frmEdit& window, const std::function<void(frmLoad&)>& first = {}) {
    WithModal<frmLoad>([&] { Click(window, "cmdEnd"); },
                       [&](frmLoad& dialog) {
                         if (first) first(dialog);
                         Click(dialog, "cmdOK");
                       });
  }

  static void Press(QObject* object) {
    QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(object);
    ASSERT_NE(reader, nullptr);
    reader->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    const auto* const button = qobject_cast<QAbstractButton*>(object);
    ASSERT_TRUE(QTest::qWaitFor([&] { return button == nullptr || !button->isDown(); }));
  }

  static constexpr auto Animals = "Spanish\r\nAnimals\r\ndog  \r\nperro  \r\n";
  static constexpr auto Plants = "General\r\nPlants\r\ntree  \r\narbol  \r\n";
  std::unique_ptr<frmMain> main;
};

TEST_F(BehindTest, NoStackIsRemovedAndNoOtherFileWrittenFromBehindTheEditor) {
  Edit([this](frmEdit& window) {
    Press(&Find<QAbstractButton>(*main, "ssrUnLoad"));
    Find<QAction>(*main, "mnuRemove").trigger();
    Find<QAction>(*main, "mnuTopicName(0)").trigger();
    Find<QComboBox>(*main, "cboStacks").setCurrentIndex(0);
    prompts.Expect(Answer::Ok);  // to write over the file
    SaveAsProposed(window);
  });
  EXPECT_EQ(shared.Stacks.StackCount, 1);
  EXPECT_EQ(shared.Stacks.CurrentStack, 1);
  EXPECT_EQ(Find<QComboBox>(*main, "cboStacks").currentIndex(), 1);
  EXPECT_TRUE(Find<QAction>(*main, "mnuTopicName(1)").isChecked());
  EXPECT_EQ(files.Content(u"/cards/plants.QBC"), Plants);
  EXPECT_TRUE(files.Content(u"/cards/animals.QBC").starts_with("Spanish\r\n"));
  EXPECT_TRUE(files.Content(u"/cards/animals.QBC").ends_with("hound  \r\nperro    \r\n"));
}

TEST_F(BehindTest, NoSecondWindowOpensAndNothingQuits) {
  Edit([this](frmEdit& window) {
    for (const char* const item : {"mnuLoad", "mnuCreate", "mnuEdit", "mnuPrint", "mnuQuit"}) {
      Find<QAction>(*main, item).trigger();
      EXPECT_EQ(QApplication::activeModalWidget(), &window) << item;
    }
    EXPECT_TRUE(main->isVisible());
    prompts.Expect(Answer::Yes);  // to lose the change
    Click(window, "cmdCancAll");
  });
}

TEST_F(BehindTest, TheEditorWaitsBehindItsSaveDialog) {
  Edit([this](frmEdit& window) {
    prompts.Expect(Answer::Ok);  // to write over the file
    SaveAsProposed(window, [&](frmLoad& dialog) {
      for (const char* const button : {"cmdDel", "cmdCancAll", "cmdEnd", "cmdAppend"}) {
        Press(&Find<QAbstractButton>(window, button));
        EXPECT_EQ(QApplication::activeModalWidget(), &dialog) << button;
      }
    });
  });
  EXPECT_TRUE(files.Content(u"/cards/animals.QBC").ends_with("hound  \r\nperro    \r\n"));
}

}  // namespace
