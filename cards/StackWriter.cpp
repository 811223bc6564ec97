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

/// The question before a file is replaced; and a second one, which proposes to keep it, where it is
/// the file of `stack` but no longer holds what was last read or written here.
FileStatus AskToOverwrite(const CardStack& stack, Files& files, Prompts& prompts,
                          const Text& path) {
  const Answer overwrite = prompts.Show({.text = u"File Already Exists. Overwrite?\r\n"
                                                 u"(Choose OK if you are editing)",
                                         .icon = PromptIcon::Exclamation,
                                         .buttons = PromptButtons::OkCancel});
  if (overwrite == Answer::Cancel) return FileStatus::Declined;
  if (stack.Origin.path != path) return FileStatus::Ok;
  std::string content;
  const FileStatus status = files.Read(path, content);
  if (status == FileStatus::FileNotFound) return FileStatus::Ok;  // it has just gone
  if (status != FileStatus::Ok) return status;
  if (stack.Origin.IsContent(content)) return FileStatus::Ok;
  const Answer lose =
      prompts.Show({.text = u"The file was changed elsewhere since you loaded or saved this stack."
                            u"\r\nOverwrite those changes?\r\n(Choose Cancel to keep the file)",
                    .icon = PromptIcon::Exclamation,
                    .buttons = PromptButtons::OkCancel,
                    .proposesRefusal = true});
  return lose == Answer::Cancel ? FileStatus::Declined : FileStatus::Ok;
}

}  // namespace

FileStatus WriteStackFile(StackStore& stacks, Files& files, Prompts& prompts, TextView folder,
                          TextView fileName, FileDialogMode mode, TextView topicName) {
  const Text path = WithSeparator(folder).append(fileName);
  CardStack& stack = stacks.Current();
  const Text found = files.Find(path);
  FileStatus status = FileStatus::Ok;
  if (!found.empty()) status = AskToOverwrite(stack, files, prompts, found);
  if (status != FileStatus::Ok) return status;
  std::unique_ptr<FileReplacement> replacement;
  status = files.Replace(path, replacement);
  if (status != FileStatus::Ok) return status;
  if (found.empty() && replacement->ReplacesExisting()) {
    // It came after the first look, or could not be seen then.
    status = AskToOverwrite(stack, files, prompts, path);
    if (status != FileStatus::Ok) return status;
  }
  auto file = std::make_unique<StackFile>(std::move(replacement), found.empty() ? path : found);
  file->WriteHeader(topicName, stacks.StackDescription);
  if (mode != FileDialogMode::SaveNew) {
    stacks.StackFileNumber = std::move(file);
    return FileStatus::Ok;
  }
  const CardStack before = stack;
  status = WriteCards(stack, *file);
  if (status != FileStatus::Ok) {
    file->Abandon();
    return status;
  }
  status = file->Close(stack.Origin);
  // Nothing was saved, so nothing shows its encoded form: a second try would encode that again, and
  // a line break, by then a caret, would keep the stack from ever being saved.
  if (status != FileStatus::Ok) stack = before;
  return status;
}
