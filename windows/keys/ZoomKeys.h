#pragma once

#include "program/RememberedState.h"

#include <QObject>

class QAction;
class QMenu;
class QMenuBar;
class QString;

/// The menu "View" of a window that shows card texts: Larger Text (Ctrl+Plus), Smaller Text
/// (Ctrl+Minus) and Exact Size (Ctrl+0, the key by its place), which is the size that the topic
/// gives. The choice is remembered. In a card text field the topic's own keystrokes come first.
class ZoomKeys : public QObject {
  Q_OBJECT

 public:
  /// @param bar    of the window; owns this object from now on. The menu comes behind what is
  /// there.
  /// @param name   by which the choice is remembered; shared by windows that follow one choice
  /// @param first  per cent, as long as nothing was chosen
  ZoomKeys(QMenuBar* bar, RememberedState& state, Text name, int first);

  int Percent() const { return m_percent; }
  /// What font sizes are to be multiplied with.
  float Factor() const;

 signals:
  void Changed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAction* AddItem(QMenu* menu, const QString& name, const QString& caption);
  void Choose(int percent);
  void ShowLimits();

  RememberedState& m_state;
  Text m_name;
  int m_percent;
  QAction* mnuLarger = nullptr;
  QAction* mnuSmaller = nullptr;
  QAction* mnuExactSize = nullptr;
};
