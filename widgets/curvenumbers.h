#pragma once
// Draws the curves' numbers, at their ends and along them, with the lines that lead to the ends.

#include "widgets/rules/numberplaces.h"
#include "widgets/rules/stroke.h"
#include "widgets/strokepainter.h"

#include <QPainter>
#include <QPolygonF>

#include <span>
#include <vector>

/// `pieces` are those of each drawing's line, in the painter's units.
DrawnCurves DrawNumbers(QPainter& painter, std::span<const Drawing> drawings,
                        std::span<const std::vector<QPolygonF>> pieces,
                        const StrokeSurface& surface);

/// One number in its place, in the colour of its curve.
void DrawNumber(QPainter& painter, const Drawing& drawing, const LabelBox& place,
                const StrokeSurface& surface);
