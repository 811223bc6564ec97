#include "tests/support/SystemFaults.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Script {
  std::vector<SystemCall> calls;
  std::optional<std::size_t> at;
  SystemFault fault;
};

Script* running = nullptr;  // set while calls are counted; the wrappers have no other way to it

/// Counts a call and says what is to happen to it.
const SystemFault* FaultFor(SystemCall call) {
  if (running == nullptr) return nullptr;
  const std::size_t number = running->calls.size();
  running->calls.push_back(call);
  if (!running->at || number < *running->at) return nullptr;
  const bool later = running->fault.lasting && call == running->calls[*running->at];
  return number == *running->at || later ? &running->fault : nullptr;
}

/// Makes a call, or fails in its place.
template <class Result, class Real>
Result Call(SystemCall call, Result failure, Real real) {
  const SystemFault* const fault = FaultFor(call);
  if (fault == nullptr) return real();
  errno = fault->errorNumber;
  return failure;
}

/// As above for calls that move bytes.
template <class Real>
ssize_t Transfer(SystemCall call, std::size_t size, Real real) {
  const SystemFault* const fault = FaultFor(call);
  if (fault == nullptr) return real(size);
  switch (fault->kind) {
    case SystemFault::Kind::Short:
      return real(std::max<std::size_t>(size / 2, std::min<std::size_t>(size, 1)));
    case SystemFault::Kind::Nothing:
      return 0;
    case SystemFault::Kind::Error:
      break;
  }
  errno = fault->errorNumber;
  return -1;
}

void Run(Script& script, const std::function<void()>& action) {
  running = &script;
  try {
    action();
  } catch (...) {
    running = nullptr;
    throw;
  }
  running = nullptr;
}

}  // namespace

// The linker sends the program's calls of f here as __wrap_f; __real_f is the system's own.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" {
int __real_open(const char* path, int flags, mode_t mode);
int __real_mkostemp(char* path, int flags);
ssize_t __real_read(int file, void* bytes, size_t size);
ssize_t __real_write(int file, const void* bytes, size_t size);
int __real_fsync(int file);
int __real_close(int file);
int __real_rename(const char* from, const char* to);
int __real_link(const char* from, const char* to);
int __real_unlink(const char* path);
int __real_stat(const char* path, struct stat* info);
int __real_lstat(const char* path, struct stat* info);
int __real_fstat(int file, struct stat* info);
int __real_access(const char* path, int mode);
DIR* __real_opendir(const char* path);
struct dirent* __real_readdir(DIR* folder);
int __real_closedir(DIR* folder);
ssize_t __real_readlink(const char* path, char* link, size_t size);
char* __real_realpath(const char* path, char* resolved);
int __real_mkdir(const char* path, mode_t mode);
off_t __real_lseek(int file, off_t offset, int from);
int __real_ftruncate(int file, off_t size);
int __real_fchown(int file, uid_t user, gid_t group);
int __real_fchmod(int file, mode_t mode);
int __real_flock(int file, int operation);

int __wrap_open(const char* path, int flags, mode_t mode) {
  return Call(SystemCall::Open, -1, [&] { return __real_open(path, flags, mode); });
}
int __wrap_mkostemp(char* path, int flags) {
  return Call(SystemCall::MakeTemporary, -1, [&] { return __real_mkostemp(path, flags); });
}
ssize_t __wrap_read(int file, void* bytes, size_t size) {
  return Transfer(SystemCall::Read, size,
                  [&](std::size_t part) { return __real_read(file, bytes, part); });
}
ssize_t __wrap_write(int file, const void* bytes, size_t size) {
  return Transfer(SystemCall::Write, size,
                  [&](std::size_t part) { return __real_write(file, bytes, part); });
}
int __wrap_fsync(int file) {
  return Call(SystemCall::Flush, -1, [&] { return __real_fsync(file); });
}
int __wrap_close(int file) {
  const SystemFault* const fault = FaultFor(SystemCall::Close);
  const int result = __real_close(file);
  if (fault == nullptr) return result;
  errno = fault->errorNumber;
  return -1;
}
int __wrap_rename(const char* from, const char* to) {
  return Call(SystemCall::Rename, -1, [&] { return __real_rename(from, to); });
}
int __wrap_link(const char* from, const char* to) {
  return Call(SystemCall::Link, -1, [&] { return __real_link(from, to); });
}
int __wrap_unlink(const char* path) {
  return Call(SystemCall::Remove, -1, [&] { return __real_unlink(path); });
}
int __wrap_stat(const char* path, struct stat* info) {
  return Call(SystemCall::Stat, -1, [&] { return __real_stat(path, info); });
}
int __wrap_lstat(const char* path, struct stat* info) {
  return Call(SystemCall::LinkStat, -1, [&] { return __real_lstat(path, info); });
}
int __wrap_fstat(int file, struct stat* info) {
  return Call(SystemCall::FileStat, -1, [&] { return __real_fstat(file, info); });
}
int __wrap_access(const char* path, int mode) {
  return Call(SystemCall::Access, -1, [&] { return __real_access(path, mode); });
}
DIR* __wrap_opendir(const char* path) {
  return Call(SystemCall::OpenFolder, static_cast<DIR*>(nullptr),
              [&] { return __real_opendir(path); });
}
struct dirent* __wrap_readdir(DIR* folder) {
  return Call(SystemCall::ReadFolder, static_cast<struct dirent*>(nullptr),
              [&] { return __real_readdir(folder); });
}
int __wrap_closedir(DIR* folder) {
  const SystemFault* const fault = FaultFor(SystemCall::CloseFolder);
  const int result = __real_closedir(folder);
  if (fault == nullptr) return result;
  errno = fault->errorNumber;
  return -1;
}
ssize_t __wrap_readlink(const char* path, char* link, size_t size) {
  return Call(SystemCall::ReadLink, ssize_t{-1}, [&] { return __real_readlink(path, link, size); });
}
char* __wrap_realpath(const char* path, char* resolved) {
  return Call(SystemCall::RealPath, static_cast<char*>(nullptr),
              [&] { return __real_realpath(path, resolved); });
}
int __wrap_mkdir(const char* path, mode_t mode) {
  return Call(SystemCall::MakeFolder, -1, [&] { return __real_mkdir(path, mode); });
}
off_t __wrap_lseek(int file, off_t offset, int from) {
  return Call(SystemCall::Seek, off_t{-1}, [&] { return __real_lseek(file, offset, from); });
}
int __wrap_ftruncate(int file, off_t size) {
  return Call(SystemCall::Truncate, -1, [&] { return __real_ftruncate(file, size); });
}
int __wrap_fchown(int file, uid_t user, gid_t group) {
  return Call(SystemCall::ChangeOwner, -1, [&] { return __real_fchown(file, user, group); });
}
int __wrap_fchmod(int file, mode_t mode) {
  return Call(SystemCall::ChangeMode, -1, [&] { return __real_fchmod(file, mode); });
}
int __wrap_flock(int file, int operation) {
  return Call(SystemCall::Lock, -1, [&] { return __real_flock(file, operation); });
}
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

std::string_view NameOf(SystemCall call) {
  constexpr std::string_view Names[] = {
      "open",     "mkostemp", "read",  "write", "fsync",     "close",   "rename",  "link",
      "unlink",   "stat",     "lstat", "fstat", "access",    "opendir", "readdir", "closedir",
      "readlink", "realpath", "mkdir", "lseek", "ftruncate", "fchown",  "fchmod",  "flock"};
  return Names[static_cast<std::size_t>(call)];
}

std::vector<SystemFault> FaultsOf(SystemCall call) {
  using Kind = SystemFault::Kind;
  std::vector<SystemFault> faults;
  const auto add = [&](std::initializer_list<int> once, std::initializer_list<int> onceOrLasting) {
    for (const int number : once) faults.push_back({Kind::Error, number, false});
    for (const int number : onceOrLasting) {
      faults.push_back({Kind::Error, number, false});
      faults.push_back({Kind::Error, number, true});
    }
  };
  switch (call) {
    case SystemCall::Open:
      add({EINTR}, {EIO, EACCES, EMFILE});
      break;
    case SystemCall::MakeTemporary:
      add({EINTR}, {EIO, ENOSPC, EACCES, EROFS, EMFILE});
      break;
    case SystemCall::Read:
      add({EINTR}, {EIO});
      faults.push_back({Kind::Short, 0, false});
      faults.push_back({Kind::Short, 0, true});
      faults.push_back({Kind::Nothing, 0, false});
      break;
    case SystemCall::Write:
      add({EINTR}, {EIO, ENOSPC, EDQUOT});
      faults.push_back({Kind::Short, 0, false});
      faults.push_back({Kind::Short, 0, true});
      faults.push_back({Kind::Nothing, 0, false});
      faults.push_back({Kind::Nothing, 0, true});
      break;
    case SystemCall::Flush:
      add({EINTR}, {EIO, ENOSPC, EINVAL});
      break;
    case SystemCall::Close:
      add({EINTR}, {EIO, ENOSPC});
      break;
    case SystemCall::Rename:
      add({}, {EIO, ENOSPC, EACCES, EBUSY});
      break;
    case SystemCall::Link:
      add({}, {EIO, ENOSPC, EPERM, EMLINK});
      break;
    case SystemCall::Remove:
      add({}, {EIO, EACCES, EBUSY});
      break;
    case SystemCall::Stat:
    case SystemCall::LinkStat:
      add({}, {EIO, EACCES, ENOMEM});
      break;
    case SystemCall::FileStat:
      add({}, {EIO, ENOMEM});
      break;
    case SystemCall::Access:
    case SystemCall::ReadLink:
      add({}, {EIO, EACCES});
      break;
    case SystemCall::OpenFolder:
      add({}, {EIO, EMFILE});
      break;
    case SystemCall::ReadFolder:
    case SystemCall::CloseFolder:
    case SystemCall::Seek:
      add({}, {EIO});
      break;
    case SystemCall::RealPath:
      add({}, {EIO, EACCES, ENOMEM});
      break;
    case SystemCall::MakeFolder:
      add({}, {EIO, ENOSPC, EACCES});
      break;
    case SystemCall::Truncate:
      add({EINTR}, {EIO, ENOSPC});
      break;
    case SystemCall::ChangeOwner:
    case SystemCall::ChangeMode:
      add({EINTR}, {EPERM, EIO});
      break;
    case SystemCall::Lock:
      add({EINTR, EWOULDBLOCK}, {ENOLCK});
      break;
  }
  return faults;
}

bool IsHarmless(const SystemFault& fault) {
  return fault.kind == SystemFault::Kind::Short || fault.errorNumber == EINTR;
}

std::vector<SystemCall> CallsOf(const std::function<void()>& action) {
  Script script;
  Run(script, action);
  return script.calls;
}

void RunWithFault(std::size_t at, const SystemFault& fault, const std::function<void()>& action) {
  Script script{.calls = {}, .at = at, .fault = fault};
  Run(script, action);
}
