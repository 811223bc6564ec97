#pragma once

#include "base/FileStatus.h"

#include <exception>

/// A mistake of the program (an index outside its array) or a number that does not fit 16 bits.
/// File routines turn an overflow of their own into the status of that name; every other fault
/// reaches the event loop, which shows its text and goes on.
class Fault : public std::exception {
 public:
  explicit Fault(FileStatus number) : m_number(number) {}

  FileStatus Number() const { return m_number; }
  const char* what() const noexcept override;

 private:
  FileStatus m_number;
};
