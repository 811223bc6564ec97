#pragma once

#include "base/Prompts.h"

#include <deque>
#include <functional>
#include <vector>

/// Answers prompts from a list and remembers what was shown. A prompt without an answer left fails
/// the test, and so does an answer that the prompt has no button for, or one that nobody asked for.
class ScriptedPrompts : public Prompts {
 public:
  ScriptedPrompts() = default;
  explicit ScriptedPrompts(std::initializer_list<Answer> answers) : m_answers(answers) {}
  ScriptedPrompts(const ScriptedPrompts&) = delete;
  ScriptedPrompts& operator=(const ScriptedPrompts&) = delete;
  ~ScriptedPrompts() override;

  void Expect(Answer answer) { m_answers.push_back(answer); }
  /// Runs while a prompt is on the screen.
  void WhileShown(std::function<void()> action) { m_action = std::move(action); }

  Answer Show(const Prompt& prompt) override;

  std::vector<Prompt> shown;

 private:
  std::deque<Answer> m_answers;
  std::function<void()> m_action;
};

/// Fails unless `prompt` has exactly this text, icon, buttons and title.
void ExpectPrompt(const Prompt& prompt, TextView text, PromptIcon icon, PromptButtons buttons,
                  TextView title = ProgramTitle);
