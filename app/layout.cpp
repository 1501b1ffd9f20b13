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

float FactorOf(const Scaling& scaling, Letters letters) {
    switch (letters) {
        case Letters::List:
            return scaling.listFont;
        case Letters::Grid:
            return scaling.gridFont;
        case Letters::Control:
            break;
    }
    return scaling.controlFont;
}

}  // namespace

int Pixels(float twips) {
    return static_cast<int>(std::lround(twips / kPixel));
}

void Layout::Place(QWidget* widget, TwipRect rect, float points, Letters letters) {
    placed_.push_back({widget, rect});
    Letter(widget, points, letters);
}

void Layout::Letter(QWidget* widget, float points, Letters letters) {
    lettered_.push_back({widget, points, letters});
    ApplyFont(lettered_.back());
}

void Layout::AlsoScale(std::function<void(const Scaling&)> scale) {
    also_.push_back(std::move(scale));
}

void Layout::ApplyFont(const Lettered& lettered) const {
    const float inch = kDesignDotsPerInch / static_cast<float>(lettered.widget->logicalDpiY());
    const float scaled = lettered.points * FactorOf(scaling_, lettered.letters);
    const float points =
        std::max(scaled, std::min(lettered.points, scaling_.smallestPoints)) * inch;
    QFont font = lettered.widget->font();
    font.setPointSizeF(static_cast<double>(points));
    lettered.widget->setFont(font);
}

void Layout::Apply(const Scaling& scaling) {
    const bool otherFonts =
        scaling.controlFont != scaling_.controlFont || scaling.listFont != scaling_.listFont ||
        scaling.gridFont != scaling_.gridFont || scaling.smallestPoints != scaling_.smallestPoints;
    scaling_ = scaling;
    if (otherFonts) {
        for (const Lettered& lettered : lettered_) ApplyFont(lettered);
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
