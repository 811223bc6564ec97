#include "tests/fuzz/DeckChecks.h"

// The bytes are a tab-separated table.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckDeckBytes(data, size, DeckFormat::Tsv, u"x.tsv");
  return 0;
}
