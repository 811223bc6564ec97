#pragma once

#include "base/FileStatus.h"
#include "base/SystemFile.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>

// New contents on their way into a folder, beside the files whose place they take. Paths are bytes.

/// Makes a new, empty file in `folder`, hidden, under a name that says which process of which
/// running system made it.
/// @param path  becomes its path; the result is not open on failure, and errno says why
Descriptor MakeTemporary(const std::string& folder, std::string& path);

/// Fills a temporary file, gives it the mode and owner of the file whose place it takes, or those
/// of a new file, and closes it, flushed.
FileStatus FillTemporary(Descriptor& file, std::string_view content,
                         const std::optional<struct stat>& old);

/// Removes what killed programs left in a folder during a save: files named by MakeTemporary, of
/// this user, that nobody has written for an hour, of a process that is no more. Where that cannot
/// be asked (the system ran elsewhere, or was started anew since) they wait for a week. A file of
/// any other name stays for ever.
void RemoveLeftovers(const std::string& folder);

/// After a rename the folder itself must reach the disk; a file system that cannot is not asked.
void FlushFolder(const std::string& folder);

/// Looks at what may be replaced: a regular file that may be written, or none.
/// @param target  no link
/// @param old     receives what is there; nothing where there is no file
FileStatus LookAtTarget(const std::string& target, std::optional<struct stat>& old);
