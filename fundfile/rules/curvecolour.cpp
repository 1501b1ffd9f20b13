#include "fundfile/rules/curvecolour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr double kGoldenAngle = std::numbers::pi * (3 - 2.2360679774997896964);  // pi (3 - root 5)
constexpr double kFirstHue = 2.1;  // the first holding's colour is blue
constexpr double kMaxChroma = 0.19;
constexpr double kChromaStep = 0.005;
constexpr double kLightnessStep = 0.01;
constexpr double kReadable = 4.5;  // the contrast ratio that WCAG 2 asks for small text
constexpr double kVisible = 3;     // and for what is drawn
constexpr double kDarkerStep = 0.96;

/// Neighbours in hue are 5, 8 or 13 holdings apart; three lightnesses in turn tell them apart, too.
constexpr std::array<double, 3> kLightnesses{0.36, 0.57, 0.46};

using Linear = std::array<double, 3>;

/// A colour of even steps to the eye (lightness, chroma, hue) as linear red, green and blue: from
/// OKLab in its polar form (B. Ottosson, "A perceptual color space for image processing", 2020).
/// The two matrices are those of its definition.
Linear ToLinear(double lightness, double chroma, double hue) {
    const double a = chroma * std::cos(hue), b = chroma * std::sin(hue);
    const double l = std::pow(lightness + 0.3963377774 * a + 0.2158037573 * b, 3);
    const double m = std::pow(lightness - 0.1055613458 * a - 0.0638541728 * b, 3);
    const double s = std::pow(lightness - 0.0894841775 * a - 1.2914855480 * b, 3);
    return {4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
            -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
            -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s};
}

bool Displayable(const Linear& colour) {
    return std::all_of(colour.begin(), colour.end(),
                       [](double part) { return part >= 0 && part <= 1; });
}

std::uint8_t Encoded(double linear) {
    const double coded =
        linear <= 0.0031308 ? 12.92 * linear : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
    return static_cast<std::uint8_t>(std::lround(std::clamp(coded, 0.0, 1.0) * 255));
}

double Decoded(std::uint8_t part) {
    const double coded = part / 255.0;
    return coded <= 0.04045 ? coded / 12.92 : std::pow((coded + 0.055) / 1.055, 2.4);
}

/// Relative luminance as the contrast of WCAG 2 is defined on it (W3C, "Web Content Accessibility
/// Guidelines"): the linear parts of the screen's colour space sRGB, weighted by what the eye sees.
double Luminance(Colour colour) {
    return 0.2126 * Decoded(colour.red) + 0.7152 * Decoded(colour.green) +
           0.0722 * Decoded(colour.blue);
}

/// The strongest colour of this lightness and hue that a screen can show.
Colour Strongest(double lightness, double hue) {
    double chroma = kMaxChroma;
    while (chroma > 0 && !Displayable(ToLinear(lightness, chroma, hue))) chroma -= kChromaStep;
    const Linear linear = ToLinear(lightness, std::max(chroma, 0.0), hue);
    return {Encoded(linear[0]), Encoded(linear[1]), Encoded(linear[2])};
}

}  // namespace

Colour ColourFromValue(std::int32_t value) {
    const auto bits = static_cast<std::uint32_t>(value);
    const auto part = [&](unsigned shift) {
        return static_cast<std::uint8_t>((bits >> shift) & 0xFFu);
    };
    return {part(0), part(8), part(16)};
}

std::int32_t ColourValue(Colour colour) {
    return colour.red + (colour.green << 8) + (colour.blue << 16);
}

Colour NewCurveColour(std::int32_t kontoId) {
    const auto turn = static_cast<double>(std::int64_t{kontoId} - 1);
    const double hue = std::fmod(turn * kGoldenAngle, 2 * std::numbers::pi) - kFirstHue;
    const auto place = static_cast<std::size_t>(static_cast<std::uint32_t>(kontoId) % 3);
    double lightness = kLightnesses[place];
    Colour colour = Strongest(lightness, hue);
    while (Contrast(colour, kDiagramBackground) < kReadable && lightness > 0) {
        lightness -= kLightnessStep;
        colour = Strongest(lightness, hue);
    }
    return colour;
}

Colour CurveColour(std::optional<std::int32_t> value, std::int32_t kontoId) {
    return value ? ColourFromValue(*value) : NewCurveColour(kontoId);
}

std::optional<Colour> EdgeColour(Colour colour) {
    if (Contrast(colour, kDiagramBackground) >= kVisible) return std::nullopt;
    const auto darker = [](std::uint8_t part) {
        return static_cast<std::uint8_t>(part * kDarkerStep);
    };
    // A thin edge is smoothed into its ground and needs more than what can just be seen.
    while (Contrast(colour, kDiagramBackground) < kReadable) {
        colour = {darker(colour.red), darker(colour.green), darker(colour.blue)};
    }
    return colour;
}

double Contrast(Colour one, Colour other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}
