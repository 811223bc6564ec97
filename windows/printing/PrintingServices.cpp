#include "windows/printing/PrintingServices.h"

#include "base/LetterCase.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/QtText.h"

#include <QDir>
#include <QFileDialog>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>

namespace {

std::vector<Text> ScreenFontNames() {
  std::vector<Text> names;
  for (const QString& family : QFontDatabase::families()) names.push_back(ToText(family));
  return names;
}

/// A font that can be scaled takes every size; one that cannot snaps to a size of its list, and
/// another may stand in for it when all of those are far off.
ShownFont ShowOnScreen(TextView name, float size) {
  const QFont font = DisplayFont(name, size);
  const auto asked = static_cast<float>(font.pointSizeF());
  const QString family = font.family();
  if (!QFontDatabase::hasFamily(family) || QFontDatabase::isSmoothlyScalable(family)) {
    return {.size = asked};
  }
  const QList<int> sizes = QFontDatabase::pointSizes(family);
  if (sizes.isEmpty()) return {.size = asked};
  const int nearest = *std::min_element(sizes.begin(), sizes.end(), [&](int a, int b) {
    return std::abs(static_cast<float>(a) - asked) < std::abs(static_cast<float>(b) - asked);
  });
  return {.sameName = EqualIgnoringCase(ToText(QFontInfo(font).family()), name),
          .size = static_cast<float>(nearest)};
}

std::unique_ptr<QPrinter> DefaultPrinter() {
  QPrinterInfo info = QPrinterInfo::defaultPrinter();
  if (info.isNull()) {
    const QList<QPrinterInfo> others = QPrinterInfo::availablePrinters();
    if (others.isEmpty()) return nullptr;
    info = others.first();
  }
  return std::make_unique<QPrinter>(info, QPrinter::HighResolution);
}

QString ChoosePdf(QWidget* owner, const QString& proposedName) {
  QFileDialog dialog(owner, QStringLiteral("Print to a PDF File"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(QStringLiteral("PDF files (*.pdf)"));
  dialog.setDefaultSuffix(QStringLiteral("pdf"));
  dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  dialog.selectFile(proposedName);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return dialog.selectedFiles().constFirst();
}

}  // namespace

PrintingServices DesktopPrintingServices() {
  return {.fontNames = ScreenFontNames,
          .showFont = ShowOnScreen,
          .defaultPrinter = DefaultPrinter,
          .choosePdf = ChoosePdf};
}
