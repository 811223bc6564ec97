#include "windows/frame/DisplayFont.h"
#include "windows/frame/ProgramApplication.h"

#include <QLocale>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QLocale::setDefault(QLocale::c());
  ProgramApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  RegisterFontSubstitutes();
  return RUN_ALL_TESTS();
}
