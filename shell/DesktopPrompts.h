#pragma once

#include "base/Prompts.h"

/// Message boxes, modal to the whole program. Texts are shown as they are, never as markup.
class DesktopPrompts : public Prompts {
 public:
  Answer Show(const Prompt& prompt) override;
};
