#pragma once
// Where a note about a place in a picture stands.

#include "widgets/rules/labelplaces.h"
#include "widgets/rules/stroke.h"

/// Right over the place, by `gap`; on its other sides where the area ends. Never over the place
/// itself if the area has room.
LabelBox CalloutPlace(Point at, double width, double height, const LabelBox& area, double gap);
