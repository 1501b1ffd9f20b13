#pragma once
// Prints the open fund file: heading, diagram, holdings and the totals of every account. Where
// things stand is decided by rules/reportpage.

#include "app/controller.h"
#include "reports/rules/reportpage.h"

#include <string>
#include <vector>

class PrinterPage;

class PrintedReport : Controller {
  public:
    explicit PrintedReport(frmPPM& window);

  private:
    void mnuPrint_Click();
    void PrintReport();
    void PrintDiagram(PrinterPage& page);
    ::Report Contents();
    std::vector<std::string> Totals();
    std::string Title() const;
};
