#include "app/fundsummary.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "fundfile/rules/summary.h"

#include <utility>

void FundSummary::RefreshFundSummary(const OpenHolding& stored, double newPrice) {
    WindowState next = AfterPriceStored(window.State(), stored);
    next.ChangePercent = ChangeSinceStart(stored.startPrice, newPrice);
    window.Put(std::move(next));
}
