#include "tests/fuzz/DeckChecks.h"

// The bytes are a stack that is checked and converted.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckDeckBytes(data, size, DeckFormat::Stack, u"x.QBC");
  return 0;
}
