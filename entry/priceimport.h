#pragma once
// The page on which prices from a file are looked at before they are stored, all in one step.

#include "app/controller.h"
#include "entry/rules/dayround.h"
#include "entry/rules/importplan.h"
#include "entry/rules/pricefile.h"

#include <memory>
#include <string>
#include <vector>

namespace jet {
class Database;
}

class PriceImport : Controller {
  public:
    explicit PriceImport(frmPPM& window);

  private:
    void mnuImportera_Click();
    bool Read(const std::string& path);
    void ReadHoldings();
    void ShowPlan();
    void FollowFile();
    void Complain(const std::string& path, std::string_view why);

    bool grdImport_KeyDown(const QEvent& event);
    void cmdImportera_Click();
    void panImport_Hide();
    bool MayStoreDoubted();
    bool Store(bool withDoubted);

    std::string path_;
    std::vector<PriceLine> read_;
    std::vector<RoundLine> holdings_;
    std::vector<ImportedPrice> plan_;
    std::weak_ptr<jet::Database> file_;  ///< that the holdings are of
};
