#include "app/undoredo.h"

#include "app/change.h"
#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "app/rules/texts.h"
#include "app/texts.h"
#include "base/error.h"
#include "fundfile/curvelist.h"
#include "fundfile/queries.h"
#include "fundfile/schema.h"
#include "fundfile/texts.h"
#include "platform/datasource.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>
#include <exception>
#include <functional>
#include <utility>
#include <vector>

namespace {

/// What is being typed there is taken back by the field itself.
bool KeepsOwnUndo(const QWidget* focused) {
    const auto* field = qobject_cast<const QLineEdit*>(focused);
    return field != nullptr && !field->isReadOnly() &&
           (field->isUndoAvailable() || field->isRedoAvailable());
}

std::string NameOfRow(DataSource& holdings) {
    std::string name;
    Skipping skip;  // a row may be there that cannot be read
    skip([&] { name = holdings.Field(schema::holding::kFond).Text(); });
    return name;
}

std::optional<std::string> NameIn(const std::optional<jet::JournalNote>& note) {
    if (!note) return std::nullopt;
    return note->name.empty() ? std::string(texts::SomeChange) : note->name;
}

}  // namespace

UndoRedo::UndoRedo(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuAngra, &QAction::triggered, [this] { Replay(Way::Back); });
    On(window.mnuGorOm, &QAction::triggered, [this] { Replay(Way::Again); });
    // A field takes these keys for itself, whether it has something to take back or not.
    OnEvent(QApplication::instance(), QEvent::KeyPress,
            [this](QEvent& event) { return Window_KeyDown(static_cast<const QKeyEvent&>(event)); });
    // Whoever stores a row of the holdings and has no better name for it.
    window.dtaBasData->StoreThrough([this](const std::function<void()>& store) {
        const Change row(window, RowChange(NameOfRow(*window.dtaBasData)));
        store();
    });
}

void UndoRedo::KeepChanges() {
    journal_.reset();
    depth_ = 0;
    if (window.FundDb && !window.FundDb->ReadOnly()) journal_.emplace(window.FundDb);
    ShowNames();
}

void UndoRedo::BeginChange(ChangeName name) {
    if (depth_++ > 0 || !journal_) return;
    Skipping skip;  // a file that was closed meanwhile says so when something is to be stored
    skip([&] { journal_->Begin({std::move(name.name), std::move(name.log)}); });
}

void UndoRedo::ContinueChange() {
    if (depth_++ > 0 || !journal_) return;
    Skipping skip;
    skip([&] { journal_->Continue(); });
}

void UndoRedo::EndChange() noexcept {
    if (depth_ == 0 || --depth_ > 0 || !journal_) return;
    journal_->End();
    try {
        ShowNames();
    } catch (const std::exception&) {
        // Memory ran out for a caption: the next change shows it.
    }
}

void UndoRedo::ShowNames() {
    const bool keeps = journal_.has_value();
    auto undo = keeps ? NameIn(journal_->NextUndo()) : std::nullopt;
    auto redo = keeps ? NameIn(journal_->NextRedo()) : std::nullopt;
    if (undo == window.undoName && redo == window.redoName) return;
    window.undoName = std::move(undo);
    window.redoName = std::move(redo);
    window.ShowState();
}

bool UndoRedo::Window_KeyDown(const QKeyEvent& event) {
    const bool undo = event.key() == Qt::Key_Z, redo = event.key() == Qt::Key_Y;
    if (event.modifiers() != Qt::ControlModifier || !(undo || redo)) return false;
    const QWidget* focused = QApplication::focusWidget();
    if (focused == nullptr || focused->window() != &window || KeepsOwnUndo(focused)) return false;
    (undo ? window.mnuAngra : window.mnuGorOm)->trigger();
    return true;
}

// ---- Taking back ----

/// What is typed and not stored is stored first, and is what is taken back then:
/// it can be done again.
bool UndoRedo::MayReplay() {
    if (window.stage == Stage::Starting || !journal_) return false;
    return window.StoreTypedRows() && window.MayLeaveNotice();
}

void UndoRedo::Replay(Way way) {
    if (!MayReplay()) return;
    const auto note = way == Way::Back ? journal_->NextUndo() : journal_->NextRedo();
    if (!note) return;
    const bool showsStoredCurves = ShowsStoredCurves();
    try {
        if (way == Way::Back) {
            journal_->Undo();
        } else {
            journal_->Redo();
        }
    } catch (const Error& error) {
        return Refuse(way, error);
    }
    ShowFileAnew(showsStoredCurves);
    TellOf(way, *note);
}

bool UndoRedo::ShowsStoredCurves() const {
    return !window.holding && window.SelectedCurves == ListedCurves(*window.dtaBasData);
}

void UndoRedo::ShowFileAnew() {
    ShowFileAnew(ShowsStoredCurves());
}

void UndoRedo::Refuse(Way way, const Error& error) {
    const std::string_view what = way == Way::Back ? texts::NotUndone : texts::NotRedone;
    const std::string_view why = error.Number() == ErrorNumber::ChangedByOther
                                     ? texts::ChangedBehind
                                     : fundtexts::Explain(error.Number());
    Tell(std::string(what) + std::string(texts::BeforeReason) + std::string(why));
}

void UndoRedo::TellOf(Way way, const jet::JournalNote& note) {
    const std::string_view done = way == Way::Back ? texts::Undone : texts::Redone;
    window.notice = std::string(done) + *NameIn(note);
    ShowNames();
    window.ShowState();
    if (note.remark.empty()) return;
    const std::string_view entry = way == Way::Back ? texts::UndoneEntry : texts::RedoneEntry;
    window.WriteLogEntry(std::string(entry) + note.remark);
}

/// The rows under the window are others now: the open holding is read again, the list, the picture,
/// the totals and the grids follow.
void UndoRedo::ShowFileAnew(bool showsStoredCurves) {
    window.Put(AfterReplay(window.State()));
    DataSource& holdings = *window.dtaBasData;
    const std::int32_t row = holdings.Position();
    holdings.Refresh();
    if (!holdings.Empty()) holdings.MoveTo(std::clamp(row, 0, holdings.RecordCount() - 1));
    window.RefreshPoints();
    window.RefreshFundList(std::nullopt);
    if (!window.holding) ShowSeveralCurves(showsStoredCurves);
    if (!holdings.Empty()) holdings.MoveTo(std::clamp(row, 0, holdings.RecordCount() - 1));
    window.RefreshTotals();
}

/// The stored choice, which may be another now; or those that were looked at,
/// as far as they are there.
void UndoRedo::ShowSeveralCurves(bool showsStoredCurves) {
    if (showsStoredCurves) {
        window.ReadCurveList();
    } else {
        std::vector<std::int32_t> curves = window.SelectedCurves;
        std::erase_if(curves, [this](std::int32_t kontoId) {
            return window.dtaBasData->Empty() ||
                   !window.dtaBasData->FindFirst(queries::KontoIdIs(kontoId));
        });
        window.SelectCurves(std::move(curves));
    }
    window.DrawOnAllScale();
}
