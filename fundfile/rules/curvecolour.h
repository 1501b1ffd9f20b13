#pragma once
// Colours of curves: how the file keeps one, and which one a new holding gets.

#include "base/colour.h"

#include <cstdint>
#include <optional>

/// The colour value of the fund file: red in the lowest byte, then green, then blue;
/// the highest is ignored.
Colour ColourFromValue(std::int32_t value);
std::int32_t ColourValue(Colour colour);

/// The background that curves are drawn on.
inline constexpr Colour kDiagramBackground{253, 253, 250};

/// The curve colour of a new holding: the hue turns by the golden angle from one KontoId to the
/// next, so that no two near ones look alike, and is always dark enough
/// to be read on kDiagramBackground.
Colour NewCurveColour(std::int32_t kontoId);

/// The colour a holding's curve is drawn, shown and offered in: the file's, or the new curve's
/// where the file has none.
Colour CurveColour(std::optional<std::int32_t> value, std::int32_t kontoId);

/// What a colour too pale for the background is edged with: its own hue, dark enough for a thin
/// line. Nothing for a colour that can be seen by itself (3 : 1).
std::optional<Colour> EdgeColour(Colour colour);

/// The contrast ratio of WCAG 2, how far two colours are apart in luminance: 1 (the same) to 21
/// (black on white).
double Contrast(Colour one, Colour other);
