#pragma once
// The daily price: the fund list opened for it, the price field and the checks;
// what was stored is shown.

#include "app/controller.h"
#include "app/pricetaking.h"
#include "fundfile/rules/openholding.h"
#include "fundfile/rules/summary.h"

#include <cstdint>

class QKeyEvent;

class PriceEntry : Controller {
  public:
    explicit PriceEntry(frmPPM& ppm);

    void cmdFondList_Click();
    TakenPrice TakePrice(const PriceToTake& price);
    /// Asks or refuses; false: nothing is to be stored.
    bool Believable(std::int32_t percent);

  private:
    void mnuDagskurs_Click();
    void txtValue_GotFocus();
    void txtValue_Change();
    void txtValue_Enter();
    bool txtValue_KeyDown(const QKeyEvent& event);
    bool txtValue_Tab();
    /// -1 is the line above that of the open holding, 1 the one below; the last line has none.
    void OpenNeighbour(std::int32_t step);
    OpenHolding Store(const OpenHolding& holding, const DayPrice& price);
    void ShowStored(const OpenHolding& stored, const DayPrice& price);
};
