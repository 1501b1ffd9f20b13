#include "main/mainwindow.h"

#include "app/background.h"
#include "app/filedrop.h"
#include "app/filelist.h"
#include "app/filemenu.h"
#include "app/fundlist.h"
#include "app/fundsummary.h"
#include "app/gridswitch.h"
#include "app/keyboard.h"
#include "app/listlooks.h"
#include "app/listtyping.h"
#include "app/pricetaking.h"
#include "app/rules/changename.h"
#include "app/safetycopies.h"
#include "app/screenscaling.h"
#include "app/startup.h"
#include "app/typedwork.h"
#include "app/undoredo.h"
#include "diagram/axes.h"
#include "diagram/curvepointer.h"
#include "diagram/curves.h"
#include "diagram/curveselection.h"
#include "diagram/measurement.h"
#include "diagram/ploteditor.h"
#include "diagram/pointsearch.h"
#include "diagram/severalcurves.h"
#include "entry/dayprices.h"
#include "entry/holdingdeletion.h"
#include "entry/holdingsgrid.h"
#include "entry/newsharesnotice.h"
#include "entry/priceentry.h"
#include "entry/priceimport.h"
#include "entry/sourcefailures.h"
#include "reports/accounttotals.h"
#include "reports/export.h"
#include "reports/overview.h"
#include "reports/printedreport.h"
#include "tools/about.h"
#include "tools/calculators.h"
#include "tools/log.h"
#include "tools/outsideprograms.h"

#include <utility>

/// In order of construction; what one does in its constructor may use those above it.
struct MainWindow::Controllers {
    explicit Controllers(frmPPM& window)
        : log(window),
          outsidePrograms(window),
          about(window),
          background(window),
          screenScaling(window),
          axes(window),
          curves(window),
          curveSelection(window),
          curvePointer(window),
          measurement(window),
          keyboard(window),
          fundList(window),
          listTyping(window),
          listLooks(window),
          severalCurves(window),
          gridSwitch(window),
          typedWork(window),
          fundSummary(window),
          priceEntry(window),
          dayPrices(window),
          priceImport(window),
          printedReport(window),
          exporter(window),
          holdingsGrid(window),
          holdingDeletion(window),
          sourceFailures(window),
          newSharesNotice(window),
          plotEditor(window),
          pointSearch(window),
          fileMenu(window),
          fileList(window),
          fileDrop(window),
          safetyCopies(window),
          undoRedo(window),
          accountTotals(window),
          overview(window),
          calculators(window),
          startUp(window) {}

    Log log;
    OutsidePrograms outsidePrograms;
    About about;
    Background background;
    ScreenScaling screenScaling;
    Axes axes;
    Curves curves;
    CurveSelection curveSelection;
    CurvePointer curvePointer;
    Measurement measurement;
    Keyboard keyboard;
    FundList fundList;
    ListTyping listTyping;
    ListLooks listLooks;
    SeveralCurves severalCurves;
    GridSwitch gridSwitch;
    TypedWork typedWork;
    FundSummary fundSummary;
    PriceEntry priceEntry;
    DayPrices dayPrices;
    PriceImport priceImport;
    PrintedReport printedReport;
    Export exporter;
    HoldingsGrid holdingsGrid;
    HoldingDeletion holdingDeletion;
    SourceFailures sourceFailures;
    NewSharesNotice newSharesNotice;
    PlotEditor plotEditor;
    PointSearch pointSearch;
    FileMenu fileMenu;
    FileList fileList;
    FileDrop fileDrop;
    SafetyCopies safetyCopies;
    UndoRedo undoRedo;
    AccountTotals accountTotals;
    Overview overview;
    Calculators calculators;
    StartUp startUp;
};

MainWindow::MainWindow(Platform& outside, QWidget* parent)
    : frmPPM(outside, parent), controllers_(std::make_unique<Controllers>(*this)) {
    controllers_->startUp.Load();
}

MainWindow::~MainWindow() {
    // Controls tell of their end (a lost focus, a closed row); nobody may listen any more.
    controllers_->startUp.Unload();
    controllers_.reset();
}

void MainWindow::Activate() {
    controllers_->startUp.Activate();
}
void MainWindow::ResetPanels() {
    controllers_->startUp.ResetPanels();
}
void MainWindow::Unload() {
    controllers_->startUp.Unload();
}
void MainWindow::BringTodayUpToDate() {
    controllers_->startUp.BringTodayUpToDate();
}
void MainWindow::ScaleToScreen(float factor) {
    controllers_->screenScaling.ScaleToScreen(factor);
}
void MainWindow::FitInto(const QSize& room) {
    controllers_->screenScaling.FitInto(room);
}
void MainWindow::TellAbout(const FundFile& file) {
    controllers_->fileMenu.TellAbout(file);
}
void MainWindow::OpenFile(const std::string& path) {
    controllers_->fileMenu.SwitchTo(path);
}
void MainWindow::OpenChosenFile(const std::string& path) {
    controllers_->fileMenu.OpenChosen(path);
}
void MainWindow::ShowReceipt(std::string text) {
    controllers_->fileMenu.ShowReceipt(std::move(text));
}
void MainWindow::GuardFile() {
    controllers_->safetyCopies.GuardFile();
}
void MainWindow::KeepChanges() {
    controllers_->undoRedo.KeepChanges();
}
void MainWindow::ShowFileAnew() {
    controllers_->undoRedo.ShowFileAnew();
}
void MainWindow::BeginChange(ChangeName name) {
    controllers_->undoRedo.BeginChange(std::move(name));
}
void MainWindow::ContinueChange() {
    controllers_->undoRedo.ContinueChange();
}
void MainWindow::EndChange() {
    controllers_->undoRedo.EndChange();
}
void MainWindow::FillFundList() {
    controllers_->fundList.FillFundList();
}
void MainWindow::OpenSelectedFund() {
    controllers_->fundList.OpenSelectedFund();
}
bool MainWindow::OpenFund(std::int32_t kontoId) {
    return controllers_->fundList.OpenFund(kontoId);
}
void MainWindow::ClearFundPanel() {
    controllers_->fundList.ClearFundPanel();
}
void MainWindow::RefreshFundList(std::optional<std::int32_t> toOpen) {
    controllers_->fundList.RefreshFundList(toOpen);
}
void MainWindow::ReadCurveList() {
    controllers_->severalCurves.ReadCurveList();
}
void MainWindow::SelectCurves(std::vector<std::int32_t> kontoIds) {
    controllers_->severalCurves.SelectCurves(std::move(kontoIds));
}
void MainWindow::DrawOnAllScale() {
    controllers_->severalCurves.DrawOnAllScale();
}
bool MainWindow::StoreTypedRows() {
    return controllers_->gridSwitch.StoreTypedRows();
}
bool MainWindow::MayLeaveFile() {
    return controllers_->typedWork.MayLeaveFile();
}
bool MainWindow::MayLeaveNotice() {
    return controllers_->typedWork.MayLeaveNotice();
}
bool MainWindow::LeaveHoldingsGrid() {
    return controllers_->gridSwitch.LeaveHoldingsGrid();
}
TakenPrice MainWindow::TakePrice(const PriceToTake& price) {
    return controllers_->priceEntry.TakePrice(price);
}
bool MainWindow::Believable(std::int32_t percent) {
    return controllers_->priceEntry.Believable(percent);
}
bool MainWindow::GiveUpDayPrice() {
    return controllers_->dayPrices.GiveUp();
}
void MainWindow::RefreshFundSummary(const OpenHolding& stored, double newPrice) {
    controllers_->fundSummary.RefreshFundSummary(stored, newPrice);
}
void MainWindow::SetVerticalScale(ScaleRange scale) {
    controllers_->axes.SetVerticalScale(scale);
}
void MainWindow::ShowFundScale(ScaleRange stored) {
    controllers_->axes.ShowFundScale(stored);
}
void MainWindow::AdvanceOneMonth() {
    controllers_->axes.AdvanceOneMonth();
}
void MainWindow::ShowMonthsOfToday() {
    controllers_->axes.ShowMonthsOfToday();
}
void MainWindow::FollowToday(std::int32_t before) {
    controllers_->axes.FollowToday(before);
}
void MainWindow::ReturnToToday() {
    controllers_->axes.ReturnToToday();
}
void MainWindow::PlotCurves() {
    controllers_->curves.PlotCurves();
}
void MainWindow::PrintCurves(PrinterPage& page) {
    controllers_->curves.PrintCurves(page);
}
void MainWindow::ComputeFundScale(std::int32_t kontoId, bool replace) {
    controllers_->curves.ComputeFundScale(kontoId, replace);
}
void MainWindow::WriteLogEntry(std::string_view entry) {
    controllers_->log.WriteLogEntry(entry);
}
void MainWindow::FillAccountList() {
    controllers_->accountTotals.FillAccountList();
}
std::string MainWindow::BuildAccountTotals(std::string_view accountName) {
    return controllers_->accountTotals.BuildAccountTotals(accountName);
}
void MainWindow::RefreshTotals() {
    controllers_->accountTotals.RefreshTotals();
}
void MainWindow::RefreshPoints() {
    controllers_->plotEditor.RefreshPoints();
}
bool MainWindow::MendPoint(std::int32_t percent, double price) {
    return controllers_->plotEditor.MendPoint(percent, price);
}

void MainWindow::cmdFondList_Click() {
    controllers_->priceEntry.cmdFondList_Click();
}
void MainWindow::mnuKurser_Click() {
    controllers_->dayPrices.mnuKurser_Click();
}
void MainWindow::mnuOversikt_Click() {
    controllers_->overview.mnuOversikt_Click();
}
void MainWindow::cmdPPMData_Click() {
    controllers_->gridSwitch.cmdPPMData_Click();
}
void MainWindow::imgScreen_Click() {
    controllers_->severalCurves.imgScreen_Click();
}
void MainWindow::imgColor_Click() {
    controllers_->curveSelection.imgColor_Click();
}
void MainWindow::imgGrafNr_Click() {
    controllers_->curveSelection.imgGrafNr_Click();
}
void MainWindow::Image4_MouseUp(Qt::MouseButton button) {
    controllers_->axes.Image4_MouseUp(button);
}
void MainWindow::Image5_MouseUp(Qt::MouseButton button) {
    controllers_->axes.Image5_MouseUp(button);
}
void MainWindow::mnuPlus_Click() {
    controllers_->axes.mnuPlus_Click();
}
void MainWindow::mnuMinus_Click() {
    controllers_->axes.mnuMinus_Click();
}
void MainWindow::ShowHelpPage() {
    controllers_->outsidePrograms.ShowHelpPage();
}
