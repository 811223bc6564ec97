#pragma once

#include "base/Text.h"

#include <QString>

/// No conversion, only another owner.
QString ToQString(TextView text);
Text ToText(const QString& text);

/// As a label or a text box shows it: a line break is LF there, CR LF in memory.
QString ToShownText(TextView text);
Text FromShownText(const QString& text);

/// For tool tips, which take a text that looks like markup for markup.
QString PlainToolTip(TextView text);

/// For window titles, which take "[*]" for a mark of changed contents and show control characters
/// in whichever way the desktop has for them: blanks here.
QString TitleText(TextView text);

/// For menu items and buttons, which take a single "&" for a mnemonic.
QString EscapeMnemonics(TextView text);
