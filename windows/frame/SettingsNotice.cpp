#include "windows/frame/SettingsNotice.h"

#include "windows/frame/QtText.h"
#include "windows/frame/ToolTips.h"

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>

namespace {

constexpr int Margin = 12;

QString TextOf(ProfileTrouble trouble) {
  switch (trouble) {
    case ProfileTrouble::Unreadable:
      return QStringLiteral("The settings file cannot be read; nothing is saved in it.");
    case ProfileTrouble::Utf16:
      return QStringLiteral("The settings file is UTF-16 text, which is neither read nor changed.");
    case ProfileTrouble::NotWritten:
      return QStringLiteral("The settings cannot be saved.");
    case ProfileTrouble::None:
      break;
  }
  return {};
}

QLabel* AddNotice(QDialog& window) {
  auto* const column = qobject_cast<QBoxLayout*>(window.layout());
  auto* const notice = new QLabel(&window);
  notice->setObjectName(QStringLiteral("lblSettings"));
  notice->setTextFormat(Qt::PlainText);
  // A column that leaves a margin gives it to this line too.
  if (column->contentsMargins().left() == 0) notice->setContentsMargins(Margin, 0, Margin, Margin);
  column->addWidget(notice);
  return notice;
}

}  // namespace

void ShowSettingsTrouble(QDialog& window, const ProfileFile& profile) {
  const QString text = TextOf(profile.Trouble());
  auto* notice = window.findChild<QLabel*>(QStringLiteral("lblSettings"));
  if (notice == nullptr) {
    if (text.isEmpty()) return;
    notice = AddNotice(window);
  }
  notice->setText(text);
  SetSilentToolTip(*notice, profile.Path());
  notice->setAccessibleDescription(ToQString(profile.Path()));
  notice->setHidden(text.isEmpty());
}
