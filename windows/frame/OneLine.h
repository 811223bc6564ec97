#pragma once

class QLineEdit;

/// Cuts what is pasted or dropped into a one-line field at its first line break: a break in a
/// one-line value would become a line of a file. The cut is part of the pasting and is undone with
/// it.
///
/// Another receiver of `textChanged` may be given the uncut text last; it is to ask the field.
void KeepToOneLine(QLineEdit* field);
