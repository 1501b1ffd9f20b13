#pragma once
// Reads the curves that are shown together, for whoever draws them.

#include "widgets/rules/stroke.h"

#include <functional>
#include <span>

class frmPPM;

/// Hands the points and the look of each holding of SelectedCurves that has points to `draw`, in
/// order. Errors pass to the caller.
using DrawCurve = std::function<void(std::span<const CurvePoint>, const CurveStyle&)>;
void ForEachChosenCurve(frmPPM& window, const DrawCurve& draw);
