#pragma once
// The plot data editor: the stored points of all holdings in a grid, to look at and to correct.

#include "app/controller.h"

class PlotEditor : Controller {
  public:
    explicit PlotEditor(frmPPM& window);

  private:
    void mnuPEdit_Click();
    void GridPlott_RowColChange();
    void GridPlott_AfterUpdate();
    void ShowCount();
    void ShowFund();
    void ShowSeveral();
};
