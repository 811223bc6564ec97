#pragma once

#include <chrono>
#include <functional>

/// How long a picture may take; it is left out then.
struct PictureTime {
  using Clock = std::function<std::chrono::nanoseconds()>;

  /// What the thread that asks has computed so far: time in which the machine did something else,
  /// or a disk was waited for, does not count.
  static std::chrono::nanoseconds ComputedByThisThread();
  /// What has passed, from some moment on.
  static std::chrono::nanoseconds Passed();

  /// Of computing. The picture of a card that takes longer is no picture for a card.
  std::chrono::nanoseconds mostComputed = std::chrono::seconds(5);
  /// Of waiting: a file on a network that does not answer costs no computing.
  std::chrono::nanoseconds mostPassed = std::chrono::seconds(60);

  Clock computed = ComputedByThisThread;
  Clock passed = Passed;  ///< at least as fast as `computed`; asked by two threads
};
