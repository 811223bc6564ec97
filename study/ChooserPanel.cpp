#include "study/ChooserPanel.h"

#include "base/QtText.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>

ChooserPanel::ChooserPanel(QWidget* owner) : QWidget(owner) {
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(8);
  grid->setColumnStretch(1, 1);
  for (int i = 0; i < ChoiceCount; ++i) {
    const QString number = QString::number(i + 1);
    auto* const option = new QRadioButton(number, this);
    option->setObjectName(QStringLiteral("optChoice(%1)").arg(i));
    option->setToolTip(QStringLiteral("Choose this answer (key %1)").arg(number));
    option->setEnabled(false);
    auto* const text = new QLabel(this);
    text->setObjectName(QStringLiteral("lblChoice(%1)").arg(i));
    text->setTextFormat(Qt::PlainText);
    text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    text->setMinimumWidth(80);
    text->installEventFilter(this);
    grid->addWidget(option, i, 0);
    grid->addWidget(text, i, 1);
    optChoice[static_cast<std::size_t>(i)] = option;
    lblChoice[static_cast<std::size_t>(i)] = text;
    connect(option, &QRadioButton::clicked, this, [this, i] { emit Chosen(i); });
  }
}

void ChooserPanel::Render(const CardDisplay& display) {
  for (std::size_t i = 0; i < ChoiceCount; ++i) {
    lblChoice[i]->setText(ToShownText(display.choiceTexts[i]));
    lblChoice[i]->setToolTip(PlainToolTip(display.choiceTexts[i]));  // a long text may be cut
    lblChoice[i]->setEnabled(display.choiceEnabled[i]);
    optChoice[i]->setEnabled(display.choiceEnabled[i]);
    optChoice[i]->setAccessibleName(ToShownText(display.choiceTexts[i]));
  }
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
  for (QLabel* const text : lblChoice) text->setFont(font);
}

void ChooserPanel::Press(int index) {
  QRadioButton* const option = optChoice.at(static_cast<std::size_t>(index));
  if (option->isEnabled()) option->click();
}

QWidget* ChooserPanel::FirstOption() const { return optChoice.front(); }

bool ChooserPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonRelease) {
    for (int i = 0; i < ChoiceCount; ++i) {
      if (watched == lblChoice[static_cast<std::size_t>(i)]) Press(i);
    }
  }
  return QWidget::eventFilter(watched, event);
}
