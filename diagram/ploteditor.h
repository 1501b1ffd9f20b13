#pragma once
// The plot data editor: the stored points of all holdings in a grid, to look at and to correct.

#include "app/controller.h"
#include "app/rules/changename.h"
#include "fundfile/dayprice.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class PlotEditor : Controller {
  public:
    explicit PlotEditor(frmPPM& ppm);

    /// The points have changed elsewhere: they are found anew, and the grid stays where it was.
    void RefreshPoints();
    /// Gives the current point the percentage of this price, and a last one its summary. False: it
    /// could not be stored, which was told.
    bool MendPoint(std::int32_t percent, double price);

  private:
    void mnuPEdit_Click();
    void GridPlott_RowColChange();
    void GridPlott_AfterUpdate();
    ChangeName NameOfChange();
    void ShowCount();
    void TellOfSummaries();
    void ShowFund();
    void ShowSeveral();
    void GoToLastPointOfOpenFund();
    std::string TextAbove(std::size_t column) const;
    std::string TypedText(std::size_t column) const;
    bool IsMissing(std::size_t column) const;
    void GridPlott_AfterColUpdate();
    bool GridPlott_BeforeUpdate();

    std::vector<FollowedSummary> followed_;  ///< of the row that was stored last
    std::optional<double> typedPrice_;       ///< of the row that is being stored
};
