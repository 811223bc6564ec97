#include "tests/support/ScriptedPrompts.h"

#include "base/CodePage.h"

#include <gtest/gtest.h>

namespace {

bool Offers(PromptButtons buttons, Answer answer) {
  switch (buttons) {
    case PromptButtons::Ok:
      return answer == Answer::Ok;
    case PromptButtons::OkCancel:
      return answer == Answer::Ok || answer == Answer::Cancel;
    case PromptButtons::YesNo:
      return answer == Answer::Yes || answer == Answer::No;
  }
  return false;
}

}  // namespace

ScriptedPrompts::~ScriptedPrompts() {
  EXPECT_TRUE(m_answers.empty()) << m_answers.size() << " expected prompts were never shown";
}

Answer ScriptedPrompts::Show(const Prompt& prompt) {
  shown.push_back(prompt);
  if (m_action) m_action();
  if (m_answers.empty()) {
    ADD_FAILURE() << "a prompt that nobody expected: " << ToUtf8(prompt.text);
    return prompt.buttons == PromptButtons::YesNo ? Answer::No : Answer::Ok;
  }
  const Answer answer = m_answers.front();
  m_answers.pop_front();
  EXPECT_TRUE(Offers(prompt.buttons, answer)) << "no such button: " << ToUtf8(prompt.text);
  return answer;
}

void ExpectPrompt(const Prompt& prompt, TextView text, PromptIcon icon, PromptButtons buttons,
                  TextView title) {
  EXPECT_EQ(ToUtf8(prompt.text), ToUtf8(text));
  EXPECT_EQ(prompt.icon, icon);
  EXPECT_EQ(prompt.buttons, buttons);
  EXPECT_EQ(ToUtf8(prompt.title), ToUtf8(title));
}
