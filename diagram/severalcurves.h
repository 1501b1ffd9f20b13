#pragma once
// The several-curves view: the curves that the first holding's row lists, or all of them, on a
// scale that takes them in.

#include "app/controller.h"

#include <cstdint>
#include <vector>

class SeveralCurves : Controller {
  public:
    explicit SeveralCurves(frmPPM& ppm);

    /// The curves of the view as the first holdings row lists them.
    void ReadCurveList();
    /// These curves, and the automatic scale that takes them all in.
    void SelectCurves(std::vector<std::int32_t> kontoIds);
    /// Draws them on it.
    void DrawOnAllScale();
    void imgScreen_Click();

  private:
    void mnuAll_Click();
    std::vector<std::int32_t> StoredCurves();
    void DrawOpenHolding();
};
