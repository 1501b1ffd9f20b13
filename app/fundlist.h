#pragma once
// The fund list and the fund panel: choosing a line opens that holding and draws its curve.

#include "app/controller.h"

#include <cstdint>
#include <optional>

struct HoldingView;
struct StatusTexts;
class QKeyEvent;

class FundList : Controller {
  public:
    explicit FundList(frmPPM& window);

    void FillFundList();
    void OpenSelectedFund();
    void ClearFundPanel();
    /// Fills the list anew after rows have changed, and opens a holding or the one that was open.
    void RefreshFundList(std::optional<std::int32_t> toOpen);

  private:
    bool lstFonder_KeyDown(const QKeyEvent& event);
    bool MoveMark(int lines);
    void ChooseMarked();
    void lstFonder_Enter();
    void ChooseColour();
    void CollectCurve();
    void MoveToSelected();
    void ShowView(const HoldingView& view);
    void ShowStatus(const StatusTexts& texts);
};
