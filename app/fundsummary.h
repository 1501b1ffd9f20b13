#pragma once
// Shows the open fund's summary after a new price: status panels and caption.

#include "app/controller.h"

struct OpenHolding;

class FundSummary : Controller {
  public:
    explicit FundSummary(frmPPM& ppm) : Controller(ppm) {}

    /// The holding as it was stored with this price.
    void RefreshFundSummary(const OpenHolding& stored, double newPrice);
};
