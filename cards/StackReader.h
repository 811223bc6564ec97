#pragma once

#include "base/CodePage.h"
#include "base/FileStatus.h"
#include "base/Files.h"
#include "base/Int16.h"
#include "base/Prompts.h"
#include "cards/StackStore.h"

#include <functional>
#include <string_view>

/// Finds the topic of a stack by the name in its file; asks the user where it is unknown. Called
/// once for each stack, after its last card.
using TopicCheck = std::function<Int16(const Text& topicName)>;

enum class ReadMode {
  HeaderOnly = 0,  ///< sets FileTopicName and StackDescription, appends nothing
  Full = 1,
};

/// One more character than any other program's file may have in a text: of a line of a hundred
/// megabytes a listener hears no more than shows that it is too long.
inline constexpr std::size_t MaxHeardText = (std::size_t{1} << 20) + 1;

/// A side as the reader took it out of its line.
struct SideRead {
  int lineNumber;  ///< in the file, from 1
  int card;
  int side;
  std::string_view line;   ///< as it stands in the file
  FileEncoding encoding;   ///< of the file
  TextView text;           ///< decoded, not yet cut to MaxLoadedText, but to MaxHeardText
  std::size_t textLength;  ///< of all of it, without the blanks behind it
  TextView sound;
  TextView picture;
};

/// Told each side as it is read, by programs that report on files; its views end with the call.
using SideListener = std::function<void(const SideRead&)>;

/// Reads a stack file, or an import file when its name contains ".QBS" (letter case ignored), and
/// appends the stack, which becomes the current one. Its StackName is left to the caller.
/// @param folder  of the stack; its picture and sound names are taken to lie there
/// @return `Ok`, or the status of the step that failed. Then nothing was appended and the selection
///         is what it was; StackDescription and FileTopicName keep what was read of them.
FileStatus ReadStackFile(StackStore& stacks, Files& files, Prompts& prompts, TextView folder,
                         TextView fileName, ReadMode mode, const TopicCheck& check);

/// The same for a file whose content is at hand: it ends as if it had been read under `fileName`,
/// but for the stack's Origin, which stays empty.
/// @param listener  may be empty
FileStatus ReadStackContent(StackStore& stacks, Prompts& prompts, std::string_view content,
                            TextView folder, TextView fileName, ReadMode mode,
                            const TopicCheck& check, const SideListener& listener);
