#include "windows/frame/ProgramFolders.h"

#include "windows/frame/QtText.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

QString SamplesFolder() {
  const QDir program(QCoreApplication::applicationDirPath());
  for (const char* const place : {"../share/quibcards/samples", "samples", "../samples",
                                  "../../samples", "../../../samples"}) {
    const QString path = QDir::cleanPath(program.filePath(QLatin1String(place)));
    if (QDir(path).exists()) return path;
  }
  return {};
}

Text FirstFolder() {
  const QDir program(QCoreApplication::applicationDirPath());
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const bool justBuilt = program.exists(QStringLiteral("CMakeFiles"));
  if (justBuilt) return ToText(SamplesFolder().isEmpty() ? documents : SamplesFolder());
  const bool installed = program.exists(QStringLiteral("../share/quibcards"));
  if (!installed && QFileInfo(program.path()).isWritable()) return ToText(program.path());
  return ToText(documents);
}
