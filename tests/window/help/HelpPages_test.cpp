// The pages of the help as they lie in the built help file: no link and no picture leads nowhere.

#include "windows/help/HelpBook.h"

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QRegularExpression>

#include <gtest/gtest.h>
#include <vector>

namespace {

struct Page {
  QUrl address;
  QString content;
};

class HelpPagesTest : public testing::Test {
 protected:
  HelpPagesTest()
      : book(QDir(QCoreApplication::applicationDirPath())
                 .filePath(QStringLiteral("../../bin/quib.HLP"))) {
    const QUrl start = book.PageOf(HelpContext::Index);
    const QDir sources(QStringLiteral(QUIB_SOURCE_DIR "/help"));
    for (const QString& name : sources.entryList({QStringLiteral("*.html")})) {
      const QUrl address = start.resolved(QUrl(name));
      pages.push_back({address, QString::fromUtf8(book.Data(address))});
    }
  }

  /// What the attribute of an element is, on each of its places in a page.
  static std::vector<QString> Values(const Page& page, const QString& element,
                                     const QString& attribute) {
    const QRegularExpression pattern(
        QStringLiteral("<%1\\b[^>]*\\b%2=\"([^\"]*)\"").arg(element, attribute));
    std::vector<QString> values;
    for (auto match = pattern.globalMatch(page.content); match.hasNext();) {
      values.push_back(match.next().captured(1));
    }
    return values;
  }

  HelpBook book;
  std::vector<Page> pages;
};

TEST_F(HelpPagesTest, AreAllInTheHelpFile) {
  ASSERT_GT(pages.size(), 20U);
  for (const Page& page : pages)
    EXPECT_FALSE(page.content.isEmpty()) << qPrintable(page.address.toString());
}

TEST_F(HelpPagesTest, LinksLeadToPagesAndPlacesThatExist) {
  for (const Page& page : pages) {
    for (const QString& link : Values(page, QStringLiteral("a"), QStringLiteral("href"))) {
      const QUrl target = page.address.resolved(QUrl(link));
      const QString content = QString::fromUtf8(book.Data(target.adjusted(QUrl::RemoveFragment)));
      EXPECT_FALSE(content.isEmpty())
          << link.toStdString() << " in " << qPrintable(page.address.toString());
      if (!target.hasFragment()) continue;
      EXPECT_TRUE(content.contains(QStringLiteral("id=\"%1\"").arg(target.fragment())))
          << link.toStdString() << " in " << qPrintable(page.address.toString());
    }
  }
}

TEST_F(HelpPagesTest, PicturesAreThereAndSayWhatTheyShow) {
  int pictures = 0;
  for (const Page& page : pages) {
    for (const QString& name : Values(page, QStringLiteral("img"), QStringLiteral("src"))) {
      ++pictures;
      const QImage picture = QImage::fromData(book.Data(page.address.resolved(QUrl(name))));
      EXPECT_FALSE(picture.isNull())
          << name.toStdString() << " in " << qPrintable(page.address.toString());
    }
    const QString content = page.content;
    EXPECT_EQ(content.count(QStringLiteral("<img")),
              content.count(QRegularExpression(QStringLiteral("<img [^>]*alt=\"[^\"]+\""))))
        << qPrintable(page.address.toString());
  }
  EXPECT_GT(pictures, 10);
}

}  // namespace
