#include "entry/holdingdeletion.h"

#include "app/change.h"
#include "app/frmPPM.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "entry/rules/cells.h"
#include "entry/texts.h"
#include "fundfile/curvelist.h"
#include "fundfile/records.h"
#include "jet/transaction.h"
#include "platform/datasource.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "widgets/datagrid.h"
#include "widgets/diagramview.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

HoldingDeletion::HoldingDeletion(frmPPM& ppm) : Controller(ppm) {
    GridEvents& events = window.DBGrid->events;
    events.beforeRowDelete = [this] {
        bool allowed = false;
        Run([&] { allowed = DBGrid_BeforeDelete(); });
        if (!allowed) Mark(std::nullopt);
        return allowed;
    };
    events.deleteRow = [this] { DeleteRowAndPoints(); };
    events.afterRowDelete = [this] { Run([&] { DBGrid_AfterDelete(); }); };
}

void HoldingDeletion::Mark(std::optional<std::int32_t> kontoId) {
    window.rowBeingDeleted = kontoId;
    window.ShowState();
}

bool HoldingDeletion::DBGrid_BeforeDelete() {
    DataSource& holdings = *window.dtaBasData;
    Mark(KontoIdOf(holdings));
    const Answer answer = window.platform.dialogs.Show({.text = std::string(texts::AskDelete),
                                                        .buttons = Buttons::YesNo,
                                                        .icon = Icon::Question,
                                                        .defaultButton = DefaultButton::Second});
    if (answer != Answer::Yes) return false;
    if (holdings.RecordCount() == 1) {
        Tell(texts::LastRow);
        return false;
    }
    window.BringTodayUpToDate();
    deleted_ = ReadHolding(holdings);
    window.WriteLogEntry(DeletionEntry(deleted_, DateText(window.TodayDay)));
    return true;
}

/// Row, points and the place of the curve list change together or not at all. The database is the
/// open one, whatever file is to be started with.
void HoldingDeletion::DeleteRowAndPoints() {
    DataSource& holdings = *window.dtaBasData;
    const std::int32_t kontoId = window.rowBeingDeleted.value_or(KontoIdOf(holdings));
    std::vector<std::int32_t> curves = ListedCurves(holdings);
    std::erase(curves, kontoId);
    const Change change(window, HoldingDeletionChange(deleted_.namn, deleted_.fond));
    try {
        jet::Transaction transaction(window.FundDb);
        holdings.Delete();
        DeletePointsOf(*window.FundDb, kontoId);
        WriteCurveList(holdings, curves);
        transaction.Commit();
    } catch (const Error&) {
        Mark(std::nullopt);
        Skipping skip;
        skip([&] { holdings.Refresh(); });
        throw;
    }
}

void HoldingDeletion::DBGrid_AfterDelete() {
    const std::optional<std::int32_t> deleted = window.rowBeingDeleted;
    Mark(std::nullopt);
    window.dtaPlott->Refresh();
    const bool wasOpen = window.holding && window.holding->kontoId == deleted;
    if (wasOpen) window.ClearFundPanel();
    window.RefreshFundList(std::nullopt);
    if (wasOpen) return ShowStoredCurves();
    if (deleted) std::erase(window.SelectedCurves, *deleted);
    window.picDiagram->Clear();
    window.PlotCurves();
}

/// The holding that was drawn is gone: the diagram shows the several-curves view.
void HoldingDeletion::ShowStoredCurves() {
    const std::int32_t row = window.dtaBasData->Position();
    window.ReadCurveList();
    window.DrawOnAllScale();
    window.dtaBasData->MoveTo(row);
}
