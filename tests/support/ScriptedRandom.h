#pragma once

#include "study/RandomSource.h"

#include <deque>
#include <gtest/gtest.h>

/// Gives the numbers of a list, and fails the test when they run out.
class ScriptedRandom : public RandomSource {
 public:
  ScriptedRandom(std::initializer_list<double> numbers) : m_numbers(numbers) {}

  void Add(double number) { m_numbers.push_back(number); }

  double Next() override {
    if (m_numbers.empty()) throw std::runtime_error("no random number left");
    const double number = m_numbers.front();
    m_numbers.pop_front();
    return number;
  }

  std::size_t Left() const { return m_numbers.size(); }

 private:
  std::deque<double> m_numbers;
};

/// The number that draws `card` out of `count` cards.
constexpr double Draw(int card, int count) { return (card - 0.5) / count; }

/// Repeatable, uniform, never runs out.
class SeededRandom : public RandomSource {
 public:
  explicit SeededRandom(unsigned seed) : m_engine(seed) {}
  double Next() override { return static_cast<double>(m_engine() >> 8U) / (1U << 24U); }

 private:
  std::mt19937 m_engine;
};
