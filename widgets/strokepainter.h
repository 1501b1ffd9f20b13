#pragma once
// Draws curves and their labels with any QPainter: the screen's, a picture's, the printer's.

#include "widgets/rules/stroke.h"

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPolygonF>
#include <QRectF>
#include <QTransform>

#include <span>
#include <vector>

QColor ToQColor(Colour colour);

/// Where and how curves are drawn.
struct StrokeSurface {
    QTransform toDevice;   ///< from the drawing's units to the painter's
    QRectF area;           ///< in the painter's units; nothing is drawn outside
    double lineWidth = 1;  ///< in the painter's units
    double finest = 1;  ///< no detail smaller than this shows, in the painter's units; 0 keeps all
    QColor halo{};      ///< drawn round the labels' characters where it is valid
    double haloWidth = 1;  ///< in the painter's units
};

/// Draws in order: each curve's line, then its label, over what was there. Labels that would run
/// over each other or over the area's edge are moved up, down or inward as little as possible; a
/// curve that ends left or right of the area has none.
void DrawCurves(QPainter& painter, std::span<const Drawing> drawings, const StrokeSurface& surface);

/// The pieces of a line inside the area, in the painter's units, without detail finer than the
/// surface shows. For DrawCurves and for tests.
std::vector<QPolygonF> VisiblePieces(std::span<const Point> line, const StrokeSurface& surface);
