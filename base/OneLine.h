#pragma once

class QLineEdit;

/// Cuts what is pasted or dropped into a one-line field at its first line break: a break in a
/// one-line value would become a line of a file.
void KeepToOneLine(QLineEdit* field);
