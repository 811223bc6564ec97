#include "windows/frame/Form.h"

#include "windows/frame/ArrowKeys.h"
#include "windows/frame/EnterKey.h"
#include "windows/frame/FitScreen.h"
#include "windows/frame/HeldControls.h"
#include "windows/frame/KeptSize.h"
#include "windows/frame/MenuEscape.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"
#include "windows/frame/SharedMnemonics.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>

Form::Form(const char* name, SharedState& shared, Platform& platform, QWidget* owner)
    : QDialog(owner), m_shared(shared), m_platform(platform) {
  setObjectName(QLatin1String(name));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  LeaveEnterToForms();
  new HeldControls(this);
}

// The controls go after this, and one that has the focus loses it on the way; what it would tell is
// meant for a window that is no more.
Form::~Form() {
  for (QObject* const control : findChildren<QObject*>()) control->disconnect(this);
}

void Form::TameControl(QWidget* control) {
  if (auto* const button = qobject_cast<QPushButton*>(control)) button->setAutoDefault(false);
  if (auto* const button = qobject_cast<QAbstractButton*>(control)) {
    button->installEventFilter(this);
    LeaveArrowKeysToWindow(button);
  }
  if (auto* const label = qobject_cast<QLabel*>(control)) label->setTextFormat(Qt::PlainText);
}

QMenuBar* Form::AddMenuBar() {
  auto* const bar = new QMenuBar(this);
  layout()->setMenuBar(bar);
  bar->installEventFilter(this);
  new MenuEscape(bar);
  return bar;
}

QAction* Form::AddItem(QWidget* menu, const QString& name, const QString& caption) {
  auto* const action = new QAction(caption, this);
  action->setObjectName(name);
  menu->addAction(action);
  return action;
}

QMenu* Form::AddMenu(QMenuBar* bar, const QString& name, const QString& caption) {
  QMenu* const menu = bar->addMenu(caption);
  menu->setObjectName(name);
  menu->setToolTipsVisible(true);
  return menu;
}

QAction* Form::AddHelp(QMenuBar* bar, HelpContext context) {
  QAction* const help = AddItem(bar, QStringLiteral("mnuHelp"), QStringLiteral("&Help"));
  help->setShortcut(QKeySequence::HelpContents);
  connect(help, &QAction::triggered, this, [this, context] { m_platform.help.Show(context); });
  return help;
}

void Form::SetTabOrder(std::initializer_list<QWidget*> controls) {
  QWidget* before = nullptr;
  for (QWidget* const control : controls) {
    if (before != nullptr) setTabOrder(before, control);
    before = control;
  }
}

void Form::SetOkButton(QPushButton* button) {
  m_okButton = button;
  button->setDefault(true);
}

void Form::ShowModal() {
  // Either may be gone when the window closes.
  const QPointer<QWidget> owner(parentWidget() == nullptr ? nullptr : parentWidget()->window());
  setWindowModality(Qt::ApplicationModal);
  exec();
  // A window manager that was about to activate this window, as after a last question, activates
  // none in its place.
  if (owner != nullptr && owner->isVisible()) owner->activateWindow();
}

void Form::Unload() {
  m_unloading = true;
  close();
  m_unloading = false;
}

void Form::closeEvent(QCloseEvent* event) {
  if (!Form_QueryUnload(m_unloading ? UnloadCause::Code : UnloadCause::CloseBox)) {
    event->ignore();
    return;
  }
  Form_Unload();
  event->accept();
  done(0);
}

void Form::keyPressEvent(QKeyEvent* event) {
  QPushButton* button = nullptr;
  if (event->key() == Qt::Key_Escape) button = m_cancelButton;
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    auto* const focused = qobject_cast<QPushButton*>(focusWidget());
    const auto* const list = qobject_cast<QAbstractItemView*>(focusWidget());
    const bool ofARow = list != nullptr && list->currentIndex().isValid();
    if (!ofARow) button = focused != nullptr ? focused : m_okButton;  // the row has had its Enter
  }
  if (button != nullptr && button->isEnabled()) button->click();
}

void Form::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (m_centred) return;
  m_centred = true;
  if (Text name = SizeName(); !name.empty()) {
    new KeptSize(this, m_platform.state, std::move(name));
  } else {
    FitOnScreen(*this);
  }
  SetPointer(PointerShape::Normal);
}

bool Form::event(QEvent* event) {
  const bool handled = QDialog::event(event);
  if (event->type() == QEvent::LayoutRequest && m_centred) KeepOnScreen(*this);
  return handled;
}

bool Form::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Shortcut) return QDialog::eventFilter(watched, event);
  const auto& shortcut = *static_cast<QShortcutEvent*>(event);
  const bool ofMenuBar = qobject_cast<QMenuBar*>(watched) != nullptr;
  auto* button = qobject_cast<QAbstractButton*>(watched);
  if (shortcut.isAmbiguous() || ofMenuBar) {
    if (QAction* const head = MenuHeadOf(*this, shortcut.key())) {
      OpenMenuHead(*head);
      return true;
    }
    // The menu bar holds the keys of menus that cannot be opened now all the same.
    if (shortcut.isAmbiguous()) button = OnlyButtonOf(*this, shortcut.key());
  }
  // The key of a menu that cannot be opened does nothing; the bar would take the keyboard.
  if (button == nullptr) return ofMenuBar || QDialog::eventFilter(watched, event);
  // A mnemonic would press the button for a moment and act after it; the key typed next would then
  // act before it.
  button->setFocus(Qt::ShortcutFocusReason);
  button->click();
  return true;
}

void Form::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::ActivationChange) return;
  if (isActiveWindow()) {
    Form_Activate();
  } else {
    Form_Deactivate();
  }
}
