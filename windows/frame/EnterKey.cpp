#include "windows/frame/EnterKey.h"

#include "windows/frame/Form.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QPointer>

namespace {

class EnterKeyFilter : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    const bool takesIt = qobject_cast<QAbstractButton*>(watched) != nullptr ||
                         qobject_cast<QGroupBox*>(watched) != nullptr;
    if (!takesIt || qobject_cast<Form*>(static_cast<QWidget*>(watched)->window()) == nullptr) {
      return false;
    }
    event->ignore();  // so it goes on to the parent, and at last to the window
    return true;
  }
};

}  // namespace

void LeaveEnterToForms() {
  static QPointer<EnterKeyFilter> filter;
  if (filter != nullptr) return;
  // Of the application, since panels have controls that no window makes itself.
  filter = new EnterKeyFilter(qApp);
  qApp->installEventFilter(filter);
}
