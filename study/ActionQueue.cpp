#include "study/ActionQueue.h"

#include <deque>
#include <utility>

struct ActionQueue::State {
  std::deque<Action> waiting;
  bool busy = false;
};

ActionQueue::ActionQueue() : m_state(std::make_shared<State>()) {}

void ActionQueue::Do(Action action) {
  m_state->waiting.push_back(std::move(action));
  if (m_state->busy) return;
  const std::weak_ptr<State> queue = m_state;
  struct Busy {
    explicit Busy(std::weak_ptr<State> state) : m_owner(std::move(state)) { Set(true); }
    ~Busy() { Set(false); }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    void Set(bool busy) const {
      if (const auto state = m_owner.lock()) state->busy = busy;
    }
    std::weak_ptr<State> m_owner;
  };
  const Busy busy(queue);
  for (;;) {
    Action next;
    {
      const auto state = queue.lock();
      if (state == nullptr || state->waiting.empty()) return;
      next = std::move(state->waiting.front());
      state->waiting.pop_front();
    }
    next();
  }
}
