#pragma once

/// How much card texts are enlarged, in per cent of the size that their topic gives them.
inline constexpr int SmallestZoom = 50;
inline constexpr int ExactZoom = 100;
inline constexpr int LargestZoom = 400;

/// The next step up or down: a quarter of the exact size at a time, a half of it above twice that
/// size. The last step stays.
int LargerZoom(int percent);
int SmallerZoom(int percent);

/// The first step from the exact size on at which texts of both sizes can be read at arm's length.
/// @param front, back  a topic's sizes, in points
/// @return at most twice the exact size
int ReadableZoom(float front, float back);
