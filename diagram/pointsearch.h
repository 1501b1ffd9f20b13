#pragma once
// Finding a point and mending it: the fund whose points the grid shows, the day to go to, and the
// current point in kronor.

#include "app/controller.h"
#include "fundfile/rules/openholding.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class PointSearch : Controller {
  public:
    explicit PointSearch(frmPPM& window);

  private:
    /// The current row, and the holding that it is of.
    struct Point {
        std::int32_t day = 0, percent = 0;
        OpenHolding holding;
    };

    void mnuSok_Click();
    void panPlottData_Show();
    void panPlottData_Hide();
    void cboSokFond_Click();
    void txtSokDag_Enter();
    void txtPunktKr_Enter();
    void ChooseFund(std::optional<std::int32_t> kontoId);
    void ShowPointsOf(std::optional<std::int32_t> kontoId);
    void ShowPoint();
    std::optional<Point> CurrentPoint();
    void Notice(std::string text);

    std::vector<std::int32_t> funds_;      ///< of the chooser's lines after the first
    std::optional<std::int32_t> shownOf_;  ///< none: all points
};
