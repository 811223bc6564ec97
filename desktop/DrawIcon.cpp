// Draws an SVG icon as PNG files, with the library that draws it in the program.
//
//   draw_icon DRAWING.svg WIDTH FILE.png [WIDTH FILE.png]...

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char** argv) {
  if (argc < 4 || argc % 2 != 0) {
    std::fputs("usage: draw_icon DRAWING.svg WIDTH FILE.png [WIDTH FILE.png]...\n", stderr);
    return 2;
  }
  QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
  if (!drawing.isValid()) {
    std::fprintf(stderr, "draw_icon: can't read %s\n", argv[1]);
    return 1;
  }
  for (int i = 2; i < argc; i += 2) {
    const int width = QByteArray(argv[i]).toInt();
    QImage picture(width, width, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    if (!picture.save(QString::fromLocal8Bit(argv[i + 1]), "PNG")) {
      std::fprintf(stderr, "draw_icon: can't write %s\n", argv[i + 1]);
      return 1;
    }
  }
  return 0;
}
