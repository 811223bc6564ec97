#pragma once

#include "study/CardDisplay.h"

#include <QScrollArea>

#include <array>

class QLabel;
class QRadioButton;

/// The four answers of the Chooser: options optChoice(0..3) with their texts lblChoice(0..3). A
/// click on either chooses. A text is never wrapped; what there is no room for scrolls.
class ChooserPanel : public QScrollArea {
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

  const std::array<QRadioButton*, ChoiceCount>& Options() const { return optChoice; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  void Chosen(int index);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void AddRow(int index);
  /// Lets the panel be as high as its rows, and the bar under them where one is needed.
  void FitHeight();

  QWidget* m_rows;
  std::array<QRadioButton*, ChoiceCount> optChoice{};
  std::array<QLabel*, ChoiceCount> lblChoice{};
  int m_pressed = -1;  // the text on which the left mouse button went down
};
