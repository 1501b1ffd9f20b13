#include "diagram/ploteditor.h"

#include "app/change.h"
#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "diagram/texts.h"
#include "fundfile/dayprice.h"
#include "fundfile/editrow.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "platform/caption.h"
#include "platform/datasource.h"
#include "platform/platform.h"
#include "widgets/datagrid.h"
#include "widgets/diagramview.h"
#include "widgets/entryfield.h"

#include <QAction>
#include <QLabel>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int kXCordColumn = static_cast<int>(schema::point::kXCord);
/// A fund number has seven characters and must be read whole in the narrow panel.
constexpr std::array<int, schema::point::kColumnCount> kWidthShares = {8, 6, 5, 6};

std::string FieldAt(std::size_t column) {
    return std::string(schema::point::kNames[column]);
}

}  // namespace

PlotEditor::PlotEditor(frmPPM& ppm) : Controller(ppm) {
    DataGrid& grid = *window.GridPlott;
    std::vector<GridColumn> columns;
    for (std::size_t i = 0; i < schema::point::kColumnCount; ++i) {
        GridColumn column{.caption = FieldAt(i), .field = FieldAt(i)};
        column.enterKeys = "{RIGHT}";
        column.widthShare = kWidthShares[i];
        columns.push_back(std::move(column));
    }
    grid.SetColumns(std::move(columns));
    grid.SetKeyStrokes(window.platform.keyStrokes);
    grid.SetDataSource(window.dtaPlott);
    window.dtaPlott->StoreThrough([this](const std::function<void()>& store) {
        const Change change(window, NameOfChange());
        followed_ = StorePoint(window.FundDb, *window.dtaPlott, store, typedPrice_);
    });
    grid.events.afterCellStore = [this](int) { Run([this] { GridPlott_AfterColUpdate(); }); };
    grid.events.beforeRowStore = [this] {
        bool allowed = false;
        Run([&] { allowed = GridPlott_BeforeUpdate(); });
        return allowed;
    };
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
    GoToLastPointOfOpenFund();
    window.GridPlott->SetCurrentColumn(kXCordColumn);
    ShowCount();
}

void PlotEditor::RefreshPoints() {
    DataSource& points = *window.dtaPlott;
    const std::int32_t row = points.Position();
    points.Refresh();
    if (!points.Empty()) points.MoveTo(std::clamp(row, 0, points.RecordCount() - 1));
    if (window.left == LeftPanel::PlotData) ShowCount();
}

/// A row that is being typed is added or edited; one that is not is deleted.
ChangeName PlotEditor::NameOfChange() {
    DataSource& points = *window.dtaPlott;
    std::optional<std::int32_t> day;
    std::string fondNr;
    Skipping skip;  // a point may lack its day or its number
    skip([&] { fondNr = points.Field(schema::point::kFondNr).Text(); });
    skip([&] { day = points.Field(schema::point::kXCord).Integer(); });
    return points.Pending() ? PointChange(day, fondNr) : PointDeletionChange(day, fondNr);
}

/// The points are ordered by holding and day.
void PlotEditor::GoToLastPointOfOpenFund() {
    if (!window.holding) return;
    DataSource& points = *window.dtaPlott;
    const std::int32_t kontoId = window.holding->kontoId;
    Skipping skip;
    skip([&] {
        if (points.Empty() || !points.FindFirst(queries::KontoIdIs(kontoId))) return;
        const std::int32_t count = points.RecordCount();
        std::int32_t last = points.Position();
        const auto isOurs = [&](std::int32_t row) {
            return points.Records().At(row, schema::point::kKontoId).Integer() == kontoId;
        };
        while (last + 1 < count && isOurs(last + 1)) ++last;
        points.MoveTo(last);
    });
}

/// What stands above the row that is typed; nothing in the first row.
std::string PlotEditor::TextAbove(std::size_t column) const {
    const DataGrid& grid = *window.GridPlott;
    return grid.CellText(grid.CurrentRow() - 1, static_cast<int>(column));
}

/// A new point is one more of the holding whose point stands above it.
void PlotEditor::GridPlott_AfterColUpdate() {
    DataGrid& grid = *window.GridPlott;
    if (!grid.OnNewRow()) return;
    for (const std::size_t column : {schema::point::kFondNr, schema::point::kKontoId}) {
        if (Trim(TypedText(column)).empty()) grid.TypeText(FieldAt(column), TextAbove(column));
    }
}

std::string PlotEditor::TypedText(std::size_t column) const {
    return window.GridPlott->TypedText(FieldAt(column));
}

/// Some holdings have no fund number: their points need none.
bool PlotEditor::IsMissing(std::size_t column) const {
    if (!Trim(TypedText(column)).empty()) return false;
    if (column != schema::point::kFondNr) return true;
    const bool first = window.GridPlott->CurrentRow() == 0;
    return window.GridPlott->OnNewRow() && (first || !TextAbove(column).empty());
}

bool PlotEditor::GridPlott_BeforeUpdate() {
    for (std::size_t column = 0; column < schema::point::kColumnCount; ++column) {
        if (!IsMissing(column)) continue;
        Tell(FieldAt(column) + std::string(texts::PointIncomplete));
        window.GridPlott->SetCurrentColumn(static_cast<int>(column));
        window.GridPlott->setFocus();
        return false;
    }
    return true;
}

void PlotEditor::ShowCount() {
    window.pointCount = window.dtaPlott->RecordCount();
    window.ShowState();
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
    TellOfSummaries();
    if (window.holding) return ShowFund();
    ShowSeveral();
}

/// Whose last point is another has another summary.
void PlotEditor::TellOfSummaries() {
    for (const FollowedSummary& summary : followed_) {
        const OpenHolding& stored = summary.holding;
        if (window.holding && window.holding->kontoId == stored.kontoId) {
            window.RefreshFundSummary(stored, summary.price);
        }
        window.notice = stored.fond + std::string(texts::SummaryFollows) +
                        stored.summary.latestPrice + std::string(texts::AfterLatest) +
                        stored.summary.change;
    }
    if (!followed_.empty()) window.ShowState();
    followed_.clear();
}

bool PlotEditor::MendPoint(std::int32_t percent, double price) {
    typedPrice_ = price;
    const bool stored = window.dtaPlott->Guard([&] {
        EditRow(*window.dtaPlott,
                [&](DataSource& row) { row.Set(schema::point::kYCord, percent); });
    });
    typedPrice_.reset();
    if (stored) GridPlott_AfterUpdate();
    return stored;
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
