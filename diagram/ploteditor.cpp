#include "diagram/ploteditor.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "diagram/texts.h"
#include "fundfile/dayprice.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "fundfile/texts.h"
#include "platform/caption.h"
#include "platform/datasource.h"
#include "platform/platform.h"
#include "widgets/datagrid.h"
#include "widgets/diagramview.h"
#include "widgets/entryfield.h"

#include <QAction>
#include <QLabel>

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int kXCordColumn = static_cast<int>(schema::point::kXCord);
/// A fund number has seven characters and must be read whole in the narrow panel.
constexpr std::array<int, schema::point::kColumnCount> kWidthShares = {8, 6, 5, 6};

}  // namespace

PlotEditor::PlotEditor(frmPPM& ppm) : Controller(ppm) {
    DataGrid& grid = *window.GridPlott;
    std::vector<GridColumn> columns;
    for (std::size_t i = 0; i < schema::point::kColumnCount; ++i) {
        const std::string name(schema::point::kNames[i]);
        GridColumn column{.caption = name, .field = name};
        column.enterKeys = "{RIGHT}";
        column.widthShare = kWidthShares[i];
        columns.push_back(std::move(column));
    }
    grid.SetColumns(std::move(columns));
    grid.SetKeyStrokes(window.platform.keyStrokes);
    grid.SetDataSource(window.dtaPlott);
    window.dtaPlott->StoreThrough([this](const std::function<void()>& store) {
        StoreWithScales(window.FundDb, *window.dtaPlott, store);
    });
    grid.events.rowOrColumnChanged = [this] { Run([this] { GridPlott_RowColChange(); }); };
    grid.events.afterRowStore = [this](bool) { Run([this] { GridPlott_AfterUpdate(); }); };
    grid.events.afterRowDelete = [this] { Run([this] { GridPlott_AfterUpdate(); }); };
    On(window.mnuPEdit, &QAction::triggered, [this] { mnuPEdit_Click(); });
}

void PlotEditor::mnuPEdit_Click() {
    // The holdings grid would stand over the panel.
    if (!window.LeaveHoldingsGrid()) return;
    window.dtaPlott->Refresh();
    window.Put(AfterPlotDataMenu(window.State()));
    window.GridPlott->SetCurrentColumn(kXCordColumn);
    ShowCount();
}

void PlotEditor::ShowCount() {
    SetCaption(window.lblRecCount, std::string(fundtexts::ListHolds) +
                                       PlainText(window.dtaPlott->RecordCount()) +
                                       std::string(fundtexts::Rows));
}

void PlotEditor::GridPlott_RowColChange() {
    const DataGrid& grid = *window.GridPlott;
    if (grid.CurrentColumn() != kXCordColumn) return;
    // An empty cell, or one that is no day, leaves the box as it is.
    Skipping skip;
    skip([&] {
        const std::int32_t day = ParseInteger(grid.CellText(grid.CurrentRow(), kXCordColumn));
        SetCaption(window.txtTranslate, FormatDay(day));
    });
}

void PlotEditor::GridPlott_AfterUpdate() {
    ShowCount();
    if (window.storingPoint) return;
    if (window.holding) return ShowFund();
    ShowSeveral();
}

/// Scales that a corrected point changed are stored with it; holding and picture follow.
void PlotEditor::ShowFund() {
    const std::int32_t open = window.holding->kontoId;
    for (const HoldingRow& row : ReadHoldings(*window.dtaBasData)) {
        if (row.kontoId == open) window.holding = OpenHoldingOf(row);
    }
    window.ShowFundScale(window.holding->scale);
}

void PlotEditor::ShowSeveral() {
    const std::int32_t before = window.AllScale.top;
    window.SelectCurves(window.SelectedCurves);
    if (window.AllScale.top != before) return window.DrawOnAllScale();
    window.picDiagram->Clear();
    window.PlotCurves();
}
