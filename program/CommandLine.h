#pragma once

#include "base/Files.h"
#include "base/Text.h"

#include <vector>

/// The stack that the command line names.
struct CommandLineStack {
  Text folder;    ///< becomes the default folder
  Text fileName;  ///< empty when the command line names nothing, or a folder alone
};

/// The arguments as one line, joined by blanks: a file name with blanks needs no quotes.
Text JoinArguments(const std::vector<Text>& arguments);

/// Takes a command line apart. One pair of quotes is removed and a "file:" address accepted; a name
/// without "." gets ".QBC". A path names folder and file, the folder being relative to
/// `currentFolder`; one that ends in a separator names the folder alone. A bare name means the
/// default folder, or the current one when only that has it.
CommandLineStack ParseCommandLine(TextView line, Files& files, TextView defaultFolder,
                                  TextView currentFolder);
