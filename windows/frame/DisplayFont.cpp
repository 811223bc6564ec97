#include "windows/frame/DisplayFont.h"

#include "settings/TopicSettings.h"
#include "windows/frame/QtText.h"

#include <QApplication>

#include <algorithm>

QFont DisplayFont(TextView name, float size, float zoom) {
  constexpr float Smallest = 1;
  QFont font(name.empty() ? QApplication::font().family() : ToQString(name));
  font.setPointSizeF(std::clamp(size, Smallest, LargestDisplaySize) * zoom);
  return font;
}

void RegisterFontSubstitutes() {
  QFont::insertSubstitution(ToQString(DefaultFontName), QApplication::font().family());
}
