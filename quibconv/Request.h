#pragma once

#include "decks/Conversion.h"

#include <optional>
#include <string>
#include <vector>

/// The name that stands for the standard input or output.
inline constexpr std::string_view StandardStream = "-";

enum class Command { Check, Info, Show, Convert };

/// What the user asks for on the command line. Names of files are bytes, as the system has them.
struct Request {
  Command command = Command::Check;
  std::vector<std::string> files;  ///< files and folders; for Convert the input alone
  std::string output;              ///< of Convert
  std::string settings;            ///< a settings file with the topics; empty: none
  bool json = false;
  bool all = false;        ///< no limit to the findings that are shown
  bool quiet = false;      ///< nothing is said that is not wrong
  ConvertOptions options;  ///< those for reading stand for every command
};

/// A request, or what to say instead of one.
struct ParsedArguments {
  std::optional<Request> request;
  std::string words;   ///< help, the version, or what is wrong with the arguments
  bool wrong = false;  ///< the words are about a mistake
};

/// @param arguments  without the program's name
ParsedArguments ParseArguments(std::vector<std::string> arguments);
