#pragma once

#include "base/Prompts.h"

/// Message boxes, modal to the whole program. Texts are shown as they are, never as markup.
/// What stands behind an empty line explains the message and is shown below it.
class DesktopPrompts : public Prompts {
 public:
  Answer Show(const Prompt& prompt) override;
};
