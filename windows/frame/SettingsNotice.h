#pragma once

#include "settings/ProfileFile.h"

class QDialog;

/// Says in a line at the window's lower end what stands in the way of the settings; the line is not
/// there while nothing does. The window's layout is a column.
void ShowSettingsTrouble(QDialog& window, const ProfileFile& profile);
