#pragma once

#include <QScrollArea>

class QLabel;

/// A card's text in as much room as there is. It breaks where the card says and nowhere else, so
/// what is too long or too wide scrolls: by wheel and bars here, and by keys through ScrollByKey.
class ScrolledText : public QScrollArea {
 public:
  /// @param label  stands in the middle
  ScrolledText(QLabel* label, QWidget* owner);

  /// Shows a text from its beginning; the text on show stays where it was scrolled to.
  void SetText(const QString& text);
  void SetTextFont(const QFont& font);

  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QLabel* m_label;
};

/// Carries a key out on an area with more than it shows: arrows go by a line, Page Up and Page Down
/// by as much as is seen.
/// @return false when the key is none of them, or when the area ends that way
bool ScrollByKey(QAbstractScrollArea& area, int key);

/// Arrows, Page Up and Page Down; whether one of them goes towards the end.
bool IsScrollKey(int key);
bool ScrollsForwards(int key);
