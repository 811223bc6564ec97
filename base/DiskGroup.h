#pragma once

#include "base/Files.h"

#include <vector>

/// Files::ReplaceTogether on the real disk. No more than one file is open at a time. Before the
/// first rename, the old files get a second name beside them, ".quib-old-" and six letters; where
/// the file system knows no second names, each old file is moved there right before its rename. A
/// program that is killed between two renames leaves these files for the user.
GroupResult ReplaceGroup(const std::vector<NewFile>& files);
