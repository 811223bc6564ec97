#pragma once

class QWidget;

/// Gives a window that is about to be shown its place: centred together with its frame, no part of
/// it off the screen. What a window needs and the screen does not have is scrolled: its menu bar
/// stays above and a last row of buttons stays below, what lies between them scrolls. The
/// controls between get another parent then; `window()` of each stays the same.
/// A window without a layout is only cut to size.
void FitOnScreen(QWidget& window);

/// Does so again for a shown window that has come to need more than the screen has.
void KeepOnScreen(QWidget& window);
