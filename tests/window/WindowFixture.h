#pragma once

#include "program/Platform.h"
#include "program/SharedState.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/ScriptedRandom.h"
#include "tests/support/TextPrinters.h"
#include "windows/frame/QtText.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <functional>
#include <gtest/gtest.h>

inline void PrintTo(const QString& text, std::ostream* out) {
  *out << '"' << text.toStdString() << '"';
}

/// Remembers which help pages were asked for.
class RecordingHelp : public HelpService {
 public:
  void Show(HelpContext context) override { contexts.push_back(context); }
  std::vector<HelpContext> contexts;
};

/// Remembers which sounds were to be played.
class RecordingSound : public SoundPlayer {
 public:
  void Play(const Text& file) override {
    played.push_back(file);
    if (whilePlaying) whilePlaying();
  }
  void Stop() override { ++stops; }
  std::vector<Text> played;
  int stops = 0;
  std::function<void()> whilePlaying;
};

/// A window test's world: the shared state, and doubles for everything outside.
class WindowTest : public testing::Test {
 protected:
  static constexpr auto SettingsPath = u"/config/QUIBCRDS.INI";
  static constexpr auto StatePath = u"/state/quibcards/state";

  WindowTest() {
    (void)files.MakeFolder(u"/config");
    (void)files.MakeFolder(u"/cards");
    shared.Switches.DefaultFolder = u"/cards";
  }

  /// As the desktop tells the window that its border was dragged.
  static void ResizeByUser(QWidget& window, const QSize& size) {
    window.windowHandle()->resize(size);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.size() == size; }));
  }

  /// A control of `window` by its name; fails the test when there is none.
  template <class Control>
  static Control& Find(QObject& window, const char* name) {
    auto* const control = window.findChild<Control*>(QLatin1String(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }

  static void Click(QObject& window, const char* name) {
    auto& control = Find<QWidget>(window, name);
    const auto* const button = qobject_cast<QAbstractButton*>(&control);
    // A check box or option reacts on its mark and text alone, which stand at its left end.
    const bool marked = button != nullptr && button->isCheckable();
    QTest::mouseClick(&control, Qt::LeftButton, {},
                      marked ? QPoint(8, control.height() / 2) : QPoint());
  }

  static QString TextOf(QObject& window, const char* name) {
    return Find<QLabel>(window, name).text();
  }

  static bool IsEnabled(QObject& window, const char* name) {
    return Find<QWidget>(window, name).isEnabled();
  }

  /// Runs `open`, and `act` on the modal window that it brings up, once that is active.
  template <class Window>
  static void WithModal(const std::function<void()>& open,
                        const std::function<void(Window&)>& act) {
    bool acted = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
      auto* const window = qobject_cast<Window*>(QApplication::activeModalWidget());
      if (window == nullptr || !window->isActiveWindow() || acted) return;
      acted = true;
      poll.stop();
      act(*window);
    });
    poll.start(1);
    open();
    EXPECT_TRUE(acted) << "the window never came up";
  }

  static void WaitUntilActive(QWidget& window) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  /// A loaded stack with fronts "front 1".. and backs "back 1"...
  CardStack& LoadStack(const Text& name, int cards) {
    CardStack& stack = shared.Stacks.Append();
    stack.StackName = name;
    for (int card = 1; card <= cards; ++card) {
      stack.SetSideText(card, Front, u"front " + NumberText(card));
      stack.SetSideText(card, Back, u"back " + NumberText(card));
    }
    stack.CardCount = cards;
    return stack;
  }

  ScriptedPrompts prompts;
  MemoryFiles files;
  ProfileFile profile{files, SettingsPath};
  RecordingHelp help;
  RecordingSound sound;
  SharedState shared;
  RememberedState state{files, StatePath};
  Platform platform{prompts, files, profile,
                    help,    sound, [] { return std::make_unique<SeededRandom>(1); },
                    state};
};
