#include "widgets/gridrow.h"

#include "widgets/gridcells.h"
#include "widgets/recordsetmodel.h"

#include <QMenuBar>
#include <QScopedValueRollback>
#include <QWidget>

#include <optional>

GridRow::GridRow(RecordSetModel& model, GridCells& cells, const GridEvents& events)
    : model_(model), cells_(cells), events_(events) {}

bool GridRow::IsTyped() const {
    return model_.TypedRow().has_value();
}

bool GridRow::Store() {
    if (storing_) return false;
    const QScopedValueRollback storing(storing_, true);
    cells_.Finish();
    return StoreTyped();
}

bool GridRow::StoreTyped() {
    const std::optional<int> row = model_.TypedRow();
    if (!row) return true;
    const bool isNew = model_.IsNewRow(*row);
    if (events_.beforeRowStore && !events_.beforeRowStore()) return false;
    if (!model_.Store()) return false;
    if (events_.afterRowStore) events_.afterRowStore(isNew);
    return true;
}

void GridRow::Cancel() {
    cells_.GiveUp();
    model_.Forget();
}

void GridRow::FocusMoves(const QWidget& grid, const QWidget* from, const QWidget* to) {
    if (from == nullptr || to == nullptr || !IsTyped()) return;
    // A menu has the focus only for a while: what is chosen there tells whether the row is left.
    if (qobject_cast<const QMenuBar*>(to) != nullptr) return;
    const bool wasHere = from == &grid || grid.isAncestorOf(from);
    const bool isHere = to == &grid || grid.isAncestorOf(to);
    if (wasHere && !isHere && to->window() == grid.window()) Store();
}
