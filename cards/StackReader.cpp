#include "cards/StackReader.h"

#include "base/LetterCase.h"
#include "base/Paths.h"
#include "cards/FileLines.h"
#include "cards/SideLine.h"

#include <algorithm>
#include <new>

namespace {

constexpr TextView ImportMark = u"[WinQuib]";
constexpr std::size_t MostTextReserved = std::size_t{1} << 20;

/// The record that a reader fills. Unless it is kept, it goes again, and the selection goes back to
/// where it was: a stack that failed anywhere is not kept, not even in part.
class NewStack {
 public:
  NewStack(StackStore& stacks, TextView folder, std::size_t fileSize)
      : m_stacks(stacks), m_before(stacks.CurrentStack), m_stack(stacks.Append()) {
    m_stack.SetMediaFolder(folder);
    m_stack.Reserve(std::min(fileSize, MostTextReserved));
  }
  NewStack(const NewStack&) = delete;
  NewStack& operator=(const NewStack&) = delete;
  ~NewStack() {
    if (m_kept) return;
    m_stacks.RemoveCurrentStack();
    m_stacks.CurrentStack = m_before;
  }

  CardStack& operator*() { return m_stack; }
  CardStack* operator->() { return &m_stack; }
  void Keep() {
    m_stack.Shrink();
    m_kept = true;
  }

 private:
  StackStore& m_stacks;
  Int16 m_before;
  CardStack& m_stack;
  bool m_kept = false;
};

/// The text of a side after its media names were taken: decoded first, cut afterwards.
TextView CutLoadedText(TextView text) { return CutText(text, MaxLoadedText); }

/// Where the sides that are read go.
struct SideTarget {
  CardStack& stack;
  TextView folder;
  const SideListener& listener;

  /// @param rest  of the line, the names taken out; no more of it is decoded than is kept or heard,
  ///              for a file may be one line of a hundred megabytes
  void Take(int card, int side, const FileLines& lines, TextView rest, const Text& sound,
            const Text& picture) const {
    const Text text = DecodeSideText(rest, 2 * (listener ? MaxHeardText : MaxLoadedText) + 2);
    stack.SetSideSound(card, side, sound);
    stack.SetSidePicture(card, side, picture);
    stack.SetSideText(card, side, CutLoadedText(text));
    if (!listener) return;
    listener({.lineNumber = lines.LineNumber(),
              .card = card,
              .side = side,
              .line = lines.LastLine(),
              .encoding = lines.Encoding(),
              .text = CutText(text, MaxHeardText),
              .textLength = DecodedSideLength(TrimRight(rest)),
              .sound = sound,
              .picture = picture});
  }
};

FileStatus ReadNativeCards(const SideTarget& target, FileLines& lines) {
  Text line;
  int card = 1;
  do {
    for (const int side : {Front, Back}) {
      if (const FileStatus status = lines.Read(line); status != FileStatus::Ok) return status;
      const Text sound = TakeSoundName(line, target.folder, u' ');
      const Text picture = TakePictureName(line, target.folder, u' ');
      target.Take(card, side, lines, line, sound, picture);
    }
    ++card;
  } while (!lines.AtEnd() && card <= MaxCards);
  target.stack.CardCount = card - 1;
  return FileStatus::Ok;
}

FileStatus ReadNativeStack(StackStore& stacks, std::string_view content, TextView folder,
                           ReadMode mode, const TopicCheck& check, const SideListener& listener) {
  FileLines lines(content);
  FileStatus status = lines.Read(stacks.FileTopicName);
  if (status != FileStatus::Ok) return status;
  Text description;
  status = lines.Read(description);
  if (status != FileStatus::Ok) return status;
  stacks.StackDescription = TrimRight(CutText(description, DescriptionWidth));
  if (mode != ReadMode::Full) return FileStatus::Ok;

  NewStack stack(stacks, folder, content.size());
  status = ReadNativeCards({*stack, folder, listener}, lines);
  if (status != FileStatus::Ok) return status;
  const Int16 topic = check(stacks.FileTopicName);
  stacks.Current().TopicIndex = topic;
  stack.Keep();
  return FileStatus::Ok;
}

/// The next free number of each side while an import file is read.
struct ImportCounters {
  int question = 1;
  int answer = 1;
};

bool TakeImportLine(const SideTarget& target, int side, char16_t mark, int& number,
                    const FileLines& lines, const Text& line) {
  if (!ContainsIgnoringCase(line, mark + NumberText(number) + u"=")) return false;
  Text rest = line;
  const Text sound = TakeSoundName(rest, target.folder, u'>');
  target.Take(number, side, lines, StripImportPrefix(rest), sound, {});
  ++number;
  return true;
}

FileStatus ReadImportCards(const SideTarget& target, FileLines& lines, ImportCounters& counters) {
  Text line;
  do {
    if (const FileStatus status = lines.Read(line); status != FileStatus::Ok) return status;
    if (!TakeImportLine(target, Front, u'Q', counters.question, lines, line)) {
      TakeImportLine(target, Back, u'A', counters.answer, lines, line);
    }
    // The 300th pair is never complete: the loop ends as soon as one of its two lines is read.
  } while (!lines.AtEnd() && counters.question <= MaxCards && counters.answer <= MaxCards);
  target.stack.CardCount = std::min(counters.question, counters.answer) - 1;
  return FileStatus::Ok;
}

FileStatus ReadImportStack(StackStore& stacks, Prompts& prompts, std::string_view content,
                           TextView folder, ReadMode mode, const TopicCheck& check,
                           const SideListener& listener) {
  FileLines lines(content);
  stacks.FileTopicName.clear();
  Text line;
  if (const FileStatus status = lines.Read(line); status != FileStatus::Ok) return status;
  bool marked = ContainsIgnoringCase(line, ImportMark);
  stacks.StackDescription =
      marked ? Text(u"WinQuib Card Set") : Text(TrimRight(CutText(line, DescriptionWidth)));
  if (mode != ReadMode::Full) return FileStatus::Ok;

  NewStack stack(stacks, folder, content.size());
  while (!marked && !lines.AtEnd()) {
    if (const FileStatus status = lines.Read(line); status != FileStatus::Ok) return status;
    marked = ContainsIgnoringCase(line, ImportMark);
  }
  ImportCounters counters;
  const FileStatus status = ReadImportCards({*stack, folder, listener}, lines, counters);
  if (status != FileStatus::Ok) return status;
  if (counters.question != counters.answer) {
    prompts.Show({.text = u"Problem loading cards after" + SignedNumberText(stack->CardCount),
                  .icon = PromptIcon::Exclamation,
                  .title = Text(ProgramTitle) + u" Error"});
  }
  const Int16 topic = check(stacks.FileTopicName);
  stacks.Current().TopicIndex = topic;
  stack.Keep();
  return FileStatus::Ok;
}

}  // namespace

FileStatus ReadStackFile(StackStore& stacks, Files& files, Prompts& prompts, TextView folder,
                         TextView fileName, ReadMode mode, const TopicCheck& check) try {
  const Text path = WithSeparator(folder).append(fileName);
  std::string content;
  FileStatus status = files.Read(path, content);
  if (status != FileStatus::Ok) return status;
  status = ReadStackContent(stacks, prompts, content, folder, fileName, mode, check, {});
  if (status == FileStatus::Ok && mode == ReadMode::Full) {
    const Text found = files.Find(path);
    stacks.Current().Origin = StackOrigin(found.empty() ? path : found, files.Look(path), content);
  }
  return status;
} catch (const std::bad_alloc&) {
  return FileStatus::OutOfMemory;
}

FileStatus ReadStackContent(StackStore& stacks, Prompts& prompts, std::string_view content,
                            TextView folder, TextView fileName, ReadMode mode,
                            const TopicCheck& check, const SideListener& listener) try {
  const Text base = WithSeparator(folder);
  if (ContainsIgnoringCase(fileName, u".QBS")) {
    return ReadImportStack(stacks, prompts, content, base, mode, check, listener);
  }
  return ReadNativeStack(stacks, content, base, mode, check, listener);
} catch (const Fault& fault) {
  if (fault.Number() != FileStatus::Overflow) throw;
  return fault.Number();  // more stacks than a 16-bit number counts
} catch (const std::bad_alloc&) {
  return FileStatus::OutOfMemory;
}
