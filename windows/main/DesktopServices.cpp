#include "windows/main/DesktopServices.h"

#include "base/Paths.h"
#include "windows/frame/QtText.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace {

constexpr TextView SettingsFileName = u"QUIBCRDS.INI";

Text UserFolder(QStandardPaths::StandardLocation location) {
  return WithSeparator(ToText(QStandardPaths::writableLocation(location))) + u"quibcards";
}

/// The settings file's path; its folder is made when it is missing.
Text SettingsPath(Files& files) {
  const Text folder = UserFolder(QStandardPaths::GenericConfigLocation);
  (void)files.MakeFolder(folder);  // without it every setting reads as its default
  return WithSeparator(folder).append(SettingsFileName);
}

/// The user's folder for what programs remember; this toolkit does not know it yet.
Text StatePath() {
  QString folder = qEnvironmentVariable("XDG_STATE_HOME");
  if (!QDir::isAbsolutePath(folder)) folder = QDir::homePath() + QStringLiteral("/.local/state");
  return WithSeparator(ToText(folder)) + u"quibcards/state";
}

Text ProgramFolder() { return ToText(QCoreApplication::applicationDirPath()); }

}  // namespace

DesktopServices::DesktopServices()
    : m_files(UserFolder(QStandardPaths::GenericDataLocation) + u"/rescue"),
      m_profile(m_files, SettingsPath(m_files)),
      m_state(m_files, StatePath()),
      m_help(m_prompts, m_state, HelpFilePlaces(ProgramFolder())),
      platform{m_prompts, m_files, m_profile,
               m_help,    m_sound, [] { return std::make_unique<ClockRandom>(); },
               m_state} {}
