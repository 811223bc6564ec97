#include "tests/support/AccessibilityRules.h"

#include <QCheckBox>
#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

/// Looks the same whether it has the focus or not.
class PlainBox : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent*) override {}
};

class ClickableLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void mousePressEvent(QMouseEvent* event) override { event->accept(); }
};

/// A window that breaks one rule at a time, beside a control that breaks none.
class AccessibilityRulesTest : public testing::Test {
 protected:
  template <class Control, class... Arguments>
  Control& Add(const char* name, Arguments&&... arguments) {
    auto* const control = new Control(std::forward<Arguments>(arguments)..., &m_window);
    control->setObjectName(QLatin1String(name));
    m_column.addWidget(control);
    return *control;
  }

  /// Buttons cmd<row><column> at these places, in this order of Tab.
  std::vector<QWidget*> AddGrid(const std::vector<std::pair<int, int>>& places) {
    auto* const grid = new QGridLayout;
    m_column.addLayout(grid);
    std::vector<QWidget*> buttons;
    for (const auto& [row, column] : places) {
      const QString name = QStringLiteral("cmd%1%2").arg(row).arg(column);
      auto* const button = new QPushButton(name, &m_window);
      button->setObjectName(name);
      grid->addWidget(button, row, column);
      buttons.push_back(button);
    }
    return buttons;
  }

  static void SetOrder(const std::vector<QWidget*>& order) {
    for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
  }

  QWidget& Shown() {
    Add<QPushButton>("cmdGood", QStringLiteral("&Good"));
    m_window.show();
    m_window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
    return m_window;
  }

  QDialog m_window;
  QVBoxLayout& m_column = *new QVBoxLayout(&m_window);
};

}  // namespace

TEST_F(AccessibilityRulesTest, AWindowWithoutFaultsBreaksNone) {
  auto* const name = new QLabel(QStringLiteral("&Name:"), &m_window);
  m_column.addWidget(name);
  name->setBuddy(&Add<QLineEdit>("txtName"));
  Add<QCheckBox>("sscFront", QStringLiteral("&Front"));
  QWidget& window = Shown();
  for (const auto rule : {UnnamedControls, UntoldRoles, WordlessPictures, IdleWords, SharedKeys,
                          BrokenTabOrder, MouseOnlyControls, InvisibleFocus}) {
    EXPECT_EQ(rule(window), QStringList());
  }
}

TEST_F(AccessibilityRulesTest, FindsWordsThatMeanNothingToTheEar) {
  Add<QLabel>("lblPadded", QStringLiteral("name") + QString(20, u' '));
  auto& label = Add<QLabel>("lblTip", QStringLiteral("one"));
  label.setToolTip(QStringLiteral("<div style='white-space:pre'>two</div>"));
  Add<QPushButton>("cmdTwice", QStringLiteral("same")).setToolTip(QStringLiteral("same"));
  EXPECT_EQ(IdleWords(Shown()), QStringList({"lblPadded ends in blanks", "lblTip is told in markup",
                                             "cmdTwice is told twice"}));
}

TEST_F(AccessibilityRulesTest, FindsAControlWithoutAName) {
  Add<QLineEdit>("txtName");
  Add<QPushButton>("cmdBlank", QStringLiteral(" "));
  EXPECT_EQ(UnnamedControls(Shown()), QStringList({"txtName has no name", "cmdBlank has no name"}));
}

TEST_F(AccessibilityRulesTest, FindsAFrameThatTakesTheFocus) {
  Add<QFrame>("sspRows").setFocusPolicy(Qt::ClickFocus);
  EXPECT_EQ(UntoldRoles(Shown()), QStringList({"sspRows does not say what it is"}));
}

TEST_F(AccessibilityRulesTest, FindsPicturesAndEntriesWithoutWords) {
  Add<QLabel>("imgMark").setPixmap(QPixmap(8, 8));
  Add<QListWidget>("lstKeys").addItems({QStringLiteral("a"), QStringLiteral(" ")});
  EXPECT_EQ(WordlessPictures(Shown()),
            QStringList({"imgMark has no words", "lstKeys/1 has no words"}));
}

TEST_F(AccessibilityRulesTest, FindsKeysWithTwoMeanings) {
  Add<QPushButton>("cmdGo", QStringLiteral("&Go"));
  auto* const bar = new QMenuBar(&m_window);
  m_column.setMenuBar(bar);
  QMenu* const menu = bar->addMenu(QStringLiteral("&Menu"));
  menu->setObjectName(QStringLiteral("mnuMenu"));
  menu->addAction(QStringLiteral("&Cut"))->setObjectName(QStringLiteral("mnuCut"));
  menu->addAction(QStringLiteral("&Copy"))->setObjectName(QStringLiteral("mnuCopy"));
  EXPECT_EQ(SharedKeys(Shown()),
            QStringList({"Alt+G: cmdGo, cmdGood", "menu mnuMenu, Alt+C: mnuCopy, mnuCut"}));
}

TEST_F(AccessibilityRulesTest, FindsATabOrderThatJumps) {
  auto& first = Add<QPushButton>("cmdFirst", QStringLiteral("First"));
  auto& second = Add<QPushButton>("cmdSecond", QStringLiteral("Second"));
  auto& third = Add<QPushButton>("cmdThird", QStringLiteral("Third"));
  QWidget& window = Shown();
  EXPECT_EQ(BrokenTabOrder(window), QStringList());
  SetOrder({&first, &third, &second});
  EXPECT_EQ(BrokenTabOrder(window), QStringList({"Tab leads back from cmdThird to cmdSecond",
                                                 "Tab leads back from cmdGood to cmdFirst"}));
}

TEST_F(AccessibilityRulesTest, FindsATabOrderThatLeavesAColumnTooSoon) {
  const auto buttons = AddGrid({{0, 0}, {1, 0}, {2, 0}, {0, 1}, {1, 1}, {2, 1}});
  QWidget& window = Shown();
  EXPECT_EQ(BrokenTabOrder(window), QStringList());
  // From the top on the right to the bottom on the left, and up to the right again.
  SetOrder({buttons[0], buttons[1], buttons[3], buttons[2], buttons[4], buttons[5]});
  EXPECT_EQ(BrokenTabOrder(window), QStringList({"Tab goes from cmd01 to cmd20 before cmd11"}));
}

TEST_F(AccessibilityRulesTest, FindsATabOrderThatPassesOverAColumn) {
  const auto buttons = AddGrid({{0, 0}, {1, 0}, {2, 0}, {2, 1}, {0, 2}});
  QWidget& window = Shown();
  EXPECT_EQ(BrokenTabOrder(window), QStringList());
  SetOrder({buttons[0], buttons[1], buttons[2], buttons[4], buttons[3]});
  EXPECT_EQ(BrokenTabOrder(window), QStringList({"Tab goes from cmd20 to cmd02 before cmd21"}));
}

TEST_F(AccessibilityRulesTest, FindsAControlThatTabPassesOver) {
  class StubbornField : public QLineEdit {
   public:
    using QLineEdit::QLineEdit;

   protected:
    bool focusNextPrevChild(bool) override { return true; }  // says that it has moved the focus
  };
  Add<StubbornField>("txtName").setAccessibleName(QStringLiteral("Name"));
  EXPECT_FALSE(BrokenTabOrder(Shown()).isEmpty());
}

TEST_F(AccessibilityRulesTest, FindsAWayBackThatIsAnother) {
  class OneWayButton : public QPushButton {
   public:
    using QPushButton::QPushButton;

   protected:
    bool focusNextPrevChild(bool next) override {
      if (next) return QPushButton::focusNextPrevChild(true);
      window()->findChild<QPushButton*>(QStringLiteral("cmdGood"))->setFocus();
      return true;
    }
  };
  Add<QPushButton>("cmdFirst", QStringLiteral("First"));
  Add<OneWayButton>("cmdSecond", QStringLiteral("Second"));
  const QStringList broken = BrokenTabOrder(Shown());
  ASSERT_EQ(broken.size(), 1);
  EXPECT_TRUE(broken.front().startsWith(QStringLiteral("Shift+Tab goes another way: ")));
}

TEST_F(AccessibilityRulesTest, FindsWhatOnlyTheMouseReaches) {
  Add<QPushButton>("cmdMouse", QStringLiteral("Mouse")).setFocusPolicy(Qt::NoFocus);
  Add<QLineEdit>("txtMouse").setFocusPolicy(Qt::ClickFocus);
  Add<ClickableLabel>("lblClick", QStringLiteral("Click"));
  auto& area = Add<QScrollArea>("areaText");
  area.setFocusPolicy(Qt::NoFocus);
  area.setFixedSize(60, 60);
  area.setWidget(new QLabel(QString(40, u'\n')));
  EXPECT_EQ(MouseOnlyControls(Shown()),
            QStringList({"no key comes to cmdMouse", "no key comes to txtMouse",
                         "only the mouse comes to lblClick", "no key scrolls areaText"}));
}

TEST_F(AccessibilityRulesTest, FindsAControlThatHidesItsFocus) {
  auto& box = Add<PlainBox>("sspBox");
  box.setFocusPolicy(Qt::StrongFocus);
  box.setMinimumSize(40, 20);
  EXPECT_EQ(InvisibleFocus(Shown()), QStringList({"sspBox does not show that it has the focus"}));
}
