#pragma once

#include "base/Files.h"
#include "quibconv/CardTable.h"
#include "quibconv/Request.h"

#include <functional>
#include <string_view>

/// What a run of the program needs from outside; main has the real one.
struct Surroundings {
  Files& files;
  std::function<void(std::string_view)> out;    ///< the standard output
  std::function<void(std::string_view)> error;  ///< the standard error output
  std::function<bool(std::string&)> input;      ///< all of the standard input
  std::function<void(std::size_t done, std::size_t all)> progress;
  int terminalWidth = 0;  ///< columns; 0 when the output is no terminal
  CharacterWidth characterWidth = nullptr;
};

/// Exit statuses of the program.
enum ExitStatus : int { AllIsWell = 0, SomethingFound = 1, Unusable = 2 };

/// Does what is asked for.
/// @return the program's exit status
int RunRequest(const Request& request, Surroundings& surroundings);
