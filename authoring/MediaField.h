#pragma once

#include "base/Text.h"

#include <QLineEdit>

#include <functional>

class QAction;

/// A field for the name of a sound or picture file. A mark at its end shows whether the file is
/// there; a file that is dropped on it enters its name.
class MediaField : public QLineEdit {
  Q_OBJECT

 public:
  /// Tells whether a card's media name is found.
  using IsFound = std::function<bool(const Text& name)>;
  /// The folder whose files need no path.
  using Folder = std::function<Text()>;

  MediaField(IsFound isFound, Folder folder, QWidget* owner);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void ShowWhetherFound();

  IsFound m_isFound;
  Folder m_folder;
  QAction* m_mark;
};
