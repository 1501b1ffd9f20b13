#include "diagram/strokepainter.h"

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

/// Labels drawn so far, so that the next one finds a free place.
class LabelPlaces {
  public:
    explicit LabelPlaces(QRectF area) : area_(area) {}

    QRectF Take(QRectF wanted) {
        const QRectF inside = Inward(wanted);
        const QRectF place = Free(inside).value_or(inside);
        taken_.push_back(place);
        return place;
    }

  private:
    static constexpr int kTries = 60;

    QRectF Inward(QRectF place) const {
        if (place.right() > area_.right()) place.moveRight(area_.right());
        if (place.left() < area_.left()) place.moveLeft(area_.left());
        if (place.bottom() > area_.bottom()) place.moveBottom(area_.bottom());
        if (place.top() < area_.top()) place.moveTop(area_.top());
        return place;
    }
    bool IsFree(const QRectF& place) const {
        return std::none_of(taken_.begin(), taken_.end(),
                            [&](const QRectF& other) { return other.intersects(place); });
    }
    std::optional<QRectF> Free(const QRectF& wanted) const {
        const double step = wanted.height() / 4;
        for (int n = 0; n <= kTries; ++n) {
            for (const double shift : {-n * step, n * step}) {
                const QRectF place = wanted.translated(0, shift);
                if (place.top() >= area_.top() && place.bottom() <= area_.bottom() &&
                    IsFree(place)) {
                    return place;
                }
            }
        }
        return std::nullopt;
    }

    QRectF area_;
    std::vector<QRectF> taken_;
};

void DrawLine(QPainter& painter, const Drawing& drawing, const StrokeSurface& surface) {
    QPen pen(ToQColor(drawing.colour), surface.lineWidth);
    pen.setJoinStyle(Qt::BevelJoin);
    painter.setPen(pen);
    for (const QPolygonF& piece : VisiblePieces(drawing.line, surface)) painter.drawPolyline(piece);
}

void DrawLabel(QPainter& painter, const Drawing& drawing, const StrokeSurface& surface,
               LabelPlaces& places) {
    const QPointF at = surface.toDevice.map(QPointF(drawing.labelAt.x, drawing.labelAt.y));
    if (!surface.area.contains(
            QPointF(at.x(), std::clamp(at.y(), surface.area.top(), surface.area.bottom())))) {
        return;
    }
    const QString text = QString::fromStdString(drawing.label);
    const QFontMetricsF metrics(painter.font(), painter.device());
    const QRectF wanted(at, QSizeF(metrics.horizontalAdvance(text), metrics.ascent()));
    if (!surface.area.intersects(wanted)) return;
    const QRectF place = places.Take(wanted);
    const QPointF base(place.left(), place.bottom());
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
    LabelPlaces places(surface.area);
    for (const Drawing& drawing : drawings) {
        DrawLine(painter, drawing, surface);
        if (!drawing.label.empty()) DrawLabel(painter, drawing, surface, places);
    }
    painter.restore();
}
