#pragma once

#include <QAccessible>

class QWidget;

/// Tells screen readers what a control of our own making is, where its class would not say.
void SetAccessibleRole(QWidget* control, QAccessible::Role role);
