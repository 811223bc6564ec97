#include "settings/DisplayFont.h"

#include "base/QtText.h"
#include "settings/TopicSettings.h"

#include <QApplication>

#include <algorithm>

QFont DisplayFont(TextView name, float size) {
  constexpr float Smallest = 1;
  constexpr float Largest = 400;
  QFont font(name.empty() ? QApplication::font().family() : ToQString(name));
  font.setPointSizeF(std::clamp(size, Smallest, Largest));
  return font;
}

void RegisterFontSubstitutes() {
  QFont::insertSubstitution(ToQString(DefaultFontName), QApplication::font().family());
}
