#include "base/OneLine.h"

#include <QLineEdit>
#include <QRegularExpression>

void KeepToOneLine(QLineEdit* field) {
  QObject::connect(field, &QLineEdit::textChanged, field, [field](const QString& text) {
    static const QRegularExpression lineBreak(QStringLiteral("[\\r\\n\\x{2028}\\x{2029}]"));
    const int first = static_cast<int>(text.indexOf(lineBreak));
    if (first < 0) return;
    // The caret stands behind what was pasted; the rest of the field is not part of it.
    const int end = field->cursorPosition();
    if (end > first) {
      field->setSelection(first, end - first);
      field->del();
    } else {
      field->setText(text.left(first));
    }
  });
}
