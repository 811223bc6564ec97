#pragma once

#include "base/Text.h"
#include "base/Version.h"

enum class PromptIcon { None, Question, Exclamation, Information };
enum class PromptButtons { Ok, OkCancel, YesNo };
enum class Answer { Ok, Cancel, Yes, No };

/// One message box: plain text, never markup.
struct Prompt {
  Text text;
  PromptIcon icon = PromptIcon::None;
  PromptButtons buttons = PromptButtons::Ok;
  Text title = Text(ProgramTitle);
  bool proposesRefusal = false;  ///< Enter presses Cancel or No, not OK or Yes
};

/// Where logic and windows ask and tell. The answer is one of the prompt's own buttons; a box that
/// is closed without a button answers Cancel or No, an Ok box Ok.
class Prompts {
 public:
  virtual ~Prompts() = default;
  virtual Answer Show(const Prompt& prompt) = 0;
};
