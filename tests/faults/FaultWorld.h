#pragma once

#include "authoring/CardEditor.h"
#include "base/DiskFiles.h"
#include "base/Prompts.h"
#include "cards/StackStore.h"
#include "settings/ProfileFile.h"
#include "settings/TopicList.h"
#include "settings/TopicSettings.h"
#include "tests/support/RealDisk.h"

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// Agrees to every question and remembers what was asked.
class AgreeingPrompts : public Prompts {
 public:
  Answer Show(const Prompt& prompt) override;
  std::vector<Text> shown;
};

/// The program's state and the folders "cards", "config" and "safe" on the real disk, of its own
/// and thrown away at the end.
class FaultWorld {
 public:
  FaultWorld();
  FaultWorld(const FaultWorld&) = delete;
  FaultWorld& operator=(const FaultWorld&) = delete;
  ~FaultWorld();

  /// Names are relative: "cards/words.QBC".
  std::filesystem::path On(const std::string& name) const { return m_root / name; }
  Text PathOf(const std::string& name) const;
  void Put(const std::string& name, const std::string& content) const;
  std::string OnDisk(const std::string& name) const;

  /// All files by name with their content (a link with where it leads), but for temporary ones.
  std::map<std::string, std::string> Disk() const;
  /// The contents of the temporary files that lie about.
  std::vector<std::string> Temporaries() const;

  /// The stacks and topics in memory and what is selected, as a text.
  std::string Memory() const;

  FileStatus Load(const std::string& name);
  FileStatus SaveNew(const std::string& name);
  /// Saves as the card editor's window does, a failure included.
  FileStatus SaveEdited(const std::string& name);

  /// A selected stack of two cards with a line break and media.
  void MakeStack();
  /// Begins to edit the selected stack; card 2 is marked for deletion.
  void Edit();

  /// From now on the folder takes no new files, and the rights of root do not count.
  void ProtectFolder(const std::string& name);

 private:
  std::filesystem::path m_root;
  std::optional<WithoutRights> m_nobody;
  std::vector<std::filesystem::path> m_protected;

 public:
  DiskFiles files{PathOf("safe")};
  ProfileFile profile{files, PathOf("config/QUIBCRDS.INI")};
  StackStore stacks;
  TopicList topics;
  TopicSettings settings;
  std::optional<CardEditor> editor;
  AgreeingPrompts prompts;
};

/// The number of files that this process has open.
std::size_t OpenHandles();
