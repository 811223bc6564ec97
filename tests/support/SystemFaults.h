#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

/// The system calls by which the program reaches files.
enum class SystemCall {
  Open,
  MakeTemporary,
  Read,
  Write,
  Flush,
  Close,
  Rename,
  Link,
  Remove,
  Stat,
  LinkStat,
  FileStat,
  Access,
  OpenFolder,
  ReadFolder,
  CloseFolder,
  ReadLink,
  RealPath,
  MakeFolder,
  Seek,
  Truncate,
  ChangeOwner,
  ChangeMode,
  Lock,
};

std::string_view NameOf(SystemCall call);

/// What happens instead of a call.
struct SystemFault {
  enum class Kind {
    Error,    ///< it fails with errorNumber; a close gives the handle back all the same
    Short,    ///< it reads or writes half of what was asked for, but at least a byte
    Nothing,  ///< it reads or writes nothing and reports no error
  };
  Kind kind = Kind::Error;
  int errorNumber = 0;
  bool lasting = false;  ///< happens to all later calls of the same kind as well
};

/// The faults that the system's manual has for a call and that make a difference.
std::vector<SystemFault> FaultsOf(SystemCall call);

/// True for what a program must get over by itself: an interruption, a part of a transfer.
bool IsHarmless(const SystemFault& fault);

/// The calls that `action` makes, in their order.
std::vector<SystemCall> CallsOf(const std::function<void()>& action);

/// Runs `action` with a fault at its call number `at`, counted from 0.
void RunWithFault(std::size_t at, const SystemFault& fault, const std::function<void()>& action);
