#pragma once
// Draws curves and their labels with any QPainter: the screen's, a picture's, the printer's.

#include "diagram/rules/stroke.h"

#include <QFont>
#include <QPainter>
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
    QColor halo;        ///< drawn round the labels' characters where it is valid
};

/// Draws in order: each curve's line, then its label, over what was there. A label that would run
/// over an earlier one or over the area's edge is moved up or down, or inward, as little as
/// possible.
void DrawCurves(QPainter& painter, std::span<const Drawing> drawings, const StrokeSurface& surface);

/// The pieces of a line inside the area, in the painter's units, without detail finer than the
/// surface shows. For DrawCurves and for tests.
std::vector<QPolygonF> VisiblePieces(std::span<const Point> line, const StrokeSurface& surface);
