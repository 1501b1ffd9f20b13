#include "app/layout.h"

#include <QFont>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

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
    Panel& panel = panels_[widget];
    panel.width = rect.width;
    panel.height = rect.height;
    SetFont(widget, points, kind);
}

void Layout::SetFont(QWidget* widget, float points, FontKind kind) {
    fonts_.push_back({widget, points, kind});
    ApplyFont(fonts_.back());
}

void Layout::Elastic(const QWidget* panel, Span across, Span down) {
    panels_[panel].across = across;
    panels_[panel].down = down;
}

void Layout::ElasticRow(const QWidget* panel, Span rows, Span across) {
    panels_[panel].rows.push_back({rows, across});
}

void Layout::PlaceAll(const QWidget* client, TwipRect design) {
    client_ = client;
    panels_[client].width = design.width;
    panels_[client].height = design.height;
}

void Layout::AlsoScale(std::function<void(const Scaling&)> scale) {
    also_.push_back(std::move(scale));
}

void Layout::ApplyFont(const WithFont& one) const {
    const float inch = kDesignDotsPerInch / static_cast<float>(one.widget->logicalDpiY());
    const float scaled = one.points * FactorOf(scaling_, one.kind);
    const float points = std::max(scaled, std::min(one.points, scaling_.smallestPoints)) * inch;
    QFont font = one.widget->font();
    // Most have it from what they stand in; a font that is set has the control styled anew.
    if (font.pointSizeF() == static_cast<double>(points)) return;
    font.setPointSizeF(static_cast<double>(points));
    one.widget->setFont(font);
}

TwipRect Layout::PlaceIn(const Panel& panel, const TwipRect& rect) const {
    const auto row = std::find_if(panel.rows.begin(), panel.rows.end(), [&](const Row& one) {
        return rect.top >= one.rows.from && rect.top < one.rows.to;
    });
    const Span elastic = row == panel.rows.end() ? panel.across : row->across;
    const auto across = [&](float x) {
        return Stretched(x, panel.width, elastic, panel.actualWidth, scaling_.rigid.across);
    };
    const auto down = [&](float y) {
        return Stretched(y, panel.height, panel.down, panel.actualHeight, scaling_.rigid.down);
    };
    const float left = across(rect.left), top = down(rect.top);
    return {left, top, across(rect.left + rect.width) - left, down(rect.top + rect.height) - top};
}

void Layout::Apply(const Scaling& scaling) {
    const bool otherFonts =
        scaling.controlFont != scaling_.controlFont || scaling.listFont != scaling_.listFont ||
        scaling.gridFont != scaling_.gridFont || scaling.smallestPoints != scaling_.smallestPoints;
    scaling_ = scaling;
    if (otherFonts) {
        for (const WithFont& one : fonts_) ApplyFont(one);
    }
    Panel& all = panels_[client_];
    all.actualWidth = kLayoutWidth * scaling.window.across;
    // What stands over the client holds text.
    all.actualHeight =
        kLayoutHeight * scaling.window.down - (kLayoutHeight - all.height) * scaling.rigid.down;
    // Panels are placed before what stands in them.
    for (const auto& [widget, rect] : placed_) {
        const TwipRect place = PlaceIn(panels_.at(widget->parentWidget()), rect);
        panels_[widget].actualWidth = place.width;
        panels_[widget].actualHeight = place.height;
        // Edges are rounded, not sizes, so that what is aligned on the design stays aligned.
        const int left = Pixels(place.left), top = Pixels(place.top);
        widget->setGeometry(left, top, Pixels(place.left + place.width) - left,
                            Pixels(place.top + place.height) - top);
    }
    for (const auto& scale : also_) scale(scaling);
}
