#include "reports/overview.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "platform/datasource.h"
#include "reports/texts.h"
#include "widgets/texttable.h"

#include <QAction>
#include <QEvent>
#include <QGroupBox>

#include <cstddef>
#include <map>
#include <string>
#include <utility>

namespace {

/// The columns of the totals query, as the totals read them.
TotalsRow TotalsAt(jet::RecordSet& rows, std::int32_t row) {
    using namespace schema::holding;
    const auto text = [&](std::size_t column) { return rows.At(row, column).Text(); };
    return {text(kFondNr),  text(kKursKr),    text(kVardeKr),
            text(kProcent), text(kKursVarde), text(kSenasteKurs)};
}

TextRow SumRow(std::vector<std::string> cells) {
    return {std::move(cells), RowTone::Sum};
}

}  // namespace

Overview::Overview(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuOversikt, &QAction::triggered, [this] { mnuOversikt_Click(); });
    On(window.grdOversikt, &TextTable::CaptionPressed, this, &Overview::Sort);
    On(window.grdOversikt, &TextTable::Chosen, this, &Overview::grdOversikt_Choose);
    On(window.grdKort, &TextTable::Chosen, this, &Overview::grdKort_Choose);
    On(window.grdKort, &TextTable::RowPressed, this, &Overview::grdKort_Choose);
    OnEvent(window.panKort, QEvent::Show, [this](QEvent&) {
        FillColumn();
        return false;
    });
    On(window.dtaPlott, &DataSource::Refreshed, [this] { FollowFile(); });
}

void Overview::mnuOversikt_Click() {
    if (!window.LeaveHoldingsGrid()) return;
    window.Put(AfterOverviewKey(window.State()));
    FollowFile();
}

/// Whatever of it shows tells what the file holds now.
void Overview::FollowFile() {
    if (!window.FundDb) return;
    if (window.stage == Stage::Overview) FillPage();
    if (OverviewInColumn(window.State())) FillColumn();
}

std::vector<OverviewSource> Overview::Read(bool withPoints) const {
    std::map<std::int32_t, std::vector<CurvePoint>> points;
    if (withPoints) points = ReadPointsByHolding(*window.FundDb);
    const auto records = window.FundDb->OpenRecordSet(schema::kHoldingsSource);
    std::vector<OverviewSource> sources;
    std::int32_t at = 0;
    for (HoldingRow& row : ReadHoldings(*records)) {
        std::vector<CurvePoint> own = std::move(points[row.kontoId]);
        sources.push_back({std::move(row), TotalsAt(*records, at++), std::move(own)});
    }
    return sources;
}

void Overview::FillPage() {
    const std::vector<OverviewSource> sources = Read(true);
    const OverviewOrder& order = window.overviewOrder;
    std::vector<TextRow> rows;
    pageRows_.clear();
    for (const OverviewLine& line : Sorted(OverviewOf(sources), order.column, order.descending)) {
        pageRows_.push_back(line.kontoId);
        rows.push_back({OverviewCells(line), RowTone::Plain});
    }
    for (std::vector<std::string>& sum : OverviewSums(sources)) {
        rows.push_back(SumRow(std::move(sum)));
    }
    TextTable& table = *window.grdOversikt;
    table.SetRows(std::move(rows));
    table.ShowOrder(order.column, order.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    if (table.CurrentRow() < 0) table.SetCurrentRow(0);
}

void Overview::FillColumn() {
    if (!window.FundDb) return;
    using namespace overviewcolumn;
    const std::vector<OverviewSource> sources = Read(false);
    const auto shortForm = [](const std::vector<std::string>& cells) {
        const auto cell = [&](int column) { return cells.at(static_cast<std::size_t>(column)); };
        return std::vector<std::string>{cell(kNumber), cell(kFund), cell(kSinceStart),
                                        cell(kValue).substr(0, cell(kValue).find(','))};
    };
    std::vector<TextRow> rows;
    columnRows_.clear();
    for (const OverviewLine& line : OverviewOf(sources)) {
        columnRows_.push_back(line.kontoId);
        rows.push_back({shortForm(OverviewCells(line)), RowTone::Plain});
    }
    std::vector<std::string> sum = shortForm(OverviewSums(sources).back());
    sum[kFund] = texts::SumShort;
    rows.push_back(SumRow(std::move(sum)));
    window.grdKort->SetRows(std::move(rows));
}

void Overview::Sort(int column) {
    window.Put(AfterOverviewSorted(window.State(), column));
    FillPage();
}

void Overview::grdOversikt_Choose(int row) {
    const auto at = static_cast<std::size_t>(row);
    if (at >= pageRows_.size()) return;
    window.Put(AfterOverviewChosen(window.State()));
    Open(pageRows_[at]);
}

void Overview::grdKort_Choose(int row) {
    const auto at = static_cast<std::size_t>(row);
    if (at >= columnRows_.size()) return;
    window.Put(AfterOverviewChosen(window.State()));
    Open(columnRows_[at]);
}

void Overview::Open(std::int32_t kontoId) {
    window.OpenFund(kontoId);
}
