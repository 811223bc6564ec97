#pragma once

#include <functional>
#include <sys/types.h>

/// Starts a copy of this process that runs `action` and ends; a failure in it, or an exception,
/// makes it end badly.
pid_t StartChild(const std::function<void()>& action);

/// Waits for the end of a child; true when it ended well.
bool EndedWell(pid_t child);

/// Waits for the end of a child; the signal that killed it, 0 for none.
int KilledBy(pid_t child);
