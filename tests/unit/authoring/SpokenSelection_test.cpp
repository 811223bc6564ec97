#include "authoring/SpokenSelection.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

class SpokenSelectionTest : public testing::Test {
 protected:
  SpokenSelectionTest() {
    stack.CardCount = 2;
    stack.SetSideText(1, Front, u"the\r\ncat  ");
    stack.SetSideText(1, Back, u"el gato");
    stack.SetSideText(2, Front, Text(100'000, u'x'));
  }
  Text Words() const { return SpokenSelection(editor, stack); }

  StackStore stacks;
  CardStack& stack = stacks.Current();
  CardEditor editor{stacks};
};

TEST_F(SpokenSelectionTest, NamesTheCardAndItsTexts) {
  EXPECT_EQ(Words(), u"No card selected.");
  ASSERT_TRUE(editor.SelectRow(0, Front));
  EXPECT_EQ(Words(), u"Card 1 of 2. Front: the cat. Back: el gato.");
  editor.ToggleDeleted();
  EXPECT_EQ(Words(), u"Card 1 of 2. Front: the cat. Back: el gato. Marked for deletion.");
}

TEST_F(SpokenSelectionTest, CutsALongText) {
  editor.MoveSelection(2);
  EXPECT_EQ(Words(), u"Card 2 of 2. Front: " + Text(500, u'x') + u". Back: .");
}

}  // namespace
