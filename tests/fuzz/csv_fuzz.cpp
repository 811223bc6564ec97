#include "tests/fuzz/DeckChecks.h"

// The bytes are a table with commas.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckDeckBytes(data, size, DeckFormat::Csv, u"x.csv");
  return 0;
}
