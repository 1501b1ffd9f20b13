#include "widgets/curvenumbers.h"

#include "platform/qttext.h"
#include "widgets/colours.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QLineF>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <cstddef>
#include <utility>

namespace {

constexpr double kLabelGap = 0.3;        // of a character, between a curve's end and its number
constexpr double kLeaderWidth = 0.8;     // of a halo's width
constexpr double kColumnsPerHeight = 8;  // as fine as the places of numbers are found

LabelBox ToBox(const QRectF& rect) {
    return {rect.left(), rect.top(), rect.width(), rect.height()};
}

Point ToPoint(QPointF at) {
    return {at.x(), at.y()};
}

/// Whether a number belongs into the picture: its curve ends between the left and the right edge.
bool ShowsNumber(const Drawing& drawing, const StrokeSurface& surface) {
    if (drawing.label.empty()) return false;
    const double x = surface.toDevice.map(QPointF(drawing.end.x, drawing.end.y)).x();
    return x >= surface.area.left() && x <= surface.area.right();
}

/// A colour that can be read on the ground: the curve's, or its edge's.
QColor PenColour(const Drawing& drawing) {
    return ToQColor(EdgeColour(drawing.colour).value_or(drawing.colour));
}

class Numbers {
  public:
    Numbers(const QPainter& painter, std::span<const Drawing> drawings,
            std::span<const std::vector<QPolygonF>> pieces, const StrokeSurface& surface)
        : metrics_(painter.font(), painter.device()), drawings_(drawings), surface_(surface) {
        const double pitch = metrics_.ascent() / kColumnsPerHeight;
        for (std::size_t curve = 0; curve < drawings.size(); ++curve) {
            extents_.emplace_back(surface.area.left(), surface.area.right(), pitch);
            AddTo(extents_.back(), pieces[curve], drawings[curve]);
        }
    }

    std::vector<NumberPlace> AtEnds() const {
        const double gap = metrics_.averageCharWidth() * kLabelGap;
        std::vector<EndNumber> wishes;
        for (std::size_t curve = 0; curve < drawings_.size(); ++curve) {
            const Drawing& drawing = drawings_[curve];
            if (!ShowsNumber(drawing, surface_)) continue;
            const NumberSize size = SizeOf(drawing);
            const QPointF end = surface_.toDevice.map(QPointF(drawing.end.x, drawing.end.y));
            const QPointF at = surface_.toDevice.map(QPointF(drawing.labelAt.x, drawing.labelAt.y));
            wishes.push_back({curve, ToPoint(end), at.y(), size.width, size.height});
        }
        return PlaceEndNumbers(wishes, extents_, ToBox(surface_.area.adjusted(gap, 0, -gap, 0)),
                               gap);
    }

    std::vector<NumberPlace> Along(std::span<const NumberPlace> ends) const {
        if (drawings_.size() < surface_.repeatFrom) return {};
        std::vector<NumberSize> sizes;
        for (const Drawing& drawing : drawings_) sizes.push_back(SizeOf(drawing));
        std::vector<LabelBox> taken;
        for (const NumberPlace& end : ends) taken.push_back(end.box);
        return PlaceAlongCurves(sizes, extents_, std::move(taken), ToBox(surface_.area));
    }

    std::vector<CurveExtent> TakeExtents() { return std::move(extents_); }

  private:
    NumberSize SizeOf(const Drawing& drawing) const {
        return {metrics_.horizontalAdvance(ToQt(drawing.label)), metrics_.ascent()};
    }
    void AddTo(CurveExtent& extent, const std::vector<QPolygonF>& pieces,
               const Drawing& drawing) const {
        for (const QPolygonF& piece : pieces) {
            for (qsizetype at = 1; at < piece.size(); ++at) {
                extent.AddLine(ToPoint(piece[at - 1]), ToPoint(piece[at]));
            }
        }
        // Where nothing is joined the number stands at the only point.
        const QPointF end = surface_.toDevice.map(QPointF(drawing.end.x, drawing.end.y));
        if (pieces.empty() && !drawing.label.empty()) extent.AddDot(ToPoint(end));
    }

    QFontMetricsF metrics_;
    std::span<const Drawing> drawings_;
    const StrokeSurface& surface_;
    std::vector<CurveExtent> extents_;
};

void DrawLeader(QPainter& painter, const Drawing& drawing, const Leader& leader,
                const StrokeSurface& surface) {
    painter.setPen(QPen(PenColour(drawing), kLeaderWidth * surface.haloWidth));
    painter.drawLine(QPointF(leader.from.x, leader.from.y), QPointF(leader.to.x, leader.to.y));
}

bool IsScreen(const QPainter& painter) {
    return painter.paintEngine()->type() == QPaintEngine::Raster;
}

void DrawText(QPainter& painter, const Drawing& drawing, const LabelBox& place,
              QPointF beside = {}) {
    painter.drawText(QPointF(place.left, place.Bottom()) + beside, ToQt(drawing.label));
}

QPainterPath Outline(const QPainter& painter, const Drawing& drawing, const LabelBox& place) {
    QPainterPath outline;
    outline.addText(QPointF(place.left, place.Bottom()), QFont(painter.font(), painter.device()),
                    ToQt(drawing.label));
    return outline;
}

/// On paper a halo is the stroke of an outline: whoever searches or copies from a page finds each
/// number once. On the screen it is the text itself, moved a little to all sides, which takes a
/// fifth of the time.
void DrawHalo(QPainter& painter, const Drawing& drawing, const LabelBox& place,
              const StrokeSurface& surface) {
    if (!surface.halo.isValid()) return;
    const double width = surface.haloWidth;
    if (!IsScreen(painter)) {
        painter.strokePath(
            Outline(painter, drawing, place),
            QPen(surface.halo, 2 * width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        return;
    }
    painter.setPen(surface.halo);
    for (const double right : {-width, 0.0, width}) {
        for (const double down : {-width, 0.0, width}) {
            if (right != 0 || down != 0) DrawText(painter, drawing, place, {right, down});
        }
    }
}

}  // namespace

DrawnCurves DrawNumbers(QPainter& painter, std::span<const Drawing> drawings,
                        std::span<const std::vector<QPolygonF>> pieces,
                        const StrokeSurface& surface) {
    Numbers numbers(painter, drawings, pieces, surface);
    std::vector<NumberPlace> ends = numbers.AtEnds();
    for (const NumberPlace& number : numbers.Along(ends)) {
        const Drawing& drawing = drawings[number.curve];
        if (IsScreen(painter)) {
            DrawNumber(painter, drawing, number.box, surface);
        } else {
            DrawHalo(painter, drawing, number.box, surface);
            painter.fillPath(Outline(painter, drawing, number.box), PenColour(drawing));
        }
    }
    for (const NumberPlace& number : ends) {
        if (number.leader) DrawLeader(painter, drawings[number.curve], *number.leader, surface);
    }
    for (const NumberPlace& number : ends) {
        DrawNumber(painter, drawings[number.curve], number.box, surface);
    }
    return {std::move(ends), numbers.TakeExtents()};
}

void DrawNumber(QPainter& painter, const Drawing& drawing, const LabelBox& place,
                const StrokeSurface& surface) {
    DrawHalo(painter, drawing, place, surface);
    painter.setPen(PenColour(drawing));
    DrawText(painter, drawing, place);
}
