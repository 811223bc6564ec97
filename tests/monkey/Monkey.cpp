#include "tests/monkey/Monkey.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QWindow>

#include <unistd.h>

namespace {

constexpr int StepsBetweenWaysHome = 300;
constexpr int LongestWayHome = 200;  // steps; nothing nests so deeply
constexpr int StepsBetweenFileChecks = 25;
constexpr unsigned Patience = 180;  // seconds for one step, on a slow machine under sanitizers
constexpr int ManyWindows = 8;

QString KindOf(const QWidget& window) {
  return window.objectName().isEmpty() ? QString::fromLatin1(window.metaObject()->className())
                                       : window.objectName();
}

}  // namespace

Monkey::Monkey(Dice& dice, Journal& journal, Hands& hands, Checks& checks,
               std::function<bool()> isOver)
    : m_dice(dice),
      m_journal(journal),
      m_hands(hands),
      m_checks(checks),
      m_isOver(std::move(isOver)) {}

void Monkey::Begin() { AskForNextStep(); }

// A timer would not fire again while its slot has not returned, and a step does not return while
// the dialog is open that it opened.
void Monkey::AskForNextStep() {
  QMetaObject::invokeMethod(this, &Monkey::Step, Qt::QueuedConnection);
}

void Monkey::Step() {
  ::alarm(Patience);
  ActivateModal();
  Check();
  AskForNextStep();
  if (m_wayHome > 0 || m_isOver() || (m_journal.Steps() + 1) % StepsBetweenWaysHome == 0) {
    return GoHome();
  }
  QWidget* const window = ChooseWindow();
  if (window == nullptr) return m_journal.BeginStep(QStringLiteral("none"));
  m_journal.BeginStep(KindOf(*window));
  m_hands.Act(*window);
}

/// A window manager gives a modal window the focus, also when a list that was open over it goes;
/// the platform without a display falls back to whichever window came first.
void Monkey::ActivateModal() {
  QWidget* const modal = QApplication::activeModalWidget();
  if (modal == nullptr || QApplication::activePopupWidget() != nullptr) return;
  const QWidget* const active = QApplication::activeWindow();
  const bool inHelp = active != nullptr && active->objectName() == QLatin1String("frmHelp");
  if (active != modal && !inHelp) modal->activateWindow();
}

void Monkey::Check() {
  QString complaint = m_checks.State();
  const bool due = m_journal.Steps() > 0 && m_journal.Steps() % StepsBetweenFileChecks == 0;
  if (complaint.isEmpty() && due) {
    complaint = m_checks.Files();
  }
  if (!complaint.isEmpty()) m_journal.Fail(complaint);
}

/// The windows in the order in which they were made, which is the same in every run.
QWidget* Monkey::ChooseWindow() {
  if (QWidget* const popup = QApplication::activePopupWidget();
      popup != nullptr && m_dice.Percent(80)) {
    return popup;
  }
  if (QWidget* const modal = QApplication::activeModalWidget();
      modal != nullptr && m_dice.Percent(85)) {
    return modal;
  }
  QList<QWidget*> windows;
  for (QWindow* const handle : QGuiApplication::topLevelWindows()) {
    QWidget* const window = QWidget::find(handle->winId());
    if (window != nullptr && window->isVisible()) windows.push_back(window);
  }
  if (windows.isEmpty()) return nullptr;
  QWidget* const window = windows[m_dice.Below(static_cast<int>(windows.size()))];
  const bool blocked = QApplication::activeModalWidget() != nullptr;
  if (!blocked && window->windowType() == Qt::Window) window->activateWindow();
  if (!blocked && windows.size() > ManyWindows && m_dice.Percent(30)) {
    m_hands.Close(*windows.back());
    return QApplication::activeWindow();
  }
  return window;
}

void Monkey::GoHome() {
  ++m_wayHome;
  if (m_wayHome > LongestWayHome) m_journal.Fail(QStringLiteral("the main window is out of reach"));
  m_journal.BeginStep(QStringLiteral("(going home)"));
  if (QWidget* const popup = QApplication::activePopupWidget(); popup != nullptr) {
    popup->close();
    return;
  }
  if (QWidget* const modal = QApplication::activeModalWidget(); modal != nullptr) {
    return DismissTop(*modal);
  }
  m_wayHome = 0;
  QString complaint = m_checks.AtHome();
  if (complaint.isEmpty()) complaint = m_checks.Files();
  if (!complaint.isEmpty()) m_journal.Fail(complaint);
  if (m_isOver()) QCoreApplication::exit(0);
}

void Monkey::DismissTop(QWidget& modal) {
  m_journal.Note(QStringLiteral("leave %1").arg(KindOf(modal)));
  if (auto* const box = qobject_cast<QMessageBox*>(&modal)) {
    const QList<QAbstractButton*> buttons = box->buttons();
    // The way out is the last button; one that leads nowhere must not be pressed forever.
    const bool lastButton = m_wayHome < LongestWayHome / 4 || m_dice.Percent(50);
    return (lastButton ? buttons.back() : buttons.front())->click();
  }
  if (auto* const dialog = qobject_cast<QFileDialog*>(&modal)) return dialog->reject();
  if (auto* const progress = qobject_cast<QProgressDialog*>(&modal)) return progress->cancel();
  m_hands.Close(modal);
}
