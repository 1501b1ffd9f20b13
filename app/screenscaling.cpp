#include "app/screenscaling.h"

#include "app/frmPPM.h"
#include "app/rules/screenfactor.h"

#include <QEvent>
#include <QResizeEvent>

#include <algorithm>

namespace {

constexpr TwipRect kDesign{0, 0, kLayoutWidth, kLayoutHeight};
constexpr float kMaxFontFactor = 1.3F;

}  // namespace

ScreenScaling::ScreenScaling(frmPPM& ppm) : Controller(ppm) {
    OnEvent(&window, QEvent::Resize, [this](QEvent& event) {
        Form_Resize(static_cast<const QResizeEvent&>(event).size());
        return false;
    });
    ComeUpIn({Pixels(kLayoutWidth), Pixels(kLayoutHeight)});
}

void ScreenScaling::ScaleToScreen(float factor) {
    factor_ = factor;
    const TwipRect scaled = ScaledWindow(kDesign, factor);
    if (factor < 1.0F) window.move(Pixels(scaled.left), Pixels(scaled.top));
    ComeUpIn({Pixels(scaled.width), Pixels(scaled.height)});
}

void ScreenScaling::FitInto(const QSize& room) {
    if (window.size() != window.size().boundedTo(room)) ComeUpIn(window.size().boundedTo(room));
}

void ScreenScaling::ComeUpIn(const QSize& size) {
    unresized_ = size;
    // No smaller than the smallest font needs, which is what fits on the smallest screen.
    const TwipRect smallest = ScaledWindow(kDesign, kMinReadableFactor);
    const QSize least(Pixels(smallest.width), Pixels(smallest.height));
    window.setMinimumSize(least.boundedTo(size));
    window.resize(size);
    Form_Resize(window.size());
}

void ScreenScaling::Form_Resize(const QSize& size) {
    const float across = static_cast<float>(size.width()) * kPixel / kLayoutWidth;
    const float down = static_cast<float>(size.height()) * kPixel / kLayoutHeight;
    // The user's own resizing takes the fonts along from what the screen gave them, without a jump.
    const auto share = [](int now, int then) {
        return static_cast<float>(now) / static_cast<float>(then);
    };
    const float byUser = std::min(
        {1.0F, share(size.width(), unresized_.width()), share(size.height(), unresized_.height())});
    const auto font = [&](float ofScreen) { return std::min(ofScreen * byUser, kMaxFontFactor); };
    window.layout.Apply({across, down, font(ControlFontFactor(factor_)),
                         font(ListFontFactor(factor_)), font(GridFontFactor(factor_)),
                         SmallestPoints(factor_)});
}
