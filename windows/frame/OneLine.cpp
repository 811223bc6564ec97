#include "windows/frame/OneLine.h"

#include <QLineEdit>
#include <QRegularExpression>

#include <algorithm>

namespace {

qsizetype FirstLineBreak(const QString& text) {
  static const QRegularExpression lineBreak(QStringLiteral("[\\r\\n\\x{2028}\\x{2029}]"));
  return text.indexOf(lineBreak);
}

/// Gives a field another text as one step of editing: what both texts begin and end with stays.
void Replace(QLineEdit& field, const QString& text) {
  const QString before = field.text();
  const auto [old, now] = std::mismatch(before.begin(), before.end(), text.begin(), text.end());
  const qsizetype start = old - before.begin();
  const qsizetype most = std::min(before.size(), text.size()) - start;
  qsizetype tail = 0;
  while (tail < most && before.at(before.size() - 1 - tail) == text.at(text.size() - 1 - tail)) {
    ++tail;
  }
  field.setSelection(static_cast<int>(start), static_cast<int>(before.size() - start - tail));
  field.insert(text.mid(start, text.size() - start - tail));
}

}  // namespace

void KeepToOneLine(QLineEdit* field) {
  QObject::connect(field, &QLineEdit::textChanged, field, [field] {
    const QString text = field->text();
    const qsizetype first = FirstLineBreak(text);
    if (first < 0) return;
    // The caret stands behind what was pasted; the rest of the field is not part of it.
    const qsizetype end = std::max<qsizetype>(field->cursorPosition(), first);
    const QString kept = text.left(first) + text.mid(end);
    if (!field->isUndoAvailable()) {
      field->setText(kept);
    } else {
      // Taken back and put in anew: else undoing would meet the line break again.
      field->undo();
      Replace(*field, kept);
    }
    field->setCursorPosition(static_cast<int>(first));
  });
}
