#include "app/layout.h"

#include <QFont>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// A point is a 72nd of an inch of the design, whatever the desktop takes an inch to be: the text
// keeps its proportion to the control it stands in.
constexpr float kDesignDotsPerInch = 96;

float FactorOf(const Scaling& scaling, FontKind kind) {
    switch (kind) {
        case FontKind::List:
            return scaling.listFont;
        case FontKind::Grid:
            return scaling.gridFont;
        case FontKind::Control:
            break;
    }
    return scaling.controlFont;
}

}  // namespace

int Pixels(float twips) {
    return static_cast<int>(std::lround(twips / kPixel));
}

void Layout::Place(QWidget* widget, TwipRect rect, float points, FontKind kind) {
    placed_.push_back({widget, rect});
    SetFont(widget, points, kind);
}

void Layout::SetFont(QWidget* widget, float points, FontKind kind) {
    fonts_.push_back({widget, points, kind});
    ApplyFont(fonts_.back());
}

void Layout::AlsoScale(std::function<void(const Scaling&)> scale) {
    also_.push_back(std::move(scale));
}

void Layout::ApplyFont(const WithFont& one) const {
    const float inch = kDesignDotsPerInch / static_cast<float>(one.widget->logicalDpiY());
    const float scaled = one.points * FactorOf(scaling_, one.kind);
    const float points = std::max(scaled, std::min(one.points, scaling_.smallestPoints)) * inch;
    QFont font = one.widget->font();
    font.setPointSizeF(static_cast<double>(points));
    one.widget->setFont(font);
}

void Layout::Apply(const Scaling& scaling) {
    const bool otherFonts =
        scaling.controlFont != scaling_.controlFont || scaling.listFont != scaling_.listFont ||
        scaling.gridFont != scaling_.gridFont || scaling.smallestPoints != scaling_.smallestPoints;
    scaling_ = scaling;
    if (otherFonts) {
        for (const WithFont& one : fonts_) ApplyFont(one);
    }
    for (const auto& [widget, rect] : placed_) {
        // Edges are rounded, not sizes, so that what is aligned on the design stays aligned.
        const int left = Pixels(rect.left * scaling.across);
        const int top = Pixels(rect.top * scaling.down);
        const int right = Pixels((rect.left + rect.width) * scaling.across);
        const int bottom = Pixels((rect.top + rect.height) * scaling.down);
        widget->setGeometry(left, top, right - left, bottom - top);
    }
    for (const auto& scale : also_) scale(scaling);
}
