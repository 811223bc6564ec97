#pragma once

#include "base/Files.h"

// Paths as Files::ReplaceTogether takes them: in the letter case of the disk, and without links in
// their folders.

/// The folder part of a path, ending in a separator where it is not empty. That of a folder which
/// is not there stays as it is.
Text FolderOnDisk(Files& files, const Text& path);

/// The path of a file. A link of the name itself is not followed.
Text PlaceOnDisk(Files& files, const Text& path);
