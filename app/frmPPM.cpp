#include "app/frmPPM.h"

#include "app/background.h"
#include "app/fundlist.h"
#include "app/fundsummary.h"
#include "app/furnish.h"
#include "app/gridswitch.h"
#include "app/keyboard.h"
#include "app/panels.h"
#include "app/screenscaling.h"
#include "app/startup.h"
#include "diagram/axes.h"
#include "diagram/curves.h"
#include "diagram/curveselection.h"
#include "diagram/diagramview.h"
#include "diagram/measurement.h"
#include "diagram/ploteditor.h"
#include "diagram/severalcurves.h"
#include "entry/holdingdeletion.h"
#include "entry/holdingsgrid.h"
#include "entry/newsharesnotice.h"
#include "entry/priceentry.h"
#include "entry/sourcefailures.h"
#include "fundfile/filemenu.h"
#include "platform/commondialog.h"
#include "platform/platform.h"
#include "reports/accounttotals.h"
#include "reports/printedreport.h"
#include "tools/calculators.h"
#include "tools/log.h"
#include "tools/outsideprograms.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

/// In order of construction; what one does in its constructor may use those above it.
struct frmPPM::Controllers {
    explicit Controllers(frmPPM& window)
        : log(window),
          outsidePrograms(window),
          background(window),
          screenScaling(window),
          axes(window),
          curves(window),
          curveSelection(window),
          measurement(window),
          keyboard(window),
          fundList(window),
          severalCurves(window),
          gridSwitch(window),
          fundSummary(window),
          priceEntry(window),
          printedReport(window),
          holdingsGrid(window),
          holdingDeletion(window),
          sourceFailures(window),
          newSharesNotice(window),
          plotEditor(window),
          fileMenu(window),
          accountTotals(window),
          calculators(window),
          startUp(window) {}

    Log log;
    OutsidePrograms outsidePrograms;
    Background background;
    ScreenScaling screenScaling;
    Axes axes;
    Curves curves;
    CurveSelection curveSelection;
    Measurement measurement;
    Keyboard keyboard;
    FundList fundList;
    SeveralCurves severalCurves;
    GridSwitch gridSwitch;
    FundSummary fundSummary;
    PriceEntry priceEntry;
    PrintedReport printedReport;
    HoldingsGrid holdingsGrid;
    HoldingDeletion holdingDeletion;
    SourceFailures sourceFailures;
    NewSharesNotice newSharesNotice;
    PlotEditor plotEditor;
    FileMenu fileMenu;
    AccountTotals accountTotals;
    Calculators calculators;
    StartUp startUp;
};

frmPPM::frmPPM(Platform& outside, QWidget* parent)
    : QMainWindow(parent),
      platform(outside),
      dialog_(std::make_unique<CommonDialog>(outside.dialogs)),
      panels_(std::make_unique<Panels>(*this, *this)) {
    CmDialog = dialog_.get();
    Furnish(*this);
    controllers_ = std::make_unique<Controllers>(*this);
    controllers_->startUp.Load();
}

frmPPM::~frmPPM() {
    // Controls tell of their end (a lost focus, a closed row); nobody may listen any more.
    Unload();
    controllers_.reset();
}

void frmPPM::Put(WindowState next) {
    const Picture change = std::exchange(next.picture, Picture::Stays);
    static_cast<WindowState&>(*this) = std::move(next);
    ShowState();
    if (change == Picture::Stays) return;
    picDiagram->Clear();
    if (change == Picture::Restored) PlotCurves();
}

void frmPPM::ShowState() {
    showAgain_ = true;
    if (showing_) return;
    showing_ = true;
    while (std::exchange(showAgain_, false)) {
        const Shown shown = ShownBy(*this);
        focus = Focus::Stays;
        typedPrice = TypedPrice::Stays;
        panels_->Show(shown);
    }
    showing_ = false;
}

void frmPPM::Activate() {
    controllers_->startUp.Activate();
}
void frmPPM::ResetPanels() {
    controllers_->startUp.ResetPanels();
}
void frmPPM::Unload() {
    controllers_->startUp.Unload();
}
void frmPPM::ScaleToScreen(float factor) {
    controllers_->screenScaling.ScaleToScreen(factor);
}
void frmPPM::FillFundList() {
    controllers_->fundList.FillFundList();
}
void frmPPM::OpenSelectedFund() {
    controllers_->fundList.OpenSelectedFund();
}
bool frmPPM::OpenFund(std::int32_t kontoId) {
    return controllers_->fundList.OpenFund(kontoId);
}
void frmPPM::ClearFundPanel() {
    controllers_->fundList.ClearFundPanel();
}
void frmPPM::RefreshFundList(std::optional<std::int32_t> toOpen) {
    controllers_->fundList.RefreshFundList(toOpen);
}
void frmPPM::ReadCurveList() {
    controllers_->severalCurves.ReadCurveList();
}
void frmPPM::SelectCurves(std::vector<std::int32_t> kontoIds) {
    controllers_->severalCurves.SelectCurves(std::move(kontoIds));
}
void frmPPM::DrawOnAllScale() {
    controllers_->severalCurves.DrawOnAllScale();
}
bool frmPPM::StoreTypedRows() {
    return controllers_->gridSwitch.StoreTypedRows();
}
bool frmPPM::LeaveHoldingsGrid() {
    return controllers_->gridSwitch.LeaveHoldingsGrid();
}
void frmPPM::RefreshFundSummary(float startPrice, float newPrice) {
    controllers_->fundSummary.RefreshFundSummary(startPrice, newPrice);
}
void frmPPM::SetVerticalScale(std::int32_t bottom, std::int32_t top) {
    controllers_->axes.SetVerticalScale(bottom, top);
}
void frmPPM::AdvanceOneMonth() {
    controllers_->axes.AdvanceOneMonth();
}
void frmPPM::ShowMonthsOfToday() {
    controllers_->axes.ShowMonthsOfToday();
}
void frmPPM::PlotCurves() {
    controllers_->curves.PlotCurves();
}
void frmPPM::PrintCurves(PrinterPage& page) {
    controllers_->curves.PrintCurves(page);
}
void frmPPM::ComputeFundScale(std::int32_t kontoId, bool replace) {
    controllers_->curves.ComputeFundScale(kontoId, replace);
}
void frmPPM::WriteLogEntry(std::string_view entry) {
    controllers_->log.WriteLogEntry(entry);
}
void frmPPM::FillAccountList() {
    controllers_->accountTotals.FillAccountList();
}
std::string frmPPM::BuildAccountTotals(std::string_view accountName) {
    return controllers_->accountTotals.BuildAccountTotals(accountName);
}

void frmPPM::cmdFondList_Click() {
    controllers_->priceEntry.cmdFondList_Click();
}
void frmPPM::cmdPPMData_Click() {
    controllers_->gridSwitch.cmdPPMData_Click();
}
void frmPPM::imgScreen_Click() {
    controllers_->severalCurves.imgScreen_Click();
}
void frmPPM::imgColor_Click() {
    controllers_->curveSelection.imgColor_Click();
}
void frmPPM::imgGrafNr_Click() {
    controllers_->curveSelection.imgGrafNr_Click();
}
void frmPPM::Image4_MouseUp(Qt::MouseButton button) {
    controllers_->axes.Image4_MouseUp(button);
}
void frmPPM::Image5_MouseUp(Qt::MouseButton button) {
    controllers_->axes.Image5_MouseUp(button);
}
void frmPPM::mnuPlus_Click() {
    controllers_->axes.mnuPlus_Click();
}
void frmPPM::mnuMinus_Click() {
    controllers_->axes.mnuMinus_Click();
}
