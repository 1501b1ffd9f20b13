#pragma once
// Brings the open fund's summary up to date after a new price: status panels, the stored texts, the
// caption.

#include "app/controller.h"

class FundSummary : Controller {
  public:
    explicit FundSummary(frmPPM& ppm) : Controller(ppm) {}

    void RefreshFundSummary(float startPrice, float newPrice);
};
