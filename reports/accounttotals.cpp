#include "reports/accounttotals.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "base/error.h"
#include "fundfile/queries.h"
#include "jet/database.h"
#include "platform/datasource.h"
#include "platform/qttext.h"
#include "reports/accounts.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>

#include <cstdint>
#include <string>
#include <vector>

AccountTotals::AccountTotals(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuTotal, &QAction::triggered, [this] { mnuTotal_Click(); });
    OnListClick(window.lstTotal, [this] { lstTotal_Click(); });
    OnEvent(window.lblTotal, QEvent::MouseButtonRelease, [this](QEvent&) {
        lblTotal_Click();
        return true;
    });
}

void AccountTotals::mnuTotal_Click() {
    if (!window.LeaveHoldingsGrid()) return;
    FillAccountList();
    window.Put(AfterTotalsMenu(window.State()));
    // The first key press leads to the first line.
    window.lstTotal->setCurrentRow(-1);
}

void AccountTotals::FillAccountList() {
    // No account is chosen by filling the list.
    const QSignalBlocker quiet(window.lstTotal);
    window.lstTotal->clear();
    for (const std::string& name : AccountNames(*window.dtaBasData)) {
        window.lstTotal->addItem(ToQt(name));
    }
}

void AccountTotals::RefreshTotals() {
    if (window.left != LeftPanel::Totals) return;
    const QListWidgetItem* line = window.lstTotal->currentItem();
    const QString chosen = line != nullptr && !window.totals.empty() ? line->text() : QString();
    const std::int32_t row = window.dtaBasData->Position();
    FillAccountList();
    if (!window.dtaBasData->Empty() && row >= 0) window.dtaBasData->MoveTo(row);
    window.totals.clear();
    window.ShowState();
    const auto same = window.lstTotal->findItems(chosen, Qt::MatchExactly);
    if (chosen.isNull() || same.isEmpty()) return;
    const QSignalBlocker quiet(window.lstTotal);
    window.lstTotal->setCurrentItem(same.front());
    lstTotal_Click();
}

std::vector<TotalsRow> AccountTotals::RowsOf(std::string_view accountName) {
    return RowsOf(accountName,
                  [](DataSource& row, std::size_t position) { return row.Field(position).Text(); });
}

/// `dtaSQL` has its rows only while they are read.
std::vector<TotalsRow> AccountTotals::RowsOf(std::string_view accountName, const ReadColumn& read) {
    if (!window.FundDb) throw Error{kObjectNotSet, "totals without an open fund file"};
    DataSource& query = *window.dtaSQL;
    query.SetRecordSet(window.FundDb->OpenRecordSet(queries::TotalsOf(accountName)));
    std::vector<TotalsRow> rows;
    for (; !query.Eof(); query.MoveNext()) {
        const auto text = [&](std::size_t position) { return read(query, position); };
        rows.push_back({text(0), text(1), text(2), text(3), text(4), text(5)});
    }
    query.SetRecordSet(nullptr);
    return rows;
}

void AccountTotals::lstTotal_Click() {
    const std::string account = FromQt(window.lstTotal->currentItem()->text());
    std::vector<TotalsRow> rows;
    Skipping skip;
    // A column that cannot be read counts as empty: the steps beside it go on.
    const auto read = [&](DataSource& row, std::size_t position) {
        std::string text;
        skip([&] { text = row.Field(position).Text(); });
        return text;
    };
    skip([&] { rows = RowsOf(account, read); });
    const Totals totals = PanelTotals(rows);
    window.totals = PanelText(account, totals);
    window.ShowState();
}

void AccountTotals::lblTotal_Click() {
    window.totals.clear();
    window.ShowState();
}

std::string AccountTotals::BuildAccountTotals(std::string_view accountName) {
    return ReportLine(accountName, SumOf(RowsOf(accountName)));
}
