// Opens every window in its states, without a display, and leaves a picture of each in a folder:
// for looking at. With --fit it looks by itself whether all of them fit on the screen.

#include "tests/support/WindowTour.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/ProgramApplication.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QHash>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryFile>
#include <QWidget>

#include <cstdio>

namespace {

QPalette DarkPalette() {
  const QColor window(45, 45, 48);
  const QColor text(235, 235, 235);
  const QColor dimmed(130, 130, 130);
  QPalette palette(window);  // the shades of frames are made from it
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, dimmed);
  }
  palette.setColor(QPalette::PlaceholderText, dimmed);
  palette.setColor(QPalette::Base, QColor(30, 30, 32));
  palette.setColor(QPalette::AlternateBase, QColor(38, 38, 40));
  palette.setColor(QPalette::ToolTipBase, window);
  palette.setColor(QPalette::Highlight, QColor(42, 110, 187));
  palette.setColor(QPalette::HighlightedText, QColor(255, 255, 255));
  return palette;
}

void Save(QWidget& window, const QDir& folder, const QString& name) {
  if (!window.grab().save(folder.filePath(name + QStringLiteral(".png")))) {
    throw std::runtime_error("cannot write " + name.toStdString());
  }
}

/// Takes a picture of every window; they are numbered in the order in which they came up.
void TakePictures(const QDir& folder, const QDir& samples) {
  int taken = 0;
  const auto save = [&](QWidget& window, const QString& name) {
    const QString number = QStringLiteral("%1-").arg(++taken, 2, 10, QLatin1Char('0'));
    Save(window, folder, number + name);
  };
  const auto visit = [&](QWidget& window, const QString& name) {
    save(window, name);
    if (name != QStringLiteral("frmMain-loaded")) return;
    for (QAction* const action : window.findChild<QMenuBar*>()->actions()) {
      QMenu& menu = *action->menu();
      menu.popup(QPoint());
      save(menu, QStringLiteral("menu-") + menu.title().remove(QLatin1Char('&')));
      menu.hide();
    }
  };
  WindowTour(visit, samples).Run();
}

/// What a window may measure in a picture on a page.
constexpr QSize PageSize(560, 420);

/// Takes pictures for pages, no larger than suits one.
/// @param wanted  "window=picture,...": the windows to take, and the names of their pictures
void TakePagePictures(const QDir& folder, const QDir& samples, const QString& wanted) {
  QHash<QString, QString> pictures;
  for (const QString& pair : wanted.split(QLatin1Char(','))) {
    pictures.insert(pair.section(QLatin1Char('='), 0, 0), pair.section(QLatin1Char('='), 1));
  }
  const auto visit = [&](QWidget& window, const QString& name) {
    if (!pictures.contains(name)) return;
    window.resize(window.size().boundedTo(PageSize));
    for (int i = 0; i < 3; ++i) QApplication::processEvents();  // layouts within layouts
    Save(window, folder, pictures.value(name));
  };
  WindowTour(visit, samples).Run();
}

/// Says what sticks out of the screen or is cut off: of a window, its title bar and borders count
/// too; of its buttons, those that do not scroll.
/// @return how many complaints there are
int CountMisfits() {
  int misfits = 0;
  int windows = 0;
  const auto complain = [&](const QString& name, const QString& what, const QRect& place) {
    ++misfits;
    std::fprintf(stderr, "gallery: %s: %s at %d,%d, %d x %d\n", qPrintable(name), qPrintable(what),
                 place.x(), place.y(), place.width(), place.height());
  };
  const auto visit = [&](QWidget& window, const QString& name) {
    ++windows;
    if (name.endsWith(QStringLiteral("-large"))) return;  // as a user makes it
    const QRect frame = window.frameGeometry();
    if (!window.screen()->availableGeometry().contains(frame)) {
      complain(name, QStringLiteral("not on the screen"), frame);
    }
    for (const QWidget* const button : window.findChildren<QPushButton*>()) {
      bool scrolls = false;
      for (const QWidget* part = button; part != &window; part = part->parentWidget()) {
        scrolls = scrolls || part->inherits("QAbstractScrollArea");
      }
      const QRect place(button->mapTo(&window, QPoint()), button->size());
      if (button->isVisible() && !scrolls && !window.rect().contains(place)) {
        complain(name, button->objectName() + QStringLiteral(" cut off"), place);
      }
    }
  };
  WindowTour(visit).Run();
  std::printf("%d windows, %d misfits\n", windows, misfits);
  return windows > 60 ? misfits : 1;
}

/// The value of an option that the platform needs before there is an application to read it.
QByteArray EarlyOption(int argc, char** argv, const QByteArray& name, const QByteArray& otherwise) {
  for (int i = 1; i + 1 < argc; ++i) {
    if (argv[i] == name) return argv[i + 1];
  }
  return otherwise;
}

/// Has the platform offer one screen of a size given as 1280x720, in pixels.
void MakeScreen(const QByteArray& size, QTemporaryFile& file) {
  const QList<QByteArray> sides = size.split('x');
  if (sides.size() != 2 || !file.open()) throw std::runtime_error("cannot make the screen");
  file.write(R"({"screens": [{"name": "Gallery", "x": 0, "y": 0, "width": )" + sides[0] +
             R"(, "height": )" + sides[1] +
             R"(, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
  file.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
}

}  // namespace

int main(int argc, char** argv) {
  // The platform's own screen of 800 pixels is too small for windows at 200 %.
  QTemporaryFile screenFile;
  MakeScreen(EarlyOption(argc, argv, "--screen", "3840x2400"), screenFile);
  QLocale::setDefault(QLocale::c());
  ProgramApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QCommandLineParser options;
  options.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("for the pictures"));
  options.addOption({QStringLiteral("dark"), QStringLiteral("light text on dark windows")});
  options.addOption({QStringLiteral("points"), QStringLiteral("size of the desktop's font"),
                     QStringLiteral("size"), QStringLiteral("10")});
  options.addOption({QStringLiteral("screen"), QStringLiteral("size of the screen in pixels"),
                     QStringLiteral("size"), QStringLiteral("3840x2400")});
  options.addOption({QStringLiteral("samples"), QStringLiteral("folder with the sample stacks"),
                     QStringLiteral("folder"), WindowTour::SampleFolder().path()});
  options.addOption({QStringLiteral("only"), QStringLiteral("window=picture,... for pages"),
                     QStringLiteral("names")});
  options.addOption({QStringLiteral("fit"), QStringLiteral("only check that all windows fit")});
  options.process(application);
  if (options.isSet(QStringLiteral("dark"))) QApplication::setPalette(DarkPalette());
  QFont font = QApplication::font();
  font.setPointSizeF(options.value(QStringLiteral("points")).toDouble());
  QApplication::setFont(font);
  RegisterFontSubstitutes();
  try {
    if (options.isSet(QStringLiteral("fit"))) return CountMisfits() == 0 ? 0 : 1;
    if (options.positionalArguments().size() != 1) options.showHelp(1);
    const QDir folder(options.positionalArguments().front());
    if (!folder.mkpath(QStringLiteral("."))) return 1;
    const QDir samples(options.value(QStringLiteral("samples")));
    if (options.isSet(QStringLiteral("only"))) {
      TakePagePictures(folder, samples, options.value(QStringLiteral("only")));
    } else {
      TakePictures(folder, samples);
    }
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "gallery: %s\n", failure.what());
    return 1;
  }
}
