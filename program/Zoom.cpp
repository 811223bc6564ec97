#include "program/Zoom.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array Steps = {SmallestZoom, 75,  ExactZoom, 125, 150,        175,
                              200,          250, 300,       350, LargestZoom};

/// Points. The smallest size of the font dialog (8.25) becomes 14.4, which is 19 pixels.
constexpr float ReadableSize = 14;
constexpr int LargestReadableZoom = 200;

}  // namespace

int LargerZoom(int percent) {
  const auto* const step = std::upper_bound(Steps.begin(), Steps.end(), percent);
  return step == Steps.end() ? Steps.back() : *step;
}

int SmallerZoom(int percent) {
  const auto* const step = std::lower_bound(Steps.begin(), Steps.end(), percent);
  return step == Steps.begin() ? Steps.front() : *(step - 1);
}

int ReadableZoom(float front, float back) {
  const float smaller = std::min(front, back);
  int percent = ExactZoom;
  while (percent < LargestReadableZoom &&
         smaller * static_cast<float>(percent) < ReadableSize * ExactZoom) {
    percent = LargerZoom(percent);
  }
  return percent;
}
