#pragma once

#include "study/CardDisplay.h"

#include <QWidget>

#include <array>

class QLabel;
class QRadioButton;

/// The four answers of the Chooser: options optChoice(0..3) with their texts lblChoice(0..3). A
/// click on either chooses.
class ChooserPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ChooserPanel(QWidget* owner);

  /// Shows texts and what can be chosen.
  void Render(const CardDisplay& display);
  void Select(int index);
  /// Selects none of the options.
  void ClearSelection();
  void SetAnswerFont(const QFont& font);

  /// As if option `index` was clicked; nothing when it is disabled.
  void Press(int index);

  QWidget* FirstOption() const;

 signals:
  void Chosen(int index);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::array<QRadioButton*, ChoiceCount> optChoice{};
  std::array<QLabel*, ChoiceCount> lblChoice{};
};
