#pragma once

class QFocusEvent;

/// Whether a control that gets this event has really got or lost the focus: to or from another
/// control of its window. Menus, popups and other windows only borrow it and give it back.
bool IsFocusMove(const QFocusEvent& event);
