#pragma once
// The plot data editor: the stored points of all holdings in a grid, to look at and to correct.

#include "app/controller.h"
#include "app/rules/changename.h"

#include <cstddef>
#include <string>

class PlotEditor : Controller {
  public:
    explicit PlotEditor(frmPPM& window);

    /// The points have changed elsewhere: they are found anew, and the grid stays where it was.
    void RefreshPoints();

  private:
    void mnuPEdit_Click();
    void GridPlott_RowColChange();
    void GridPlott_AfterUpdate();
    ChangeName NameOfChange();
    void ShowCount();
    void ShowFund();
    void ShowSeveral();
    void GoToLastPointOfOpenFund();
    std::string TextAbove(std::size_t column) const;
    std::string TypedText(std::size_t column) const;
    bool IsMissing(std::size_t column) const;
    void GridPlott_AfterColUpdate();
    bool GridPlott_BeforeUpdate();
};
