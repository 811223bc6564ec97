#include "windows/frame/AccessibleOptions.h"

#include <QAccessibleWidget>
#include <QCheckBox>
#include <QRadioButton>

namespace {

class AccessibleOption : public QAccessibleWidget {
 public:
  AccessibleOption(QAbstractButton* button, QAccessible::Role role)
      : QAccessibleWidget(button, role), m_button(button) {}

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Accelerator) return m_button->shortcut().toString();
    if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
    // Qt would take the title of the box around it, which is the same for all that stand there.
    if (!m_button->accessibleName().isEmpty()) return m_button->accessibleName();
    QString caption = m_button->text();
    return caption.remove(u'&');
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = m_button->isChecked();
    state.pressed = m_button->isDown();
    return state;
  }

  QStringList actionNames() const override {
    const QStringList inherited = QAccessibleWidget::actionNames();
    return m_button->isEnabled() ? QStringList(toggleAction()) + inherited : inherited;
  }

  void doAction(const QString& name) override {
    if (name == toggleAction()) {
      m_button->click();
    } else {
      QAccessibleWidget::doAction(name);
    }
  }

  QStringList keyBindingsForAction(const QString& name) const override {
    const bool bound = name == toggleAction() && !m_button->shortcut().isEmpty();
    return bound ? QStringList(m_button->shortcut().toString()) : QStringList();
  }

 private:
  QAbstractButton* m_button;
};

QAccessibleInterface* OptionInterface(const QString& kind, QObject* object) {
  auto* const button = qobject_cast<QAbstractButton*>(object);
  if (button == nullptr) return nullptr;
  if (kind == QLatin1String("QCheckBox")) {
    return new AccessibleOption(button, QAccessible::CheckBox);
  }
  if (kind == QLatin1String("QRadioButton")) {
    return new AccessibleOption(button, QAccessible::RadioButton);
  }
  return nullptr;
}

}  // namespace

void InstallAccessibleOptions() { QAccessible::installFactory(OptionInterface); }
