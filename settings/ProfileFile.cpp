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

/// A file that is not there is an empty one.
FileStatus ProfileFile::ReadText(std::optional<ProfileText>& text) const {
  std::string bytes;
  const FileStatus status = m_files.Read(m_path, bytes);
  if (status == FileStatus::Ok) text.emplace(DecodeFileText(bytes));
  if (status == FileStatus::FileNotFound || status == FileStatus::PathNotFound) text.emplace(u"");
  return status;
}

std::optional<ProfileText> ProfileFile::Read() const {
  std::optional<ProfileText> text;
  (void)ReadText(text);
  return text;
}

bool ProfileFile::Change(const std::function<void(ProfileText&)>& change) {
  const std::unique_ptr<FileLock> lock = m_files.Lock(m_path);
  std::optional<ProfileText> profile;
  const FileStatus read = ReadText(profile);
  // A file that is there but cannot be read must not be replaced by one line.
  if (!profile || read == FileStatus::PathNotFound) return false;

  const Text before = profile->Content();
  change(*profile);
  const Text after = profile->Content();
  if (after == before && read == FileStatus::Ok) return true;

  std::unique_ptr<FileReplacement> replacement;
  return m_files.Replace(m_path, replacement) == FileStatus::Ok &&
         replacement->Commit(EncodeFileText(after)) == FileStatus::Ok;
}
