#pragma once

#include "base/Files.h"
#include "base/Text.h"
#include "settings/ProfileText.h"

#include <functional>
#include <optional>

/// As ProfileFile::GetString and GetInt read them, from a text that was read before.
Text StringIn(const ProfileText& profile, TextView section, TextView key, TextView fallback,
              std::size_t longest);
int IntegerIn(const ProfileText& profile, TextView section, TextView key, int fallback);

/// What stands in the way of the settings.
enum class ProfileTrouble {
  None,
  Unreadable,  ///< the file is there, or was a moment ago, and cannot be read
  Utf16,       ///< it is text of another kind, which is not read
  NotWritten   ///< the last change could not be saved
};

/// The settings file, read and written one value at a time. Every call sees the file as it is on
/// disk now and every change is on disk when the call returns; the file is replaced as a whole,
/// under a lock, so that two running programs neither tear it nor lose each other's lines. Nothing
/// fails visibly: a file that cannot be read reads as empty, and one that cannot be read is never
/// written. A file that had content in this run and is missing or empty now counts as one that
/// cannot be read: another program may be about to replace it.
class ProfileFile {
 public:
  ProfileFile(Files& files, Text path) : m_files(files), m_path(std::move(path)) {}

  const Text& Path() const { return m_path; }

  /// As the latest reading and the latest change have found it.
  ProfileTrouble Trouble() const;

  /// At most `longest` characters of the value, or of `fallback` (blanks at its right end cut) when
  /// section or key is missing.
  Text GetString(TextView section, TextView key, TextView fallback, std::size_t longest) const;

  /// The number at the start of the value, 0 when it does not start with one, `fallback` when it is
  /// missing or empty. Wraps at 32 bits; "0x", "0o" and "0b" mark other bases.
  int GetInt(TextView section, TextView key, int fallback) const;

  /// The whole file as it is now, for several values of one moment; nothing when it is there but
  /// cannot be read.
  std::optional<ProfileText> Read() const;

  /// Several changes at once: all are on disk when the call returns, or none. `change` is given the
  /// file as it is now, other programs' changes included.
  /// @return false when the file could not be written, and then it is as before.
  bool Change(const std::function<void(ProfileText&)>& change);

  /// One change each; the result is that of Change.
  bool WriteString(TextView section, TextView key, TextView value);
  bool DeleteKey(TextView section, TextView key);
  bool DeleteSection(TextView section);

 private:
  enum class LockState { Free, Held };

  FileStatus ReadText(std::optional<ProfileText>& text, LockState lockState) const;
  FileStatus ReadBytes(std::string& bytes, LockState lockState) const;
  bool Write(TextView content);

  Files& m_files;
  Text m_path;
  mutable bool m_hadContent = false;  // in this run
  mutable ProfileTrouble m_readTrouble = ProfileTrouble::None;
  bool m_notWritten = false;
};
