#include "windows/printing/PrintingServices.h"

#include "settings/TopicSettings.h"
#include "windows/frame/QtText.h"

#include <QFontDatabase>
#include <QPrinter>
#include <QPrinterInfo>

#include <gtest/gtest.h>

namespace {

class DesktopPrinting : public testing::Test {
 protected:
  /// A family whose sizes can be chosen freely.
  static Text ScalableFont() {
    for (const QString& family : QFontDatabase::families()) {
      if (QFontDatabase::isSmoothlyScalable(family)) return ToText(family);
    }
    ADD_FAILURE() << "no scalable font";
    return {};
  }

  const PrintingServices services = DesktopPrintingServices();
};

TEST_F(DesktopPrinting, ListsTheFontsInTheScreensOrder) {
  const QStringList families = QFontDatabase::families();
  const std::vector<Text> names = services.fontNames();
  ASSERT_EQ(names.size(), static_cast<std::size_t>(families.size()));
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(names[i], ToText(families[static_cast<int>(i)]));
  }
}

TEST_F(DesktopPrinting, ScalableFontTakesEverySize) {
  const Text font = ScalableFont();
  for (const float size : {1.F, 5.5F, 8.25F, 31.9F, 32.F}) {
    const ShownFont shown = services.showFont(font, size);
    EXPECT_EQ(shown.size, size);
    EXPECT_TRUE(shown.sameName);
  }
}

TEST_F(DesktopPrinting, FontsThatAreNotHereTakeEverySize) {
  for (const TextView font : {DefaultFontName, TextView(u"No Such Font")}) {
    const ShownFont shown = services.showFont(font, 7);
    EXPECT_EQ(shown.size, 7);
    EXPECT_TRUE(shown.sameName);
  }
}

TEST_F(DesktopPrinting, FindsAPrinterWhereThereIsOne) {
  EXPECT_EQ(services.defaultPrinter() != nullptr, !QPrinterInfo::availablePrinterNames().isEmpty());
}

TEST_F(DesktopPrinting, LongJobsShowTheirProgressAfterASecond) {
  EXPECT_EQ(services.progressDelay, 1000);
}

}  // namespace
