#include "base/Fault.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

TEST(Fault, CarriesItsNumber) {
  EXPECT_EQ(Fault(FileStatus::Overflow).Number(), FileStatus::Overflow);
  EXPECT_EQ(Fault(FileStatus::SubscriptOutOfRange).Number(), FileStatus::SubscriptOutOfRange);
}

TEST(Fault, SaysWhichMistakeItIs) {
  EXPECT_STREQ(Fault(FileStatus::Overflow).what(), "a number does not fit 16 bits");
  EXPECT_STREQ(Fault(FileStatus::SubscriptOutOfRange).what(), "an index is outside its array");
}

}  // namespace
