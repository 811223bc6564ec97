#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

/// Shows a picture file, scaled down to the box with its aspect kept, never up, and sharp at any
/// scale factor. A picture larger than the box is decoded at the size at which it is shown.
class PictureBox : public QWidget {
  Q_OBJECT

 public:
  explicit PictureBox(QWidget* owner);

  /// Shows the file; an empty path clears the box.
  /// @return false when the file cannot be read as a picture; the box is clear then.
  bool Show(const QString& path);

  QSize sizeHint() const override { return {240, 160}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool Decode();
  void Describe();

  QString m_path;
  QImage m_picture;  // at most as large as the box, in device pixels
  QSize m_fullSize;
};
