#pragma once

#include "decks/Finding.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// What has to be known before the first entry is read, wherever in the file it stands.
struct KvtmlSurvey {
  std::size_t entries = 0;
  std::vector<std::string> ids;                        ///< of the languages, in their order
  std::unordered_map<std::string, std::string> names;  ///< by id, fit to be shown
};

/// Reads a vocabulary file for the first time, to its end.
/// @return false when it is not in order or no vocabulary file; then the last finding is an error
bool SurveyKvtml(std::string_view utf8, KvtmlSurvey& survey, Findings& findings);
