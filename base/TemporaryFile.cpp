#include "base/TemporaryFile.h"

#include "base/DiskNames.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

constexpr std::string_view Prefix = ".quibcards-save-";
constexpr std::size_t RandomPart = 6;  // letters and digits, of the system's choice
constexpr std::time_t Hour = 3600;
constexpr std::time_t Week = 7 * 24 * Hour;

/// Tells apart the systems, and the process numberings within one, that may see the same folder.
std::string NameOfSystem() {
  std::string boot;
  std::ifstream("/proc/sys/kernel/random/boot_id") >> boot;
  std::error_code unknown;
  const std::string numbering =
      std::filesystem::read_symlink("/proc/self/ns/pid", unknown).string();  // "pid:[4026531836]"
  std::string name = boot + "-";
  std::copy_if(numbering.begin(), numbering.end(), std::back_inserter(name),
               [](char c) { return c >= '0' && c <= '9'; });
  return name;
}

/// Takes the part behind the last "-" off a name.
std::string_view TakeLastPart(std::string_view& name) {
  const std::size_t dash = name.rfind('-');
  if (dash == std::string_view::npos) return {};
  const std::string_view part = name.substr(dash + 1);
  name = name.substr(0, dash);
  return part;
}

struct Maker {
  std::string_view system;
  pid_t process = 0;  ///< 0: the name is none of ours
};

Maker MakerOf(std::string_view name) {
  Maker maker;
  if (!name.starts_with(Prefix)) return maker;
  name.remove_prefix(Prefix.size());
  if (TakeLastPart(name).size() != RandomPart) return maker;
  const std::string_view number = TakeLastPart(name);
  maker.system = name;
  const auto [end, error] =
      std::from_chars(number.data(), number.data() + number.size(), maker.process);
  if (error != std::errc() || end != number.data() + number.size() || maker.process <= 0) {
    maker.process = 0;
  }
  return maker;
}

/// A number that was given to another process meanwhile counts as running: the file waits.
bool IsRunning(pid_t process) { return ::kill(process, 0) == 0 || errno != ESRCH; }

bool IsLeftover(const std::string& path, const Maker& maker, const std::string& thisSystem) {
  struct stat info {};
  if (::lstat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
  if (info.st_uid != ::geteuid()) return false;
  const std::time_t age = std::time(nullptr) - info.st_mtime;
  return maker.system == thisSystem ? age > Hour && !IsRunning(maker.process) : age > Week;
}

}  // namespace

Descriptor MakeTemporary(const std::string& folder, std::string& path) {
  const std::string start =
      folder + "/" + std::string(Prefix) + NameOfSystem() + "-" + std::to_string(::getpid()) + "-";
  return Descriptor(Uninterrupted([&] {
    path = start + std::string(RandomPart, 'X');
    return ::mkostemp(path.data(), O_CLOEXEC);
  }));
}

void RemoveLeftovers(const std::string& folder) {
  std::vector<std::string> names;
  (void)NamesIn(folder, names);  // what was not listed waits for the next save
  const std::string thisSystem = NameOfSystem();
  for (const std::string& name : names) {
    const Maker maker = MakerOf(name);
    if (maker.process == 0) continue;
    const std::string path = std::string(folder).append("/").append(name);
    if (IsLeftover(path, maker, thisSystem)) ::unlink(path.c_str());
  }
}

FileStatus FillTemporary(Descriptor& file, std::string_view content,
                         const std::optional<struct stat>& old) {
  FileStatus status = WriteAll(file.Number(), content);
  const mode_t mask = ::umask(0);
  ::umask(mask);
  // Only the owner of everything may give files away; otherwise the file is the writer's.
  if (old) {
    (void)Uninterrupted([&] { return ::fchown(file.Number(), old->st_uid, old->st_gid); });
  }
  const mode_t mode = old ? old->st_mode & 07777 : 0666 & ~mask;
  (void)Uninterrupted([&] { return ::fchmod(file.Number(), mode); });
  if (status == FileStatus::Ok) status = Flush(file.Number());
  if (const FileStatus closed = file.Close(); status == FileStatus::Ok) status = closed;
  return status;
}

void FlushFolder(const std::string& folder) {
  const Descriptor handle = OpenFile(folder, O_RDONLY | O_DIRECTORY);
  if (handle.IsOpen()) (void)Flush(handle.Number());
}

FileStatus LookAtTarget(const std::string& target, std::optional<struct stat>& old) {
  struct stat info {};
  old.reset();
  if (::stat(target.c_str(), &info) == 0) {
    if (S_ISDIR(info.st_mode)) return FileStatus::PathAccess;
    if (!S_ISREG(info.st_mode)) return FileStatus::DeviceUnavailable;
    // A rename would replace a write-protected file without a word.
    if (::access(target.c_str(), W_OK) != 0) return StatusForPath(target, errno);
    old = info;
  } else if (errno != ENOENT) {
    return StatusForPath(target, errno);
  }
  const bool tooLong = target.size() - (target.rfind('/') + 1) > NAME_MAX;
  return tooLong ? FileStatus::IllegalName : FileStatus::Ok;
}
