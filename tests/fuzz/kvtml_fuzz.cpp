#include "tests/fuzz/DeckChecks.h"

// The bytes are a vocabulary file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckDeckBytes(data, size, DeckFormat::Kvtml, u"x.kvtml");
  return 0;
}
