// What keys do in a study window beside what its controls do with them.
#include "windows/keys/VirtualKeys.h"
#include "windows/study/ChooserPanel.h"
#include "windows/study/ScrolledText.h"
#include "windows/study/frmStepper.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

void frmStepper::PressFocused() {
  if (focusWidget() == txtSpell) {
    cmdNext->click();
  } else if (auto* const button = qobject_cast<QAbstractButton*>(focusWidget())) {
    button->click();
  }
}

void frmStepper::ScrollCard(int key) {
  std::array<QAbstractScrollArea*, 3> areas = {m_question, m_answer, m_chooser};
  if (m_chooser->isAncestorOf(focusWidget())) std::swap(areas.front(), areas.back());
  if (!ScrollsForwards(key)) std::reverse(areas.begin(), areas.end());
  (void)std::any_of(areas.begin(), areas.end(),
                    [key](auto* area) { return ScrollByKey(*area, key); });
}

void frmStepper::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == 0;
  const bool typed = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
  const int choice = typed ? DigitOfKey(*event).value_or(0) : 0;  // Shift: French digits need it
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    if (!event->isAutoRepeat()) PressFocused();  // a key held down must not answer card after card
  } else if (plain && IsScrollKey(key)) {
    ScrollCard(key);
  } else if (IsChooser() && choice >= 1 && choice <= ChoiceCount) {
    m_chooser->Press(choice - 1);
  } else {
    Form::keyPressEvent(event);
  }
}
