#pragma once

#include "base/Fault.h"

#include <cstdint>

/// A 16-bit signed number that never wraps: a value outside -32768..32767 throws
/// `Fault(FileStatus::Overflow)`.
class Int16 {
 public:
  constexpr Int16() = default;
  constexpr Int16(int value) : m_value(Checked(value)) {}  // NOLINT: meant to take any int

  constexpr operator int() const { return m_value; }  // NOLINT: reads as a number everywhere

  constexpr Int16& operator+=(int other) {
    m_value = Checked(std::int64_t{m_value} + other);
    return *this;
  }
  constexpr Int16& operator-=(int other) {
    m_value = Checked(std::int64_t{m_value} - other);
    return *this;
  }
  constexpr Int16& operator++() { return *this += 1; }
  constexpr Int16& operator--() { return *this -= 1; }

 private:
  static constexpr std::int16_t Checked(std::int64_t value) {
    if (value < INT16_MIN || value > INT16_MAX) throw Fault(FileStatus::Overflow);
    return static_cast<std::int16_t>(value);
  }

  std::int16_t m_value = 0;
};
