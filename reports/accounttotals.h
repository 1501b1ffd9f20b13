#pragma once
// The totals of one account: the panel with the account list,
// and the line that the printed report wants.

#include "app/controller.h"
#include "reports/rules/totals.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

class DataSource;

class AccountTotals : Controller {
  public:
    explicit AccountTotals(frmPPM& ppm);

    void FillAccountList();
    /// The rows have changed: the list and the sums of the chosen account are made anew.
    void RefreshTotals();
    /// Errors pass to the caller.
    std::string BuildAccountTotals(std::string_view accountName);

  private:
    void mnuTotal_Click();
    void lstTotal_Click();
    void lblTotal_Click();
    /// How a column's text is taken from the current row.
    using ReadColumn = std::function<std::string(DataSource& row, std::size_t position)>;
    std::vector<TotalsRow> RowsOf(std::string_view accountName, const ReadColumn& read);
    std::vector<TotalsRow> RowsOf(std::string_view accountName);
};
