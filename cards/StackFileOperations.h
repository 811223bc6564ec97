#pragma once

#include "base/FileStatus.h"
#include "base/Files.h"
#include "base/Prompts.h"
#include "cards/StackReader.h"
#include "cards/StackStore.h"
#include "cards/StackWriter.h"

/// What the stack file dialog shows for a mode.
struct FileDialogTexts {
  TextView caption;
  TextView label;    ///< with its mnemonic
  TextView pattern;  ///< "*.QB?" or "*.QBC"
};
FileDialogTexts TextsOf(FileDialogMode mode);

/// True when the dialog lists `fileName` under `pattern` (one of the two above), letter case
/// ignored. A "?" at the end also matches nothing: "x.QB" is listed under "*.QB?".
bool MatchesPattern(TextView fileName, TextView pattern);

/// True for a name that the dialog does not act on: empty, with "*" or "?", or beginning with "."
/// (the stack's name would be empty).
bool IsRefusedFileName(TextView fileName);

/// "cards" for "cards.QBC": up to the first ".", at most StackNameWidth characters.
Text StackNameOf(TextView fileName);

/// `fileName`, with ".QBC" behind it when it has no ".".
Text WithStackExtension(TextView fileName);

/// The words for a file error: title + " Error", exclamation, OK. Not for `Ok` and `Declined`.
/// @param rescueFolder  of a save that left a torn file (SaveRecord); empty for any other
Prompt FileErrorPrompt(FileStatus status, TextView rescueFolder = {});

/// Reads a stack in full and names it after its file.
FileStatus LoadStack(StackStore& stacks, Files& files, Prompts& prompts, TextView folder,
                     TextView fileName, const TopicCheck& check);

/// Deletes a stack file from disk after a question. Loaded stacks stay.
/// @return `Declined` when the user said No.
FileStatus DeleteStack(Files& files, Prompts& prompts, TextView folder, TextView fileName);

/// Saves the selected stack as WriteStackFile does, with ".QBC" added where the name has no ".". On
/// success the stack takes the file's name.
FileStatus SaveStack(StackStore& stacks, Files& files, Prompts& prompts, TextView folder,
                     TextView fileName, FileDialogMode mode, TextView topicName);

/// Reads the description of a stack file; the program's own description stays.
FileStatus ReadDescription(StackStore& stacks, Files& files, Prompts& prompts, TextView folder,
                           TextView fileName, Text& description);
