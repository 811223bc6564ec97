#include "keys/KeyAssignment.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

TEST(ModifiersOf, IsTheDecimalReadingOfTheField) {
  for (int code = 0; code < 256; ++code) {
    const KeyAssignment assignment{.modifiers = static_cast<CharCode>(code)};
    const int expected = code >= '0' && code <= '9' ? code - '0' : 0;
    EXPECT_EQ(ModifiersOf(assignment), expected) << code;
  }
}

TEST(KeyAssignment, IsAnEmptySlotAtFirst) { EXPECT_EQ(KeyAssignment().modifiers, EmptySlotMark); }

}  // namespace
