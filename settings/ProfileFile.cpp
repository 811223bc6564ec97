#include "settings/ProfileFile.h"

#include "base/CodePage.h"

#include <cstdint>
#include <optional>

namespace {

constexpr std::size_t LongestNumber = 29;  // characters of a value that an integer reading looks at

std::optional<std::uint32_t> DigitOf(char16_t unit, std::uint32_t base) {
  std::uint32_t digit = base;
  if (unit >= u'0' && unit <= u'9') digit = unit - U'0';
  if (unit >= u'a' && unit <= u'f') digit = unit - U'a' + 10;
  if (unit >= u'A' && unit <= u'F') digit = unit - U'A' + 10;
  if (digit >= base) return std::nullopt;
  return digit;
}

std::uint32_t TakeBase(TextView& text) {
  if (text.size() < 2 || text[0] != u'0') return 10;
  std::uint32_t base = 10;
  if (text[1] == u'x' || text[1] == u'X') base = 16;
  if (text[1] == u'o' || text[1] == u'O') base = 8;
  if (text[1] == u'b' || text[1] == u'B') base = 2;
  if (base != 10) text.remove_prefix(2);
  return base;
}

int IntegerOf(TextView text) {
  while (!text.empty() && text.front() <= u' ') text.remove_prefix(1);
  const bool negative = text.starts_with(u'-');
  if (negative || text.starts_with(u'+')) text.remove_prefix(1);
  const std::uint32_t base = TakeBase(text);
  std::uint32_t number = 0;
  for (const char16_t unit : text) {
    const std::optional<std::uint32_t> digit = DigitOf(unit, base);
    if (!digit) break;
    number = number * base + *digit;
  }
  return static_cast<std::int32_t>(negative ? 0U - number : number);
}

bool IsMissing(FileStatus status) {
  return status == FileStatus::FileNotFound || status == FileStatus::PathNotFound;
}

/// Editors that do not replace a file as a whole take it away or empty it first.
bool IsGone(FileStatus status, const std::string& bytes) {
  return IsMissing(status) || (status == FileStatus::Ok && bytes.empty());
}

/// Two bytes that look like its mark make no UTF-16: its brackets and letters bring zero bytes.
bool IsUtf16(std::string_view bytes) {
  const bool hasMark = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
  return hasMark && (bytes.size() == 2 || bytes.find('\0') != std::string_view::npos);
}

}  // namespace

Text StringIn(const ProfileText& profile, TextView section, TextView key, TextView fallback,
              std::size_t longest) {
  const std::optional<Text> value = profile.Value(section, key);
  return Text(CutText(value ? *value : TrimRight(fallback), longest));
}

int IntegerIn(const ProfileText& profile, TextView section, TextView key, int fallback) {
  const Text value = StringIn(profile, section, key, u"", LongestNumber);
  return value.empty() ? fallback : IntegerOf(value);
}

Text ProfileFile::GetString(TextView section, TextView key, TextView fallback,
                            std::size_t longest) const {
  return StringIn(Read().value_or(ProfileText(u"")), section, key, fallback, longest);
}

int ProfileFile::GetInt(TextView section, TextView key, int fallback) const {
  return IntegerIn(Read().value_or(ProfileText(u"")), section, key, fallback);
}

bool ProfileFile::WriteString(TextView section, TextView key, TextView value) {
  return Change([&](ProfileText& profile) { profile.SetValue(section, key, value); });
}

bool ProfileFile::DeleteKey(TextView section, TextView key) {
  return Change([&](ProfileText& profile) { profile.RemoveKey(section, key); });
}

bool ProfileFile::DeleteSection(TextView section) {
  return Change([&](ProfileText& profile) { profile.RemoveSection(section); });
}

ProfileTrouble ProfileFile::Trouble() const {
  if (m_readTrouble != ProfileTrouble::None) return m_readTrouble;
  return m_notWritten ? ProfileTrouble::NotWritten : ProfileTrouble::None;
}

/// A file that seems to be gone is looked at again, under the lock: this one may be read in the
/// moment in which another program replaces it.
FileStatus ProfileFile::ReadBytes(std::string& bytes, LockState lockState) const {
  FileStatus status = m_files.Read(m_path, bytes);
  if (!IsGone(status, bytes) || (!m_hadContent && !m_files.Exists(m_path))) return status;
  const std::unique_ptr<FileLock> lock =
      lockState == LockState::Free ? m_files.Lock(m_path) : nullptr;
  status = m_files.Read(m_path, bytes);
  const bool isThere = m_hadContent || (status != FileStatus::Ok && m_files.Exists(m_path));
  return isThere && IsGone(status, bytes) ? FileStatus::DeviceError : status;
}

/// A file that is not there is an empty one.
FileStatus ProfileFile::ReadText(std::optional<ProfileText>& text, LockState lockState) const {
  std::string bytes;
  FileStatus status = ReadBytes(bytes, lockState);
  const bool isUtf16 = status == FileStatus::Ok && IsUtf16(bytes);
  if (isUtf16) status = FileStatus::DeviceError;
  if (status == FileStatus::Ok) {
    text.emplace(DecodeFileText(bytes));
    m_hadContent = m_hadContent || !bytes.empty();
  }
  if (IsMissing(status)) text.emplace(u"");
  m_readTrouble = text      ? ProfileTrouble::None
                  : isUtf16 ? ProfileTrouble::Utf16
                            : ProfileTrouble::Unreadable;
  return status;
}

std::optional<ProfileText> ProfileFile::Read() const {
  std::optional<ProfileText> text;
  (void)ReadText(text, LockState::Free);
  return text;
}

bool ProfileFile::Write(TextView content) {
  std::unique_ptr<FileReplacement> replacement;
  if (m_files.Replace(m_path, replacement) != FileStatus::Ok) return false;
  if (replacement->Commit(EncodeFileText(content)) != FileStatus::Ok) return false;
  m_hadContent = !content.empty();
  return true;
}

bool ProfileFile::Change(const std::function<void(ProfileText&)>& change) {
  const std::unique_ptr<FileLock> lock = m_files.Lock(m_path);
  std::optional<ProfileText> profile;
  const FileStatus read = ReadText(profile, LockState::Held);
  // A file that is there but cannot be read must not be replaced by one line.
  if (!profile || read == FileStatus::PathNotFound) {
    m_notWritten = true;
    return false;
  }
  const Text before = profile->Content();
  change(*profile);
  const Text after = profile->Content();
  if (after == before && read == FileStatus::Ok) return true;
  m_notWritten = !Write(after);
  return !m_notWritten;
}
