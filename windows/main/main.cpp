#include "base/Paths.h"
#include "program/CommandLine.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/ProgramApplication.h"
#include "windows/frame/ProgramFolders.h"
#include "windows/main/DesktopServices.h"
#include "windows/main/frmStartup.h"

#include <QApplication>

#include <filesystem>

int main(int argc, char** argv) {
  ProgramApplication application(argc, argv);
  RegisterFontSubstitutes();

  // The toolkit has taken its own arguments out of argv; what is left names a stack, byte by byte.
  std::vector<Text> arguments;
  for (int i = 1; i < argc; ++i) arguments.push_back(DecodePath(argv[i]));

  DesktopServices services;
  application.SetPrompts(services.platform.prompts);
  SharedState shared;
  shared.Switches.DefaultFolder = FirstFolder();
  frmStartup splash(shared, services.platform);
  splash.Run(JoinArguments(arguments), frmStartup::WaitTime);
  return QApplication::exec();
}
