#pragma once

#include "base/Prompts.h"
#include "program/HelpContexts.h"
#include "study/SoundPlayer.h"

/// Answers every question at once: an OK box with OK, any other with the given answer.
class AnsweringPrompts : public Prompts {
 public:
  explicit AnsweringPrompts(Answer answer) : m_answer(answer) {}

  Answer Show(const Prompt& prompt) override {
    return prompt.buttons == PromptButtons::Ok ? Answer::Ok : m_answer;
  }

 private:
  Answer m_answer;
};

class SilentHelp : public HelpService {
 public:
  void Show(HelpContext) override {}
};

class SilentSound : public SoundPlayer {
 public:
  void Play(const Text&) override {}
  void Stop() override {}
};
