#pragma once

#include <QObject>
#include <QPointer>
#include <QWindow>

#include <deque>
#include <functional>
#include <memory>

/// Keeps keys, clicks and other input from all windows while something plays, and hands it on
/// afterwards in its order. Escape is not kept: it ends what plays. Closing a window, painting and
/// everything that is no input goes on as ever, and so does a modal window that comes up meanwhile.
class HeldInput : public QObject {
  Q_OBJECT

 public:
  /// Input beyond this is lost: a key that is held down for as long as a long sound lasts.
  static constexpr std::size_t Most = 10000;

  HeldInput() = default;
  ~HeldInput() override;

  /// @param escape  called for the Escape key, until Release
  void Hold(std::function<void()> escape);
  /// What was held arrives once control is back in the event loop.
  void Release();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Held {
    QPointer<QObject> receiver;
    std::unique_ptr<QEvent> event;
  };

  bool Keep(QObject* receiver, QEvent* event);
  void ReplayLater();
  void ReplayOne();
  void Deliver(QObject* receiver, QEvent& event);
  bool IsTakenAsShortcut(QObject* receiver, const QKeyEvent& key);

  std::deque<Held> m_held;
  std::function<void()> m_escape;
  bool m_holding = false;
  bool m_filters = false;               // our event filter is installed
  const QEvent* m_delivered = nullptr;  // held once, and on its way now
  bool m_tryingShortcuts = false;       // the toolkit asks about one on its way
};
