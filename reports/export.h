#pragma once
// Holdings and points of the open file, written as two tables that other programs read.

#include "app/controller.h"
#include "reports/rules/csvexport.h"

class Export : Controller {
  public:
    explicit Export(frmPPM& window);

  private:
    void mnuExportera_Click();
    bool MayReplace(const ExportNames& names);
    void Write(const ExportNames& names);
};
