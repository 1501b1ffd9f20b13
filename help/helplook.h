#pragma once
// How the help viewer looks, and its measures: a light page whatever the desktop's theme is.

#include <QPalette>
#include <QString>

namespace helplook {

inline constexpr int kWidth = 980;
inline constexpr int kHeight = 700;
inline constexpr int kLeftWidth = 270;
inline constexpr int kLeftMinimum = 180;
inline constexpr int kSectionHeight = 32;
inline constexpr int kSearchWidth = 240;
inline constexpr int kPageMargin = 28;

QPalette Palette();
QString WindowStyle();
/// `textSize`: the desktop's, as a multiple of 9 points.
QString PageStyle(double textSize);

}  // namespace helplook
