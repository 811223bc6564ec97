#include "printing/PrintLayout.h"

#include "base/Fault.h"
#include "base/Int16.h"
#include "base/Version.h"
#include "settings/TopicSettings.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int PageFoot = 720;      // twips; a card does not begin below
constexpr int ColumnMargin = 200;  // twips kept free at the end of a column
constexpr double LargestSize = 32;
constexpr double LargestMargin = 40;

/// Rounded to a whole number, halves to even.
Int16 ToInt16(double number) {
  const double rounded = std::nearbyint(number);
  if (!(rounded >= INT16_MIN && rounded <= INT16_MAX)) throw Fault(FileStatus::Overflow);
  return static_cast<int>(rounded);
}

Text NameField(const CardStack& stack) { return FixedWidth(stack.StackName, StackNameWidth); }

/// A printer's current position. Positions count from the upper left corner of the page.
class PrintHead {
 public:
  PrintHead(PrintMeasure& printer, std::vector<PrintedText>& pages)
      : m_printer(printer), m_pages(pages) {}

  void SetFont(const PrintFont& font) { m_font = font; }
  void SetX(double x) { m_x = x; }
  double X() const { return m_x; }
  double Y() const { return m_y; }

  double TextHeight() { return m_printer.TextHeight(m_font); }

  /// The width of the widest line of `text`.
  double TextWidth(TextView text) {
    double width = 0;
    for (;;) {
      const TextView line = FirstLine(text);
      if (!line.empty()) width = std::max(width, m_printer.TextWidth(m_font, line));
      if (line.size() == text.size()) return width;
      text.remove_prefix(line.size() + 1);
    }
  }

  /// Leaves the position just after the text.
  void Print(TextView text) {
    m_line.push_back({.x = m_x, .font = m_font, .text = Text(text)});
    m_x += TextWidth(text);
    m_lineHeight = std::max(m_lineHeight, TextHeight());
  }

  /// A line is as high as the tallest font on it, so a small back does not let the next line run
  /// into a large front. It moves to the next page as a whole.
  void EndLine() {
    const double height = std::max(m_lineHeight, TextHeight());
    if (m_y > 0 && m_y + height > m_printer.PageHeight()) NewPage();
    for (PrintedText& piece : m_line) {
      if (piece.text.empty()) continue;
      piece.page = m_page;
      piece.y = m_y;
      m_pages.push_back(std::move(piece));
    }
    m_line.clear();
    m_lineHeight = 0;
    m_x = 0;
    m_y += height;
  }

  void PrintLine(TextView text) {
    Print(text);
    EndLine();
  }

  void NewPage() {
    ++m_page;
    m_y = 0;
  }

 private:
  PrintMeasure& m_printer;
  std::vector<PrintedText>& m_pages;
  PrintFont m_font;
  int m_page = 0;
  double m_x = 0;
  double m_y = 0;
  double m_lineHeight = 0;
  std::vector<PrintedText> m_line;
};

struct Columns {
  Int16 half;        // where the backs begin
  Int16 lineHeight;  // how far a back below its front is indented
  Int16 margin;      // where the fronts begin
};

void PrintTitle(PrintHead& head, const CardStack& stack, const PrintSettings& settings,
                Int16 half) {
  PrintFont bold = settings.front;
  bold.bold = true;
  head.SetFont(bold);
  head.EndLine();
  // The blanks of the name field are measured too, so a title stands left of the middle. Meant so.
  const Text name = NameField(stack);
  head.SetX(half - head.TextWidth(name) / 2);
  head.PrintLine(name);
  for (int line = 0; line < 3; ++line) head.EndLine();
}

void PrintBackBelow(PrintHead& head, const Text& back, Int16 width, const Columns& columns) {
  const Int16 indent = columns.margin + columns.lineHeight;
  head.EndLine();
  head.SetX(indent);
  if (width <= 2 * columns.half - 2 * ColumnMargin) {
    head.PrintLine(back);
    return;
  }
  const TextView begin = CutText(back, back.size() / 2);
  head.PrintLine(begin);
  head.SetX(indent);
  head.PrintLine(TextView(back).substr(begin.size()));
}

void PrintCard(PrintHead& head, TextView front, TextView back, const PrintSettings& settings,
               const Columns& columns) {
  head.SetFont(settings.front);
  head.SetX(columns.margin);
  head.Print(StripCrLf(front));
  head.SetFont(settings.back);
  // Measured as it stands, its widest line, though it is printed in one. Meant so.
  const Int16 width = ToInt16(head.TextWidth(back));
  const int column = columns.half - ColumnMargin;
  if (width > column || head.X() > column) {
    PrintBackBelow(head, StripCrLf(back), width, columns);
    return;
  }
  head.SetX(columns.half);
  head.PrintLine(StripCrLf(back));
}

FileStatus PrintPages(const CardStack& stack, const PrintSettings& settings, PrintMeasure& printer,
                      const PrintProgress& progress, std::vector<PrintedText>& pages) {
  PrintHead head(printer, pages);
  Columns columns;
  columns.half = ToInt16(printer.PageWidth()) / 2;
  columns.lineHeight = ToInt16(printer.TextHeight(settings.front));
  columns.margin = ToInt16(settings.margin * columns.lineHeight);
  PrintTitle(head, stack, settings, columns.half);
  for (int card = 1; card <= stack.CardCount; ++card) {
    if (!progress(card - 1)) return FileStatus::Declined;
    if (head.Y() > printer.PageHeight() - PageFoot) {
      head.NewPage();
      head.SetFont(settings.front);
      head.EndLine();
    }
    PrintCard(head, stack.SideText(card, Front), stack.SideText(card, Back), settings, columns);
  }
  return FileStatus::Ok;
}

}  // namespace

FileStatus PrintStack(const CardStack& stack, const PrintSettings& settings, PrintMeasure& printer,
                      const PrintProgress& progress, std::vector<PrintedText>& pages) {
  try {
    return PrintPages(stack, settings, printer, progress, pages);
  } catch (const Fault& fault) {
    if (fault.Number() != FileStatus::Overflow) throw;
    return FileStatus::Overflow;
  }
}

Text StripCrLf(TextView text) { return ReplaceAll(text, LineBreak, u" "); }

float SizeOf(TextView typed) {
  const double size = LeadingNumber(typed);
  const auto single = static_cast<float>(size);
  return single > 0 && size <= LargestSize ? single : DefaultFontSize;
}

Text RepairedMargin(TextView typed) {
  return Text(LeadingNumber(typed) > LargestMargin ? DefaultMarginText : typed);
}

Text PrintCaption(const CardStack& stack) { return Text(ProgramTitle) + u" - " + NameField(stack); }

Text PrintAction(const CardStack& stack) { return u"Print " + NameField(stack); }

Text DisplayFontCaption(TextView topicName) {
  return Text(ProgramTitle).append(u" (").append(topicName).append(u")");
}

Text PreviewText(int side, bool onScreen) {
  if (!onScreen) return u"This font is a printer font only.  No preview is possible.";
  return side == Front ? u"This is the front font at the selected size."
                       : u"This is the back font at the selected size.";
}
