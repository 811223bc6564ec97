#include "tests/monkey/Hands.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>
#include <QUrl>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>

#include <array>

namespace {

constexpr std::array PlainKeys = {
    Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Tab,       Qt::Key_Backtab,
    Qt::Key_Space,  Qt::Key_Up,    Qt::Key_Down,   Qt::Key_Left,      Qt::Key_Right,
    Qt::Key_Home,   Qt::Key_End,   Qt::Key_PageUp, Qt::Key_PageDown,  Qt::Key_Delete,
    Qt::Key_Insert, Qt::Key_F1,    Qt::Key_F3,     Qt::Key_Backspace, Qt::Key_F10,
    Qt::Key_Alt,    Qt::Key_Menu,  Qt::Key_Escape, Qt::Key_Return};

constexpr std::array<Qt::KeyboardModifiers, 6> Modifiers = {
    Qt::NoModifier,
    Qt::ShiftModifier,
    Qt::ControlModifier,
    Qt::AltModifier,
    Qt::ControlModifier | Qt::AltModifier,
    Qt::ControlModifier | Qt::ShiftModifier};

const std::array OddTexts = {QStringLiteral("dog"),
                             QStringLiteral("la mariposa"),
                             QStringLiteral("^"),
                             QStringLiteral("100 %% sure"),
                             QStringLiteral("a.wav b.bmp c"),
                             QStringLiteral("tab\there"),
                             QStringLiteral("two\nlines"),
                             QStringLiteral("cr\r\nlf\rcr"),
                             QStringLiteral("\u044F\u0437\u044B\u043A \u65E5\u672C\u8A9E"),
                             QStringLiteral("\U0001F415 dog"),
                             QStringLiteral("e\u0301 \u202E right to left"),
                             QStringLiteral("\u05D0\u05D1\u05D2 \u0627\u0644\u0639"),
                             QString(QChar(0xD83D)),
                             QString(QChar(0x00)) + QStringLiteral("nul"),
                             QString(QChar(0x1A)),
                             QStringLiteral("[TOPICS]"),
                             QStringLiteral("x]y=z;"),
                             QStringLiteral("\"quoted\""),
                             QStringLiteral("klingon"),
                             QStringLiteral("..\\..\\x"),
                             QStringLiteral("../x/"),
                             QStringLiteral("*?"),
                             QStringLiteral("32.768"),
                             QStringLiteral("1e9"),
                             QStringLiteral("-7"),
                             QStringLiteral("0.1"),
                             QStringLiteral("General"),
                             QStringLiteral("<b>bold</b> &amp; &x"),
                             QString(300, QChar(u'w')),
                             QString(5000, QChar(u'm')),
                             QStringLiteral("   "),
                             QString()};

QString NameOf(const QObject& object) {
  return object.objectName().isEmpty() ? QString::fromLatin1(object.metaObject()->className())
                                       : object.objectName();
}

QWindow* WindowOf(const QWidget& widget) { return widget.window()->windowHandle(); }

bool CanBeUsed(const QWidget& widget) { return widget.isVisible() && widget.isEnabled(); }

}  // namespace

bool Hands::IsBlocked(const QWidget& window) {
  const QWidget* const modal = QApplication::activeModalWidget();
  if (modal == nullptr || window.objectName() == QLatin1String("frmHelp")) return false;
  if (window.windowType() == Qt::Popup) return false;
  for (const QWidget* part = &window; part != nullptr; part = part->parentWidget()) {
    if (part == modal) return false;
  }
  return true;
}

void Hands::Act(QWidget& window) {
  // What lies under a modal window is reached by the mouse alone, which the toolkit keeps off.
  const int choice = m_dice.Below(IsBlocked(window) ? 34 : 100);
  if (choice < 34) return ClickSomewhere(window);
  if (choice < 50) return TypeKeys();
  if (choice < 60) return TypeText();
  if (choice < 70) return ChooseCommand(window);
  if (choice < 78) return ChooseItem(window);
  if (choice < 81) return Commit();
  if (choice < 84) return Paste();
  if (choice < 88) return Drag(window);
  if (choice < 91) return TurnWheel(window);
  if (choice < 93) return Drop(window);
  if (choice < 95) return Resize(window);
  if (choice < 97) return LetTimersRun();
  Close(window);
}

QWidget* Hands::SomeChild(QWidget& window) {
  QList<QWidget*> usable;
  for (QWidget* const child : window.findChildren<QWidget*>()) {
    if (CanBeUsed(*child) && child->window() == &window) usable.push_back(child);
  }
  return usable.isEmpty() ? &window : usable[m_dice.Below(static_cast<int>(usable.size()))];
}

void Hands::ClickSomewhere(QWidget& window) {
  QWidget* target = SomeChild(window);
  // A button is hit where it reacts, other controls anywhere.
  QPoint at(m_dice.Below(qMax(1, target->width())), m_dice.Below(qMax(1, target->height())));
  if (m_dice.Percent(50)) at = QPoint(qMin(8, target->width() / 2), target->height() / 2);
  const int kind = m_dice.Below(10);
  Press(*target, at, kind == 0 ? Qt::RightButton : Qt::LeftButton, kind == 1 || kind == 2);
}

void Hands::Press(QWidget& target, QPoint at, Qt::MouseButton button, bool twice) {
  QWindow* const window = WindowOf(target);
  if (window == nullptr) return;
  m_journal.Note(QStringLiteral("%1click %2 at %3,%4 in %5")
                     .arg(button == Qt::RightButton ? QStringLiteral("right ")
                          : twice                   ? QStringLiteral("double ")
                                                    : QString(),
                          NameOf(target))
                     .arg(at.x())
                     .arg(at.y())
                     .arg(NameOf(*target.window())));
  const QPointer<QWindow> alive(window);
  const QPointF place = target.mapTo(target.window(), at);
  const QPointF global = target.mapToGlobal(at);
  const auto send = [&](Qt::MouseButtons state, Qt::MouseButton changed, QEvent::Type type) {
    if (alive == nullptr) return;
    QTest::lastMouseTimestamp += twice ? 10 : 1000;
    qt_handleMouseEvent(alive, place, global, state, changed, type, Qt::NoModifier,
                        QTest::lastMouseTimestamp);
  };
  send(Qt::NoButton, Qt::NoButton, QEvent::MouseMove);
  for (int i = 0; i < (twice ? 2 : 1); ++i) {
    send(button, button, QEvent::MouseButtonPress);
    send(Qt::NoButton, button, QEvent::MouseButtonRelease);
  }
}

void Hands::Drag(QWidget& window) {
  QWidget* const target = SomeChild(window);
  QWindow* const handle = WindowOf(*target);
  if (handle == nullptr) return;
  const QPoint from(m_dice.Below(qMax(1, target->width())),
                    m_dice.Below(qMax(1, target->height())));
  const QPoint by(m_dice.Below(200) - 100, m_dice.Below(200) - 100);
  m_journal.Note(QStringLiteral("drag %1 by %2,%3").arg(NameOf(*target)).arg(by.x()).arg(by.y()));
  const QPointer<QWindow> alive(handle);
  const QPoint place = target->mapTo(target->window(), from);
  const QPoint global = target->mapToGlobal(from);
  const auto send = [&](int part, Qt::MouseButtons state, Qt::MouseButton changed,
                        QEvent::Type type) {
    if (alive == nullptr) return;
    QTest::lastMouseTimestamp += 1000;
    qt_handleMouseEvent(alive, place + by * part / 4, global + by * part / 4, state, changed, type,
                        Qt::NoModifier, QTest::lastMouseTimestamp);
  };
  send(0, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress);
  for (int part = 1; part <= 4; ++part) {
    send(part, Qt::LeftButton, Qt::NoButton, QEvent::MouseMove);
  }
  send(4, Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease);
}

void Hands::TurnWheel(QWidget& window) {
  QWidget* const target = SomeChild(window);
  const int delta = (m_dice.Below(7) - 3) * 60;
  m_journal.Note(QStringLiteral("wheel %1 over %2").arg(delta).arg(NameOf(*target)));
  const QPoint at = target->rect().center();
  QWheelEvent event(at, target->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(target, &event);
}

void Hands::PressKey(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  QWindow* const window = QGuiApplication::focusWindow();
  if (window == nullptr) return;
  m_journal.Note(
      QStringLiteral("key %1 '%2' in %3")
          .arg(QKeySequence(static_cast<int>(modifiers) | key).toString(), text, NameOf(*window)));
  const QPointer<QWindow> alive(window);
  qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text);
  // The release goes to whatever has the focus then.
  if (QWindow* const next = QGuiApplication::focusWindow(); next != nullptr) {
    qt_handleKeyEvent(next, QEvent::KeyRelease, key, modifiers, text);
  }
}

void Hands::TypeKeys() {
  const Qt::KeyboardModifiers modifiers = m_dice.OneOf(Modifiers);
  if (m_dice.Percent(60)) {
    const Qt::Key key = m_dice.OneOf(PlainKeys);
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    return PressKey(key, m_dice.Percent(70) ? Qt::NoModifier : modifiers,
                    enter                   ? QStringLiteral("\r")
                    : key == Qt::Key_Space  ? QStringLiteral(" ")
                    : key == Qt::Key_Escape ? QStringLiteral("\x1B")
                                            : QString());
  }
  const QChar character(static_cast<char16_t>(m_dice.Below(0x5F) + 0x20));
  const bool commands = modifiers.testFlag(Qt::ControlModifier) || modifiers == Qt::AltModifier;
  PressKey(character.toUpper().unicode(), modifiers, commands ? QString() : QString(character));
}

QString Hands::SomeText() {
  if (m_dice.Percent(35)) return m_dice.OneOf(m_files);
  return m_dice.OneOf(OddTexts);
}

void Hands::TypeText() {
  const QString text = SomeText().left(40);
  for (const QChar character : text) {
    const bool enter = character == u'\n' || character == u'\r';
    const int key = enter ? int{Qt::Key_Return} : int{character.toUpper().unicode()};
    PressKey(key, Qt::NoModifier, enter ? QStringLiteral("\r") : QString(character));
  }
  if (m_dice.Percent(40)) PressKey(Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
}

void Hands::Commit() {
  QObject* const focus = QGuiApplication::focusObject();
  if (focus == nullptr) return;
  QInputMethodQueryEvent query(Qt::ImEnabled);
  QCoreApplication::sendEvent(focus, &query);
  if (!query.value(Qt::ImEnabled).toBool()) return;  // as the input method itself would ask
  const QString text = SomeText();
  m_journal.Note(QStringLiteral("input method '%1' into %2").arg(text.left(40), NameOf(*focus)));
  const QPointer<QObject> alive(focus);
  QInputMethodEvent composing(text.left(3), {});
  QCoreApplication::sendEvent(focus, &composing);
  if (alive == nullptr) return;
  QInputMethodEvent committing(QString(), {});
  committing.setCommitString(text);
  QCoreApplication::sendEvent(focus, &committing);
}

void Hands::Paste() {
  const QString text = SomeText();
  m_journal.Note(QStringLiteral("copy '%1'").arg(text.left(40)));
  QGuiApplication::clipboard()->setText(text);
  PressKey(Qt::Key_V, Qt::ControlModifier, QString());
}

void Hands::ChooseCommand(QWidget& window) {
  QList<QAction*> commands;
  for (QAction* const action : window.findChildren<QAction*>()) {
    if (action->isEnabled() && action->isVisible() && !action->isSeparator() &&
        action->menu() == nullptr && !action->text().isEmpty()) {
      commands.push_back(action);
    }
  }
  if (commands.isEmpty()) return TypeKeys();
  QAction* const chosen = commands[m_dice.Below(static_cast<int>(commands.size()))];
  m_journal.Note(QStringLiteral("choose %1 '%2'").arg(NameOf(*chosen), chosen->text()));
  chosen->trigger();
}

void Hands::ChooseItem(QWidget& window) {
  const QList<QAbstractItemView*> lists = window.findChildren<QAbstractItemView*>();
  const QList<QComboBox*> boxes = window.findChildren<QComboBox*>();
  if (!boxes.isEmpty() && (lists.isEmpty() || m_dice.Percent(40))) {
    QComboBox* const box = boxes[m_dice.Below(static_cast<int>(boxes.size()))];
    if (!CanBeUsed(*box)) return;
    box->setFocus();
    return PressKey(m_dice.Percent(50) ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier, QString());
  }
  if (lists.isEmpty()) return ClickSomewhere(window);
  QAbstractItemView* const list = lists[m_dice.Below(static_cast<int>(lists.size()))];
  if (!CanBeUsed(*list) || list->model()->rowCount() == 0) return;
  const QModelIndex item = list->model()->index(m_dice.Below(list->model()->rowCount()), 0);
  list->scrollTo(item);
  Press(*list->viewport(), list->visualRect(item).center(), Qt::LeftButton, m_dice.Percent(50));
}

void Hands::Drop(QWidget& window) {
  QWidget* target = SomeChild(window);
  QMimeData content;
  const QString file = m_dice.OneOf(m_files);
  if (m_dice.Percent(80)) {
    content.setUrls({QUrl::fromLocalFile(file)});
  } else {
    content.setText(SomeText());
  }
  while (!target->acceptDrops() && !target->isWindow()) target = target->parentWidget();
  m_journal.Note(QStringLiteral("drop %1 on %2").arg(file, NameOf(*target)));
  const QPointer<QWidget> alive(target);
  const QPoint at = target->rect().center();
  QDragEnterEvent enter(at, Qt::CopyAction, &content, Qt::LeftButton, Qt::NoModifier);
  enter.ignore();
  QCoreApplication::sendEvent(target, &enter);
  if (alive == nullptr || !enter.isAccepted()) return;
  QDropEvent drop(at, Qt::CopyAction, &content, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(target, &drop);
}

void Hands::Resize(QWidget& window) {
  const QSize size(1 + m_dice.Below(1600), 1 + m_dice.Below(1200));
  m_journal.Note(QStringLiteral("resize %1 to %2,%3")
                     .arg(NameOf(window))
                     .arg(size.width())
                     .arg(size.height()));
  window.resize(size);
}

void Hands::LetTimersRun() {
  m_journal.Note(QStringLiteral("timers run out"));
  QList<QPointer<QTimer>> timers;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    for (QTimer* const timer : window->findChildren<QTimer*>(QStringLiteral("tmrTimer"))) {
      if (timer->isActive()) timers.push_back(timer);
    }
  }
  for (const QPointer<QTimer>& timer : timers) {
    if (timer == nullptr || !timer->isActive()) continue;
    QTimerEvent event(timer->timerId());
    QCoreApplication::sendEvent(timer, &event);
  }
}

void Hands::Close(QWidget& window) {
  m_journal.Note(QStringLiteral("close %1").arg(NameOf(window)));
  window.close();
}
