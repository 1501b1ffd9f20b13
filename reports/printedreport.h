#pragma once
// Prints the open fund file: heading, diagram, holdings and the totals of every account. Where
// things stand is decided by rules/reportpage.

#include "app/controller.h"
#include "base/error.h"
#include "reports/rules/reportpage.h"

#include <optional>
#include <string>
#include <vector>

class PrintedReport : Controller {
  public:
    explicit PrintedReport(frmPPM& ppm);

  private:
    void mnuPrint_Click();
    void PrintReport();
    ::Report Contents();
    /// One line per account; nothing when one could not be read, which is shown and logged.
    std::optional<std::vector<std::string>> Totals();
    /// The panel's totals where a summary row speaks for the account, else BuildAccountTotals.
    std::string TotalsOf(const std::string& account);
    void ReportAccount(const std::string& account, const Error& error);
    std::string Title() const;
};
