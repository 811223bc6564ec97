#pragma once

#include "base/FileStatus.h"
#include "base/SystemFile.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>

// New contents on their way into a folder, beside the files whose place they take. Paths are bytes.

/// A new, empty file in `folder`, hidden, under a name of its own.
Descriptor MakeTemporary(const std::string& folder, std::string& path);

/// Writes `content` under a new name in `folder`, flushed.
FileStatus WriteTemporary(const std::string& folder, std::string_view content, std::string& path);

/// Fills a temporary file, gives it the mode and owner of the file whose place it takes, or those
/// of a new file, and closes it, flushed.
FileStatus FillTemporary(Descriptor& file, std::string_view content,
                         const std::optional<struct stat>& old);

/// Removes the temporary files of programs that were killed during a save: those that are older
/// than an hour, as no save is.
void RemoveLeftovers(const std::string& folder);

/// After a rename the folder itself must reach the disk; a file system that cannot is not asked.
void FlushFolder(const std::string& folder);

/// Looks at what may be replaced: a regular file that may be written, or none.
/// @param target  no link
/// @param old     receives what is there; nothing where there is no file
FileStatus LookAtTarget(const std::string& target, std::optional<struct stat>& old);
