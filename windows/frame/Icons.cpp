#include "windows/frame/Icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

// In a static library the drawings are linked in by being asked for; the macro wants the global
// namespace.
static void LoadDrawings() { Q_INIT_RESOURCE(icons); }

namespace {

/// Renders the drawing when it is painted: palette and scale factor may change while the program
/// runs.
class TintedSvgEngine : public QIconEngine {
 public:
  explicit TintedSvgEngine(QString file) : m_file(std::move(file)) {}

  QIconEngine* clone() const override { return new TintedSvgEngine(m_file); }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal ratio = painter->device()->devicePixelRatioF();
    QPixmap drawing = scaledPixmap(rect.size() * ratio, mode, state, ratio);
    drawing.setDevicePixelRatio(ratio);
    painter->drawPixmap(rect, drawing);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1);
  }

  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal) override {
    QPixmap drawing(size);
    drawing.fill(Qt::transparent);
    QPainter painter(&drawing);
    QSvgRenderer(m_file).render(&painter, QRectF(QPointF(), QSizeF(size)));
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(drawing.rect(), Colour(mode));
    return drawing;
  }

 private:
  static QColor Colour(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Disabled) return palette.color(QPalette::Disabled, QPalette::ButtonText);
    if (mode == QIcon::Selected) return palette.color(QPalette::HighlightedText);
    return palette.color(QPalette::Active, QPalette::ButtonText);
  }

  QString m_file;
};

}  // namespace

QIcon TintedIcon(const char* name) {
  LoadDrawings();
  return QIcon(new TintedSvgEngine(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name))));
}

QIcon ProgramIcon() {
  LoadDrawings();
  QIcon icon(QStringLiteral(":/icons/app.svg"));
  // Title bars show it so small that the cards' edges would fall between the pixels.
  const QSize small(16, 16);
  icon.addPixmap(QIcon(QStringLiteral(":/icons/app-16.svg")).pixmap(small, 1.0));
  return icon;
}
