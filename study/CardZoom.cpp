#include "study/CardZoom.h"

#include <algorithm>

float CardZoom(int width, int height) {
  const float across = static_cast<float>(width) / SmallestCardWidth;
  const float down = static_cast<float>(height) / SmallestCardHeight;
  return std::clamp(std::min(across, down), 1.0F, LargestCardZoom);
}
