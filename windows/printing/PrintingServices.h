#pragma once

#include "base/Text.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QPrinter;
class QWidget;

/// A font as a preview shows it.
struct ShownFont {
  bool sameName = true;  ///< false when another font had to stand in at this size
  float size = 0;        ///< points, the nearest that the font offers
};

/// What the print dialog needs of the desktop: its fonts and printers. Tests bring their own.
struct PrintingServices {
  std::function<std::vector<Text>()> fontNames;  ///< of the screen, in its order
  std::function<ShownFont(TextView name, float size)> showFont;
  /// The default printer; null when there is no printer at all.
  std::function<std::unique_ptr<QPrinter>()> defaultPrinter;
  /// Asks for the PDF file that is written instead; empty when the user cancels.
  std::function<QString(QWidget* owner, const QString& proposedName)> choosePdf;
  int progressDelay = 1000;  ///< milliseconds after which a long job shows its progress
};

PrintingServices DesktopPrintingServices();
