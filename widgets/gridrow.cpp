#include "widgets/gridrow.h"

#include "widgets/gridcells.h"
#include "widgets/recordsetmodel.h"

#include <QGuiApplication>
#include <QMenuBar>
#include <QMetaObject>
#include <QPointer>
#include <QScopedValueRollback>
#include <QWidget>

#include <optional>

GridRow::GridRow(RecordSetModel& model, GridCells& cells, const GridEvents& events, QWidget& table)
    : model_(model), cells_(cells), events_(events), table_(table) {}

bool GridRow::IsTyped() const {
    return model_.TypedRow().has_value();
}

bool GridRow::MayLeave() {
    return Store() && (!events_.beforeRowLeave || events_.beforeRowLeave());
}

bool GridRow::Store() {
    if (storing_) return false;
    const QScopedValueRollback storing(storing_, true);
    if (!cells_.Finish()) return false;
    if (StoreTyped()) return true;
    table_.setFocus();
    return false;
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

// A message in the middle of a mouse press would keep the press from what was pressed on. Where the
// press has put the focus back, the user has been told already.
void GridRow::LeaveOnceThePressIsOver(const QWidget& left, const std::function<void()>& leave) {
    if (QGuiApplication::mouseButtons() == Qt::NoButton) return leave();
    const auto leaveUnlessBack = [this, leave, back = QPointer<const QWidget>(&left)] {
        const QWidget* now = table_.window()->focusWidget();
        if (back && now != nullptr && (now == back || back->isAncestorOf(now))) return;
        leave();
    };
    QMetaObject::invokeMethod(&cells_, leaveUnlessBack, Qt::QueuedConnection);
}

void GridRow::FocusMoves(const QWidget& grid, const QWidget* from, const QWidget* to) {
    // A window that is only put aside, or a message over it, leaves nothing.
    if (from == nullptr || to == nullptr || to->window() != grid.window()) return;
    // A menu has the focus only for a while: what is chosen there tells whether the row is left.
    if (qobject_cast<const QMenuBar*>(to) != nullptr) return;
    if (from != &grid && !grid.isAncestorOf(from)) return;
    const bool stays = to == &grid || grid.isAncestorOf(to);
    if (stays && from == cells_.Editor()) {
        // Another cell may be open by then: it is not the one that was left.
        LeaveOnceThePressIsOver(*from, [this, left = QPointer<const QWidget>(from)] {
            if (left && left == cells_.Editor()) cells_.Finish();
        });
    }
    if (!stays && (IsTyped() || cells_.Editor() != nullptr)) {
        LeaveOnceThePressIsOver(grid, [this] { Store(); });
    }
}
