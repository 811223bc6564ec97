#pragma once

#include <QObject>
#include <QPointer>

#include <functional>
#include <vector>

/// Holds back what a window's controls and menu items would do while a modal window stands before
/// it. The toolkit keeps keys and clicks from such a window, but not what a screen reader asks for.
/// Items, buttons, lists, sliders and boxes tell nothing meanwhile, and what was chosen with them
/// is put back at the end. What the program itself changes in them shows as ever, but for what is
/// chosen: checked, current, selected; menu items keep that too. The text of fields is not held.
class HeldControls : public QObject {
  Q_OBJECT

 public:
  /// @param window  owns this
  explicit HeldControls(QWidget* window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Held {
    QPointer<QObject> object;
    std::function<void()> putBack;  // what was chosen
  };

  void Hold();
  void HoldNewLater();
  void HoldNew();
  void LetGo();
  void HoldOne(QObject& object, std::function<void()> putBack);
  bool IsHeld(const QObject& object) const;

  QWidget* m_window;
  bool m_holding = false;
  bool m_expectsNew = false;
  std::vector<Held> m_held;
};
