#include "cards/UnsavableText.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

CardStack Three() {
  CardStack stack;
  stack.CardCount = 3;
  stack.SetSideText(1, Front, u"dog");
  stack.SetSideText(2, Front, u"the\r\ncat");
  stack.SetSideText(4, Front, u"beyond ^");
  return stack;
}

TEST(FirstUnsavableText, IsNoneWithoutACaret) { EXPECT_FALSE(FirstUnsavableText(Three())); }

TEST(FirstUnsavableText, ComesInTheOrderOfASave) {
  CardStack stack = Three();
  stack.SetSideText(3, Front, u"^");
  stack.SetSideText(2, Back, u"a^b");
  EXPECT_EQ(FirstUnsavableText(stack), (CardSide{2, Back}));
  stack.SetSideText(2, Front, u"c^d");
  EXPECT_EQ(FirstUnsavableText(stack), (CardSide{2, Front}));
}

TEST(FirstUnsavableText, PassesOverCardsThatAreLeftOut) {
  CardStack stack = Three();
  stack.SetSideText(2, Back, u"a^b");
  stack.SetSideText(3, Back, u"c^d");
  EXPECT_EQ(FirstUnsavableText(stack, [](int card) { return card == 2; }), (CardSide{3, Back}));
}

TEST(UnsavableTextWords, NameTheCardAndItsText) {
  CardStack stack = Three();
  stack.SetSideText(3, Back, u"a\r\nb^c");
  EXPECT_EQ(UnsavableTextWords(stack, {3, Back}),
            u"Card 3, back: a \u21B5 b^c\r\n"
            u"The character ^ cannot be saved. Change this text, then save again.");
}

TEST(UnsavableTextWords, CutALongTextAroundItsCaret) {
  CardStack stack = Three();
  stack.SetSideText(1, Front, Text(100, u'x') + u'^' + Text(100'000, u'y'));
  const Text words = UnsavableTextWords(stack, {1, Front});
  EXPECT_TRUE(words.starts_with(u"Card 1, front: \u2026" + Text(30, u'x') + u'^' + Text(29, u'y') +
                                u"\u2026\r\n"))
      << testing::PrintToString(words);
}

TEST(UnsavableTextWords, PartNoCharacter) {
  CardStack stack = Three();
  for (const std::size_t shift : {0U, 1U}) {
    Text text(shift, u'x');
    for (int i = 0; i < 40; ++i) text += u"\U0001F600";
    text += u'^';
    for (int i = 0; i < 40; ++i) text += u"\U0001F600";
    stack.SetSideText(1, Front, text);
    const Text words = UnsavableTextWords(stack, {1, Front});
    for (std::size_t i = 0; i < words.size(); ++i) {
      const bool high = (words[i] & 0xFC00) == 0xD800;
      const bool low = (words[i] & 0xFC00) == 0xDC00;
      if (high) {
        EXPECT_EQ(words.at(++i) & 0xFC00, 0xDC00);
      } else {
        EXPECT_FALSE(low);
      }
    }
  }
}

TEST(SaveErrorPrompt, KeepsTheMessageAndExplainsItBelow) {
  StackStore stacks;
  CardStack& stack = stacks.Current();
  stack = Three();
  EXPECT_EQ(SaveErrorPrompt(FileStatus::Overflow, stacks).text, u"Overflow");
  stack.SetSideText(2, Back, u"a^b");
  const Prompt prompt = SaveErrorPrompt(FileStatus::Overflow, stacks);
  EXPECT_EQ(prompt.title, u"Quib!Cards 5.50 Error");
  EXPECT_EQ(prompt.text, u"Overflow\r\n\r\n" + UnsavableTextWords(stack, {2, Back}));
  EXPECT_EQ(SaveErrorPrompt(FileStatus::DiskFull, stacks).text, u"Disk full");
}

}  // namespace
