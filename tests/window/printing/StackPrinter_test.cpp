#include "windows/printing/StackPrinter.h"

#include "base/DiskFiles.h"
#include "cards/StackReader.h"
#include "tests/window/WindowFixture.h"

#include <QDir>
#include <QFontMetricsF>
#include <QImage>
#include <QPdfWriter>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>

namespace {

constexpr double PageMargin = 0.5;  // inches
constexpr int Dpi = 144;

/// A printed word, its ligatures resolved; its place in inches from the sheet's upper left corner.
struct Word {
  int page = 0;
  double left = 0;
  double top = 0;
  QString text;
};

/// Prints stacks into PDF files and reads the pages back with the tools of poppler.
class StackPrinterTest : public WindowTest {
 protected:
  void LoadSample(const Text& fileName) {
    const Text samples = ToText(QStringLiteral(QUIB_SOURCE_DIR "/samples/"));
    ASSERT_EQ(ReadStackFile(shared.Stacks, disk, prompts, samples, fileName, ReadMode::Full,
                            [](const Text&) { return Int16(0); }),
              FileStatus::Ok);
    shared.Stacks.Current().StackName = fileName;
  }

  void PrintPdf() {
    ASSERT_EQ(PrintToPdf(disk, ToText(pdf), shared.Stacks.Current(), settings, progress),
              FileStatus::Ok);
  }

  QByteArray RunPoppler(const QString& tool, const QStringList& arguments) {
    QProcess process;
    process.start(tool, arguments);
    EXPECT_TRUE(process.waitForFinished()) << tool.toStdString() << " of poppler-utils is missing";
    EXPECT_EQ(process.exitCode(), 0);
    return process.readAllStandardOutput();
  }

  std::vector<QImage> Render() {
    RunPoppler("pdftoppm", {"-gray", "-r", QString::number(Dpi), pdf, folder.filePath("page")});
    std::vector<QImage> images;
    const QDir dir(folder.path());
    for (const QString& name : dir.entryList({"page*.pgm"}, QDir::Files, QDir::Name)) {
      images.emplace_back(dir.filePath(name));
    }
    return images;
  }

  std::vector<Word> Words() {
    std::vector<Word> words;
    int page = -1;
    static const QRegularExpression line(
        R"re(<word xMin="([\d.-]+)" yMin="([\d.-]+)"[^>]*>(.*)</word>)re");
    for (const QByteArray& row : RunPoppler("pdftotext", {"-bbox", pdf, "-"}).split('\n')) {
      if (row.contains("<page ")) ++page;
      const auto match = line.match(QString::fromUtf8(row));
      if (!match.hasMatch()) continue;
      words.push_back({page, match.captured(1).toDouble() / 72, match.captured(2).toDouble() / 72,
                       match.captured(3).normalized(QString::NormalizationForm_KC)});
    }
    return words;
  }

  Word Find(const QString& text) {
    for (const Word& word : Words()) {
      if (word.text == text) return word;
    }
    ADD_FAILURE() << "not on the pages: " << text.toStdString();
    return {};
  }

  static bool HasInk(const QImage& image, double left, double right) {
    for (int x = static_cast<int>(left * Dpi); x < static_cast<int>(right * Dpi); ++x) {
      for (int y = 0; y < image.height(); ++y) {
        if (qGray(image.pixel(x, y)) < 128) return true;
      }
    }
    return false;
  }

  double PageWidth() { return Render().at(0).width() / static_cast<double>(Dpi); }

  QTemporaryDir folder;
  QString pdf = folder.filePath("pages.pdf");
  DiskFiles disk{ToText(folder.path())};
  PrintSettings settings{.front = {.name = Text(DefaultFontName), .size = 8.25F},
                         .back = {.name = Text(DefaultFontName), .size = 8.25F},
                         .margin = 5};
  PrintProgress progress = [](int) { return true; };
};

TEST_F(StackPrinterTest, SampleHasItsFrontsAtTheMarginAndItsBacksFromTheMiddle) {
  LoadSample(u"spanish-300-words.QBC");
  PrintPdf();
  const std::vector<QImage> pages = Render();
  ASSERT_GT(pages.size(), 1U);
  const double middle = PageWidth() / 2;
  QPdfWriter device(folder.filePath("measure.pdf"));
  device.setResolution(1440);
  DeviceMeasure measure(device);
  const double margin = PageMargin + 5 * std::nearbyint(measure.TextHeight(settings.front)) / 1440;
  for (std::size_t page = 1; page < pages.size(); ++page) {  // the first has the title
    EXPECT_FALSE(HasInk(pages[page], 0, margin - 0.01));
    EXPECT_TRUE(HasInk(pages[page], margin, margin + 0.1));
    EXPECT_FALSE(HasInk(pages[page], middle - 200.0 / 1440, middle - 0.01));
    EXPECT_TRUE(HasInk(pages[page], middle, middle + 0.1));
  }
}

TEST_F(StackPrinterTest, SamplePrintsEveryCard) {
  LoadSample(u"russian-first-words.QBC");
  PrintPdf();
  QString printed;
  for (const Word& word : Words()) printed += word.text + ' ';
  const CardStack& stack = shared.Stacks.Current();
  for (int card = 1; card <= stack.CardCount; ++card) {
    for (const int side : {Front, Back}) {
      const QString text = ToQString(TrimBlanks(stack.SideText(card, side)));
      EXPECT_TRUE(printed.contains(text)) << text.toStdString();
    }
  }
}

TEST_F(StackPrinterTest, TitleThatWouldBeginLeftOfThePageBeginsAtItsEdge) {
  LoadStack(u"verbs.QBC", 1);
  settings.front.size = 20;
  PrintPdf();
  EXPECT_NEAR(Find("verbs.QBC").left, PageMargin, 0.02);
}

TEST_F(StackPrinterTest, WideBackStandsBelowItsFront) {
  CardStack& stack = LoadStack(u"verbs.QBC", 1);
  stack.SetSideText(1, Front, u"first");
  stack.SetSideText(1, Back, u"second" + Text(120, u'm'));
  PrintPdf();
  const std::vector<Word> words = Words();
  const auto front = std::find_if(words.begin(), words.end(),
                                  [](const Word& word) { return word.text == "first"; });
  ASSERT_NE(front, words.end());
  ASSERT_NE(front + 1, words.end());
  EXPECT_TRUE((front + 1)->text.startsWith("second"));
  EXPECT_GT((front + 1)->left, front->left);
  EXPECT_GT((front + 1)->top, front->top);
}

TEST_F(StackPrinterTest, LinesAreAFontsHeightApart) {
  CardStack& stack = LoadStack(u"verbs.QBC", 2);
  stack.SetSideText(1, Front, u"first");
  stack.SetSideText(2, Front, u"second");
  settings.front.size = 24;
  PrintPdf();
  QPdfWriter device(folder.filePath("measure.pdf"));
  device.setResolution(1440);
  const double height = DeviceMeasure(device).TextHeight(settings.front) / 1440;
  EXPECT_NEAR(Find("second").top - Find("first").top, height, 0.01);
}

TEST_F(StackPrinterTest, AFontsHeightIsItsLineSpacing) {
  QPdfWriter device(folder.filePath("measure.pdf"));
  device.setResolution(1440);
  const QFontMetricsF metrics(QFont(QStringLiteral("Liberation Serif"), 24), &device);
  ASSERT_GT(metrics.leading(), 1) << "this font shall have a gap between its lines";
  EXPECT_NEAR(DeviceMeasure(device).TextHeight({.name = u"Liberation Serif", .size = 24}),
              metrics.lineSpacing(), 1);
}

TEST_F(StackPrinterTest, MeasuresTwipsAtAnyResolution) {
  QPrinter coarse;
  coarse.setOutputFormat(QPrinter::PdfFormat);
  coarse.setResolution(300);
  QPrinter fine;
  fine.setOutputFormat(QPrinter::PdfFormat);
  fine.setResolution(1440);
  DeviceMeasure rough(coarse);
  DeviceMeasure exact(fine);
  EXPECT_DOUBLE_EQ(rough.PageWidth(), exact.PageWidth());
  EXPECT_DOUBLE_EQ(rough.PageHeight(), exact.PageHeight());
  EXPECT_NEAR(rough.TextHeight(settings.front), exact.TextHeight(settings.front), 10);
  EXPECT_NEAR(rough.TextWidth(settings.front, u"measure"),
              exact.TextWidth(settings.front, u"measure"), 20);
}

TEST_F(StackPrinterTest, BlanksHaveAWidth) {
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  DeviceMeasure measure(printer);
  EXPECT_GT(measure.TextWidth(settings.front, u"a   "), measure.TextWidth(settings.front, u"a"));
}

TEST_F(StackPrinterTest, PageIsThePrintableArea) {
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setResolution(1440);
  printer.setPageSize(QPageSize(QPageSize::Letter));
  printer.setPageMargins({36, 72, 36, 72}, QPageLayout::Point);
  DeviceMeasure measure(printer);
  EXPECT_DOUBLE_EQ(measure.PageWidth(), 12'240 - 2 * 720);
  EXPECT_DOUBLE_EQ(measure.PageHeight(), 15'840 - 2 * 1'440);
}

TEST_F(StackPrinterTest, CancelledJobWritesNoFile) {
  LoadStack(u"verbs.QBC", 3);
  progress = [](int cards) { return cards < 2; };
  EXPECT_EQ(PrintToPdf(disk, ToText(pdf), shared.Stacks.Current(), settings, progress),
            FileStatus::Declined);
  EXPECT_FALSE(QFile::exists(pdf));
}

TEST_F(StackPrinterTest, CancelledJobNeverReachesThePrinter) {
  LoadStack(u"verbs.QBC", 3);
  QPrinter printer;
  printer.setOutputFileName(pdf);
  progress = [](int cards) { return cards < 2; };
  EXPECT_EQ(PrintToPrinter(printer, shared.Stacks.Current(), settings, progress),
            FileStatus::Declined);
  EXPECT_FALSE(QFile::exists(pdf));
}

TEST_F(StackPrinterTest, MissingFolderIsAStatus) {
  LoadStack(u"verbs.QBC", 1);
  EXPECT_EQ(PrintToPdf(disk, ToText(folder.filePath("none/pages.pdf")), shared.Stacks.Current(),
                       settings, progress),
            FileStatus::PathNotFound);
}

}  // namespace
