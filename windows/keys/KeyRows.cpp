#include "windows/keys/KeyRows.h"

#include "keys/KeyNames.h"
#include "keys/KeyPickers.h"
#include "windows/frame/AccessibleRole.h"
#include "windows/frame/QtText.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// A row's label, which shows when it has the focus.
class RowLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QLabel::paintEvent(event);
    if (!hasFocus()) return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.state |= QStyle::State_KeyboardFocusChange;  // also when a click brought the focus
    option.backgroundColor = palette().color(backgroundRole());
    QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, option);
  }
};

bool IsEnter(const QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent*>(event)->key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

void UseWindowColours(QWidget* widget) {
  widget->setAutoFillBackground(true);
  widget->setBackgroundRole(QPalette::Base);
  widget->setForegroundRole(QPalette::Text);
}

KeyRows::KeyRows(AssignmentAt assignmentAt, FontOf fontOf, QWidget* owner)
    : QGroupBox(QStringLiteral("Key Assignments:"), owner),
      m_assignmentAt(std::move(assignmentAt)),
      m_fontOf(std::move(fontOf)),
      sspCol1(new QFrame(this)),
      sspCol2(new QFrame(this)) {
  sspCol1->setObjectName(QStringLiteral("sspCol1"));
  sspCol2->setObjectName(QStringLiteral("sspCol2"));
  MakeRows();
  vsbBar = new QScrollBar(Qt::Vertical, this);  // Tab comes to it after the rows
  vsbBar->setObjectName(QStringLiteral("vsbBar"));
  vsbBar->setAccessibleName(QStringLiteral("Scroll the key assignments"));
  LayOut();
  connect(vsbBar, &QScrollBar::valueChanged, this, &KeyRows::vsbBar_Change);
}

void KeyRows::MakeRows() {
  for (int row = 0; row < ShownKeyRows; ++row) {
    const auto at = static_cast<std::size_t>(row);
    lblCol1[at] = new QLabel(this);
    lblCol2[at] = new RowLabel(this);
    lblCol1[at]->setObjectName(QStringLiteral("lblCol1(%1)").arg(row));
    lblCol2[at]->setObjectName(QStringLiteral("lblCol2(%1)").arg(row));
    lblCol1[at]->setAlignment(Qt::AlignCenter);
    lblCol2[at]->setIndent(6);
    SetAccessibleRole(lblCol2[at], QAccessible::ListItem);
    for (QLabel* const label : {lblCol1[at], lblCol2[at]}) {
      label->setTextFormat(Qt::PlainText);
      UseWindowColours(label);
      label->installEventFilter(this);
    }
  }
}

void KeyRows::SetRowSizes(std::initializer_list<QFont> fonts) {
  // All rows are equally high, whatever their characters: the two columns stand side by side.
  int height = QFontMetrics(font()).height();
  int width = QFontMetrics(font()).horizontalAdvance(QStringLiteral("MMM"));
  const int highest = 4 * height;
  for (const QFont& rowFont : fonts) {
    const QFontMetrics metrics(rowFont);
    height = std::max(height, metrics.height());
    width = std::max(width, metrics.horizontalAdvance(QStringLiteral("MM")));
  }
  height = std::min(height, highest) + 6;
  for (std::size_t at = 0; at < lblCol1.size(); ++at) {
    lblCol1[at]->setMinimumSize(std::min(width, 3 * highest), height);
    lblCol2[at]->setMinimumHeight(height);
    for (QLabel* const label : {lblCol1[at], lblCol2[at]}) {
      label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    }
  }
  const QFontMetrics metrics(font());
  sspCol2->setMinimumWidth(metrics.horizontalAdvance(QStringLiteral("[F] Shift+Ctrl+Alt+WW")) + 12);
}

void KeyRows::LayOut() {
  for (QFrame* const panel : {sspCol1, sspCol2}) {
    UseWindowColours(panel);
    panel->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    const auto& labels = panel == sspCol1 ? lblCol1 : lblCol2;
    auto* const rows = new QVBoxLayout(panel);
    rows->setContentsMargins(1, 1, 1, 1);
    rows->setSpacing(0);
    for (QLabel* const label : labels) rows->addWidget(label, 1);
  }
  vsbBar->setFocusPolicy(Qt::TabFocus);
  vsbBar->installEventFilter(this);
  auto* const display = new QHBoxLayout(this);
  display->setSpacing(2);
  display->addWidget(sspCol1);
  display->addWidget(sspCol2, 1);
  display->addWidget(vsbBar);
}

QWidget* KeyRows::FirstRow() const { return lblCol2.front(); }

QWidget* KeyRows::Bar() const { return vsbBar; }

bool KeyRows::eventFilter(QObject* watched, QEvent* event) {
  if (watched == vsbBar && IsEnter(event)) {
    vsbBar_Enter();
    return true;
  }
  const int row = RowOf(watched);
  if (row >= 0 && FilterRow(row, event)) return true;
  return QGroupBox::eventFilter(watched, event);
}

bool KeyRows::FilterRow(int row, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      return true;  // so that the release comes here as well
    case QEvent::MouseButtonRelease: {
      const auto& mouse = *static_cast<QMouseEvent*>(event);
      const QRect label(QPoint(), lblCol2[static_cast<std::size_t>(row)]->size());
      if (mouse.button() == Qt::LeftButton && label.contains(mouse.position().toPoint())) {
        emit RowChosen(row);
      }
      return true;
    }
    case QEvent::Wheel:
      return QApplication::sendEvent(vsbBar, event);
    case QEvent::KeyPress:
      return lblCol2_KeyDown(row, *static_cast<QKeyEvent*>(event));
    default:
      return false;
  }
}

int KeyRows::RowOf(const QObject* label) const {
  for (std::size_t at = 0; at < lblCol1.size(); ++at) {
    if (label == lblCol1[at] || label == lblCol2[at]) return static_cast<int>(at);
  }
  return -1;
}

bool KeyRows::lblCol2_KeyDown(int row, const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Up:
      MoveToRow(row - 1);
      return true;
    case Qt::Key_Down:
      MoveToRow(row + 1);
      return true;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      emit RowChosen(row);
      return true;
    default:
      return false;
  }
}

void KeyRows::MoveToRow(int row) {
  if (!m_assignmentAt(m_scroll.value + row)) return;
  const int shown = std::clamp(row, 0, ShownKeyRows - 1);
  vsbBar->setValue(m_scroll.value + row - shown);
  lblCol2[static_cast<std::size_t>(shown)]->setFocus();
}

void KeyRows::vsbBar_Change(int value) {
  m_scroll.value = value;
  emit Scrolled();
  HighlightRow(-1);
  Refresh();
}

void KeyRows::vsbBar_Enter() {
  if (m_highlighted < 0) emit RowChosen(0);
}

void KeyRows::ShowScroll(KeyScroll scroll) {
  m_scroll = scroll;
  const QSignalBlocker blocker(vsbBar);
  vsbBar->setRange(1, scroll.maximum);
  vsbBar->setPageStep(ShownKeyRows);
  vsbBar->setValue(scroll.value);
  vsbBar->setEnabled(scroll.enabled);
  HighlightRow(-1);
  Refresh();
}

void KeyRows::Refresh() {
  for (int row = 0; row < ShownKeyRows; ++row) {
    ShowKeyRow(row, m_assignmentAt(m_scroll.value + row));
  }
}

void KeyRows::ShowKeyRow(int row, const std::optional<KeyAssignment>& assignment) {
  QLabel* const character = lblCol1[static_cast<std::size_t>(row)];
  QLabel* const keystroke = lblCol2[static_cast<std::size_t>(row)];
  if (!assignment) {
    character->clear();
    keystroke->clear();
    keystroke->setAccessibleName(QStringLiteral("Empty row"));
    if (keystroke->hasFocus()) lblCol2[0]->setFocus();
    keystroke->setFocusPolicy(Qt::NoFocus);
    return;
  }
  const bool control = IsControlCode(assignment->character);
  character->setFont(control ? font() : m_fontOf(*assignment));
  character->setText(control ? ToQString(InvisibleName(assignment->character))
                             : QString(QChar(CharOfCode(assignment->character))));
  keystroke->setText(ToQString(KeyRowText(*assignment)));
  keystroke->setAccessibleName(ToQString(KeyAssignmentListText(*assignment)));
  // Tab comes to the first row, the arrow keys to the others.
  keystroke->setFocusPolicy(row == 0 ? Qt::StrongFocus : Qt::ClickFocus);
}

void KeyRows::HighlightRow(int row) {
  const auto colour = [this](int which, QPalette::ColorRole back, QPalette::ColorRole text) {
    if (which < 0) return;
    for (QLabel* const label :
         {lblCol1[static_cast<std::size_t>(which)], lblCol2[static_cast<std::size_t>(which)]}) {
      label->setBackgroundRole(back);
      label->setForegroundRole(text);
    }
  };
  colour(m_highlighted, QPalette::Base, QPalette::Text);
  m_highlighted = row;
  colour(m_highlighted, QPalette::Highlight, QPalette::HighlightedText);
}
