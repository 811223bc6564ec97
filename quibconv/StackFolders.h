#pragma once

#include "base/Files.h"

#include <string>
#include <vector>

/// A folder that could not be listed.
struct FolderTrouble {
  Text path;
  FileStatus status = FileStatus::Ok;
};

/// The stack and import files in a folder and those below it, in the order of their names, hidden
/// ones apart. Links to folders are not followed.
std::vector<Text> StacksBelow(const Text& folder, std::vector<FolderTrouble>& troubles);
