#include "windows/authoring/MediaField.h"

#include "windows/frame/Icons.h"
#include "windows/frame/OneLine.h"
#include "windows/frame/QtText.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QFocusEvent>
#include <QMimeData>

MediaField::MediaField(MediaKind kind, IsFound isFound, Folder folder, QWidget* owner)
    : QLineEdit(owner),
      m_kind(kind),
      m_isFound(std::move(isFound)),
      m_folder(std::move(folder)),
      m_mark(addAction(QIcon(), QLineEdit::TrailingPosition)) {
  setAcceptDrops(true);
  KeepToOneLine(this);
  connect(this, &QLineEdit::textChanged, this, &MediaField::ShowMark);
  ShowMark();
}

void MediaField::ShowMark() {
  const Text name = ToText(text());
  m_mark->setVisible(!name.empty());
  if (name.empty()) {
    setToolTip(QString());
    setAccessibleDescription(QString());
    return;
  }
  const MediaFuture future = FutureOfMedia(m_kind, name, m_folder());
  const bool stays = future.fate == MediaFuture::Fate::Stays;
  const bool found = m_isFound(name);
  // No cross: at the end of a field that would be the button which clears it.
  m_mark->setIcon(TintedIcon(stays && found ? "right" : "warning"));
  m_mark->setObjectName(!stays  ? QStringLiteral("lost")
                        : found ? QStringLiteral("found")
                                : QStringLiteral("missing"));
  const Text words = MediaWords(m_kind, future, found);
  // A button, whose text is its tip, too: without the name, which could pass for markup.
  m_mark->setText(!stays  ? QStringLiteral("Saving would not keep this name")
                  : found ? QStringLiteral("The file is there")
                          : QStringLiteral("The file was not found"));
  setToolTip(PlainToolTip(words));
  setAccessibleDescription(ToQString(words));
}

void MediaField::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) {
    event->acceptProposedAction();
  } else {
    QLineEdit::dragEnterEvent(event);
  }
}

void MediaField::dropEvent(QDropEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (urls.isEmpty() || !urls.first().isLocalFile()) {
    QLineEdit::dropEvent(event);
    return;
  }
  const QFileInfo file(urls.first().toLocalFile());
  const bool beside = file.absolutePath() == QFileInfo(ToQString(m_folder())).absoluteFilePath();
  setText(beside ? file.fileName() : file.absoluteFilePath());
  setFocus();
  event->acceptProposedAction();
}

void MediaField::focusOutEvent(QFocusEvent* event) {
  // The menu bar only borrows the focus; a line edit would drop the selection that the menu "Edit"
  // is opened for.
  const bool borrowed = event->reason() == Qt::MenuBarFocusReason;
  QFocusEvent passed(event->type(), borrowed ? Qt::PopupFocusReason : event->reason());
  QLineEdit::focusOutEvent(&passed);
}
