#pragma once

#include "windows/study/PictureLoader.h"

#include <QImage>
#include <QString>
#include <QTimer>
#include <QWidget>

/// Shows a picture file in its own size, or scaled down to the box with its aspect kept, never up,
/// whatever the desktop's scale factor: a pixel of the file is at most one of the box's
/// coordinates. It is decoded once, outside the window's thread; when the box changes it is scaled
/// anew. A thin line around it tells a white picture from a white card.
class PictureBox : public QWidget {
  Q_OBJECT

 public:
  explicit PictureBox(QWidget* owner, PictureTime time = {});

  /// Shows the file; an empty path clears the box. Most pictures are there on return; one that
  /// takes longer than a frame of the screen follows when it is decoded.
  void Show(const QString& path);

  /// Returns once the picture is there, or was given up, or five seconds after Show; it then
  /// follows by itself. Windows are painted meanwhile, keys and
  /// clicks wait. The box may be deleted on return: a window may close meanwhile.
  void WaitUntilLoaded();

  bool IsLoading() const { return m_loader.IsLoading(); }

  QSize sizeHint() const override { return {240, 160}; }

 signals:
  /// The file can't be shown; the box is clear. The box may be deleted by what follows.
  void Failed(PictureFault fault);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void TakeResult(std::chrono::milliseconds wait);
  QRectF Place() const;
  void Describe();

  QString m_path;
  PictureLoader m_loader;
  QTimer m_poll;          // runs while the loader does
  DecodedPicture m_full;  // at most as large as the largest screen, in device pixels
  QImage m_shown;         // scaled to where it stands, in device pixels
};
