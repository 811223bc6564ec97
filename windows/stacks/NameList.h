#pragma once

#include "base/Text.h"

#include <QListWidget>

/// A list of names on disk, of which one is chosen and confirmed. It takes a click, the arrow keys
/// or typing to choose a name; gaining the focus chooses none. It takes a double click or Enter to
/// confirm one, also on desktops where a single click opens: the first click of a double click
/// would act, and the second one act again on what is there by then.
class NameList : public QListWidget {
  Q_OBJECT

 public:
  explicit NameList(QWidget* owner);

  /// Fills the list; no name is chosen then.
  void SetNames(const std::vector<Text>& names);

  /// From now on no name is chosen, and none has the focus.
  void Unchoose();

  /// Chooses a name that is in the list, without a signal.
  void Choose(TextView name);

 signals:
  void Chosen(const Text& name);
  void Confirmed(const Text& name);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
};
