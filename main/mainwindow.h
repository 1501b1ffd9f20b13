#pragma once
// The window with all its controllers: the one place that knows them all, and that answers what
// they ask of each other.

#include "app/frmPPM.h"

#include <memory>

class MainWindow final : public frmPPM {
  public:
    /// `outside` outlives the window. The fund file is opened here, and closed with the window.
    explicit MainWindow(Platform& outside, QWidget* parent = nullptr);
    ~MainWindow() override;

    void Activate() override;
    void ResetPanels() override;
    void Unload() override;
    void BringTodayUpToDate() override;
    void ScaleToScreen(float factor) override;
    void FitInto(const QSize& room) override;
    void TellAbout(const FundFile& file) override;
    void OpenFile(const std::string& path) override;
    void OpenChosenFile(const std::string& path) override;
    void ShowReceipt(std::string text) override;
    void GuardFile() override;
    void KeepChanges() override;
    void ShowFileAnew() override;
    void BeginChange(ChangeName name) override;
    void ContinueChange() override;
    void EndChange() override;
    void FillFundList() override;
    void OpenSelectedFund() override;
    bool OpenFund(std::int32_t kontoId) override;
    void ClearFundPanel() override;
    void RefreshFundList(std::optional<std::int32_t> toOpen) override;
    void ReadCurveList() override;
    void SelectCurves(std::vector<std::int32_t> kontoIds) override;
    void DrawOnAllScale() override;
    bool StoreTypedRows() override;
    bool MayLeaveFile() override;
    bool MayLeaveNotice() override;
    bool LeaveHoldingsGrid() override;
    TakenPrice TakePrice(const PriceToTake& price) override;
    bool Believable(std::int32_t percent) override;
    bool GiveUpDayPrice() override;
    void RefreshFundSummary(const OpenHolding& stored, double newPrice) override;
    void SetVerticalScale(ScaleRange scale) override;
    void ShowFundScale(ScaleRange stored) override;
    void AdvanceOneMonth() override;
    void ShowMonthsOfToday() override;
    void FollowToday(std::int32_t before) override;
    void ReturnToToday() override;
    void PlotCurves() override;
    void PrintCurves(PrinterPage& page) override;
    void ComputeFundScale(std::int32_t kontoId, bool replace) override;
    void WriteLogEntry(std::string_view entry) override;
    void FillAccountList() override;
    std::string BuildAccountTotals(std::string_view accountName) override;
    void RefreshTotals() override;
    void RefreshPoints() override;
    bool MendPoint(std::int32_t percent, double price) override;
    void cmdFondList_Click() override;
    void mnuKurser_Click() override;
    void mnuOversikt_Click() override;
    void cmdPPMData_Click() override;
    void imgScreen_Click() override;
    void imgColor_Click() override;
    void imgGrafNr_Click() override;
    void Image4_MouseUp(Qt::MouseButton button) override;
    void Image5_MouseUp(Qt::MouseButton button) override;
    void mnuPlus_Click() override;
    void mnuMinus_Click() override;
    void ShowHelpPage() override;

  private:
    struct Controllers;  // in order of construction
    std::unique_ptr<Controllers> controllers_;
};
