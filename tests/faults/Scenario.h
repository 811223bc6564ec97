#pragma once

#include "tests/faults/FaultWorld.h"

#include <functional>
#include <ostream>
#include <string>

/// Something that the program does with files.
struct Scenario {
  std::string name;
  std::size_t leastCases;  ///< fewer mean that calls have escaped from the count
  std::function<void(FaultWorld&)> prepare;
  /// Does it; returns how it told that it ended, or nothing where it tells nobody.
  std::function<std::optional<FileStatus>(FaultWorld&)> act;
  /// Overwrites in place: after a failure that went on, the file may be torn if both contents lie
  /// in the safe place.
  bool inPlace = false;
};

inline void PrintTo(const Scenario& scenario, std::ostream* out) { *out << scenario.name; }

/// Runs the scenario once for each fault at each of its system calls, and fails unless afterwards
/// the old or the new content is whole, the user was told which, memory is as the user was told, no
/// file is open or left behind, and the next attempt works.
/// @return the number of cases
std::size_t CheckEveryFault(const Scenario& scenario);
