#pragma once

#include "program/SharedState.h"

#include <QDir>
#include <QString>

#include <map>

/// What must hold after every step, whatever was clicked and typed. Each check answers with what is
/// broken, or with nothing.
class Checks {
 public:
  /// @param folder    where the monkey may write: everything below it is looked at
  /// @param settings  path of the settings file
  Checks(const SharedState& shared, const QDir& folder, QString settings);

  /// The state in memory and the focus: cheap.
  QString State();

  /// Every stack file and the settings file are whole.
  QString Files();

  /// With no dialog open nothing may be left half-done.
  QString AtHome() const;

 private:
  QString Stacks() const;
  QString Topics() const;
  QString Focus();
  QString StackFileAt(const QString& path, const QByteArray& content) const;
  QString SettingsFile() const;

  const SharedState& m_shared;
  QDir m_folder;
  QString m_settings;
  std::map<QString, QByteArray> m_known;  // content by path, as it was found whole or given
  int m_strays = 0;  // steps for which the focus has been under the modal window
};
