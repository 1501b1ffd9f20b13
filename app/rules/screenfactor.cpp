#include "app/rules/screenfactor.h"

#include <algorithm>

namespace {

constexpr float kSmallWindowHeightTwips = 8550;

// Bands of the factor and what belongs to them.
constexpr float kLarge = 1.2F;
constexpr float kDesigned = 1.0F;
constexpr float kTiny = 0.5F;
constexpr float kMaxFontFactor = 1.3F;
constexpr float kSmallFont = 0.78F;
constexpr float kLargeListFont = 1.25F;
constexpr float kLargeGridFont = 1.2F;
constexpr float kMinFontFactor = 0.5F;

/// Fonts in a list: as a control's, but never so small that nobody can read them.
float RowFontFactor(float factor, float large) {
    if (factor < kTiny) return kMinFontFactor;
    return std::min(ControlFontFactor(factor), large);
}

}  // namespace

float ScreenWidthTwips(std::int32_t widthPixels, std::int32_t heightPixels) {
    if (widthPixels <= 0 || heightPixels <= 0) return kLayoutWidth;
    const float fitting =
        std::min(static_cast<float>(widthPixels), static_cast<float>(heightPixels) * 4.0F / 3.0F);
    return fitting * kPixel;
}

float ScreenFactor(float screenWidthTwips) {
    return screenWidthTwips / kLayoutWidth;
}

TwipRect ScaledWindow(const TwipRect& design, float factor) {
    if (factor < kDesigned) {
        return {0, 0, kLayoutWidth * factor, kSmallWindowHeightTwips * factor};
    }
    return {design.left * factor, design.top * factor, design.width * factor,
            design.height * factor};
}

float FontFactor(float factor) {
    if (factor >= kLarge) return kMaxFontFactor;
    return factor < kDesigned ? kSmallFont : factor;
}

float ControlFontFactor(float factor) {
    return factor < kDesigned ? std::min(FontFactor(factor), factor) : FontFactor(factor);
}

float SmallestPoints(float factor) {
    constexpr float kReadablePoints = 8;
    return kReadablePoints * std::min(1.0F, factor / kMinReadableFactor);
}

float ListFontFactor(float factor) {
    return RowFontFactor(factor, kLargeListFont);
}

float GridFontFactor(float factor) {
    return RowFontFactor(factor, kLargeGridFont);
}
