#include "authoring/CardFields.h"

#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

CardFields Typed(Text front, Text back) {
  CardFields fields;
  fields.sides[0].text = std::move(front);
  fields.sides[1].text = std::move(back);
  return fields;
}

TEST(AddCard, AppendsTheSixFields) {
  CardStack stack;
  const CardFields typed{{SideFields{u"dog", u"dog.wav", u"dog.bmp"}, {u"perro", u"p.wav", u""}}};
  EXPECT_TRUE(AddCard(stack, typed));
  EXPECT_EQ(stack.CardCount, 1);
  EXPECT_EQ(FieldsOf(stack, 1), typed);
}

TEST(AddCard, TakesACaretForALineBreakAndTwoForOne) {
  CardStack stack;
  AddCard(stack, Typed(u"a^b", u"a^^b"));
  EXPECT_EQ(stack.SideText(1, Front), u"a\r\nb");
  EXPECT_EQ(stack.SideText(1, Back), u"a^b");
}

TEST(AddCard, KeepsMediaNamesAsTyped) {
  CardStack stack;
  CardFields typed;
  typed.sides[0].sound = u"my^ sound.mp3 ";
  AddCard(stack, typed);
  EXPECT_EQ(stack.SideSound(1, Front), u"my^ sound.mp3 ");
}

TEST(AddCard, KeepsALongPastedText) {
  CardStack stack;
  AddCard(stack, Typed(Text(5000, u'x'), u""));
  EXPECT_EQ(stack.SideText(1, Front).size(), 5000U);
}

TEST(AddCard, RefusesCard301) {
  CardStack stack;
  for (int i = 0; i < MaxCards; ++i) EXPECT_TRUE(AddCard(stack, Typed(u"f", u"b")));
  EXPECT_FALSE(AddCard(stack, Typed(u"x", u"y")));
  EXPECT_EQ(stack.CardCount, MaxCards);
  EXPECT_EQ(stack.SideText(MaxCards, Front), u"f");
}

TEST(StackFullPrompt, NamesTheLimit) {
  ExpectPrompt(StackFullPrompt(), u"Maximum of 300 Cards per Stack", PromptIcon::Exclamation,
               PromptButtons::Ok);
}

}  // namespace
