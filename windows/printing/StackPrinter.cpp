#include "windows/printing/StackPrinter.h"

#include "base/Version.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/QtText.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QLocale>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>

#include <algorithm>

namespace {

constexpr int TwipsPerInch = 1440;
constexpr int TwipsPerPoint = 20;
constexpr double PdfMargin = 36;  // points, half an inch

/// Printers may refuse our resolution; then their units are not twips.
double UnitsPerTwip(const QPagedPaintDevice& device) {
  return static_cast<double>(device.logicalDpiY()) / TwipsPerInch;
}

QFont QtFont(const PrintFont& font) {
  QFont result = DisplayFont(font.name, font.size);
  result.setBold(font.bold);
  return result;
}

/// A half line break, which a cut may have left, prints as a blank, and so does a tab.
QString QtLine(TextView line) {
  QString result = ToQString(line);
  for (QChar& unit : result) {
    if (unit.unicode() < u' ') unit = u' ';
  }
  return result;
}

QPageSize LocalPageSize() {
  return QPageSize(QLocale::system().measurementSystem() == QLocale::ImperialUSSystem
                       ? QPageSize::Letter
                       : QPageSize::A4);
}

FileStatus PaintPages(QPagedPaintDevice& device, const std::vector<PrintedText>& pages) {
  QPainter painter;
  if (!painter.begin(&device)) return FileStatus::PrinterError;
  const double scale = UnitsPerTwip(device);
  int page = 0;
  for (const PrintedText& piece : pages) {
    for (; page < piece.page; ++page) {
      if (!device.newPage()) return FileStatus::PrinterError;
    }
    const QFont font = QtFont(piece.font);
    painter.setFont(font);
    // A title too wide to be centred begins at the page's edge, where it can be read.
    const QPointF corner(std::max(piece.x, 0.0) * scale, piece.y * scale);
    const double ascent = QFontMetricsF(font, &device).ascent();
    painter.drawText(corner + QPointF(0, ascent), QtLine(piece.text));
  }
  return painter.end() ? FileStatus::Ok : FileStatus::PrinterError;
}

FileStatus PrintOn(QPagedPaintDevice& device, const CardStack& stack, const PrintSettings& settings,
                   const PrintProgress& progress) {
  DeviceMeasure measure(device);
  std::vector<PrintedText> pages;
  const FileStatus status = PrintStack(stack, settings, measure, progress, pages);
  return status == FileStatus::Ok ? PaintPages(device, pages) : status;
}

}  // namespace

double DeviceMeasure::PageWidth() {
  return m_device.pageLayout().paintRect(QPageLayout::Point).width() * TwipsPerPoint;
}

double DeviceMeasure::PageHeight() {
  return m_device.pageLayout().paintRect(QPageLayout::Point).height() * TwipsPerPoint;
}

double DeviceMeasure::TextWidth(const PrintFont& font, TextView line) {
  return QFontMetricsF(QtFont(font), &m_device).horizontalAdvance(QtLine(line)) /
         UnitsPerTwip(m_device);
}

double DeviceMeasure::TextHeight(const PrintFont& font) {
  return QFontMetricsF(QtFont(font), &m_device).lineSpacing() / UnitsPerTwip(m_device);
}

FileStatus PrintToPrinter(QPrinter& printer, const CardStack& stack, const PrintSettings& settings,
                          const PrintProgress& progress) {
  printer.setResolution(TwipsPerInch);
  printer.setDocName(ToQString(stack.StackName));
  const FileStatus status = PrintOn(printer, stack, settings, progress);
  if (printer.printerState() == QPrinter::Error) return FileStatus::PrinterError;
  return status;
}

FileStatus PrintToPdf(Files& files, const Text& path, const CardStack& stack,
                      const PrintSettings& settings, const PrintProgress& progress) {
  std::unique_ptr<FileReplacement> file;
  const FileStatus opened = files.Replace(path, file);
  if (opened != FileStatus::Ok) return opened;
  QByteArray content;
  QBuffer buffer(&content);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(TwipsPerInch);
  writer.setPageSize(LocalPageSize());
  writer.setPageMargins({PdfMargin, PdfMargin, PdfMargin, PdfMargin}, QPageLayout::Point);
  writer.setTitle(ToQString(stack.StackName));
  writer.setCreator(ToQString(ProgramTitle));
  const FileStatus status = PrintOn(writer, stack, settings, progress);
  if (status != FileStatus::Ok) return status;
  buffer.close();
  return file->Commit({content.constData(), static_cast<std::size_t>(content.size())});
}
