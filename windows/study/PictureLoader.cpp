#include "windows/study/PictureLoader.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// What the window's thread and the decoding thread tell each other.
struct PictureLoader::Job {
  explicit Job(PictureTime times) : time(std::move(times)), start(time.passed()) {}

  std::chrono::nanoseconds Age() const { return time.passed() - start; }
  bool HasExpired() const { return Age() >= time.mostPassed; }

  /// Asked by the decoding thread, for every byte of some files. Reading its own clock is slow, and
  /// needless as long as not even that much time has passed.
  bool MayGoOn() {
    const std::chrono::nanoseconds age = Age();
    if (cancelled || age >= time.mostPassed) return false;
    if (age < nextLook) return true;
    const std::chrono::nanoseconds left = time.mostComputed - time.computed();
    nextLook = age + left;
    return left > 0ns;
  }

  void End(DecodedPicture picture) {
    const std::lock_guard lock(mutex);
    result = std::move(picture);
    ended = true;
    change.notify_all();
  }
  bool HasEndedBy(Clock::time_point end) {
    std::unique_lock lock(mutex);
    return change.wait_until(lock, end, [this] { return ended; });
  }

  const PictureTime time;
  const std::chrono::nanoseconds start;
  std::chrono::nanoseconds nextLook = time.mostComputed;  // the decoding thread's
  std::atomic<bool> cancelled = false;
  std::mutex mutex;
  std::condition_variable change;
  bool ended = false;
  DecodedPicture result;
};

PictureLoader::~PictureLoader() {
  Cancel();
  // A decoder that gets no more of its file ends soon. A network folder that hangs does not; what
  // waits for it touches nothing of ours.
  if (m_last != nullptr) (void)m_last->HasEndedBy(Clock::now() + 2s);
}

void PictureLoader::Start(const std::string& path, QSize bounds) {
  Cancel();
  m_job = std::make_shared<Job>(m_time);
  std::thread([job = m_job, before = std::exchange(m_last, m_job), path, bounds] {
    // Two at a time could need twice the memory.
    const bool free = before == nullptr || before->HasEndedBy(Clock::now() + job->time.mostPassed);
    job->End(free ? DecodePictureFile(path, bounds, [&] { return job->MayGoOn(); })
                  : DecodedPicture{.fault = PictureFault::TooSlow});
  }).detach();
}

void PictureLoader::Cancel() {
  if (m_job != nullptr) m_job->cancelled = true;
  m_job = nullptr;
}

std::chrono::nanoseconds PictureLoader::Age() const {
  return m_job == nullptr ? 0ns : m_job->Age();
}

bool PictureLoader::Take(std::chrono::milliseconds wait, DecodedPicture& picture) {
  if (m_job == nullptr) return false;
  if (m_job->HasEndedBy(Clock::now() + wait)) {
    picture = std::move(m_job->result);
    m_job = nullptr;
    return true;
  }
  if (!m_job->HasExpired()) return false;
  picture = {.fault = PictureFault::TooSlow};
  Cancel();
  return true;
}
