#pragma once
// The design's measure and size: 12000 x 9000 twips, 15 to a logical pixel.

struct TwipRect {
    float left = 0, top = 0, width = 0, height = 0;
    bool operator==(const TwipRect&) const = default;
};

inline constexpr float kLayoutWidth = 12000;
inline constexpr float kLayoutHeight = 9000;
inline constexpr float kPixel = 15;
