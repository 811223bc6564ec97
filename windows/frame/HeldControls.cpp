#include "windows/frame/HeldControls.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QItemSelectionModel>

#include <algorithm>
#include <utility>

namespace {

/// The window that an object belongs to. A menu is no such window; what stands on another one is.
const QWidget* WindowOf(const QObject* object) {
  for (; object != nullptr; object = object->parent()) {
    const auto* const widget = qobject_cast<const QWidget*>(object);
    if (widget != nullptr && widget->isWindow() && widget->windowType() != Qt::Popup) {
      return widget;
    }
  }
  return nullptr;
}

/// Parts of another control, which needs what they tell for itself.
bool IsPart(const QWidget& control) {
  for (const QWidget* owner = control.parentWidget(); owner != nullptr;
       owner = owner->parentWidget()) {
    if (qobject_cast<const QComboBox*>(owner) != nullptr) return true;
    if (owner->objectName().startsWith(QLatin1String("qt_scrollarea_"))) return true;
  }
  return qobject_cast<const QHeaderView*>(&control) != nullptr;
}

std::function<void()> PutBackCheck(QAbstractButton& button) {
  if (!button.isCheckable()) return [] {};
  return [&button, checked = button.isChecked()] {
    const bool exclusive = button.autoExclusive();
    button.setAutoExclusive(false);  // or one of several could not be put back to none
    button.setChecked(checked);
    button.setAutoExclusive(exclusive);
  };
}

std::function<void()> PutBackIndex(QComboBox& box) {
  return [&box, index = box.currentIndex(), count = box.count()] {
    if (box.count() == count && box.currentIndex() != index) box.setCurrentIndex(index);
  };
}

std::function<void()> PutBackValue(QAbstractSlider& slider) {
  return [&slider, value = slider.value()] { slider.setValue(value); };
}

std::function<void()> PutBackSelection(QAbstractItemView& view) {
  if (view.selectionModel() == nullptr) return [] {};
  const QItemSelectionModel& chosen = *view.selectionModel();
  return [&view, selection = chosen.selection(),
          current = QPersistentModelIndex(chosen.currentIndex()), rows = view.model()->rowCount()] {
    QItemSelectionModel& now = *view.selectionModel();
    if (view.model()->rowCount() != rows || now.selection() == selection) return;
    now.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    now.select(selection, QItemSelectionModel::ClearAndSelect);
  };
}

}  // namespace

HeldControls::HeldControls(QWidget* window) : QObject(window), m_window(window) {
  window->installEventFilter(this);
}

bool HeldControls::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::WindowBlocked:
      if (watched == m_window) Hold();
      break;
    case QEvent::WindowUnblocked:
      if (watched == m_window) LetGo();
      break;
    case QEvent::ChildAdded:
      if (m_holding && WindowOf(watched) == m_window) HoldNewLater();
      break;
    default:
      break;
  }
  return false;
}

void HeldControls::Hold() {
  if (std::exchange(m_holding, true)) return;
  qApp->installEventFilter(this);  // controls come up inside of others, too
  HoldNew();
}

/// What is added now is not yet made.
void HeldControls::HoldNewLater() {
  if (std::exchange(m_expectsNew, true)) return;
  QMetaObject::invokeMethod(this, &HeldControls::HoldNew, Qt::QueuedConnection);
}

void HeldControls::HoldNew() {
  m_expectsNew = false;
  if (!m_holding) return;
  for (QObject* const object : m_window->findChildren<QObject*>()) {
    const auto* const control = qobject_cast<QWidget*>(object);
    if (WindowOf(object) != m_window || IsHeld(*object)) continue;
    if (control != nullptr && IsPart(*control)) continue;
    if (auto* const item = qobject_cast<QAction*>(object)) {
      // An item that cannot be checked keeps what the program checks, and no one else can.
      const bool checkable = item->isCheckable();
      HoldOne(*item, [item, checkable] {
        if (checkable) item->setCheckable(true);
      });
      item->setCheckable(false);
    } else if (auto* const button = qobject_cast<QAbstractButton*>(object)) {
      HoldOne(*button, PutBackCheck(*button));
    } else if (auto* const box = qobject_cast<QComboBox*>(object)) {
      HoldOne(*box, PutBackIndex(*box));
    } else if (auto* const slider = qobject_cast<QAbstractSlider*>(object)) {
      HoldOne(*slider, PutBackValue(*slider));
    } else if (auto* const view = qobject_cast<QAbstractItemView*>(object)) {
      HoldOne(*view, PutBackSelection(*view));
    }
  }
}

void HeldControls::HoldOne(QObject& object, std::function<void()> putBack) {
  if (object.blockSignals(true)) return;  // by someone else, who will end it
  m_held.push_back({&object, std::move(putBack)});
}

bool HeldControls::IsHeld(const QObject& object) const {
  return std::any_of(m_held.begin(), m_held.end(),
                     [&](const Held& held) { return held.object == &object; });
}

void HeldControls::LetGo() {
  if (!std::exchange(m_holding, false)) return;
  qApp->removeEventFilter(this);
  for (const Held& held : std::exchange(m_held, {})) {
    if (held.object == nullptr) continue;
    // A group of items must hear what becomes of them; a control tells no one what it takes back.
    const bool item = qobject_cast<QAction*>(held.object) != nullptr;
    if (item) held.object->blockSignals(false);
    held.putBack();
    held.object->blockSignals(false);
  }
}
