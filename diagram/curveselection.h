#pragma once
// The two modes that use the fund list for the diagram: a new colour for one curve, and the choice
// of the curves that are drawn together.

#include "app/controller.h"

#include <cstdint>
#include <vector>

class CurveSelection : Controller {
  public:
    explicit CurveSelection(frmPPM& ppm);

    void imgColor_Click();
    void imgGrafNr_Click();

  private:
    void mnuKurvor_Click();
    void mnuFarg_Click();
    void DrawChosen(const std::vector<std::int32_t>& curves);
    void StoreSelection(const std::vector<std::int32_t>& curves);
    void ShowSelection(const std::vector<std::int32_t>& curves);
};
