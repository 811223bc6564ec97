#include "base/LetterCase.h"
#include "base/Paths.h"
#include "program/CommandLine.h"
#include "tests/fuzz/Require.h"
#include "tests/support/MemoryFiles.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace {

constexpr TextView DefaultFolder = u"/home/user/cards";
constexpr TextView CurrentFolder = u"/work";

void RequireUsable(const CommandLineStack& stack) {
  REQUIRE(!stack.folder.empty());
  REQUIRE(IsSeparator(stack.folder.front()));
  if (stack.fileName.empty()) return;  // nothing is named, or a folder alone
  REQUIRE(stack.fileName.find(u'.') != Text::npos);
  REQUIRE(std::none_of(stack.fileName.begin(), stack.fileName.end(), IsSeparator));
}

std::string PercentEncoded(const std::string& bytes) {
  constexpr std::string_view Digits = "0123456789aBcDeF";
  std::string encoded;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    encoded += '%';
    encoded += Digits[value / 16];
    encoded += Digits[value % 16];
  }
  return encoded;
}

CommandLineStack Parse(Files& files, TextView line) {
  return ParseCommandLine(line, files, DefaultFolder, CurrentFolder);
}

/// A file of any name is reached by its path in quotes, and by its address.
void RequireReached(Files& files, const std::string& bytes) {
  const Text name = DecodePath(bytes);
  if (name.empty() || std::any_of(name.begin(), name.end(), IsSeparator)) return;
  const Text expected = name.find(u'.') == Text::npos ? name + u".QBC" : name;
  for (const Text& line :
       {u"\"/stacks/" + name + u"\"", u"File:///stacks/" + DecodePath(PercentEncoded(bytes)),
        u" file://host/stacks/" + DecodePath(PercentEncoded(bytes)) + u" "}) {
    const CommandLineStack stack = Parse(files, line);
    REQUIRE(stack.folder == u"/stacks");
    REQUIRE(stack.fileName == expected);
  }
}

}  // namespace

// The bytes are the arguments, one a line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  std::vector<std::string> lines(1);
  for (const char byte : bytes) {
    if (byte == '\n') {
      lines.emplace_back();
    } else {
      lines.back() += byte;
    }
  }
  MemoryFiles files;
  std::vector<Text> arguments;
  for (const std::string& line : lines) {
    const Text argument = DecodePath(line);
    REQUIRE(EncodePath(argument) == line);
    arguments.push_back(argument);
    RequireReached(files, line);
    files.Put(Text(CurrentFolder) + u"/" + argument, "here");
  }
  const Text joined = JoinArguments(arguments);
  RequireUsable(Parse(files, joined));
  for (const Text& argument : arguments) {
    REQUIRE(joined.find(argument) != Text::npos);
    RequireUsable(Parse(files, argument));
  }
  return 0;
}
