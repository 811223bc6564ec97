#include "base/Fault.h"

const char* Fault::what() const noexcept {
  return m_number == FileStatus::Overflow ? "a number does not fit 16 bits"
                                          : "an index is outside its array";
}
