#pragma once

#include "authoring/MediaFuture.h"

#include <QLineEdit>

#include <functional>

class QAction;

/// A field for the name of a sound or picture file. A mark at its end shows whether the file is
/// there, and warns of a name that a save would not keep; a file that is dropped on it enters its
/// name.
class MediaField : public QLineEdit {
  Q_OBJECT

 public:
  /// Tells whether a card's media name is found.
  using IsFound = std::function<bool(const Text& name)>;
  /// The folder of the stack, whose files need no path.
  using Folder = std::function<Text()>;

  MediaField(MediaKind kind, IsFound isFound, Folder folder, QWidget* owner);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void ShowMark();

  MediaKind m_kind;
  IsFound m_isFound;
  Folder m_folder;
  QAction* m_mark;
};
