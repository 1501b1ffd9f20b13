#pragma once
// The page of the day's round: all holdings in a table, and a field that walks through it. Every
// price takes the road of the price field.

#include "app/controller.h"
#include "app/pricetaking.h"
#include "entry/rules/dayround.h"
#include "entry/rules/pasteplan.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QKeyEvent;
namespace jet {
class Database;
}
struct TextRow;

class DayPrices : Controller {
  public:
    explicit DayPrices(frmPPM& window);

    void mnuKurser_Click();
    /// The pasted prices, or what is typed in the field; false: there was nothing to give up.
    bool GiveUp();

  private:
    void ReadLines();
    void FollowFile();
    std::int32_t Day() const;
    RoundLine* Current();
    bool IsTyped(const RoundLine& line) const;

    void ShowLines();
    void ShowDays();
    TextRow RowOf(const RoundLine& line) const;
    void GoTo(int row);
    void GoToFirstOpen();
    bool Walk(int rows);
    void GoOn();
    void ShowField();

    bool txtNyKurs_KeyDown(const QKeyEvent& key);
    void cboDag_Click();
    bool cboDag_KeyDown(const QKeyEvent& key);
    void txtNyKurs_Change();
    void txtNyKurs_Enter();
    void grdKurser_Press(int row);
    bool grdKurser_KeyDown(const QKeyEvent& key);
    void panKurser_Hide();

    std::optional<std::string> Pasted(const std::string& text);
    void ShowPlan();
    void StorePlan();
    void EndPlan();
    PriceFate Store(std::size_t line, const PriceToTake& price);

    std::weak_ptr<jet::Database> file_;  ///< that the lines are of
    std::vector<RoundLine> lines_;       ///< all holdings, in the order of their rows
    std::vector<std::size_t> shown_;     ///< which of them the table shows
    std::size_t current_ = 0;            ///< the one that the field is for
    std::vector<DayChoice> choices_;
    std::vector<PastedPrice> plan_;
    bool storing_ = false;
    bool pictureBehind_ = false;  ///< a price was stored that the picture does not show yet
};
