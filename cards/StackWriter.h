#pragma once

#include "base/FileStatus.h"
#include "base/Files.h"
#include "base/Prompts.h"
#include "cards/StackStore.h"

/// What the stack file dialog is opened for.
enum class FileDialogMode : std::int16_t { Load = 1, Delete = 2, SaveNew = 3, SaveEdited = 4 };

/// Writes the selected stack; asks before it replaces a file, and again where that is the stack's
/// own file and was changed since it was loaded or saved. With `SaveNew` all of it, and then
/// the texts in memory hold their encoded form, a blank and the sound's bare name. With any other
/// mode the two header lines only, and the file stays open as `StackFileNumber` for the card
/// editor.
/// @return `Ok`; `Declined` when the user does not want to overwrite; else the status of the step
///         that failed, and then StackFileNumber is not open, and an existing file and the texts in
///         memory are as they were.
FileStatus WriteStackFile(StackStore& stacks, Files& files, Prompts& prompts, TextView folder,
                          TextView fileName, FileDialogMode mode, TextView topicName);
