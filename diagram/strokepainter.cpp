#include "diagram/strokepainter.h"

#include "diagram/rules/labelplaces.h"

#include <QFontMetricsF>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>

namespace {

constexpr double kOutsideMargin = 8;  // so that the cut ends of thick lines do not show

/// The part of a segment inside `area`, or nothing.
std::optional<QLineF> Clipped(QPointF from, QPointF to, const QRectF& area) {
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
/// highest place there, and where it leaves.
class Piece {
  public:
    explicit Piece(double column) : column_(column) {}

    void Add(QPointF at) {
        const double place = column_ > 0 ? std::floor(at.x() / column_) : 0;
        if (points_.isEmpty() || column_ <= 0 || place != place_) {
            points_.append(at);
            start_ = points_.size() - 1;
            place_ = place;
            return;
        }
        points_.append(at);
        if (points_.size() - start_ > kKept) Thin();
    }
    QPolygonF Take() { return std::move(points_); }

  private:
    static constexpr qsizetype kKept = 4;

    /// Five points in one column: of the three in the middle the two extreme ones stay, in their
    /// order.
    void Thin() {
        const auto middle = points_.begin() + start_ + 1;
        const auto byHeight = [](QPointF a, QPointF b) { return a.y() < b.y(); };
        const auto lowest = std::min_element(middle, middle + 3, byHeight);
        const auto highest = std::max_element(middle, middle + 3, byHeight);
        for (auto drop = middle; drop != middle + 3; ++drop) {
            if (drop == lowest || drop == highest) continue;
            points_.erase(drop);
            return;
        }
    }

    QPolygonF points_;
    qsizetype start_ = 0;
    double column_ = 0, place_ = 0;
};

void DrawLine(QPainter& painter, const Drawing& drawing, const StrokeSurface& surface) {
    QPen pen(ToQColor(drawing.colour), surface.lineWidth);
    pen.setJoinStyle(Qt::BevelJoin);
    painter.setPen(pen);
    for (const QPolygonF& piece : VisiblePieces(drawing.line, surface)) painter.drawPolyline(piece);
}

LabelBox ToBox(const QRectF& rect) {
    return {rect.left(), rect.top(), rect.width(), rect.height()};
}

/// Whether a label belongs into the picture: its curve ends between the left and the right edge.
bool ShowsLabel(const Drawing& drawing, const StrokeSurface& surface) {
    if (drawing.label.empty()) return false;
    const double x = surface.toDevice.map(QPointF(drawing.labelAt.x, drawing.labelAt.y)).x();
    return x >= surface.area.left() && x <= surface.area.right();
}

/// A place for every label that shows, in the drawings' order.
std::vector<LabelBox> LabelPlaces(const QPainter& painter, std::span<const Drawing> drawings,
                                  const StrokeSurface& surface) {
    const QFontMetricsF metrics(painter.font(), painter.device());
    std::vector<LabelBox> wanted;
    for (const Drawing& drawing : drawings) {
        if (!ShowsLabel(drawing, surface)) continue;
        const QPointF at = surface.toDevice.map(QPointF(drawing.labelAt.x, drawing.labelAt.y));
        const double width = metrics.horizontalAdvance(QString::fromStdString(drawing.label));
        wanted.push_back({at.x(), at.y(), width, metrics.ascent()});
    }
    return PlaceLabels(wanted, ToBox(surface.area));
}

void DrawLabel(QPainter& painter, const Drawing& drawing, const StrokeSurface& surface,
               const LabelBox& place) {
    const QString text = QString::fromStdString(drawing.label);
    const QPointF base(place.left, place.Bottom());
    if (surface.halo.isValid()) {
        painter.setPen(surface.halo);
        for (const QPointF shift : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)}) {
            painter.drawText(base + shift, text);
        }
    }
    painter.setPen(ToQColor(drawing.colour));
    painter.drawText(base, text);
}

}  // namespace

QColor ToQColor(Colour colour) {
    return {colour.red, colour.green, colour.blue};
}

std::vector<QPolygonF> VisiblePieces(std::span<const Point> line, const StrokeSurface& surface) {
    std::vector<QPolygonF> pieces;
    if (line.size() < 2) return pieces;
    const QRectF area =
        surface.area.adjusted(-kOutsideMargin, -kOutsideMargin, kOutsideMargin, kOutsideMargin);
    Piece piece(surface.finest);
    bool open = false;
    const auto close = [&] {
        if (open) pieces.push_back(piece.Take());
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

void DrawCurves(QPainter& painter, std::span<const Drawing> drawings,
                const StrokeSurface& surface) {
    painter.save();
    painter.setClipRect(surface.area, Qt::IntersectClip);
    painter.setBrush(Qt::NoBrush);
    const std::vector<LabelBox> places = LabelPlaces(painter, drawings, surface);
    auto place = places.begin();
    for (const Drawing& drawing : drawings) {
        DrawLine(painter, drawing, surface);
        if (ShowsLabel(drawing, surface)) DrawLabel(painter, drawing, surface, *place++);
    }
    painter.restore();
}
