#pragma once
// Zoom in and out on the vertical scale: what is stored, and whether the picture follows.

#include "fundfile/rules/scale.h"

/// A holding shown alone has its own automatic scale; the several-curves view has another.
enum class CurveView { Single, Several };

struct Zoomed {
    ScaleRange scale;     ///< stored in any case
    bool redraw = false;  ///< false: the picture stays as it is until something else draws it
    bool operator==(const Zoomed&) const = default;
};

/// Takes back one step out; never narrower than `automatic`. Throws Overflow beyond 32 bits.
Zoomed ZoomIn(ScaleRange stored, ScaleRange automatic, CurveView view);

/// One step out; beyond 1000 the stored scale goes on growing and the picture no longer follows.
Zoomed ZoomOut(ScaleRange stored);
