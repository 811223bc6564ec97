#include "tests/fuzz/StackChecks.h"

// The bytes are an import file, in which the 300th pair is never complete.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckStackBytes(data, size, u"x.QBS", MaxCards - 1);
  return 0;
}
