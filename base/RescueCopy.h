#pragma once

#include "base/FileStatus.h"

#include <string>
#include <string_view>

/// Keeps `content` in a new file in `folder`, flushed, under the name of the file it is of with
/// `mark` behind it: "verbs (old).QBC", "verbs (old 2).QBC".
/// @param path  becomes the copy's path; nothing is left there on failure
FileStatus WriteCopy(const std::string& folder, const std::string& fileName, std::string_view mark,
                     std::string_view content, std::string& path);
