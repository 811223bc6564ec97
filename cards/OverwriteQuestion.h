#pragma once

#include "base/FileStatus.h"
#include "base/Files.h"
#include "base/Prompts.h"
#include "cards/StackStore.h"

/// The question before a file is replaced by the selected stack; and a second one, which proposes
/// to keep it, where it is the stack's own file, by whatever path, but no longer holds what was
/// last read or written of it here.
/// @param path  as it is found on disk
/// @return `Ok` to go on, `Declined`, or why the file could not be compared
FileStatus AskToOverwrite(const StackStore& stacks, Files& files, Prompts& prompts,
                          const Text& path);
