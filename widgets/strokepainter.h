#pragma once
// Draws curves and their labels with any QPainter: the screen's, a picture's, the printer's.

#include "widgets/rules/curveextent.h"
#include "widgets/rules/numberplaces.h"
#include "widgets/rules/stroke.h"

#include <QColor>
#include <QPainter>
#include <QPolygonF>
#include <QRectF>
#include <QTransform>

#include <cstddef>
#include <limits>
#include <span>
#include <vector>

/// Where and how curves are drawn.
struct StrokeSurface {
    QTransform toDevice;   ///< from the drawing's units to the painter's
    QRectF area;           ///< in the painter's units; nothing is drawn outside
    double lineWidth = 1;  ///< in the painter's units
    double finest = 1;  ///< no detail smaller than this shows, in the painter's units; 0 keeps all
    QColor halo{};      ///< drawn round the labels' characters where it is valid
    double haloWidth = 1;  ///< in the painter's units
    double edgeWidth = 1;  ///< to each side of a curve that is too pale, in the painter's units
    /// From so many curves on each has its number along it, too.
    std::size_t repeatFrom = std::numeric_limits<std::size_t>::max();
};

/// What was drawn where, in the painter's units.
struct DrawnCurves {
    std::vector<NumberPlace> numbers;  ///< at the curves' ends
    std::vector<CurveExtent> extents;  ///< one a drawing
};

/// Draws in order, a later curve over an earlier one, and the numbers over all of them. Numbers
/// that would run over each other or over the area's edge are moved as little as possible, with a
/// line to the curve's end where they no longer stand at it; a curve that ends left of the area, or
/// begins right of it, has none.
DrawnCurves DrawCurves(QPainter& painter, std::span<const Drawing> drawings,
                       const StrokeSurface& surface);

/// One curve over all others, stronger, with a halo.
void DrawLitCurve(QPainter& painter, const Drawing& drawing, const StrokeSurface& surface);

/// The pieces of a line inside the area, in the painter's units, without detail finer than the
/// surface shows. For DrawCurves and for tests.
std::vector<QPolygonF> VisiblePieces(std::span<const Point> line, const StrokeSurface& surface);
