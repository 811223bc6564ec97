#include "cards/StackWriter.h"

#include "base/Paths.h"
#include "cards/OverwriteQuestion.h"
#include "cards/StackFile.h"

#include <new>

namespace {

/// The encoder works on the stack's own texts, so a stack that was saved shows what was written.
FileStatus WriteCards(CardStack& stack, StackFile& file) {
  for (int card = 1; card <= stack.CardCount; ++card) {
    for (const int side : {Front, Back}) {
      Text text(stack.SideText(card, side));
      const FileStatus status =
          file.WriteSide(text, stack.SideSound(card, side), stack.SidePicture(card, side));
      stack.SetSideText(card, side, text);
      if (status != FileStatus::Ok) return status;
    }
  }
  return FileStatus::Ok;
}

/// Writes and closes the file of a new stack.
FileStatus WriteNewStack(CardStack& stack, StackFile& file) {
  CardStack before = stack;
  FileStatus status = FileStatus::OutOfMemory;
  try {
    status = WriteCards(stack, file);
  } catch (const std::bad_alloc&) {
  }
  if (status == FileStatus::Ok) {
    status = file.Close(stack.Origin);
  } else if (status != FileStatus::OutOfMemory) {
    file.Abandon();
  }
  // Nothing was saved, so nothing shows its encoded form: a second try would encode that again, and
  // a line break, by then a caret, would keep the stack from ever being saved. A text with a caret
  // must be one that the user can correct.
  if (status != FileStatus::Ok) stack = std::move(before);
  return status;
}

}  // namespace

FileStatus WriteStackFile(StackStore& stacks, Files& files, Prompts& prompts, TextView folder,
                          TextView fileName, FileDialogMode mode, TextView topicName) try {
  const Text path = WithSeparator(folder).append(fileName);
  stacks.Saves.rescueFolder.clear();
  const Text found = files.Find(path);
  FileStatus status = FileStatus::Ok;
  if (!found.empty()) status = AskToOverwrite(stacks, files, prompts, found);
  if (status != FileStatus::Ok) return status;
  std::unique_ptr<FileReplacement> replacement;
  status = files.Replace(path, replacement);
  if (status != FileStatus::Ok) return status;
  if (found.empty() && replacement->ReplacesExisting()) {
    // It came after the first look, or could not be seen then.
    status = AskToOverwrite(stacks, files, prompts, path);
    if (status != FileStatus::Ok) return status;
  }
  auto file = std::make_unique<StackFile>(std::move(replacement), found.empty() ? path : found,
                                          &stacks.Saves);
  file->WriteHeader(topicName, stacks.StackDescription);
  if (mode != FileDialogMode::SaveNew) {
    stacks.StackFileNumber = std::move(file);
    return FileStatus::Ok;
  }
  return WriteNewStack(stacks.Current(), *file);
} catch (const std::bad_alloc&) {
  return FileStatus::OutOfMemory;
}
