#include "widgets/gridcells.h"

#include "platform/caption.h"
#include "widgets/entryfield.h"
#include "widgets/gridkeys.h"
#include "widgets/recordsetmodel.h"

#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPersistentModelIndex>
#include <QStyleOptionViewItem>

#include <cstddef>

namespace {

/// The keys go elsewhere for a while, to a message or to another program: the cell is not left.
bool GoesToAnotherWindow(const QEvent& event) {
    return event.type() == QEvent::FocusOut &&
           static_cast<const QFocusEvent&>(event).reason() == Qt::ActiveWindowFocusReason;
}

}  // namespace

GridCells::GridCells(const RecordSetModel& model, const GridEvents& events)
    : model_(model), events_(events) {
    // The editor lives on until the event loop deletes it: from then on it is nobody's.
    connect(this, &QAbstractItemDelegate::closeEditor, this, [this] { editor_ = nullptr; });
}

QWidget* GridCells::Editor() const {
    return editor_;
}

void GridCells::OpenedBy(CellOpening opening) {
    opening_ = opening;
}

void GridCells::Finish() {
    if (!editor_) return;
    emit commitData(editor_);
    emit closeEditor(editor_, NoHint);
}

void GridCells::GiveUp() {
    if (editor_) emit closeEditor(editor_, RevertModelCache);
}

QWidget* GridCells::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    auto* editor = new EntryField(parent);
    editor->setFont(option.font);
    editor->SetFilter(model_.Columns()[static_cast<std::size_t>(index.column())].filter);
    editor->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
    editor_ = editor;
    return editor;
}

void GridCells::setModelData(QWidget* editor, QAbstractItemModel* model,
                             const QModelIndex& index) const {
    const QPersistentModelIndex cell = index;
    CellChange change{.column = index.column(),
                      .oldText = FromQt(index.data(Qt::EditRole).toString()),
                      .text = FromQt(static_cast<EntryField*>(editor)->text())};
    if (change.text == change.oldText) return;
    if (events_.beforeCellStore) events_.beforeCellStore(change);
    if (change.cancel || !cell.isValid()) return;
    model->setData(cell, ToQt(change.text), Qt::EditRole);
    if (events_.afterCellStore) events_.afterCellStore(change.column);
}

void GridCells::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                     const QModelIndex& /*index*/) const {
    editor->setGeometry(option.rect);
}

// A cell that was opened by typing is left by the arrows; one opened by F2 or the mouse only at the
// text's ends.
bool GridCells::LeavesCell(const EntryField& editor, const QKeyEvent& key) const {
    if (IsEnter(key) || IsTab(key)) return true;
    if (key.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)) return false;
    if (ChangesRow(key)) return true;
    const bool byTyping = opening_ == CellOpening::Typing;
    const bool atStart = editor.cursorPosition() == 0 && !editor.hasSelectedText();
    const bool atEnd = editor.cursorPosition() == editor.text().size() && !editor.hasSelectedText();
    if (key.key() == Qt::Key_Left) return byTyping || atStart;
    if (key.key() == Qt::Key_Right) return byTyping || atEnd;
    return false;
}

bool GridCells::eventFilter(QObject* watched, QEvent* event) {
    if (GoesToAnotherWindow(*event)) return false;
    auto* editor = qobject_cast<EntryField*>(watched);
    if (editor == nullptr || event->type() != QEvent::KeyPress) {
        return QStyledItemDelegate::eventFilter(watched, event);
    }
    auto* key = static_cast<QKeyEvent*>(event);
    if (LeavesCell(*editor, *key)) {
        Finish();
        emit LeftBy(key);
        return true;
    }
    if (key->key() == Qt::Key_Escape) {
        GiveUp();
        return true;
    }
    return false;
}
