#include "tests/fuzz/DeckChecks.h"

// The bytes are a text file of Anki.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckDeckBytes(data, size, DeckFormat::Anki, u"x.txt");
  return 0;
}
