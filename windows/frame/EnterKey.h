#pragma once

/// Lets Enter mean the same on every desktop: it is for the window, which presses the focused or
/// the OK button. Some desktops (GNOME) count Enter among the keys that press any button; there a
/// check box or an option would change by it, and a group box would swallow it on behalf of its
/// fields. Holds for the controls of every Form from now on; calling it again changes nothing.
void LeaveEnterToForms();
