#pragma once

class QAbstractButton;

/// Keeps a button from handing the focus to its neighbour for an arrow key: the next Space would
/// press that one, and it may be the button that ends everything. The key goes to the window
/// instead, whose keyPressEvent makes something useful of it or nothing.
///
/// Options of which only one can be chosen keep their arrow keys; they choose with them.
void LeaveArrowKeysToWindow(QAbstractButton* button);
