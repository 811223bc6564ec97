#include "windows/frame/ProgramApplication.h"

#include "base/Fault.h"
#include "base/Version.h"
#include "windows/frame/AccessibleOptions.h"
#include "windows/frame/Icons.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/ProgramStyle.h"
#include "windows/frame/QtText.h"

ProgramApplication::ProgramApplication(int& argc, char** argv) : QApplication(argc, argv) {
  setApplicationName(QStringLiteral("quibcards"));
  setApplicationDisplayName(QString());  // titles stand exactly as the windows give them
  setApplicationVersion(ToQString(ProgramVersion));
  setDesktopFileName(QStringLiteral("quibcards"));
  // Once for all windows: the pictures that a window's own icon is drawn into would stay behind it.
  setWindowIcon(ProgramIcon());
  // A desktop with a style of its own keeps it.
  if (style()->name() == QLatin1String("fusion")) setStyle(new ProgramStyle);
  InstallAccessibleOptions();
}

bool ProgramApplication::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const Fault& fault) {
    SetPointer(PointerShape::Normal);
    if (m_prompts != nullptr) {
      m_prompts->Show({.text = ErrorText(fault.Number()), .icon = PromptIcon::Exclamation});
    }
    return true;
  }
}
