#include "app/fundlist.h"

#include "app/change.h"
#include "app/frmPPM.h"
#include "app/rules/fundline.h"
#include "app/rules/modes.h"
#include "fundfile/editrow.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "platform/datasource.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/qttext.h"
#include "widgets/entryfield.h"
#include "widgets/listlines.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <string>
#include <utility>

FundList::FundList(frmPPM& ppm) : Controller(ppm) {
    // First: a click beside the lines chooses none, and takes the choice from none.
    OnEvent(window.lstFonder->viewport(), QEvent::MouseButtonPress,
            [this](QEvent& event) { return !LineAt(static_cast<const QMouseEvent&>(event)); });
    OnListClick(window.lstFonder, [this] { OpenSelectedFund(); });
    OnEvent(window.lstFonder, QEvent::KeyPress, [this](QEvent& event) {
        return lstFonder_KeyDown(static_cast<const QKeyEvent&>(event));
    });
}

void FundList::FillFundList() {
    const QSignalBlocker quiet(window.lstFonder);
    window.lstFonder->clear();
    DataSource& holdings = *window.dtaBasData;
    window.hasHoldings = holdings.IsAttached() && !holdings.Empty();
    if (window.hasHoldings) {
        jet::RecordSet& rows = holdings.Records();
        const std::int32_t count = rows.RecordCount();
        for (std::int32_t row = 0; row < count; ++row) {
            const std::string name = rows.At(row, schema::holding::kFond).Text();
            const std::int32_t kontoId = KontoIdOf(rows.At(row, schema::holding::kKontoId));
            window.lstFonder->addItem(new SeenLine(ToQt(FundLine(kontoId, name))));
        }
        holdings.MoveFirst();
    }
    window.lstFonder->setCurrentRow(0);
    window.ShowState();
}

void FundList::MoveToSelected() {
    window.dtaBasData->MoveFirst();
    window.dtaBasData->Move(window.lstFonder->currentRow());
}

void FundList::OpenSelectedFund() {
    if (window.lstFonder->currentRow() < 0) return;
    window.dtaBasData->Refresh();
    MoveToSelected();
    const HoldingRow row = ReadHolding(*window.dtaBasData);
    const OpenHolding opened = OpenHoldingOf(row);
    window.Put(AfterHoldingOpened(AfterLineChosen(window.State(), row.kontoId), opened,
                                  ViewOf(row, FundLine(row.kontoId, row.fond))));
    window.SetVerticalScale(opened.scale);
}

bool FundList::OpenFund(std::int32_t kontoId) {
    DataSource& holdings = *window.dtaBasData;
    if (!holdings.FindFirst(queries::KontoIdIs(kontoId))) return false;
    {
        const QSignalBlocker quiet(window.lstFonder);
        window.lstFonder->setCurrentRow(holdings.Position());
    }
    OpenSelectedFund();
    return true;
}

void FundList::ClearFundPanel() {
    window.Put(AfterHoldingClosed(window.State()));
    // Windows are painted; keys and clicks wait, so that none arrives in the middle of a procedure.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

/// The list holds the rows as they are now; a holding to open is shown in the panel and drawn. The
/// row that was current stays so.
void FundList::RefreshFundList(std::optional<std::int32_t> toOpen) {
    DataSource& holdings = *window.dtaBasData;
    const std::int32_t row = holdings.Position();
    if (!toOpen && window.holding) toOpen = window.holding->kontoId;
    FillFundList();
    const bool opened = toOpen && OpenFund(*toOpen);
    if (!opened && window.holding) {
        ClearFundPanel();
        window.ReadCurveList();
    }
    if (!holdings.Empty()) holdings.MoveTo(std::min(row, holdings.RecordCount() - 1));
}

bool FundList::LineAt(const QMouseEvent& event) const {
    return window.lstFonder->itemAt(event.position().toPoint()) != nullptr;
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
    if (CollectingCurves(window.State())) return window.imgGrafNr_Click();
    if (Choosing(window.State())) ChooseColour();
    OpenSelectedFund();
    window.Put(AfterEnterInList(window.State()));
    // A price that was left there is replaced, not added to.
    window.txtValue->selectAll();
}

/// The list closes first: the colour dialog asks about the curve in the picture.
void FundList::ChooseColour() {
    window.Put(AfterEnterInList(window.State()));
    MoveToSelected();
    const HoldingRow row = ReadHolding(*window.dtaBasData);
    const Colour present = CurveColour(row.plottFarg, row.kontoId);
    const std::optional<Colour> picked = window.platform.dialogs.PickColour(present);
    if (!picked) return;
    MoveToSelected();
    const Change change(window, ColourChange(row.fond));
    EditRow(*window.dtaBasData, [&](DataSource& edited) {
        edited.Set(schema::holding::kPlottFarg, ColourValue(*picked));
    });
}
