#include "app/screenscaling.h"

#include "app/frmPPM.h"
#include "app/rules/screenfactor.h"
#include "app/rules/stretch.h"
#include "platform/platform.h"
#include "platform/screen.h"

#include <QEvent>
#include <QResizeEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr TwipRect kDesign{0, 0, kLayoutWidth, kLayoutHeight};
constexpr float kMaxFontFactor = 1.3F;
constexpr float kWidest = 2.4F;  // of the height: further across no eye follows a line

}  // namespace

ScreenScaling::ScreenScaling(frmPPM& ppm) : Controller(ppm) {
    OnEvent(&window, QEvent::Resize, [this](QEvent& event) {
        Form_Resize(static_cast<const QResizeEvent&>(event).size());
        return false;
    });
    OnEvent(&window, QEvent::ApplicationFontChange, [this](QEvent&) {
        Form_Resize(window.size());
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
    const int widest = static_cast<int>(std::lround(kWidest * static_cast<float>(room.height())));
    const QSize fitting(std::min(room.width(), std::max(widest, window.width())),
                        std::min(room.height(), window.height()));
    if (window.size() != fitting) ComeUpIn(fitting);
}

void ScreenScaling::ComeUpIn(const QSize& size) {
    const float ofHeight = static_cast<float>(size.height()) * kLayoutWidth / kLayoutHeight;
    unresized_ = {std::min(size.width(), static_cast<int>(std::lround(ofHeight))), size.height()};
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
    const float ofDesktop = window.platform.screen.TextSize();
    const float room = kMaxFontToScale * std::min(across, down);
    const auto font = [&](float ofScreen) {
        return std::min(ofDesktop * std::min(ofScreen * byUser, kMaxFontFactor), room);
    };
    const float ofControls = font(ControlFontFactor(factor_));
    window.layout.Apply({{across, down},
                         RigidScales({across, down}, ofControls),
                         ofControls,
                         font(ListFontFactor(factor_)),
                         font(GridFontFactor(factor_)),
                         SmallestPoints(factor_)});
}
