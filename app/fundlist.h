#pragma once
// The fund list and the fund panel: choosing a line opens that holding and draws its curve. Also
// the ways back to several curves, and the switch between the diagram and the holdings grid.

#include "app/controller.h"

#include <cstdint>
#include <vector>

struct HoldingView;
struct StatusTexts;
class QKeyEvent;

class FundList : Controller {
  public:
    explicit FundList(frmPPM& window);

    void FillFundList();
    void OpenSelectedFund();
    void ClearFundPanel();
    /// The curves of the several-curves view as the first holdings row lists them.
    void ReadCurveList();
    /// These curves, and the automatic scale that takes them all in.
    void SelectCurves(std::vector<std::int32_t> kontoIds);
    /// Draws them on it.
    void DrawOnAllScale();
    /// Rows that are still being typed in a grid are stored. False when one cannot be: the user has
    /// been told why and corrects it first.
    bool StoreTypedRows();
    /// The diagram is wanted: typed rows are stored and the holdings grid gives way to it. False
    /// when a row cannot be stored.
    bool LeaveHoldingsGrid();
    void imgScreen_Click();
    void cmdPPMData_Click();

  private:
    bool lstFonder_KeyDown(const QKeyEvent& event);
    bool MoveMark(int lines);
    void ChooseMarked();
    void lstFonder_Enter();
    void ChooseColour();
    void mnuAll_Click();
    void CollectCurve();
    void MoveToSelected();
    void ShowView(const HoldingView& view);
    void ShowStatus(const StatusTexts& texts);
    void ShowHoldings();
    void ShowDiagram();
};
