#include "tests/fuzz/StackChecks.h"

// The bytes are a stack file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckStackBytes(data, size, u"x.QBC", MaxCards);
  return 0;
}
