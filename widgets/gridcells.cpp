#include "widgets/gridcells.h"

#include "base/text.h"
#include "platform/qttext.h"
#include "widgets/entryfield.h"
#include "widgets/gridkeys.h"
#include "widgets/recordsetmodel.h"
#include "widgets/rules/spokencell.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QScopedValueRollback>
#include <QStyleOptionViewItem>
#include <QToolTip>

#include <cstddef>
#include <optional>

namespace {

/// Copying, pasting and cutting need no character of their own in a column.
CharacterFilter WithClipboard(const CharacterFilter& filter) {
    return [filter](char32_t typed) {
        constexpr char32_t kCopy = 3, kPaste = 22, kCut = 24;
        const bool clipboard = typed == kCopy || typed == kPaste || typed == kCut;
        return clipboard ? std::optional(typed) : filter(typed);
    };
}

}  // namespace

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

bool GridCells::Finish() {
    if (!editor_) return true;
    // While a message stands the cell is still open, and whoever asks meanwhile must wait.
    if (finishing_) return false;
    const QScopedValueRollback finishing(finishing_, true);
    const QPointer<QWidget> editor = editor_;
    QWidget* const table = editor->parentWidget();
    taken_ = {};
    emit commitData(editor);
    if (!editor) return !taken_.stay;
    if (taken_.stay && taken_.cancel) {
        editor->setFocus();
        return false;
    }
    // After a message the window is not yet active again. The focus that it will get back must not
    // go with the field.
    if (taken_.stay || editor->window()->focusWidget() == editor) table->setFocus();
    emit closeEditor(editor, NoHint);
    return !taken_.stay;
}

bool GridCells::GiveUp() {
    if (!editor_ || finishing_) return false;
    emit closeEditor(editor_, RevertModelCache);
    return true;
}

QWidget* GridCells::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    auto* editor = new EntryField(parent);
    editor->setFont(option.font);
    const GridColumn& column = model_.Columns()[static_cast<std::size_t>(index.column())];
    editor->setAccessibleName(ToQt(SpokenParts(
        {Trim(column.caption), FromQt(index.data(Qt::AccessibleDescriptionRole).toString())})));
    if (column.filter) editor->SetFilter(WithClipboard(column.filter));
    if (column.pasteFilter) editor->SetPasteFilter(column.pasteFilter);
    editor->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
    // Setting the cell's own text comes before anybody types.
    connect(editor, &QLineEdit::textEdited, this, &GridCells::Typed);
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
    taken_ = change;
    if (change.cancel || !cell.isValid()) return;
    model->setData(cell, ToQt(change.text), Qt::EditRole);
    if (events_.afterCellStore) events_.afterCellStore(change.column);
}

void GridCells::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                     const QModelIndex& /*index*/) const {
    editor->setGeometry(option.rect);
}

bool GridCells::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                          const QStyleOptionViewItem& option, const QModelIndex& index) {
    const bool cut = sizeHint(option, index).width() > option.rect.width();
    if (event->type() != QEvent::ToolTip || !cut) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    QToolTip::showText(event->globalPos(), index.data().toString(), view);
    return true;
}

// A cell that was opened by typing is left by the arrows;
// one opened by F2 or the mouse only at the text's ends.
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
    // Where the focus goes to says whether the cell is left: the grid sees that.
    if (event->type() == QEvent::FocusOut) return false;
    if (editor == nullptr || event->type() != QEvent::KeyPress) {
        return QStyledItemDelegate::eventFilter(watched, event);
    }
    auto* key = static_cast<QKeyEvent*>(event);
    if (LeavesCell(*editor, *key)) {
        if (Finish()) emit LeftBy(key);
        return true;
    }
    if (key->key() == Qt::Key_Escape) {
        GiveUp();
        return true;
    }
    return false;
}
