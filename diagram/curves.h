#pragma once
// Draws the chosen holdings' curves, on the screen and on the printed page, and finds the automatic
// scale of a holding from its points.

#include "app/controller.h"

#include <cstdint>

class PrinterPage;

class Curves : Controller {
  public:
    explicit Curves(frmPPM& ppm);

    /// Draws the curves of SelectedCurves over what is in the diagram.
    /// A failure is shown and logged.
    void PlotCurves();
    /// Draws the same on the page. A failure is shown and logged.
    void PrintCurves(PrinterPage& page);
    /// Stores the automatic scale of a holding in the current row of `dtaBasData`: in place of what
    /// is there, or (replace false) after the curve list that stands there.
    void ComputeFundScale(std::int32_t kontoId, bool replace);
};
