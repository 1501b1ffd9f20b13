#pragma once
// What controllers ask of each other, under the names it is given. The window carries it to whoever
// asks; the program's top, which alone knows all controllers, answers.

#include <Qt>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class PrinterPage;
struct ChangeName;
struct OpenHolding;
struct PriceToTake;
struct ScaleRange;
class QSize;
struct FundFile;
struct TakenPrice;

/// In every line the controller that does the work.
class Procedures {
  public:
    virtual void Activate() = 0;                               // StartUp: its work, done again
    virtual void ResetPanels() = 0;                            // StartUp
    virtual void Unload() = 0;                                 // StartUp
    virtual void BringTodayUpToDate() = 0;                     // StartUp
    virtual void ScaleToScreen(float factor) = 0;              // ScreenScaling
    virtual void FitInto(const QSize& room) = 0;               // ScreenScaling
    virtual void TellAbout(const FundFile& file) = 0;          // FileMenu: how it was opened
    virtual void OpenFile(const std::string& path) = 0;        // FileMenu: in place of the open one
    virtual void OpenChosenFile(const std::string& path) = 0;  // FileMenu: asks what is typed first
    virtual void ShowReceipt(std::string text) = 0;   // FileMenu: in the status bar, for seconds
    virtual void GuardFile() = 0;                     // SafetyCopies: the open one, from here on
    virtual void KeepChanges() = 0;                   // UndoRedo: of the open one, from here on
    virtual void ShowFileAnew() = 0;                  // UndoRedo: its rows are others now
    virtual void BeginChange(ChangeName name) = 0;    // UndoRedo: Change calls these
    virtual void ContinueChange() = 0;                // UndoRedo
    virtual void EndChange() = 0;                     // UndoRedo
    virtual void FillFundList() = 0;                  // FundList
    virtual void OpenSelectedFund() = 0;              // FundList
    virtual bool OpenFund(std::int32_t kontoId) = 0;  // FundList
    virtual void ClearFundPanel() = 0;                // FundList
    virtual void RefreshFundList(std::optional<std::int32_t> toOpen) = 0;  // FundList
    virtual void ReadCurveList() = 0;  // SeveralCurves: the stored list
    virtual void SelectCurves(std::vector<std::int32_t> kontoIds) = 0;  // SeveralCurves
    virtual void DrawOnAllScale() = 0;                           // SeveralCurves: those curves
    virtual bool StoreTypedRows() = 0;                           // GridSwitch
    virtual bool MayLeaveFile() = 0;                             // TypedWork
    virtual bool MayLeaveNotice() = 0;                           // TypedWork
    virtual bool LeaveHoldingsGrid() = 0;                        // GridSwitch
    virtual TakenPrice TakePrice(const PriceToTake& price) = 0;  // PriceEntry
    virtual bool Believable(std::int32_t percent) = 0;  // PriceEntry: asks where it is far up
    virtual bool GiveUpDayPrice() = 0;  // DayPrices: what is typed or pasted; false: nothing is
    virtual void RefreshFundSummary(const OpenHolding& stored,
                                    double newPrice) = 0;  // FundSummary
    virtual void SetVerticalScale(ScaleRange scale) = 0;   // Axes
    virtual void ShowFundScale(ScaleRange stored) = 0;     // Axes: where it changed
    virtual void AdvanceOneMonth() = 0;                    // Axes
    virtual void ShowMonthsOfToday() = 0;                  // Axes
    virtual void FollowToday(std::int32_t before) = 0;     // Axes
    virtual void ReturnToToday() = 0;                      // Axes: to the months of the start
    virtual void PlotCurves() = 0;                         // Curves
    virtual void PrintCurves(PrinterPage& page) = 0;       // Curves
    virtual void ComputeFundScale(std::int32_t kontoId, bool replace) = 0;     // Curves
    virtual void WriteLogEntry(std::string_view entry) = 0;                    // Log
    virtual void FillAccountList() = 0;                                        // AccountTotals
    virtual std::string BuildAccountTotals(std::string_view accountName) = 0;  // AccountTotals
    virtual void RefreshTotals() = 0;  // AccountTotals: of the account that is chosen
    virtual void RefreshPoints() = 0;  // PlotEditor: the rows as they are now
    virtual bool MendPoint(std::int32_t percent, double price) = 0;  // PlotEditor: the current one

    // Handlers that keys or other controllers run.
    virtual void cmdFondList_Click() = 0;                     // PriceEntry
    virtual void mnuKurser_Click() = 0;                       // DayPrices
    virtual void mnuOversikt_Click() = 0;                     // Overview
    virtual void cmdPPMData_Click() = 0;                      // GridSwitch
    virtual void imgScreen_Click() = 0;                       // SeveralCurves
    virtual void imgColor_Click() = 0;                        // CurveSelection
    virtual void imgGrafNr_Click() = 0;                       // CurveSelection
    virtual void Image4_MouseUp(Qt::MouseButton button) = 0;  // Axes
    virtual void Image5_MouseUp(Qt::MouseButton button) = 0;  // Axes
    virtual void mnuPlus_Click() = 0;                         // Axes
    virtual void mnuMinus_Click() = 0;                        // Axes
    virtual void ShowHelpPage() = 0;                          // OutsidePrograms: about what is open

  protected:
    ~Procedures() = default;
};
