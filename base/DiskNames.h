#pragma once

#include "base/Text.h"

#include <string>
#include <vector>

// How names of ours, which may differ in letter case and separators, find names on disk.

/// A name with a null character would reach the system cut there, as the name of another file.
bool NamesNoFile(TextView path);

/// All names in a folder, in no order; empty when it cannot be listed.
std::vector<std::string> NamesIn(const std::string& folder);

/// The name under which `path` is found on disk; where some part is not there, that part and the
/// rest as given.
std::string FindOnDisk(const Text& path);

/// Where a link to a file that is not there yet leads; `path` itself when it is no link.
std::string BehindLinks(std::string path);
