#pragma once
// The deletion of a holding with its points from the holdings grid.

#include "app/controller.h"
#include "fundfile/rules/holding.h"

#include <cstdint>
#include <optional>

class HoldingDeletion : Controller {
  public:
    explicit HoldingDeletion(frmPPM& ppm);

  private:
    /// The row that is being deleted, from before it to after it.
    void Mark(std::optional<std::int32_t> kontoId);
    bool DBGrid_BeforeDelete();
    void DeleteRowAndPoints();
    void DBGrid_AfterDelete();
    void ShowStoredCurves();

    HoldingRow deleted_;
};
