#include "keys/KeyAssignmentEditing.h"
#include "tests/support/AccessibilityRules.h"
#include "tests/support/WindowTour.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace {

using Rule = std::function<QStringList(QWidget& window)>;

/// Expects that no window breaks a rule.
/// @param excepted  what may break it, as "window: complaint"
void ExpectInEveryWindow(const Rule& rule, QStringList excepted = {}) {
  int windows = 0;
  WindowTour([&](QWidget& window, const QString& name) {
    ++windows;
    for (const QString& broken : rule(window)) {
      const QString complaint = window.objectName() + QStringLiteral(": ") + broken;
      if (!excepted.contains(complaint)) {
        ADD_FAILURE() << name.toStdString() << ": " << broken.toStdString();
      }
    }
  }).Run();
  EXPECT_GT(windows, 60);
}

}  // namespace

TEST(EveryWindow, NamesWhatCanHaveTheFocus) { ExpectInEveryWindow(UnnamedControls); }
TEST(EveryWindow, SaysWhatEachControlIs) { ExpectInEveryWindow(UntoldRoles); }
TEST(EveryWindow, HasWordsForPicturesAndEntries) { ExpectInEveryWindow(WordlessPictures); }
TEST(EveryWindow, SaysNothingIdle) { ExpectInEveryWindow(IdleWords); }
TEST(EveryWindow, LetsTabGoRoundAsItReads) { ExpectInEveryWindow(BrokenTabOrder); }
TEST(EveryWindow, ShowsWhereTheFocusIs) { ExpectInEveryWindow(InvisibleFocus); }

TEST(EveryWindow, CanBeUsedWithoutAMouse) {
  QStringList excepted;
  for (int row = 0; row < ShownKeyRows; ++row) {
    // The keyboard comes to the row's other cell, lblCol2.
    excepted << QStringLiteral("frmAddKey: only the mouse comes to lblCol1(%1)").arg(row);
  }
  ExpectInEveryWindow(MouseOnlyControls, excepted);
}

// These captions are given. SharedKeys_test.cpp shows that the keyboard reaches both of each pair.
TEST(EveryWindow, GivesEachKeyOneMeaning) {
  ExpectInEveryWindow(
      SharedKeys,
      {"frmEdit: Alt+E: cmdEdit, mnuEdit", "frmFind: Alt+B: mnuBKeysHead, sscBack",
       "frmFind: Alt+F: mnuFKeysHead, sscFront", "frmStepper: Alt+B: mnuBKeysHead, ssoBack",
       "frmStepper: Alt+F: mnuFKeysHead, ssoFront"});
}
