#pragma once
// The switch between the diagram and the holdings grid. A row that may not be stored yet stays on
// the screen for correction.

#include "app/controller.h"

class GridSwitch : Controller {
  public:
    explicit GridSwitch(frmPPM& ppm);

    /// Rows that are still being typed in a grid are stored. False when one cannot be: the user has
    /// been told why and corrects it first.
    bool StoreTypedRows();
    /// The diagram is wanted: typed rows are stored and the holdings grid gives way to it. False
    /// when a row cannot be stored, or a half-typed notice is not to be given up.
    bool LeaveHoldingsGrid();
    void cmdPPMData_Click();

  private:
    void ShowHoldings();
};
