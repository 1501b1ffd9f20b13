#pragma once
// How a panel follows the window and its font: what holds text keeps its proportion to the font,
// and what can have any size takes the room that is left. Lengths are in twips.

/// Part of a panel's design, across or down.
struct Span {
    float from = 0, to = 0;
    bool operator==(const Span&) const = default;
};

/// The font never grows further than this beyond the window that it stands in.
inline constexpr float kMaxFontToScale = 1.5F;

/// What lengths are multiplied by.
struct Scales {
    float across = 1, down = 1;
    bool operator==(const Scales&) const = default;
};

/// For what holds text of a font `font` times the design's in a window `scale` times the design's:
/// as the window, but never tight around the text. Where a window is far wider or higher than the
/// design's proportions say, the rest is not for the text, whose boxes do not stand hollow.
Scales RigidScales(Scales scale, float font);

/// Where `position` on a panel of the design's `length` comes to stand when the panel is `actual`
/// long: `elastic` takes what the others leave, which are multiplied by `rigid`; by less where it
/// would keep too little. A panel without an elastic part is as a whole one.
float Stretched(float position, float length, Span elastic, float actual, float rigid);
