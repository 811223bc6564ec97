#pragma once

#include <functional>
#include <memory>

/// Carries out what the user asks for, one after the other. What arrives while something is under
/// way (a screen reader and a timer are not held up by a sound as keys and clicks are) waits until
/// that has ended.
class ActionQueue {
 public:
  using Action = std::function<void()>;

  ActionQueue();

  /// Carries `action` out now; or, while another one is under way, right after that and those that
  /// wait already. An action may end with a thrown fault: the next ones follow at the next call.
  /// The queue may be destroyed meanwhile; what waits is dropped then.
  void Do(Action action);

 private:
  struct State;
  std::shared_ptr<State> m_state;
};
