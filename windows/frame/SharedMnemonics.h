#pragma once

class QAbstractButton;
class QAction;
class QKeySequence;
class QWidget;

/// What a key with Alt is for where several controls of a window have it. Captions are given, and
/// some share their letter: a menu that can be opened wins, since a button can also be reached by
/// Tab and the menu acts on what has the focus; the button has the key while the menu cannot be
/// opened.

/// The entry of the window's menu bar that `key` opens; null when there is none that can be opened.
QAction* MenuHeadOf(const QWidget& window, const QKeySequence& key);

/// The one button that `key` is meant for; null when none or several have it: then each press comes
/// to the next of them.
QAbstractButton* OnlyButtonOf(const QWidget& window, const QKeySequence& key);

/// Opens the menu of an entry of a menu bar, with its first item ready; runs an entry without a
/// menu. The focus stays where it is, and with it what is selected there.
void OpenMenuHead(QAction& head);
