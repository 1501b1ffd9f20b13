#pragma once
// The daily price: the fund list opened for it, the price field, the checks, and the storing of the
// day's point together with the holding's summary and scale.

#include "app/controller.h"
#include "fundfile/rules/scale.h"

#include <cstdint>
#include <optional>
#include <string>

class PriceEntry : Controller {
  public:
    explicit PriceEntry(frmPPM& window);

    void cmdFondList_Click();

  private:
    struct Entry {
        float price = 0;
        std::int32_t percent = 0;
        std::string text;  ///< the price as "0.00"
    };

    void txtValue_GotFocus();
    void txtValue_Enter();
    bool txtValue_Tab();
    std::optional<Entry> ReadEntry() const;
    /// Asks or refuses; false: nothing is stored.
    bool Believable(std::int32_t percent);
    void Store(const Entry& entry);
    /// The scale that takes the point in; nothing where the shown one does.
    std::optional<ScaleRange> WidenedScale(std::int32_t percent) const;
    void MoveToOpenHolding();
    void StoreDayPoint(std::int32_t percent);
    void StoreScale(ScaleRange scale);
    void Refuse();
};
