#pragma once
// How much larger or smaller than designed the window comes up, and its fonts with it.

#include "app/rules/twips.h"

#include <cstdint>

/// The width of the largest 4:3 area that the screen holds, so that a wide screen never pushes the
/// window's lower edge out of sight. Logical pixels in;
/// a screen without area counts as the design's own.
float ScreenWidthTwips(std::int32_t widthPixels, std::int32_t heightPixels);

/// 1 means: nothing is scaled.
float ScreenFactor(float screenWidthTwips);

/// Where the window stands. A window on a smaller screen than designed fills its width from the
/// upper left corner on and is a little lower than the proportion says,
/// to leave room for a task bar.
TwipRect ScaledWindow(const TwipRect& design, float factor);

/// What font sizes are multiplied by: they shrink on smaller screens and grow by 1.3 at most.
float FontFactor(float factor);
/// The same for a control's own font. On a screen so small that FontFactor would not fit into the
/// scaled control, the font follows the control.
float ControlFontFactor(float factor);
/// The screens that the window is made for are no smaller than this;
/// on them no text is smaller than SmallestPoints.
inline constexpr float kMinReadableFactor = 0.8F;
/// In points; on still smaller screens it goes down with the screen.
float SmallestPoints(float factor);
/// The fund list and the grids: their rows must hold the same text, so they stay a little smaller
/// on a large screen.
float ListFontFactor(float factor);
float GridFontFactor(float factor);
