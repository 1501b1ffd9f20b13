#pragma once
// How high and how low a curve runs in every column of a picture: what tells how near a number or
// the pointer is to it. Knows no painter; y grows downward.

#include "widgets/rules/labelplaces.h"
#include "widgets/rules/stroke.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

class CurveExtent {
  public:
    /// Columns as wide as `pitch`, from `left` to `right`; what lies beside them does not count.
    CurveExtent(double left, double right, double pitch);

    void AddDot(Point at);
    void AddLine(Point from, Point to);

    /// From the box to the nearest place of the curve, as near as a column is wide; 0 where it runs
    /// through the box, `limit` where it is no nearer than that.
    double DistanceTo(const LabelBox& box, double limit) const;
    /// The middle of the curve's height at x; nothing where it does not run.
    std::optional<double> HeightAt(double x) const;

  private:
    struct Column {
        double low = 0, high = 0;
        bool empty = true;
    };
    std::size_t ColumnAt(double x) const;
    void Widen(std::size_t column, double y);

    double left_, right_, pitch_;
    std::vector<Column> columns_;
};

/// The curve nearest to the place within `reach`; of two as near the later one,
/// which lies over the other.
std::optional<std::size_t> NearestCurve(std::span<const CurveExtent> curves, Point at,
                                        double reach);
