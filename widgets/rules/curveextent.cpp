#include "widgets/rules/curveextent.h"

#include <algorithm>
#include <cmath>
#include <utility>

CurveExtent::CurveExtent(double left, double right, double pitch)
    : left_(left),
      right_(std::max(left, right)),
      pitch_(pitch),
      columns_(static_cast<std::size_t>((right_ - left_) / pitch) + 1) {}

std::size_t CurveExtent::ColumnAt(double x) const {
    const double column = std::floor((x - left_) / pitch_);
    const double last = static_cast<double>(columns_.size() - 1);
    return static_cast<std::size_t>(std::clamp(column, 0.0, last));
}

void CurveExtent::Widen(std::size_t column, double y) {
    Column& at = columns_[column];
    at.low = at.empty ? y : std::min(at.low, y);
    at.high = at.empty ? y : std::max(at.high, y);
    at.empty = false;
}

void CurveExtent::AddDot(Point at) {
    if (at.x >= left_ && at.x <= right_) Widen(ColumnAt(at.x), at.y);
}

void CurveExtent::AddLine(Point from, Point to) {
    if (from.x > to.x) std::swap(from, to);
    if (to.x < left_ || from.x > right_) return;
    const double slope = to.x > from.x ? (to.y - from.y) / (to.x - from.x) : 0;
    const auto heightAt = [&](double x) {
        if (x <= from.x) return from.y;
        return x >= to.x ? to.y : from.y + slope * (x - from.x);
    };
    const std::size_t last = ColumnAt(std::min(to.x, right_));
    for (std::size_t column = ColumnAt(std::max(from.x, left_)); column <= last; ++column) {
        const double begin = left_ + static_cast<double>(column) * pitch_;
        Widen(column, heightAt(std::max(begin, left_)));
        Widen(column, heightAt(begin + pitch_));
    }
    if (to.x <= right_) Widen(last, to.y);
}

double CurveExtent::DistanceTo(const LabelBox& box, double limit) const {
    double nearest = limit;
    const std::size_t last = ColumnAt(box.Right() + limit);
    for (std::size_t column = ColumnAt(box.left - limit); column <= last; ++column) {
        const Column& at = columns_[column];
        if (at.empty) continue;
        const double down = std::max({0.0, at.low - box.Bottom(), box.top - at.high});
        if (down >= nearest) continue;
        const double begin = left_ + static_cast<double>(column) * pitch_;
        const double across = std::max({0.0, begin - box.Right(), box.left - begin - pitch_});
        if (across < nearest) nearest = std::min(nearest, std::sqrt(across * across + down * down));
    }
    return nearest;
}

std::optional<double> CurveExtent::HeightAt(double x) const {
    if (x < left_ || x > right_) return std::nullopt;
    const Column& at = columns_[ColumnAt(x)];
    if (at.empty) return std::nullopt;
    return (at.low + at.high) / 2;
}

std::optional<std::size_t> NearestCurve(std::span<const CurveExtent> curves, Point at,
                                        double reach) {
    std::optional<std::size_t> nearest;
    double distance = reach;
    for (std::size_t curve = 0; curve < curves.size(); ++curve) {
        const double its = curves[curve].DistanceTo({at.x, at.y, 0, 0}, reach);
        if (its >= reach || its > distance) continue;
        distance = its;
        nearest = curve;
    }
    return nearest;
}
