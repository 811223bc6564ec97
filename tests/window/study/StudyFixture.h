#pragma once

#include "tests/window/WindowFixture.h"
#include "windows/study/StudyWindows.h"
#include "windows/study/frmStepper.h"

/// Opens study windows whose cards are drawn from a list.
class StudyWindowTest : public WindowTest {
 protected:
  StudyWindowTest() {
    shared.Topics.Names[0] = u"General";
    shared.Topics.Names[1] = u"Spanish";
    shared.Topics.TopicCount = 1;
    shared.Topics.CurrentTopic = 1;
  }

  /// Opens a study window on a new stack; cards are drawn by `draws`.
  frmStepper& Open(int cards, std::vector<int> draws, StudyMode mode = StudyMode::Stepper) {
    LoadStack(u"Verbs", cards);
    return OpenOnCurrent(std::move(draws), mode);
  }

  frmStepper& OpenOnCurrent(std::vector<int> draws, StudyMode mode = StudyMode::Stepper) {
    const int cards = shared.Stacks.Current().CardCount;
    platform.makeRandom = [draws = std::move(draws), cards] {
      auto random = std::make_unique<ScriptedRandom>(std::initializer_list<double>{});
      for (const int card : draws) random->Add(Draw(card, cards));
      return random;
    };
    return OpenInMode(mode);
  }

  /// The same with the random numbers themselves.
  frmStepper& OpenWithNumbers(std::vector<double> numbers, StudyMode mode) {
    platform.makeRandom = [numbers = std::move(numbers)] {
      auto random = std::make_unique<ScriptedRandom>(std::initializer_list<double>{});
      for (const double number : numbers) random->Add(number);
      return random;
    };
    return OpenInMode(mode);
  }

  frmStepper& OpenInMode(StudyMode mode) {
    shared.Switches.StudyMode = mode;
    frmStepper& window = studyWindows.Open();
    WaitUntilActive(window);
    return window;
  }

  static void Next(frmStepper& window, int times = 1) {
    for (int i = 0; i < times; ++i) Click(window, "cmdNext");
  }

  StudyWindows studyWindows{shared, platform};
};
