#pragma once

/// Lets check boxes and option buttons that a screen reader turns act as if they were clicked. Qt
/// would only change the mark, and the program would not hear of it.
void InstallAccessibleOptions();
