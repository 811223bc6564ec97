#pragma once

#include <QString>
#include <QStringList>

class QWidget;

/// What a window must offer to those who use it by ear or by keyboard. Each rule returns a line for
/// everything that breaks it; the window is up and active.

/// Controls that can have the focus but have no name.
QStringList UnnamedControls(QWidget& window);

/// Controls that can have the focus or be pressed but do not say what they are.
QStringList UntoldRoles(QWidget& window);

/// Pictures without name or description, and entries of lists, trees and tables without a name that
/// can be spoken.
QStringList WordlessPictures(QWidget& window);

/// What a reader would spell out though it means nothing to the ear: markup, or a row of blanks at
/// the end, in names and descriptions; and descriptions that say the name again. A
/// tool button of an action may: the toolkit makes both of the action's text.
QStringList IdleWords(QWidget& window);

/// Keys that mean two things at once: mnemonics of controls and of the menu bar's entries,
/// shortcuts, and mnemonics inside one menu. A control counts also while it is disabled.
/// @return "Alt+E: cmdEdit, mnuEdit"
QStringList SharedKeys(QWidget& window);

/// Tab visits all controls that take the focus by it exactly once and comes back to the first;
/// Shift+Tab goes the same way back. The way runs as the window reads: downwards and to the right,
/// up to the next column only when nothing is left beside the column behind it, and down to the
/// left only when nothing is left above. One step alone leads back to the top.
QStringList BrokenTabOrder(QWidget& window);

/// What a mouse can press and the keyboard cannot: buttons that are no station of Tab and have
/// neither a mnemonic nor a shortcut nor a station in their group; other widgets that take a mouse
/// click and do not stand inside a control that has the focus; scroll bars of areas that cannot
/// have it. It presses the mouse for a moment on widgets of the program's own kinds.
QStringList MouseOnlyControls(QWidget& window);

/// Controls that look the same with and without the focus.
QStringList InvisibleFocus(QWidget& window);
