#include "app/listlooks.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "base/error.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "platform/datasource.h"
#include "platform/qttext.h"

#include <QEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QPoint>
#include <QRect>
#include <QWidget>

#include <algorithm>
#include <cstddef>

namespace {

ListLines& LinesOf(const frmPPM& window) {
    return *static_cast<ListLines*>(window.lstFonder->itemDelegate());
}

}  // namespace

ListLooks::ListLooks(frmPPM& ppm) : Controller(ppm) {
    LinesOf(window).SetLooks([this](int row) { return LookOf(row); });
    On(window.dtaBasData, &DataSource::Refreshed, this, &ListLooks::Forget);
    On(window.dtaBasData, &DataSource::RowStored, this, &ListLooks::Forget);
    On(window.dtaBasData, &DataSource::RowDeleted, [this] { Forget(); });
    // A stored price changes the holding's row beside the source, and has the points read anew.
    On(window.dtaPlott, &DataSource::Refreshed, this, &ListLooks::Forget);
    OnEvent(window.lstFonder, QEvent::KeyPress, [this](QEvent& event) {
        return lstFonder_KeyDown(static_cast<const QKeyEvent&>(event));
    });
    OnEvent(window.lstFonder->viewport(), QEvent::MouseButtonPress, [this](QEvent& event) {
        return lstFonder_MouseDown(static_cast<const QMouseEvent&>(event));
    });
}

ListLooks::~ListLooks() {
    LinesOf(window).SetLooks({});
}

void ListLooks::Forget() {
    lines_.clear();
    window.lstFonder->viewport()->update();
}

ListLooks::Line ListLooks::ReadLine(int row) {
    Line line;
    if (!window.dtaBasData->IsAttached()) return line;
    Skipping skip;
    skip([&] {
        jet::RecordSet& rows = window.dtaBasData->Records();
        HoldingRow holding;
        holding.kontoId = rows.At(row, schema::holding::kKontoId).Integer();
        const jet::Value colour = rows.At(row, schema::holding::kPlottFarg);
        if (!colour.IsNull()) holding.plottFarg = colour.Integer();
        holding.senasteKurs = rows.At(row, schema::holding::kSenasteKurs).Text();
        holding.procent = rows.At(row, schema::holding::kProcent).Text();
        line.kontoId = holding.kontoId;
        line.look.dot = CurveColour(holding.plottFarg, holding.kontoId);
        line.look.value = ToQt(ChangeOf(holding));
    });
    return line;
}

/// Only lines that are looked at are read, and each once.
const ListLooks::Line& ListLooks::LineAt(int row) {
    const auto at = static_cast<std::size_t>(row);
    if (at >= lines_.size()) lines_.resize(at + 1);
    if (!lines_[at]) lines_[at] = ReadLine(row);
    return *lines_[at];
}

LineLook ListLooks::LookOf(int row) {
    const Line& line = LineAt(row);
    LineLook look = line.look;
    const auto& chosen = window.chosenCurves;
    look.chosen = std::find(chosen.begin(), chosen.end(), line.kontoId) != chosen.end();
    return look;
}

/// Choosing a line again leaves it chosen; its tick takes it away.
bool ListLooks::TakeAway(int row) {
    if (row < 0 || !CollectingCurves(window.State()) || !LookOf(row).chosen) return false;
    window.Put(AfterLineTakenAway(window.State(), LineAt(row).kontoId));
    window.lstFonder->viewport()->update();
    return true;
}

bool ListLooks::lstFonder_KeyDown(const QKeyEvent& event) {
    const bool takes = event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace;
    return takes && TakeAway(window.lstFonder->currentRow());
}

bool ListLooks::lstFonder_MouseDown(const QMouseEvent& event) {
    const QPoint at = event.position().toPoint();
    const QListWidgetItem* line = window.lstFonder->itemAt(at);
    if (line == nullptr || event.button() != Qt::LeftButton) return false;
    const QRect tick = ListLines::DotPlace(window.lstFonder->visualItemRect(line));
    return tick.adjusted(-3, -3, 3, 3).contains(at) && TakeAway(window.lstFonder->row(line));
}
