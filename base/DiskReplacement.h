#pragma once

#include "base/Files.h"

#include <memory>
#include <string>

/// Begins to replace a file, or to make one: through a temporary file in its own folder and a
/// rename, or, where the folder takes no new file, by overwriting it where it stands once both
/// contents lie in `safePlace`.
/// @param target     the file's own name: no link, and in the letter case of the disk
/// @param safePlace  a folder, made when it is needed
FileStatus BeginReplacement(std::string target, const std::string& safePlace,
                            std::unique_ptr<FileReplacement>& replacement);
