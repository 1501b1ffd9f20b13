#pragma once
// The fund list and the fund panel: choosing a line opens that holding and draws its curve.

#include "app/controller.h"

#include <cstdint>
#include <optional>

class QKeyEvent;
class QMouseEvent;

class FundList : Controller {
  public:
    explicit FundList(frmPPM& ppm);

    void FillFundList();
    void OpenSelectedFund();
    /// The holding is chosen in the list and opened. False when the file has no such row.
    bool OpenFund(std::int32_t kontoId);
    void ClearFundPanel();
    /// Fills the list anew after rows have changed, and opens a holding or the one that was open.
    void RefreshFundList(std::optional<std::int32_t> toOpen);

  private:
    bool LineAt(const QMouseEvent& event) const;
    bool lstFonder_KeyDown(const QKeyEvent& event);
    bool MoveMark(int lines);
    void ChooseMarked();
    void lstFonder_Enter();
    void ChooseColour();
    void MoveToSelected();
};
