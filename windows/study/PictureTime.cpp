#include "windows/study/PictureTime.h"

#include <ctime>

using std::chrono::nanoseconds;
using std::chrono::seconds;

nanoseconds PictureTime::ComputedByThisThread() {
  timespec time{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
}

nanoseconds PictureTime::Passed() { return std::chrono::steady_clock::now().time_since_epoch(); }
