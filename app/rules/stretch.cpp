#include "app/rules/stretch.h"

#include <algorithm>

namespace {

// The design has room to spare around its text. So much of it the text may take ...
constexpr Scales kTight{0.92F, 0.84F};
// ... and with so much more a box looks hollow.
constexpr float kHollow = 1.55F;
// A window no further from the design's proportions is scaled as a whole.
constexpr float kWide = 1.15F;
// What an elastic part keeps of the share that it has on the design.
constexpr float kLeastElastic = 0.5F;

// How far a window is beyond the proportions in which it is scaled as a whole: 1 within them.
float BeyondProportions(Scales scale) {
    return std::max({1.0F, scale.across / scale.down / kWide, scale.down / scale.across / kWide});
}

// The limit against hollow boxes comes up without a jump where the proportions end.
float Rigid(float scale, float otherScale, float font, float tight, float beyond) {
    const float most = std::min(scale, kWide * otherScale);
    const float full = std::max(kHollow * font, most / beyond);
    return std::clamp(most, tight * font, std::max(full, tight * font));
}

}  // namespace

Scales RigidScales(Scales scale, float font) {
    const float beyond = BeyondProportions(scale);
    return {Rigid(scale.across, scale.down, font, kTight.across, beyond),
            Rigid(scale.down, scale.across, font, kTight.down, beyond)};
}

float Stretched(float position, float length, Span elastic, float actual, float rigid) {
    const float room = elastic.to - elastic.from;
    const float others = length - room;
    if (room <= 0 || others <= 0) return position * actual / length;
    const float least = kLeastElastic * room * actual / length;
    const float scale = std::min(rigid, (actual - least) / others);
    if (position <= elastic.from) return position * scale;
    if (position >= elastic.to) return actual - (length - position) * scale;
    return elastic.from * scale + (position - elastic.from) * (actual - others * scale) / room;
}
