#pragma once
// The overview of all holdings: a page of its own, and its short form in the left column while
// nothing else stands there.

#include "app/controller.h"
#include "reports/rules/overview.h"

#include <cstdint>
#include <vector>

class Overview : Controller {
  public:
    explicit Overview(frmPPM& window);

    void mnuOversikt_Click();

  private:
    std::vector<OverviewSource> Read(bool withPoints) const;
    void FollowFile();
    void FillPage();
    void FillColumn();
    void Sort(int column);
    void grdOversikt_Choose(int row);
    void grdKort_Choose(int row);
    void Open(std::int32_t kontoId);

    std::vector<std::int32_t> pageRows_;    ///< the KontoId of each line; sums have none
    std::vector<std::int32_t> columnRows_;  ///< the same of the short form
};
