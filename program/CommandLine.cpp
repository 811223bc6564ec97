#include "program/CommandLine.h"

#include "base/LetterCase.h"
#include "base/Paths.h"
#include "cards/StackFileOperations.h"

#include <charconv>

namespace {

constexpr TextView FileScheme = u"file:";

TextView WithoutQuotes(TextView line) {
  line = TrimBlanks(line);
  if (line.size() >= 2 && line.front() == u'"' && line.back() == u'"') {
    line = line.substr(1, line.size() - 2);
  }
  return line;
}

Text DecodePercents(TextView address) {
  const std::string escaped = EncodePath(address);
  std::string bytes;
  for (std::size_t i = 0; i < escaped.size(); ++i) {
    unsigned value = 0;
    const char* const digits = escaped.data() + i + 1;
    if (escaped[i] == '%' && i + 2 < escaped.size() &&
        std::from_chars(digits, digits + 2, value, 16).ptr == digits + 2) {
      bytes += static_cast<char>(value);
      i += 2;
    } else {
      bytes += escaped[i];
    }
  }
  return DecodePath(bytes);
}

/// The path of a "file:" address: "file:///a/b", "file://host/a/b" and "file:a/b".
Text PathOfAddress(TextView address) {
  address.remove_prefix(FileScheme.size());
  if (address.starts_with(u"//")) {
    const std::size_t path = address.find(u'/', 2);
    address = path == TextView::npos ? TextView() : address.substr(path);
  }
  return DecodePercents(address);
}

}  // namespace

Text JoinArguments(const std::vector<Text>& arguments) {
  Text line;
  for (const Text& argument : arguments) {
    if (!line.empty()) line += u' ';
    line += argument;
  }
  return line;
}

CommandLineStack ParseCommandLine(TextView line, Files& files, TextView defaultFolder,
                                  TextView currentFolder) {
  Text path(WithoutQuotes(line));
  if (EqualIgnoringCase(path.substr(0, FileScheme.size()), FileScheme)) path = PathOfAddress(path);
  if (path.empty()) return {Text(defaultFolder), Text()};

  const TextView name = BaseName(path);
  CommandLineStack stack{Text(FolderPart(path)), name.empty() ? Text() : WithStackExtension(name)};
  if (stack.folder.empty()) {
    const Text here = WithSeparator(currentFolder) + stack.fileName;
    const bool onlyHere =
        !files.Exists(WithSeparator(defaultFolder) + stack.fileName) && files.Exists(here);
    stack.folder = onlyHere ? currentFolder : defaultFolder;
    return stack;
  }
  if (!IsSeparator(stack.folder.front())) {
    stack.folder = WithSeparator(currentFolder) + stack.folder;
  }
  if (stack.folder.size() > 1) stack.folder.pop_back();  // the separator; "/" alone is the root
  return stack;
}
