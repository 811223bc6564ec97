#include "program/HelpContexts.h"

Prompt MissingHelpPrompt(TextView helpFile) {
  return {.text = u"The help file was not found:\r\n" + Text(helpFile),
          .icon = PromptIcon::Information};
}
