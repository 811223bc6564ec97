#include "windows/frame/ProgramStyle.h"

#include <QCheckBox>
#include <QImage>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

QPalette DarkPalette() {
  QPalette palette(QColor(45, 45, 48));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, QColor(235, 235, 235));
  }
  palette.setColor(QPalette::Base, QColor(30, 30, 32));
  return palette;
}

/// The contrast of two colours from 1 to 21, by the definition of WCAG 2.
double Contrast(const QColor& one, const QColor& other) {
  const auto luminance = [](const QColor& colour) {
    const auto part = [](double value) {
      return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
           0.0722 * part(colour.blueF());
  };
  const auto [low, high] = std::minmax({luminance(one), luminance(other)});
  return (high + 0.05) / (low + 0.05);
}

/// The highest contrast to the window on the way from the left edge of a control inwards.
double RimContrast(QWidget& control, ProgramStyle& style) {
  control.setStyle(&style);
  control.setPalette(DarkPalette());
  control.resize(control.sizeHint());
  const QImage picture = control.grab().toImage();
  double highest = 1;
  for (int x = 0; x < 6; ++x) {
    const QColor pixel = picture.pixelColor(x, picture.height() / 2);
    highest = std::max(highest, Contrast(pixel, DarkPalette().color(QPalette::Window)));
  }
  return highest;
}

TEST(ProgramStyle, RimsStandOutFromADarkWindow) {
  ProgramStyle style;
  QRadioButton radio;
  QCheckBox check;
  QLineEdit field;
  QPlainTextEdit box;
  EXPECT_GE(RimContrast(radio, style), 3.0);
  EXPECT_GE(RimContrast(check, style), 3.0);
  EXPECT_GE(RimContrast(field, style), 3.0);
  EXPECT_GE(RimContrast(box, style), 3.0);
}

TEST(ProgramStyle, AFieldWithoutAFrameGetsNone) {
  ProgramStyle style;
  QLineEdit field;
  field.setFrame(false);
  EXPECT_LT(RimContrast(field, style), 2.0);
}

TEST(ProgramStyle, ALargeFieldShowsThatItHasTheFocus) {
  ProgramStyle style;
  QWidget window;
  QPlainTextEdit box(&window);
  QLineEdit other(&window);
  box.setStyle(&style);
  other.move(0, 300);
  window.resize(400, 400);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const auto rim = [&box] { return box.grab().toImage().pixelColor(0, box.height() / 2); };
  other.setFocus();
  const QColor without = rim();
  box.setFocus();
  EXPECT_NE(rim(), without);
  EXPECT_EQ(rim(), box.palette().color(QPalette::Highlight));
}

}  // namespace
