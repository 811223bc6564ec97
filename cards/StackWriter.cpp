#include "cards/StackWriter.h"

#include "base/Paths.h"
#include "cards/StackFile.h"

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

}  // namespace

FileStatus WriteStackFile(StackStore& stacks, Files& files, Prompts& prompts, TextView folder,
                          TextView fileName, FileDialogMode mode, TextView topicName) {
  const Text path = WithSeparator(folder).append(fileName);
  if (files.Exists(path)) {
    const Answer answer = prompts.Show({.text = u"File Already Exists. Overwrite?\r\n"
                                                u"(Choose OK if you are editing)",
                                        .icon = PromptIcon::Exclamation,
                                        .buttons = PromptButtons::OkCancel});
    if (answer == Answer::Cancel) return FileStatus::Declined;
  }
  std::unique_ptr<FileReplacement> replacement;
  if (const FileStatus status = files.Replace(path, replacement); status != FileStatus::Ok) {
    return status;
  }
  auto file = std::make_unique<StackFile>(std::move(replacement));
  file->WriteHeader(topicName, stacks.StackDescription);
  if (mode != FileDialogMode::SaveNew) {
    stacks.StackFileNumber = std::move(file);
    return FileStatus::Ok;
  }
  FileStatus status = WriteCards(stacks.Current(), *file);
  if (status == FileStatus::Ok) {
    status = file->Close();
  } else {
    file->Abandon();
  }
  return status;
}
