#pragma once

#include "base/Text.h"

#include <QString>

class QWidget;

/// Gives a widget a tool tip that is shown as it is, never as markup, and shown only: the toolTip
/// property would be read out as the widget's description too, markup and all, or as its name a
/// second time. An empty text takes the tool tip away.
void SetSilentToolTip(QWidget& widget, TextView text);

/// The tool tip that a widget was given so.
QString SilentToolTip(const QWidget& widget);
