#include "windows/frame/HeldControls.h"

#include "tests/window/WindowFixture.h"
#include "windows/frame/Form.h"

#include <QAccessible>
#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

/// A window with one control of each kind, which counts what they tell.
class ManyControls : public Form {
 public:
  ManyControls(SharedState& shared, Platform& platform)
      : Form("ManyControls", shared, platform, nullptr) {
    auto* const column = new QVBoxLayout(this);
    menu = AddMenu(AddMenuBar(), QStringLiteral("menu"), QStringLiteral("Menu"));
    item = AddItem(menu, QStringLiteral("item"), QStringLiteral("Item"));
    group = new QActionGroup(this);
    for (QAction*& topic : topics) topic = AddTopic();
    topics[0]->setChecked(true);
    button = Add<QPushButton>(QStringLiteral("button"));
    check = Add<QCheckBox>(QStringLiteral("check"));
    for (QRadioButton*& option : options) option = Add<QRadioButton>(QStringLiteral("option"));
    box = Add<QComboBox>(QStringLiteral("box"));
    box->addItems({QStringLiteral("a"), QStringLiteral("b")});
    list = Add<QListWidget>(QStringLiteral("list"));
    list->addItems({QStringLiteral("a"), QStringLiteral("b")});
    list->setCurrentRow(0);
    bar = Add<QScrollBar>(QStringLiteral("bar"));
    for (QWidget* const control :
         std::initializer_list<QWidget*>{button, check, options[0], options[1], box, list, bar}) {
      column->addWidget(control);
    }
    const auto count = [this] { ++told; };
    connect(item, &QAction::triggered, this, count);
    connect(button, &QPushButton::clicked, this, count);
    connect(check, &QCheckBox::clicked, this, count);
    for (QRadioButton* const option : options) {
      connect(option, &QRadioButton::clicked, this, count);
    }
    connect(box, &QComboBox::currentIndexChanged, this, count);
    connect(list, &QListWidget::itemSelectionChanged, this, count);
    connect(bar, &QScrollBar::valueChanged, this, count);
  }

  QAction* AddTopic() {
    auto* const topic = new QAction(QStringLiteral("Topic"), group);
    topic->setCheckable(true);
    menu->addAction(topic);
    connect(topic, &QAction::triggered, this, [this] { ++told; });
    return topic;
  }

  void UseAll() const {
    item->trigger();
    topics[1]->trigger();
    button->click();
    check->click();
    options[1]->click();
    box->setCurrentIndex(1);
    list->setCurrentRow(1);
    bar->setValue(7);
  }
  static constexpr int All = 8;

  QMenu* menu;
  QAction* item;
  QActionGroup* group;
  std::array<QAction*, 2> topics{};
  QPushButton* button;
  QCheckBox* check;
  std::array<QRadioButton*, 2> options{};
  QComboBox* box;
  QListWidget* list;
  QScrollBar* bar;
  int told = 0;
};

class HeldControlsTest : public WindowTest {
 protected:
  HeldControlsTest() : window(shared, platform) { window.show(); }

  /// Runs `act` while a modal window stands before the window.
  void Behind(const std::function<void(QDialog&)>& act) {
    QDialog modal;
    WithModal<QDialog>([&] { modal.exec(); },
                       [&](QDialog& front) {
                         act(front);
                         front.accept();
                       });
  }

  ManyControls window;
};

TEST_F(HeldControlsTest, EverythingActsWhileNothingStandsBeforeTheWindow) {
  window.UseAll();
  EXPECT_EQ(window.told, ManyControls::All);
}

TEST_F(HeldControlsTest, NothingActsBehindAModalWindow) {
  Behind([this](QDialog&) { window.UseAll(); });
  EXPECT_EQ(window.told, 0);
}

TEST_F(HeldControlsTest, WhatWasChosenBehindAModalWindowIsPutBack) {
  Behind([this](QDialog&) { window.UseAll(); });
  EXPECT_TRUE(window.topics[0]->isChecked());
  EXPECT_FALSE(window.topics[1]->isChecked());
  EXPECT_FALSE(window.check->isChecked());
  EXPECT_FALSE(window.options[1]->isChecked());
  EXPECT_EQ(window.box->currentIndex(), 0);
  EXPECT_EQ(window.list->currentRow(), 0);
  EXPECT_EQ(window.list->selectedItems().size(), 1);
  EXPECT_EQ(window.bar->value(), 0);
}

TEST_F(HeldControlsTest, EverythingActsAgainAfterwards) {
  Behind([](QDialog&) {});
  window.UseAll();
  EXPECT_EQ(window.told, ManyControls::All);
  EXPECT_TRUE(window.topics[1]->isChecked());
  EXPECT_FALSE(window.topics[0]->isChecked());
}

TEST_F(HeldControlsTest, HoldsUntilTheLastOfSeveralModalWindowsIsClosed) {
  Behind([this](QDialog&) {
    QDialog second;
    second.setModal(true);
    second.show();
    window.UseAll();
    second.close();
    window.UseAll();
  });
  EXPECT_EQ(window.told, 0);
  window.item->trigger();
  EXPECT_EQ(window.told, 1);
}

TEST_F(HeldControlsTest, HoldsWhatTheProgramAddsMeanwhile) {
  QAction* added = nullptr;
  Behind([&](QDialog&) {
    added = window.AddTopic();
    delete window.topics[1];
    QCoreApplication::processEvents();
    added->trigger();
  });
  EXPECT_EQ(window.told, 0);
  EXPECT_FALSE(added->isChecked());
  added->trigger();
  EXPECT_EQ(window.told, 1);
  EXPECT_TRUE(added->isChecked());
}

TEST_F(HeldControlsTest, ItemsShowWhatTheProgramChecksMeanwhile) {
  Behind([this](QDialog&) {
    window.topics[0]->setChecked(false);
    window.topics[1]->setChecked(true);
    window.item->setEnabled(false);
    window.item->setText(QStringLiteral("Other"));
  });
  EXPECT_TRUE(window.topics[1]->isChecked());
  EXPECT_EQ(window.group->checkedAction(), window.topics[1]);
  window.topics[0]->trigger();
  EXPECT_FALSE(window.topics[1]->isChecked());
  EXPECT_FALSE(window.item->isEnabled());
}

TEST_F(HeldControlsTest, AWindowShownBehindAModalWindowIsHeldToo) {
  ManyControls late(shared, platform);
  Behind([&](QDialog&) {
    late.show();
    late.UseAll();
  });
  EXPECT_EQ(late.told, 0);
}

TEST_F(HeldControlsTest, TheModalWindowActsAlsoWhereTheWindowBehindOwnsIt) {
  auto* const modal = new ManyControls(shared, platform);
  modal->setParent(&window, Qt::Dialog);
  WithModal<Form>([&] { modal->ShowModal(); },
                  [&](Form& front) {
                    modal->UseAll();
                    window.UseAll();
                    front.Unload();
                  });
  EXPECT_EQ(modal->told, ManyControls::All);
  EXPECT_EQ(window.told, 0);
}

TEST_F(HeldControlsTest, AScreenReadersPressDoesNothing) {
  const auto press = [](QObject* object) {
    QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(object);
    ASSERT_NE(reader, nullptr);
    reader->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::processEvents();
  };
  Behind([&](QDialog&) {
    press(window.button);
    QAccessibleInterface* const menu = QAccessible::queryAccessibleInterface(window.menu);
    menu->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window.button->isDown(); }));
  });
  EXPECT_EQ(window.told, 0);
  press(window.button);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.told == 1; }));
}

}  // namespace
