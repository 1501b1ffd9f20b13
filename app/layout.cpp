#include "app/layout.h"

#include <QFont>
#include <QWidget>

#include <cmath>

namespace {

constexpr float kPixelsPerInch = 96;

int Pixels(float twips) {
    return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}

}  // namespace

void Layout::Place(QWidget* widget, TwipRect rect, float points) {
    placed_.push_back({widget, rect, points});
}

void Layout::AlsoScale(std::function<void(float, float, float)> scale) {
    also_.push_back(std::move(scale));
}

void Layout::Apply(float across, float down, float font) {
    across_ = across;
    down_ = down;
    font_ = font;
    for (const Placed& placed : placed_) {
        // Edges are rounded, not sizes, so that what is aligned on the design stays aligned.
        const TwipRect& rect = placed.rect;
        const int left = Pixels(rect.left * across);
        const int top = Pixels(rect.top * down);
        const int right = Pixels((rect.left + rect.width) * across);
        const int bottom = Pixels((rect.top + rect.height) * down);
        QFont scaled = placed.widget->font();
        // A point is a 72nd of an inch of the design, whatever the desktop takes an inch to be: the
        // text keeps its proportion to the control it stands in.
        const float inch = kPixelsPerInch / static_cast<float>(placed.widget->logicalDpiY());
        scaled.setPointSizeF(static_cast<double>(placed.points * font * inch));
        placed.widget->setFont(scaled);
        placed.widget->setGeometry(left, top, right - left, bottom - top);
    }
    for (const auto& scale : also_) scale(across, down, font);
}
