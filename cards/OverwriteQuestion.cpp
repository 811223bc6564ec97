#include "cards/OverwriteQuestion.h"

FileStatus AskToOverwrite(const StackStore& stacks, Files& files, Prompts& prompts,
                          const Text& path) {
  const StackOrigin& origin = stacks.Current().Origin;
  const Answer overwrite = prompts.Show({.text = u"File Already Exists. Overwrite?\r\n"
                                                 u"(Choose OK if you are editing)",
                                         .icon = PromptIcon::Exclamation,
                                         .buttons = PromptButtons::OkCancel});
  if (overwrite == Answer::Cancel) return FileStatus::Declined;
  const FileFacts file = files.Look(path);
  if (!origin.IsAt(path, file)) return FileStatus::Ok;
  std::string content;
  const FileStatus status = files.Read(path, content);
  if (status == FileStatus::FileNotFound) return FileStatus::Ok;  // it has just gone
  if (status != FileStatus::Ok) return status;
  if (origin.IsContent(content)) return FileStatus::Ok;
  const Text changed =
      stacks.Saves.IsOurs(path, file, content)
          ? u"You have saved another stack to this file since you loaded or saved this one."
            u"\r\nOverwrite that stack?"
          : u"The file was changed elsewhere since you loaded or saved this stack."
            u"\r\nOverwrite those changes?";
  const Answer lose = prompts.Show({.text = changed + u"\r\n(Choose Cancel to keep the file)",
                                    .icon = PromptIcon::Exclamation,
                                    .buttons = PromptButtons::OkCancel,
                                    .proposesRefusal = true});
  return lose == Answer::Cancel ? FileStatus::Declined : FileStatus::Ok;
}
