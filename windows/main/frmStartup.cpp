#include "windows/main/frmStartup.h"

#include "base/Version.h"
#include "program/WindowPlacement.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"
#include "windows/main/frmMain.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDeadlineTimer>
#include <QLabel>
#include <QVBoxLayout>
#include <QWindow>

#include <chrono>
#include <thread>

frmStartup::frmStartup(SharedState& shared, Platform& platform)
    : Form("frmStartup", shared, platform, nullptr),
      lblTitle(Add<QLabel>(QStringLiteral("lblTitle"))),
      lblVersion(Add<QLabel>(QStringLiteral("lblVersion"))) {
  // An ordinary frameless window: the main window covers it.
  setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
  setWindowTitle(ToQString(ProgramTitle));
  auto* const imgIcon = Add<QLabel>(QStringLiteral("imgIcon"));
  imgIcon->setAccessibleName(ToQString(ProgramName));
  imgIcon->setPixmap(QApplication::windowIcon().pixmap(QSize(128, 128), devicePixelRatioF()));
  imgIcon->setAlignment(Qt::AlignCenter);
  QFont large = lblTitle->font();
  large.setPointSizeF(large.pointSizeF() * 2.2);
  large.setBold(true);
  lblTitle->setFont(large);
  lblTitle->setText(ToQString(ProgramName));
  lblTitle->setAlignment(Qt::AlignCenter);
  lblVersion->setText(QStringLiteral("Version ") + ToQString(ProgramVersion));
  lblVersion->setAlignment(Qt::AlignCenter);

  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(64, 40, 64, 40);
  column->setSpacing(12);
  column->addWidget(imgIcon);
  column->addWidget(lblTitle);
  column->addWidget(lblVersion);
}

frmStartup::~frmStartup() = default;

/// Paints the splash before the wait, in which nothing is painted. A window system takes a while to
/// put the window up, and what is painted before is lost; one that never says so is not waited for.
void frmStartup::PaintOnce() {
  const QDeadlineTimer patience(1000);
  const auto look = [] { QApplication::processEvents(QEventLoop::ExcludeUserInputEvents); };
  look();
  while (!windowHandle()->isExposed() && !patience.hasExpired()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    look();
  }
  repaint();
  look();
}

void frmStartup::Run(const Text& commandLine, int milliseconds) {
  show();
  PaintOnce();
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  SetPointer(PointerShape::Busy);
  m_main = std::make_unique<frmMain>(m_shared, m_platform, commandLine, this);
  // The splash stays behind it, and nothing of it is to look out, however wide the frame that the
  // main window gets.
  const QSize frame(UsualFrame.left + UsualFrame.right, UsualFrame.top + UsualFrame.bottom);
  m_main->resize(m_main->size().expandedTo(size() + frame));
  m_main->show();
  // Input that was held back waits for the next event otherwise.
  QAbstractEventDispatcher::instance()->wakeUp();
}
