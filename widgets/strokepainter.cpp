#include "widgets/strokepainter.h"

#include "widgets/colours.h"
#include "widgets/curvenumbers.h"

#include <QLineF>
#include <QPen>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace {

constexpr double kLitWider = 1.6;
constexpr double kLitHalo = 1.5;
constexpr double kOutsideMargin = 8;  // so that the cut ends of thick lines do not show

/// Both on one outer side of `area`: most of a long series lies left of the window.
bool Beside(QPointF from, QPointF to, const QRectF& area) {
    return (from.x() < area.left() && to.x() < area.left()) ||
           (from.x() > area.right() && to.x() > area.right());
}

/// The part of a segment inside `area`, or nothing. Line clipping after Liang and Barsky ("A new
/// concept and method for line clipping", ACM Transactions on Graphics 3, 1984): the segment is a
/// parameter from 0 to 1, and each edge moves the place where it enters or where it leaves.
std::optional<QLineF> Clipped(QPointF from, QPointF to, const QRectF& area) {
    if (Beside(from, to, area)) return std::nullopt;
    if (area.contains(from) && area.contains(to)) return QLineF(from, to);
    const double dx = to.x() - from.x(), dy = to.y() - from.y();
    double enter = 0, leave = 1;
    const std::array<std::pair<double, double>, 4> edges{{{-dx, from.x() - area.left()},
                                                          {dx, area.right() - from.x()},
                                                          {-dy, from.y() - area.top()},
                                                          {dy, area.bottom() - from.y()}}};
    for (const auto& [slope, distance] : edges) {
        if (slope == 0) {
            if (distance < 0) return std::nullopt;
            continue;
        }
        const double at = distance / slope;
        if (slope < 0) {
            enter = std::max(enter, at);
        } else {
            leave = std::min(leave, at);
        }
        if (enter > leave) return std::nullopt;
    }
    return QLineF(from.x() + enter * dx, from.y() + enter * dy, from.x() + leave * dx,
                  from.y() + leave * dy);
}

/// Collects points and keeps of each column no more than where the line enters it, its lowest and
/// highest place there, and where it leaves. This is min-max decimation, in the form called M4
/// (Jugel and others, VLDB 2014): a line drawn through these points fills the same pixels.
class Piece {
  public:
    explicit Piece(double column) : perColumn_(column > 0 ? 1 / column : 0) {}

    void Add(QPointF at) {
        if (perColumn_ == 0) {
            points_.append(at);
            return;
        }
        const double place = std::floor(at.x() * perColumn_);
        if (count_ == 0 || place != place_) {
            EndColumn();
            place_ = place;
            first_ = low_ = high_ = at;
        } else if (at.y() < low_.y()) {
            low_ = at;
            lowAt_ = count_;
        } else if (at.y() > high_.y()) {
            high_ = at;
            highAt_ = count_;
        }
        last_ = at;
        ++count_;
    }
    QPolygonF Take() {
        EndColumn();
        return std::move(points_);
    }

  private:
    void EndColumn() {
        if (count_ > 0) points_.append(first_);
        AppendExtreme(std::min(lowAt_, highAt_));
        if (lowAt_ != highAt_) AppendExtreme(std::max(lowAt_, highAt_));
        if (count_ > 1) points_.append(last_);
        count_ = lowAt_ = highAt_ = 0;
    }
    void AppendExtreme(int at) {
        if (at > 0 && at < count_ - 1) points_.append(at == lowAt_ ? low_ : high_);
    }

    QPolygonF points_;
    double perColumn_ = 0, place_ = 0;
    QPointF first_, low_, high_, last_;
    int count_ = 0, lowAt_ = 0, highAt_ = 0;
};

void DrawPieces(QPainter& painter, const std::vector<QPolygonF>& pieces, Colour colour,
                double width) {
    QPen pen(ToQColor(colour), width);
    pen.setJoinStyle(Qt::BevelJoin);
    painter.setPen(pen);
    for (const QPolygonF& piece : pieces) painter.drawPolyline(piece);
}

/// A curve too pale for the background has an edge of a darker shade.
void DrawLine(QPainter& painter, const std::vector<QPolygonF>& pieces, Colour colour,
              const StrokeSurface& surface) {
    if (const auto edge = EdgeColour(colour)) {
        DrawPieces(painter, pieces, *edge, surface.lineWidth + 2 * surface.edgeWidth);
    }
    DrawPieces(painter, pieces, colour, surface.lineWidth);
}

}  // namespace

std::vector<QPolygonF> VisiblePieces(std::span<const Point> line, const StrokeSurface& surface) {
    std::vector<QPolygonF> pieces;
    if (line.size() < 2) return pieces;
    const QRectF area =
        surface.area.adjusted(-kOutsideMargin, -kOutsideMargin, kOutsideMargin, kOutsideMargin);
    Piece piece(surface.finest);
    bool open = false;
    const auto close = [&] {
        if (!open) return;
        pieces.push_back(piece.Take());
        piece = Piece(surface.finest);
        open = false;
    };
    const auto map = [&](const Point& at) { return surface.toDevice.map(QPointF(at.x, at.y)); };
    QPointF from = map(line.front());
    for (const Point& point : line.subspan(1)) {
        const QPointF to = map(point);
        if (const auto part = Clipped(from, to, area)) {
            if (!open || part->p1() != from) {
                close();
                piece.Add(part->p1());
                open = true;
            }
            piece.Add(part->p2());
            if (part->p2() != to) close();
        } else {
            close();
        }
        from = to;
    }
    close();
    return pieces;
}

DrawnCurves DrawCurves(QPainter& painter, std::span<const Drawing> drawings,
                       const StrokeSurface& surface) {
    painter.save();
    painter.setClipRect(surface.area, Qt::IntersectClip);
    painter.setBrush(Qt::NoBrush);
    std::vector<std::vector<QPolygonF>> pieces;
    for (const Drawing& drawing : drawings) {
        pieces.push_back(VisiblePieces(drawing.line, surface));
        DrawLine(painter, pieces.back(), drawing.colour, surface);
    }
    DrawnCurves drawn = DrawNumbers(painter, drawings, pieces, surface);
    painter.restore();
    return drawn;
}

void DrawLitCurve(QPainter& painter, const Drawing& drawing, const StrokeSurface& surface) {
    painter.save();
    painter.setClipRect(surface.area, Qt::IntersectClip);
    painter.setBrush(Qt::NoBrush);
    const std::vector<QPolygonF> pieces = VisiblePieces(drawing.line, surface);
    StrokeSurface strong = surface;
    strong.lineWidth = surface.lineWidth + kLitWider;
    QPen halo(surface.halo, strong.lineWidth + 2 * kLitHalo);
    halo.setJoinStyle(Qt::BevelJoin);
    painter.setPen(halo);
    for (const QPolygonF& piece : pieces) painter.drawPolyline(piece);
    DrawLine(painter, pieces, drawing.colour, strong);
    painter.restore();
}
