#pragma once
// Prints the open fund file, shows it as it would be printed, or saves it as a PDF file: heading,
// diagram, holdings and the totals of every account. Where things stand is decided by
// rules/reportpage.

#include "app/controller.h"
#include "base/error.h"
#include "reports/rules/reportpage.h"

#include <optional>
#include <string>
#include <vector>

class PrinterPage;

class PrintedReport : Controller {
  public:
    explicit PrintedReport(frmPPM& ppm);

  private:
    struct Prepared;
    using Deliver = void (PrintedReport::*)(const Prepared&);
    void Make(Deliver deliver);
    std::optional<Prepared> Prepare();
    void Draw(const Prepared& prepared, PrinterPage& page);
    void Print(const Prepared& prepared);
    void Preview(const Prepared& prepared);
    void SaveAsPdf(const Prepared& prepared);
    std::string PickPdf();
    ::Report Contents();
    /// One line per account; nothing when one could not be read, which is shown and logged.
    std::optional<std::vector<std::string>> Totals();
    /// The panel's totals where a summary row speaks for the account, else BuildAccountTotals.
    std::string TotalsOf(const std::string& account);
    void ReportAccount(const std::string& account, const Error& error);
    std::string Title() const;

    std::string receipt_;  ///< of what was made, when the window is back to its diagram
};
