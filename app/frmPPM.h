#pragma once
// The hub: the main window with all window-level state and all controls, and the procedures that
// the controllers ask of each other. The work itself is in the controllers, which only frmPPM.cpp
// sees.

#include "app/controls.h"
#include "app/layout.h"
#include "app/rules/windowstate.h"

#include <QMainWindow>
#include <Qt>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct Platform;
class Panels;
class PrinterPage;

class frmPPM final : public QMainWindow, public WindowState, public Controls {
    Q_OBJECT

  public:
    explicit frmPPM(Platform& platform, QWidget* parent = nullptr);
    ~frmPPM() override;

    /// What the window shows; a rule makes the next one of it.
    const WindowState& State() const { return *this; }
    /// Makes `next` the state and shows it. What is asked for meanwhile, by a control that gets the
    /// focus, is shown after it.
    void Put(WindowState next);
    /// Shows fields that were set one by one.
    void ShowState();

    // What controllers ask of each other. One line each in frmPPM.cpp; the work is in the one
    // named.
    void Activate();                                               // StartUp: its work, done again
    void ResetPanels();                                            // StartUp
    void Unload();                                                 // StartUp
    void ScaleToScreen(float factor);                              // ScreenScaling
    void FillFundList();                                           // FundList
    void OpenSelectedFund();                                       // FundList
    bool OpenFund(std::int32_t kontoId);                           // FundList
    void ClearFundPanel();                                         // FundList
    void RefreshFundList(std::optional<std::int32_t> toOpen);      // FundList
    void ReadCurveList();                                          // SeveralCurves: the stored list
    void SelectCurves(std::vector<std::int32_t> kontoIds);         // SeveralCurves
    void DrawOnAllScale();                                         // SeveralCurves: those curves
    bool StoreTypedRows();                                         // GridSwitch
    bool LeaveHoldingsGrid();                                      // GridSwitch
    void RefreshFundSummary(float startPrice, float newPrice);     // FundSummary
    void SetVerticalScale(std::int32_t bottom, std::int32_t top);  // Axes
    void AdvanceOneMonth();                                        // Axes
    void ShowMonthsOfToday();                                      // Axes
    void PlotCurves();                                             // Curves
    void PrintCurves(PrinterPage& page);                           // Curves
    void ComputeFundScale(std::int32_t kontoId, bool replace);     // Curves
    void WriteLogEntry(std::string_view entry);                    // Log
    void FillAccountList();                                        // AccountTotals
    std::string BuildAccountTotals(std::string_view accountName);  // AccountTotals

    // Handlers that keys or other controllers run.
    void cmdFondList_Click();                     // PriceEntry
    void cmdPPMData_Click();                      // GridSwitch
    void imgScreen_Click();                       // SeveralCurves
    void imgColor_Click();                        // CurveSelection
    void imgGrafNr_Click();                       // CurveSelection
    void Image4_MouseUp(Qt::MouseButton button);  // Axes
    void Image5_MouseUp(Qt::MouseButton button);  // Axes
    void mnuPlus_Click();                         // Axes
    void mnuMinus_Click();                        // Axes

    Platform& platform;
    Layout layout;

  private:
    std::unique_ptr<CommonDialog> dialog_;
    std::unique_ptr<Panels> panels_;
    bool showing_ = false, showAgain_ = false;
    struct Controllers;  // all of them, in order of construction; only frmPPM.cpp sees them
    std::unique_ptr<Controllers> controllers_;
};
