#include "widgets/boundfield.h"

#include "base/error.h"
#include "platform/datasource.h"
#include "platform/qttext.h"
#include "widgets/recordsetmodel.h"

#include <QKeyEvent>
#include <QMetaObject>
#include <QShowEvent>

#include <utility>

BoundField::BoundField(QWidget* parent) : EntryField(parent) {
    setReadOnly(true);
}

void BoundField::Bind(DataSource* source, std::string column) {
    if (source_) source_->disconnect(this);
    source_ = source;
    column_ = std::move(column);
    if (source_) {
        connect(source_, &DataSource::Refreshed, this, &BoundField::Reload);
        connect(source_, &DataSource::CurrentRowChanged, this, &BoundField::Follow);
        connect(source_, &DataSource::RowDeleted, this, &BoundField::Reload);
    }
    Reload();
}

bool BoundField::HasRow() const {
    return source_ && source_->IsAttached() && !source_->Empty() && !source_->Eof();
}

void BoundField::StoreOnlyWhenTold() {
    onlyWhenTold_ = true;
}

void BoundField::ShowOnly() {
    showsOnly_ = true;
    setReadOnly(true);
}

void BoundField::SetTooLong(std::function<void(int maxLength)> tell) {
    tooLong_ = std::move(tell);
}

bool BoundField::Changed() const {
    return row_ >= 0 && text() != shown_;
}

/// While nobody sees it, it follows no row: a screen reader would be told of every one.
void BoundField::Reload() {
    row_ = -1;
    behind_ = !isVisible();
    if (behind_) return;
    const bool wasChosen = hasSelectedText() && selectedText() == text();
    shown_.clear();
    // What cannot be read is empty: ten fields on a row would give ten message boxes.
    Skipping skip;
    skip([this] {
        if (!HasRow()) return;
        shown_ = ToQt(ShownText(source_->Field(column_)));
        row_ = source_->Position();
    });
    setReadOnly(row_ < 0 || showsOnly_);
    setText(shown_);
    // A text longer than the box shows its beginning.
    setCursorPosition(0);
    if (wasChosen) selectAll();
}

// The same row with other values keeps what is being typed; another row shows its own.
void BoundField::Follow() {
    const bool sameRow = source_->IsAttached() && source_->Position() == row_;
    if (sameRow && (Changed() || storing_)) return;
    Reload();
}

bool BoundField::Store() {
    if (!Changed()) return true;
    refusalWaits_ = false;
    if (const std::optional<int> maxLength = ExceededLength()) {
        tooLong_(*maxLength);
        setFocus();
        return false;
    }
    const std::string typed = FromQt(text());
    storing_ = true;
    const bool stored = source_->Guard([&] {
        source_->Edit();
        source_->Set(column_, typed.empty() ? jet::Value() : jet::Value(typed));
        source_->Update();
    });
    if (!stored) source_->Guard([this] { source_->CancelUpdate(); });
    storing_ = false;
    if (!stored) return false;
    Reload();
    emit Stored();
    return true;
}

/// How many characters the column holds, where the text has more and somebody can say so.
std::optional<int> BoundField::ExceededLength() const {
    if (!tooLong_ || !HasRow()) return std::nullopt;
    std::optional<int> exceeded;
    Skipping skip;
    skip([&] {
        jet::RecordSet& rows = source_->Records();
        const jet::ColumnDesign& column = rows.Column(rows.FieldPosition(column_));
        const bool shortText = column.type == jet::ColumnType::Text && column.size > 0;
        if (shortText && text().size() > column.size) exceeded = column.size;
    });
    return exceeded;
}

void BoundField::showEvent(QShowEvent* event) {
    EntryField::showEvent(event);
    if (behind_) Reload();
}

void BoundField::keyPressEvent(QKeyEvent* event) {
    // One line has no use for these: they go from field to field.
    if (event->key() == Qt::Key_Down) return MoveFocus(true, event);
    if (event->key() == Qt::Key_Up) return MoveFocus(false, event);
    EntryField::keyPressEvent(event);
}

void BoundField::MoveFocus(bool forward, QKeyEvent* event) {
    event->accept();
    focusNextPrevChild(forward);
}

void BoundField::focusOutEvent(QFocusEvent* event) {
    EntryField::focusOutEvent(event);
    const bool stays =
        event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
    if (!stays && !onlyWhenTold_) StoreOnLeaving();
}

/// A message in the middle of a change of focus, or of the mouse press that caused it, would leave
/// both half done.
void BoundField::StoreOnLeaving() {
    if (!Changed() || !ExceededLength()) {
        Store();
        return;
    }
    refusalWaits_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (refusalWaits_) Store();
        },
        Qt::QueuedConnection);
}
