#include "program/HelpContexts.h"

#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

TEST(HelpContext, NumbersAreThoseOfTheHelpFile) {
  const std::pair<HelpContext, int> table[] = {
      {HelpContext::UsingHelp, 0},  {HelpContext::Index, 256},   {HelpContext::AddKey, 258},
      {HelpContext::MainMenu, 259}, {HelpContext::Find, 260},    {HelpContext::Description, 261},
      {HelpContext::Topics, 262},   {HelpContext::Stepper, 263}, {HelpContext::Create, 264},
      {HelpContext::Load, 265},     {HelpContext::Edit, 266},    {HelpContext::Timer, 269},
      {HelpContext::Overview, 270}, {HelpContext::Print, 271},   {HelpContext::MoreKeys, 273},
      {HelpContext::Keys, 274},
  };
  for (const auto& [context, number] : table) EXPECT_EQ(static_cast<int>(context), number);
}

TEST(HelpFileName, IsFixed) { EXPECT_EQ(HelpFileName, u"quib.HLP"); }

TEST(MissingHelpPrompt, NamesTheFileThatWasLookedFor) {
  const Prompt prompt = MissingHelpPrompt(u"/usr/share/quibcards/quib.HLP");
  EXPECT_NE(prompt.text.find(u"/usr/share/quibcards/quib.HLP"), Text::npos);
  EXPECT_EQ(prompt.buttons, PromptButtons::Ok);
  EXPECT_EQ(prompt.title, ProgramTitle);
}
