#include "tests/faults/FaultWorld.h"

#include "base/CodePage.h"
#include "base/Paths.h"
#include "cards/StackFileOperations.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr TextView Topic = u"Spanish";

/// A file of a save that is under way, or a copy that it keeps in the safe place.
bool IsTemporary(const fs::path& path) {
  const std::string name = path.filename().string();
  const bool copy =
      name.find(" (old") != std::string::npos || name.find(" (new") != std::string::npos;
  const bool ofASave = name.starts_with(".quibcards-save-") || name.starts_with(".quib-old-");
  return ofASave || (copy && path.parent_path().filename() == "safe");
}

std::string ContentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// A folder of its own; where there is a disk in memory, on that: thousands of saves that wait for
/// a real one take minutes, and what fails here does so in front of the disk.
fs::path MakeRoot() {
  constexpr auto MemoryDisk = "/dev/shm/";
  const bool inMemory = ::access(MemoryDisk, W_OK | X_OK) == 0;
  std::string root =
      (inMemory ? std::string(MemoryDisk) : testing::TempDir()) + "quib-faults-XXXXXX";
  return ::mkdtemp(root.data());
}

std::string LinesOf(const CardStack& stack) {
  std::string lines = ToUtf8(stack.StackName) + "|" + std::to_string(stack.TopicIndex) + "|" +
                      std::to_string(stack.CardCount) + "\n";
  for (int card = 1; card <= stack.CardCount; ++card) {
    for (const int side : {Front, Back}) {
      lines += ToUtf8(stack.SideText(card, side)) + "|" +
               ToUtf8(BaseName(stack.SideSound(card, side))) + "|" +
               ToUtf8(BaseName(stack.SidePicture(card, side))) + "\n";
    }
  }
  return lines;
}

}  // namespace

Answer AgreeingPrompts::Show(const Prompt& prompt) {
  shown.push_back(prompt.text);
  return prompt.buttons == PromptButtons::YesNo ? Answer::Yes : Answer::Ok;
}

FaultWorld::FaultWorld() : m_root(MakeRoot()) {
  for (const char* const name : {"", "cards", "config", "safe"}) {
    fs::create_directories(On(name));
    if (::geteuid() == 0 && ::chown(On(name).c_str(), Nobody, Nobody) != 0) {
      ADD_FAILURE() << "cannot give " << On(name) << " away";
    }
  }
}

FaultWorld::~FaultWorld() {
  std::error_code ignored;
  for (const fs::path& folder : m_protected) {
    fs::permissions(folder, fs::perms::owner_all, ignored);
  }
  editor.reset();
  m_nobody.reset();
  fs::remove_all(m_root, ignored);
}

Text FaultWorld::PathOf(const std::string& name) const { return DecodePath(On(name).string()); }

void FaultWorld::Put(const std::string& name, const std::string& content) const {
  std::ofstream(On(name), std::ios::binary) << content;
}

std::string FaultWorld::OnDisk(const std::string& name) const { return ContentOf(On(name)); }

std::map<std::string, std::string> FaultWorld::Disk() const {
  std::map<std::string, std::string> found;
  for (const auto& entry : fs::recursive_directory_iterator(m_root)) {
    if (IsTemporary(entry.path()) || entry.is_directory()) continue;
    const std::string link =
        entry.is_symlink() ? " -> " + fs::read_symlink(entry.path()).string() : "";
    found[entry.path().lexically_relative(m_root).string() + link] = ContentOf(entry.path());
  }
  return found;
}

std::vector<std::string> FaultWorld::Temporaries() const {
  std::vector<std::string> contents;
  for (const auto& entry : fs::recursive_directory_iterator(m_root)) {
    if (IsTemporary(entry.path())) contents.push_back(ContentOf(entry.path()));
  }
  return contents;
}

std::string FaultWorld::Memory() const {
  std::string memory = std::to_string(stacks.StackCount) + "|" +
                       std::to_string(stacks.CurrentStack) + "|" +
                       (stacks.StackFileNumber != nullptr ? "open" : "closed") + "\n";
  for (const CardStack& stack : stacks.StackList) memory += LinesOf(stack);
  memory += "topic " + std::to_string(topics.CurrentTopic) + " of ";
  for (const Text& name : topics.Names) memory += ToUtf8(name) + "|";
  for (int card = 1; editor && card <= MaxCards; ++card)
    memory += editor->IsMarked(card) ? '1' : '0';
  return memory;
}

FileStatus FaultWorld::Load(const std::string& name) {
  return LoadStack(stacks, files, prompts, PathOf("cards"), DecodePath(name),
                   [](const Text&) { return 1; });
}

FileStatus FaultWorld::SaveNew(const std::string& name) {
  return SaveStack(stacks, files, prompts, PathOf("cards"), DecodePath(name),
                   FileDialogMode::SaveNew, Topic);
}

FileStatus FaultWorld::SaveEdited(const std::string& name) {
  const Text oldName = stacks.Current().StackName;
  FileStatus status = SaveStack(stacks, files, prompts, PathOf("cards"), DecodePath(name),
                                FileDialogMode::SaveEdited, Topic);
  if (status != FileStatus::Ok) return status;
  status = editor->Save();
  if (status != FileStatus::Ok) stacks.Current().StackName = oldName;
  return status;
}

void FaultWorld::MakeStack() {
  CardStack& stack = stacks.Append();
  stack.CardCount = 2;
  stack.SetSideText(1, Front, u"dog");
  stack.SetSideSound(1, Front, u"perro.wav");
  stack.SetSideText(1, Back, u"el\r\nperro");
  stack.SetSideText(2, Front, u"cat");
  stack.SetSideText(2, Back, u"gato");
  stacks.StackDescription = u"Animals";
}

void FaultWorld::Edit() {
  editor.emplace(stacks);
  editor->SelectRow(0, Front);
  editor->CommitText(Back, u"changed");
  editor->SelectRow(1, Front);
  editor->ToggleDeleted();
}

void FaultWorld::ProtectFolder(const std::string& name) {
  m_nobody.emplace();
  EXPECT_EQ(::chmod(On(name).c_str(), 0555), 0);
  m_protected.push_back(On(name));
}

std::size_t OpenHandles() {
  const fs::directory_iterator handles("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(handles), end(handles)));
}
