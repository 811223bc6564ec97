#include "windows/frame/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace {

constexpr const char* RoleProperty = "accessibleRole";

/// Called for every class of an object's family; the property alone decides.
QAccessibleInterface* InterfaceWithRole(const QString&, QObject* object) {
  auto* const control = qobject_cast<QWidget*>(object);
  if (control == nullptr) return nullptr;
  const QVariant role = control->property(RoleProperty);
  if (!role.isValid()) return nullptr;
  return new QAccessibleWidget(control, static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void SetAccessibleRole(QWidget* control, QAccessible::Role role) {
  QAccessible::installFactory(InterfaceWithRole);  // once; it ignores the same one again
  control->setProperty(RoleProperty, static_cast<int>(role));
  // Whoever asked before was given another answer, which is kept.
  QAccessibleInterface* const known = QAccessible::queryAccessibleInterface(control);
  if (known->role() != role) QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(known));
}
