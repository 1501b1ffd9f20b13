#include "app/fundlist.h"

#include "app/editrow.h"
#include "app/frmPPM.h"
#include "app/imagebutton.h"
#include "app/look.h"
#include "app/rules/fundline.h"
#include "app/rules/holdingview.h"
#include "app/swatch.h"
#include "app/texts.h"
#include "diagram/diagramview.h"
#include "diagram/rules/curvecolour.h"
#include "diagram/strokepainter.h"
#include "fundfile/datasource.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "platform/boundfield.h"
#include "platform/caption.h"
#include "platform/datagrid.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/statuspanels.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QGroupBox>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>
#include <string>
#include <utility>

namespace {

std::string SelectedLine(const frmPPM& window) {
    const QListWidgetItem* item = window.lstFonder->currentItem();
    return item == nullptr ? std::string() : FromQt(item->text());
}

std::int32_t KontoIdAt(jet::RecordSet& holdings, std::int32_t row) try {
    return holdings.At(row, schema::holding::kKontoId).Integer();
} catch (const Error&) {
    return kFallbackKontoId;
}

ScaleText ScaleTextOf(DataSource& holdings) {
    return ParseScaleText(holdings.Field(schema::holding::kSkala).Text());
}

}  // namespace

FundList::FundList(frmPPM& ppm) : Controller(ppm) {
    OnListClick(window.lstFonder, [this] { OpenSelectedFund(); });
    OnEvent(window.lstFonder, QEvent::KeyPress, [this](QEvent& event) {
        return lstFonder_KeyDown(static_cast<const QKeyEvent&>(event));
    });
    On(window.mnuAll, &QAction::triggered, [this] { mnuAll_Click(); });
    On(window.imgScreen, &ImageButton::MouseUp, [this] {
        if (LeaveHoldingsGrid()) imgScreen_Click();
    });
    On(window.cmdPPMData, &QPushButton::clicked, [this] { cmdPPMData_Click(); });
}

void FundList::FillFundList() {
    const QSignalBlocker quiet(window.lstFonder);
    window.lstFonder->clear();
    DataSource& holdings = *window.dtaBasData;
    if (holdings.IsAttached() && !holdings.Empty()) {
        jet::RecordSet& rows = holdings.Records();
        const std::int32_t count = rows.RecordCount();
        for (std::int32_t row = 0; row < count; ++row) {
            const std::string name = rows.At(row, schema::holding::kFond).Text();
            window.lstFonder->addItem(ToQt(FundLine(KontoIdAt(rows, row), name)));
        }
        holdings.MoveFirst();
    }
    SetCaption(window.panListFonder, texts::ListForPrices);
    look::SetTextColour(*window.lstFonder, look::kListGreen);
    window.lstFonder->setCurrentRow(0);
}

void FundList::MoveToSelected() {
    window.dtaBasData->MoveFirst();
    window.dtaBasData->Move(window.lstFonder->currentRow());
}

void FundList::CollectCurve() {
    const std::string marks = Caption(window.lblGrafNr);
    SetCaption(window.lblGrafNr, AddCurveMark(marks, SelectedLine(window)));
    window.lblGrafNr->show();
    // The instruction stays beside the numbers: it says how the choice is ended.
    window.lblPlottInfo->show();
}

void FundList::OpenSelectedFund() {
    if (window.lstFonder->currentRow() < 0) return;
    window.markers.ShowSingleFund();
    if (window.markers.CollectingCurves()) CollectCurve();

    window.dtaBasData->Refresh();
    MoveToSelected();
    const std::string line = SelectedLine(window);
    const HoldingRow row = ReadHolding(*window.dtaBasData);
    ShowView(ViewOf(row, line));
    window.shaPlottColor->SetFillColour(ToQColor(ColourFromValue(row.plottFarg)));
    window.lblColorNr->show();

    const ScaleRange scale = ParseScaleText(row.skala).scale;
    window.FundScaleTop = scale.top;
    window.FundScaleBottom = scale.bottom;
    window.SelectedCurves = {NumberOfLine(line)};
    window.SetVerticalScale(scale.bottom, scale.top);
    window.ScaleTop = scale.top;
    window.ScaleBottom = scale.bottom;
}

void FundList::ShowView(const HoldingView& view) {
    SetCaption(window.fraStartData, view.frameCaption);
    for (std::size_t i = 0; i < view.labels.size(); ++i) {
        const int index = static_cast<int>(i);
        SetCaption(window.lblFraData[index], view.labels[i]);
        SetCaption(window.lblFraHeading[index], view.headings[i]);
    }
    window.lblFraHint->setVisible(view.labels[0].empty());
    SetCaption(window.lblColorNr, view.colourNumber);
    SetCaption(&window, view.windowCaption);
    ShowStatus(view.status);
}

void FundList::ShowStatus(const StatusTexts& texts) {
    window.staBar->SetText(statuspanel::kFund, texts.fund);
    window.staBar->SetText(statuspanel::kStartPrice, texts.startPrice);
    window.staBar->SetText(statuspanel::kLatestPrice, texts.latestPrice);
    window.staBar->SetText(statuspanel::kChange, texts.change);
    window.staBar->SetText(statuspanel::kValue, texts.value);
    window.markers.SetStartPrice(texts.startPriceTag);
}

void FundList::ClearFundPanel() {
    // The window's caption goes on naming the fund that was open last.
    HoldingView empty = EmptyView();
    empty.windowCaption = Caption(&window);
    ShowView(empty);
    SetCaption(window.lblXCord, "");
    SetCaption(window.lblYCord, "");
    window.txtGrid->hide();
    window.panTotal->hide();
    SetCaption(window.lblTotal, "");
    window.markers.StopCollectingCurves();
    SetCaption(window.lblGrafNr, "");
    window.markers.ShowSeveralCurves();
    window.lblGrafNr->hide();
    window.lblPlottInfo->hide();
    window.lblColorNr->hide();
    window.shaPlottColor->SetFillColour({});
    // Windows are painted; keys and clicks wait, so that none arrives in the middle of a procedure.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

bool FundList::lstFonder_KeyDown(const QKeyEvent& event) {
    const bool onlyMoves = event.modifiers().testFlag(Qt::ControlModifier);
    switch (event.key()) {
        case Qt::Key_Up:
            return onlyMoves && MoveMark(-1);
        case Qt::Key_Down:
            return onlyMoves && MoveMark(1);
        case Qt::Key_Space:
            ChooseMarked();
            return true;
        case Qt::Key_Left:
        case Qt::Key_Right:
            return true;  // they scroll the diagram
        case Qt::Key_Return:
        case Qt::Key_Enter:
            lstFonder_Enter();
            return true;
        default:
            return false;
    }
}

/// To another line without choosing it: while curves are chosen every chosen line counts.
bool FundList::MoveMark(int lines) {
    QListWidget& list = *window.lstFonder;
    const int row = list.currentRow() + lines;
    if (row >= 0 && row < list.count()) list.setCurrentRow(row, QItemSelectionModel::NoUpdate);
    return true;
}

void FundList::ChooseMarked() {
    const QSignalBlocker quiet(window.lstFonder);
    window.lstFonder->setCurrentRow(window.lstFonder->currentRow(),
                                    QItemSelectionModel::ClearAndSelect);
    OpenSelectedFund();
}

void FundList::lstFonder_Enter() {
    if (window.lstFonder->currentRow() < 0) return;
    const bool choseColour = window.markers.ChoosingColour();
    if (choseColour) ChooseColour();
    if (window.markers.CollectingCurves()) {
        window.imgGrafNr_Click();
    } else {
        OpenSelectedFund();
        window.txtValue->setFocus();
        // What was typed for another fund may be stored for this one, but is not added to.
        window.txtValue->selectAll();
    }
    window.markers.StopChoosingColour();
    // The mode is over and its instruction with it: the label stands there empty.
    SetCaption(window.lblPlottInfo, "");
    window.lblPlottInfo->show();
    SetCaption(window.panListFonder, "");
}

void FundList::ChooseColour() {
    window.panListFonder->hide();
    window.lblPlottInfo->hide();
    MoveToSelected();
    const Colour present = ColourFromValue(ReadHolding(*window.dtaBasData).plottFarg);
    const auto picked =
        window.platform.dialogs.PickColour({present.red, present.green, present.blue});
    if (picked) {
        const Colour colour{picked->red, picked->green, picked->blue};
        window.shaPlottColor->SetFillColour(ToQColor(colour));
        MoveToSelected();
        EditRow(*window.dtaBasData, [&](DataSource& row) {
            row.Set(schema::holding::kPlottFarg, ColourValue(colour));
        });
    }
    window.markers.StopChoosingColour();
    window.cmdFondList->setEnabled(true);
    window.picDiagram->Clear();
    window.PlotCurves();
}

void FundList::ReadCurveList() {
    DataSource& holdings = *window.dtaBasData;
    std::vector<std::int32_t> curves;
    if (holdings.IsAttached() && !holdings.Empty()) {
        holdings.MoveFirst();
        curves = ScaleTextOf(holdings).curves;
    }
    // No more curves than there are lines in the list.
    const auto lines = static_cast<std::size_t>(window.lstFonder->count());
    if (curves.size() > lines) curves.resize(lines);
    SelectCurves(std::move(curves));
}

void FundList::SelectCurves(std::vector<std::int32_t> kontoIds) {
    DataSource& holdings = *window.dtaBasData;
    std::int32_t top = 0;
    for (const std::int32_t kontoId : kontoIds) {
        if (!holdings.FindFirst(queries::KontoIdIs(kontoId))) continue;
        top = std::max(top, ScaleTextOf(holdings).scale.top);
    }
    if (!kontoIds.empty()) holdings.MoveFirst();
    const ScaleRange scale = top > 0 ? ScaleWithTop(top) : ScaleRange{};
    window.SelectedCurves = std::move(kontoIds);
    window.AllScaleTop = scale.top;
    window.AllScaleBottom = scale.bottom;
}

void FundList::DrawOnAllScale() {
    window.ScaleTop = window.AllScaleTop;
    window.ScaleBottom = window.AllScaleBottom;
    window.SetVerticalScale(window.ScaleBottom, window.ScaleTop);
}

void FundList::mnuAll_Click() {
    if (!LeaveHoldingsGrid()) return;
    std::string marks = Caption(window.lblGrafNr);
    for (int i = 0; i < window.lstFonder->count(); ++i) {
        marks = AddCurveMark(marks, FromQt(window.lstFonder->item(i)->text()));
    }
    SetCaption(window.lblGrafNr, marks);
    window.lblPlottInfo->hide();
    window.markers.StopCollectingCurves();
    const std::vector<std::int32_t> curves = CurvesOfMarks(marks);
    if (!curves.empty()) {
        window.ClearFundPanel();
        window.SelectCurves(curves);
        DrawOnAllScale();
    }
    window.picDiagram->setFocus();
    window.panListFonder->hide();
    window.markers.ShowSeveralCurves();
    window.mnuMinus_Click();
    window.imgColor->hide();
    window.imgGrafNr->hide();
}

void FundList::imgScreen_Click() {
    window.dtaBasData->Refresh();
    if (window.dtaBasData->Empty()) return;
    window.ReadCurveList();
    if (window.SelectedCurves.size() > 1) window.ClearFundPanel();
    DrawOnAllScale();
}

void FundList::cmdPPMData_Click() {
    if (window.panBasData->isVisible()) {
        ShowDiagram();
    } else {
        ShowHoldings();
    }
}

void FundList::ShowHoldings() {
    // A point that may not be stored yet stays on the screen for correction.
    if (!StoreTypedRows()) return;
    const DataSource& holdings = *window.dtaBasData;
    window.cmdNyAndel->setEnabled(holdings.IsAttached() && !window.dtaBasData->Empty());
    window.panBasData->show();
    window.panBasData->raise();
    SetCaption(window.cmdPPMData, texts::ToDiagram);
    window.cmdFondList->setEnabled(false);
    SetCaption(window.txtValue, "");
    window.panListFonder->hide();
    window.imgColor->hide();
    window.imgGrafNr->hide();
    window.DBGrid->setFocus();
}

bool FundList::StoreTypedRows() {
    for (DataGrid* grid : {window.DBGrid, window.GridPlott}) {
        if (grid->StoreRow()) continue;
        grid->setFocus();  // the row waits there for correction
        return false;
    }
    return true;
}

bool FundList::LeaveHoldingsGrid() {
    if (!StoreTypedRows()) return false;
    if (window.panBasData->isVisible()) ShowDiagram();
    return true;
}

void FundList::ShowDiagram() {
    // A row that may not be stored yet stays on the screen for correction.
    if (!StoreTypedRows()) return;
    SetCaption(window.cmdPPMData, texts::ToHoldings);
    window.cmdFondList->setEnabled(true);
    SetCaption(window.txtValue, "");
    window.ResetPanels();
    window.cmdNyOk->hide();
    window.fraNyAndel->hide();
    for (BoundField* box : window.txtNyAndel) box->hide();
    window.mnuPrint->setEnabled(true);
    window.cmdNyAndel->setVisible(true);
    window.panBasData->hide();
}
