#include "entry/holdingsgrid.h"

#include "app/change.h"
#include "app/frmPPM.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "base/keyfilter.h"
#include "base/number.h"
#include "base/text.h"
#include "entry/holdingcolumns.h"
#include "entry/rules/cells.h"
#include "entry/texts.h"
#include "fundfile/curvelist.h"
#include "fundfile/editrow.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/curvecolour.h"
#include "fundfile/rules/savedvalues.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/rules/summary.h"
#include "fundfile/schema.h"
#include "jet/transaction.h"
#include "platform/keystrokes.h"
#include "platform/platform.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"

#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

using namespace holdingcolumns;
using namespace schema::holding;

HoldingsGrid::HoldingsGrid(frmPPM& ppm) : Controller(ppm) {
    PrepareGrid();
    window.txtNamn->Bind(window.dtaBasData, HoldingField(kNamn));
    window.txtPnr->Bind(window.dtaBasData, std::string(kKontoinnehavare));
    window.txtKontoNr->Bind(window.dtaBasData, std::string(kKontonummer));
    PrepareField(window.txtKontoNr, "{DOWN}");
    PrepareField(window.txtPnr, "{TAB}");
    PrepareField(window.txtNamn, "{TAB}");
    window.txtNamn->SetTooLong(
        [this](int maxLength) { TellTooLong(texts::NameTooLong, maxLength); });
    for (BoundField* field : {window.txtKontoNr, window.txtPnr}) {
        field->SetTooLong(
            [this](int maxLength) { TellTooLong(texts::AccountTextTooLong, maxLength); });
    }
    // The fund panel names the account.
    On(window.txtNamn, &BoundField::Stored, [this] { window.RefreshFundList(std::nullopt); });
    window.txtKontoNr->SetFilter(kAccountKeys);
    window.txtPnr->SetFilter(kAccountKeys);
    // The button must not take the focus from the grid before it knows whether the row may be left.
    window.cmdPPMData->setFocusPolicy(Qt::TabFocus);

    OnEvent(window.panBasData, QEvent::Show, [this](QEvent&) {
        panBasData_Show();
        return false;
    });
    OnEvent(window.panBasData, QEvent::Hide, [this](QEvent&) {
        panBasData_Hide();
        return false;
    });
    OnEvent(window.txtGrid, QEvent::MouseButtonPress, [this](QEvent&) {
        window.gridHelp = false;
        window.ShowState();
        return true;
    });
}

void HoldingsGrid::PrepareGrid() {
    DataGrid& grid = *window.DBGrid;
    grid.SetColumns(All());
    grid.SetKeyStrokes(window.platform.keyStrokes);
    grid.SetDataSource(window.dtaBasData);

    grid.events.beforeCellEdit = [this](int column) {
        bool allowed = false;
        Run([&] { allowed = DBGrid_BeforeColEdit(column); });
        return allowed;
    };
    grid.events.beforeCellStore = [this](CellChange& change) {
        Run([&] { DBGrid_BeforeColUpdate(change); });
    };
    grid.events.afterCellStore = [this](int column) {
        Run([&] { DBGrid_AfterColUpdate(column); });
    };
    grid.events.beforeRowLeave = [this] { return StoreAccountFields(); };
    grid.events.rowIsComplete = [this] { return MissingIn(TypedRow()) == Missing::Nothing; };
    grid.events.beforeRowStore = [this] {
        bool allowed = false;
        Run([&] { allowed = DBGrid_BeforeUpdate(); });
        return allowed;
    };
    grid.events.afterRowStore = [this](bool isNew) { Run([&] { DBGrid_AfterUpdate(isNew); }); };
}

void HoldingsGrid::PrepareField(EntryField* field, std::string_view enterKeys) {
    field->SetEnter(
        [this, enterKeys] { Run([&] { window.platform.keyStrokes.Send(enterKeys); }); });
}

void HoldingsGrid::TellTooLong(std::string_view reason, int maxLength) {
    Tell(std::string(reason) + PlainText(static_cast<std::int32_t>(maxLength)) +
         std::string(texts::Characters));
}

/// A field that shows another row would lose what is typed there and cannot be stored.
bool HoldingsGrid::StoreAccountFields() {
    const std::array fields{window.txtKontoNr, window.txtPnr, window.txtNamn};
    return std::all_of(fields.begin(), fields.end(),
                       [](BoundField* field) { return field->Store(); });
}

/// The open holding's row is the current one, marked.
void HoldingsGrid::panBasData_Show() {
    window.DBGrid->SetCurrentColumn(Fond);
    DataSource& holdings = *window.dtaBasData;
    Skipping skip;
    skip([&] {
        if (!window.holding || holdings.Empty()) return;
        if (!holdings.FindFirst(queries::KontoIdIs(window.holding->kontoId))) return;
        window.DBGrid->MarkRow();
    });
}

/// The grid has moved the shared row. The holding that is open in the fund panel is the current one
/// again, or the next price would be stored in another.
void HoldingsGrid::panBasData_Hide() {
    DataSource& holdings = *window.dtaBasData;
    Skipping skip;
    skip([&] {
        if (!holdings.IsAttached() || holdings.Empty()) return;
        if (window.holding && holdings.FindFirst(queries::KontoIdIs(window.holding->kontoId))) {
            return;
        }
        holdings.MoveFirst();
    });
}

// ---- Cells ----

bool HoldingsGrid::DBGrid_BeforeColEdit(int column) {
    if (column != VardeKr) return true;
    Tell(texts::LockedField);
    return false;
}

void HoldingsGrid::DBGrid_BeforeColUpdate(CellChange& change) {
    switch (change.column) {
        case Fond:
            change.text = CellName(change.text);
            return;
        case FondNr:
            change.text = CellFundNumber(change.text);
            return;
        case BokfortDatum:
            return TakeDate(change);
        default:
            return TakeNumber(change);
    }
}

void HoldingsGrid::TakeDate(CellChange& change) {
    const std::optional<std::int32_t> day = ParseDate(change.text);
    change.text = day ? FormatDay(*day) : "";
    if (day) return;
    change.stay = true;
    Tell(texts::WrongDate);
}

/// A text that is no number for its column stays in the open cell: the column keeps its number.
void HoldingsGrid::TakeNumber(CellChange& change) {
    const std::string column = Trim(window.DBGrid->ColumnCaption(change.column));
    const std::optional<std::string> number = CellNumber(change.text);
    if (!number) {
        return RefuseCell(change, column + std::string(texts::BeforeNoNumber) + change.text +
                                      std::string(texts::AfterNoNumber));
    }
    if (change.column == Fondandelar && number->starts_with('-')) {
        return RefuseCell(change, column + std::string(texts::NegativeShares));
    }
    change.text = *number;
}

void HoldingsGrid::RefuseCell(CellChange& change, std::string_view reason) {
    change.cancel = change.stay = true;
    Tell(reason);
}

void HoldingsGrid::DBGrid_AfterColUpdate(int column) {
    if (column == Fondandelar || column == KursKr) TypeValue();
}

/// Nothing for an empty cell, and for a text that is no number: storing the row reports that one.
std::optional<double> HoldingsGrid::TypedNumber(std::size_t position) const try {
    return ParseDouble(window.DBGrid->TypedText(HoldingField(position)));
} catch (const Error&) {
    return std::nullopt;
}

void HoldingsGrid::TypeValue() {
    const std::optional<double> value = RowValue(TypedNumber(kFondandelar), TypedNumber(kKursKr));
    window.DBGrid->TypeText(HoldingField(kVardeKr), value ? PlainText(*value) : "");
}

// ---- A row is stored ----

/// What keeps a row from being stored is looked for in the row as it is typed.
HoldingRow HoldingsGrid::TypedRow() const {
    const DataGrid& grid = *window.DBGrid;
    HoldingRow row;
    row.fond = grid.TypedText(HoldingField(kFond));
    row.kursKr = TypedNumber(kKursKr);
    row.bokfortDatum = ParseDate(grid.TypedText(HoldingField(kBokfortDatum)));
    return row;
}

bool HoldingsGrid::DBGrid_BeforeUpdate() {
    DataGrid& grid = *window.DBGrid;
    switch (MissingIn(TypedRow())) {
        case Missing::Name:
            return RefuseRow(texts::NameMissing, Fond);
        case Missing::Price:
            return RefuseRow(texts::PriceMissing, KursKr);
        case Missing::Date:
            return RefuseRow(texts::DateMissing, BokfortDatum);
        case Missing::Nothing:
            break;
    }
    grid.TypeText(HoldingField(kFondNr),
                  FundNumberOrDefault(grid.TypedText(HoldingField(kFondNr))));
    TypeValue();
    if (grid.OnNewRow()) TypeKontoId();
    return true;
}

/// What was typed stays for correction, and the keys go there, whatever the row was left for.
bool HoldingsGrid::RefuseRow(std::string_view reason, int column) {
    Tell(reason);
    window.DBGrid->SetCurrentColumn(column);
    window.DBGrid->setFocus();
    return false;
}

/// A file in which the first column does not count by itself: the next identity is one more than
/// the largest there is.
void HoldingsGrid::TypeKontoId() {
    jet::RecordSet& rows = window.dtaBasData->Records();
    const jet::ColumnDesign& column = rows.Column(kKontoId);
    if (column.autonumber) return;
    std::int32_t largest = 0;
    for (const HoldingRow& row : ReadHoldings(*window.dtaBasData)) {
        largest = std::max(largest, row.kontoId);
    }
    window.DBGrid->TypeText(column.name, PlainText(largest + 1));
}

void HoldingsGrid::DBGrid_AfterUpdate(bool isNew) {
    if (isNew) return CompleteNewHolding();
    window.RefreshFundList(std::nullopt);
}

void HoldingsGrid::CompleteNewHolding() {
    DataSource& holdings = *window.dtaBasData;
    const HoldingRow row = ReadHolding(holdings);
    window.BringTodayUpToDate();

    {
        const Change withItsRow(window);
        jet::Transaction transaction(window.FundDb);
        EditRow(holdings, [&](DataSource& edited) {
            edited.Set(kPlottFarg, ColourValue(NewCurveColour(row.kontoId)));
            edited.Set(kSenasteDag, window.TodayDay);
            edited.Set(kSenasteKurs, LatestPriceText(ShownNumber(row.kursKr)));
            edited.Set(kSkala, kDefaultScaleText);
            if (row.sparadeVarden.empty()) edited.Set(kSparadeVarden, kKeepValues);
        });
        if (!HasPoints(*window.FundDb, row.kontoId)) {
            const std::int32_t day = row.bokfortDatum.value_or(window.TodayDay);
            AddPoint(*window.dtaPlott, {row.fondNr, {.day = day, .value = 0}, row.kontoId});
        }
        WriteCurveList(holdings, ListedCurves(holdings));
        transaction.Commit();
    }
    window.dtaPlott->Refresh();
    window.dtaPlott->FindFirst(queries::KontoIdIs(row.kontoId));
    window.RefreshFundList(row.kontoId);
}
