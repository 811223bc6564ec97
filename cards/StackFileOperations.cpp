#include "cards/StackFileOperations.h"

#include "base/LetterCase.h"
#include "base/Paths.h"

namespace {

Text FileErrorText(FileStatus status) {
  switch (status) {
    case FileStatus::FileNotFound:
      return u"The file was not found.";
    case FileStatus::PastEnd:
      return u"No Cards in file.";
    case FileStatus::IllegalName:
    case FileStatus::DeviceUnavailable:
      return u"Your file specification was invalid.\r\n"
             u"Only 8 letters are allowed for the file name.";
    case FileStatus::PathAccess:
      return u"Your path specification was invalid.";
    default:
      return ErrorText(status);
  }
}

}  // namespace

FileDialogTexts TextsOf(FileDialogMode mode) {
  switch (mode) {
    case FileDialogMode::Load:
      return {u"Load Stack of Cards", u"Select &File:", u"*.QB?"};
    case FileDialogMode::Delete:
      return {u"Delete Card Stack", u"Delete &File:", u"*.QB?"};
    case FileDialogMode::SaveNew:
    case FileDialogMode::SaveEdited:
      break;
  }
  return {u"Save Stack of Cards", u"Save &File:", u"*.QBC"};
}

bool MatchesPattern(TextView fileName, TextView pattern) {
  const TextView extension = pattern.substr(1);  // behind the "*"
  const bool anyLast = extension.ends_with(u'?');
  const TextView fixed = anyLast ? extension.substr(0, extension.size() - 1) : extension;
  const auto endsWithFixed = [&](TextView name) {
    return name.size() >= fixed.size() &&
           EqualIgnoringCase(name.substr(name.size() - fixed.size()), fixed);
  };
  if (endsWithFixed(fileName)) return true;
  return anyLast && !fileName.empty() && endsWithFixed(fileName.substr(0, fileName.size() - 1));
}

bool IsRefusedFileName(TextView fileName) {
  return fileName.empty() || fileName.front() == u'.' ||
         fileName.find_first_of(u"*?") != TextView::npos;
}

Text StackNameOf(TextView fileName) {
  return Text(CutText(fileName.substr(0, fileName.find(u'.')), StackNameWidth));
}

Text WithStackExtension(TextView fileName) {
  Text name(fileName);
  return name.find(u'.') == Text::npos ? name + u".QBC" : name;
}

Prompt FileErrorPrompt(FileStatus status, TextView rescueFolder) {
  Text text = FileErrorText(status);
  if (!rescueFolder.empty()) {
    text +=
        u"\r\n\r\nThe file is damaged: it could be neither written nor put back. What it held, "
        u"\"(old)\", and what was to be saved, \"(new)\", are in the folder\r\n" +
        ShownName(rescueFolder);
  }
  return {
      .text = text, .icon = PromptIcon::Exclamation, .title = Text(ProgramTitle).append(u" Error")};
}

FileStatus LoadStack(StackStore& stacks, Files& files, Prompts& prompts, TextView folder,
                     TextView fileName, const TopicCheck& check) {
  const FileStatus status =
      ReadStackFile(stacks, files, prompts, folder, fileName, ReadMode::Full, check);
  if (status == FileStatus::Ok) stacks.Current().StackName = StackNameOf(fileName);
  return status;
}

FileStatus DeleteStack(Files& files, Prompts& prompts, TextView folder, TextView fileName) {
  const Text path = WithSeparator(folder).append(fileName);
  const Answer answer = prompts.Show({.text = u"Delete " + ShownName(path) + u"\r\nAre you sure?",
                                      .icon = PromptIcon::Question,
                                      .buttons = PromptButtons::YesNo});
  return answer == Answer::Yes ? files.Remove(path) : FileStatus::Declined;
}

FileStatus SaveStack(StackStore& stacks, Files& files, Prompts& prompts, TextView folder,
                     TextView fileName, FileDialogMode mode, TextView topicName) {
  const Text name = WithStackExtension(fileName);
  const FileStatus status = WriteStackFile(stacks, files, prompts, folder, name, mode, topicName);
  if (status == FileStatus::Ok) stacks.Current().StackName = StackNameOf(name);
  return status;
}

FileStatus ReadDescription(StackStore& stacks, Files& files, Prompts& prompts, TextView folder,
                           TextView fileName, Text& description) {
  const Text kept = stacks.StackDescription;
  const FileStatus status = ReadStackFile(stacks, files, prompts, folder, fileName,
                                          ReadMode::HeaderOnly, [](const Text&) { return 0; });
  description = status == FileStatus::Ok ? stacks.StackDescription : Text();
  stacks.StackDescription = kept;
  return status;
}
