#pragma once
// Reads the curves that are shown together, for whoever draws them.

#include "app/rules/showncurve.h"

#include <functional>
#include <span>

class frmPPM;

/// Hands the points and the name and colour of each holding of SelectedCurves that has points to
/// `draw`, in order. Errors pass to the caller.
using DrawCurve = std::function<void(std::span<const CurvePoint>, const ShownCurve&)>;
void ForEachChosenCurve(frmPPM& window, const DrawCurve& draw);
