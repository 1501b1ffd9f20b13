#include "app/fundlist.h"

#include "app/frmPPM.h"
#include "app/look.h"
#include "app/rules/fundline.h"
#include "app/rules/holdingview.h"
#include "app/swatch.h"
#include "app/texts.h"
#include "diagram/diagramview.h"
#include "diagram/strokepainter.h"
#include "fundfile/datasource.h"
#include "fundfile/editrow.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/curvecolour.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "platform/caption.h"
#include "platform/dialogs.h"
#include "platform/entryfield.h"
#include "platform/platform.h"
#include "platform/statuspanels.h"

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

}  // namespace

FundList::FundList(frmPPM& ppm) : Controller(ppm) {
    OnListClick(window.lstFonder, [this] { OpenSelectedFund(); });
    OnEvent(window.lstFonder, QEvent::KeyPress, [this](QEvent& event) {
        return lstFonder_KeyDown(static_cast<const QKeyEvent&>(event));
    });
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

/// The list holds the rows as they are now; a holding to open is shown in the panel and drawn. The
/// row that was current stays so.
void FundList::RefreshFundList(std::optional<std::int32_t> toOpen) {
    DataSource& holdings = *window.dtaBasData;
    const std::int32_t row = holdings.Position();
    const bool panelShows = window.markers.HoldingChosen();
    if (!toOpen && panelShows && !window.SelectedCurves.empty()) {
        toOpen = window.SelectedCurves.front();
    }
    FillFundList();
    if (toOpen && holdings.FindFirst(queries::KontoIdIs(*toOpen))) {
        const QSignalBlocker quiet(window.lstFonder);
        window.lstFonder->setCurrentRow(holdings.Position());
        OpenSelectedFund();
    } else if (panelShows) {
        ClearFundPanel();
        window.ReadCurveList();
    }
    if (!holdings.Empty()) holdings.MoveTo(std::min(row, holdings.RecordCount() - 1));
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
