#pragma once

#include "base/FileStatus.h"
#include "base/Files.h"
#include "base/Text.h"

#include <string>
#include <vector>

// How names of ours, which may differ in letter case and separators, find names on disk.

/// A name with a null character would reach the system cut there, as the name of another file.
bool NamesNoFile(TextView path);

/// All names in a folder, in no order. 0, or the errno of the call that failed, and then `names`
/// may lack some.
int NamesIn(const std::string& folder, std::vector<std::string>& names);

/// The name under which `path` is found on disk; where some part is not there, that part and the
/// rest as given. Fails where the disk does not say what is there: who took a file for missing then
/// could put a new one in front of it.
FileStatus FindOnDisk(const Text& path, std::string& found);

/// Follows a link to a file that is not there yet; a `path` that is no link stays.
FileStatus FollowLinks(std::string& path);

/// Makes a path absolute and free of links; false when nothing is there, and then it stays.
bool RealPath(std::string& path);

/// What a name of the disk leads to.
FileFacts FactsOf(const std::string& name);

/// Turns a path into that of the file that is to be written: links are followed, to a file that is
/// there or to one that is not there yet.
FileStatus FollowToTarget(std::string& path);
