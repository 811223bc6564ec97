#pragma once

/// The smallest card area of a study window, in pixels of a 100 % desktop.
inline constexpr int SmallestCardWidth = 420;
inline constexpr int SmallestCardHeight = 200;
inline constexpr float LargestCardZoom = 4;

/// By how much a card's text is enlarged in a card area of this size: the topic's own font size (1)
/// at the smallest area, then in proportion to the side that has grown less, so that a line that
/// fits goes on fitting; at most LargestCardZoom.
float CardZoom(int width, int height);
