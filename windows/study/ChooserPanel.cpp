#include "windows/study/ChooserPanel.h"

#include "windows/frame/QtText.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QRadioButton>
#include <QScrollBar>

#include <algorithm>

ChooserPanel::ChooserPanel(QWidget* owner) : QScrollArea(owner), m_rows(new QWidget) {
  auto* const grid = new QGridLayout(m_rows);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(8);
  grid->setColumnStretch(1, 1);
  for (int i = 0; i < ChoiceCount; ++i) AddRow(i);
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  setWidget(m_rows);
  m_rows->setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
}

void ChooserPanel::AddRow(int index) {
  const QString number = QString::number(index + 1);
  auto* const option = new QRadioButton(number, m_rows);
  option->setObjectName(QStringLiteral("optChoice(%1)").arg(index));
  option->setToolTip(QStringLiteral("Choose this answer (key %1)").arg(number));
  option->setEnabled(false);
  auto* const text = new QLabel(m_rows);
  text->setObjectName(QStringLiteral("lblChoice(%1)").arg(index));
  text->setTextFormat(Qt::PlainText);
  text->installEventFilter(this);
  auto* const grid = static_cast<QGridLayout*>(m_rows->layout());
  grid->addWidget(option, index, 0);
  grid->addWidget(text, index, 1);
  optChoice.at(static_cast<std::size_t>(index)) = option;
  lblChoice.at(static_cast<std::size_t>(index)) = text;
  connect(option, &QRadioButton::clicked, this, [this, index] { emit Chosen(index); });
}

void ChooserPanel::Render(const CardDisplay& display) {
  for (std::size_t i = 0; i < ChoiceCount; ++i) {
    const QString text = ToShownText(display.choiceTexts[i]);
    if (text != lblChoice[i]->text()) {
      lblChoice[i]->setText(text);
      horizontalScrollBar()->setValue(0);
      verticalScrollBar()->setValue(0);
    }
    lblChoice[i]->setEnabled(display.choiceEnabled[i]);
    optChoice[i]->setEnabled(display.choiceEnabled[i]);
    optChoice[i]->setAccessibleName(text);
  }
  FitHeight();
}

void ChooserPanel::Select(int index) {
  optChoice.at(static_cast<std::size_t>(index))->setChecked(true);
}

void ChooserPanel::ClearSelection() {
  for (QRadioButton* const option : optChoice) {
    option->setAutoExclusive(false);  // a group of options always keeps one selected
    option->setChecked(false);
    option->setAutoExclusive(true);
  }
}

void ChooserPanel::SetAnswerFont(const QFont& font) {
  for (QLabel* const text : lblChoice) {
    text->setFont(font);
    text->setMinimumHeight(QFontMetrics(font).height());  // also while there is nothing to choose
  }
  FitHeight();
}

void ChooserPanel::Press(int index) {
  QRadioButton* const option = optChoice.at(static_cast<std::size_t>(index));
  if (option->isEnabled()) option->click();
}

QSize ChooserPanel::minimumSizeHint() const {
  constexpr int LeastWidth = 120;
  return {LeastWidth,
          optChoice.front()->sizeHint().height() + horizontalScrollBar()->sizeHint().height()};
}

QSize ChooserPanel::sizeHint() const {
  const QSize rows = m_rows->sizeHint();
  const bool wide = m_rows->minimumSizeHint().width() > width();
  const int bar = wide ? horizontalScrollBar()->sizeHint().height() : 0;
  return {minimumSizeHint().width(), rows.height() + bar};
}

void ChooserPanel::FitHeight() {
  m_rows->layout()->activate();
  updateGeometry();
}

void ChooserPanel::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  if (event->oldSize().width() != event->size().width()) updateGeometry();
}

/// A text is chosen like a button: by the left button going down and up on it.
bool ChooserPanel::eventFilter(QObject* watched, QEvent* event) {
  const bool down = event->type() == QEvent::MouseButtonPress;
  const bool up = event->type() == QEvent::MouseButtonRelease;
  const auto text = std::find(lblChoice.begin(), lblChoice.end(), watched);
  if ((down || up) && text != lblChoice.end()) {
    const auto& mouse = *static_cast<QMouseEvent*>(event);
    const auto index = static_cast<int>(text - lblChoice.begin());
    if (mouse.button() == Qt::LeftButton) {
      const bool same = m_pressed == index && (*text)->rect().contains(mouse.position().toPoint());
      m_pressed = down ? index : -1;
      if (up && same) Press(index);
    }
  }
  return QScrollArea::eventFilter(watched, event);
}

/// Keys reach the window, which knows what else there is to scroll.
void ChooserPanel::keyPressEvent(QKeyEvent* event) { event->ignore(); }
