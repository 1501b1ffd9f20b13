#include "widgets/entryfield.h"

#include "platform/caption.h"

#include <QAction>
#include <QClipboard>
#include <QColor>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMimeData>
#include <QPalette>

#include <memory>
#include <utility>

namespace {

constexpr QColor kFocusedBack(211, 240, 254);
constexpr QColor kRestingBack(239, 239, 222);
// A dark desktop theme would put light text on these light grounds.
constexpr QColor kText(16, 16, 32);
constexpr QColor kFaintText(96, 96, 104);
constexpr QColor kChosenGround(31, 92, 125);
constexpr QColor kChosenText(255, 255, 255);

constexpr char32_t kCopyCode = 3, kPasteCode = 22, kCutCode = 24;

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

// The character that a key press types; none for keys that type nothing.
std::optional<char32_t> TypedCode(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Copy)) return kCopyCode;
    if (event.matches(QKeySequence::Paste)) return kPasteCode;
    if (event.matches(QKeySequence::Cut)) return kCutCode;
    if (event.key() == Qt::Key_Backspace) return 8;
    const auto modifiers =
        event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    // Control with Alt is AltGr, which types characters.
    const bool command =
        modifiers != Qt::NoModifier && modifiers != (Qt::ControlModifier | Qt::AltModifier);
    const QList<uint> codes = event.text().toUcs4();
    if (command || codes.isEmpty()) return std::nullopt;
    if (event.key() == Qt::Key_Delete || event.key() == Qt::Key_Escape) return std::nullopt;
    return codes.first();
}

// The menu's actions have no names, but every language shows the same key beside this one.
QAction* FindPaste(const QMenu& menu) {
    const QString key = QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText);
    for (QAction* action : menu.actions()) {
        if (action->text().endsWith(u'\t' + key)) return action;
    }
    return nullptr;
}

}  // namespace

EntryField::EntryField(QWidget* parent) : QLineEdit(parent) {
    ShowFocus(false);
}

void EntryField::SetFilter(CharacterFilter filter) {
    filter_ = std::move(filter);
}

void EntryField::SetPasteFilter(TextFilter filter) {
    pasteFilter_ = std::move(filter);
}

void EntryField::BlockWhile(std::function<bool()> blocked) {
    blocked_ = std::move(blocked);
}

void EntryField::SetEnter(std::function<void()> enter) {
    enter_ = std::move(enter);
}

void EntryField::Swallow(Qt::Key key) {
    swallowed_.insert(key);
}

bool EntryField::Blocked() const {
    return blocked_ && blocked_();
}

bool EntryField::Passes(char32_t code) const {
    return !filter_ || filter_(code).has_value();
}

QString EntryField::Filtered(const QString& text) const {
    if (!filter_) return text;
    QString passed;
    for (const uint code : text.toUcs4()) {
        const char32_t typed = code;
        // Line ends and tabs of a pasted text are no key strokes: they never get in.
        if (typed < 32) continue;
        if (const std::optional<char32_t> result = filter_(typed)) {
            passed += QString::fromUcs4(&*result, 1);
        }
    }
    return passed;
}

void EntryField::InsertFiltered(const QString& text) {
    if (isReadOnly() || Blocked()) return;
    const QString passed = Filtered(text);
    if (!passed.isEmpty()) insert(passed);
}

void EntryField::InsertPasted(const QString& text) {
    if (!pasteFilter_) return InsertFiltered(text);
    if (isReadOnly() || Blocked()) return;
    const QString passed = ToQt(pasteFilter_(FromQt(text)));
    if (!passed.isEmpty()) insert(passed);
}

void EntryField::keyPressEvent(QKeyEvent* event) {
    const std::optional<char32_t> code = TypedCode(*event);
    if (swallowed_.contains(event->key())) return event->accept();
    if (Blocked() && (code || event->key() == Qt::Key_Delete) && event->key() != Qt::Key_Tab) {
        return event->accept();
    }
    if (IsEnter(*event) && enter_) {
        event->accept();
        return enter_();
    }
    if (!code || !filter_ || IsEnter(*event)) return QLineEdit::keyPressEvent(event);
    event->accept();
    if (!Passes(*code)) return;
    if (*code == kPasteCode) return InsertPasted(QGuiApplication::clipboard()->text());
    if (*code < 32) return QLineEdit::keyPressEvent(event);
    InsertFiltered(event->text());
}

void EntryField::keyReleaseEvent(QKeyEvent* event) {
    if (swallowed_.contains(event->key())) return event->accept();
    QLineEdit::keyReleaseEvent(event);
}

void EntryField::inputMethodEvent(QInputMethodEvent* event) {
    if (!filter_ && !Blocked()) return QLineEdit::inputMethodEvent(event);
    event->accept();
    if (Blocked()) return;
    QInputMethodEvent passed(event->preeditString(), event->attributes());
    passed.setCommitString(Filtered(event->commitString()), event->replacementStart(),
                           event->replacementLength());
    QLineEdit::inputMethodEvent(&passed);
}

void EntryField::contextMenuEvent(QContextMenuEvent* event) {
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    if (QAction* paste = FindPaste(*menu)) {
        paste->disconnect(this);
        connect(paste, &QAction::triggered, this,
                [this] { InsertPasted(QGuiApplication::clipboard()->text()); });
        if (Blocked()) paste->setEnabled(false);
    }
    menu->exec(event->globalPos());
}

void EntryField::dropEvent(QDropEvent* event) {
    if (!filter_ && !Blocked()) return QLineEdit::dropEvent(event);
    event->acceptProposedAction();
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    InsertPasted(event->mimeData()->text());
}

void EntryField::mouseReleaseEvent(QMouseEvent* event) {
    const QClipboard* clipboard = QGuiApplication::clipboard();
    if (event->button() != Qt::MiddleButton || !clipboard->supportsSelection()) {
        return QLineEdit::mouseReleaseEvent(event);
    }
    event->accept();
    deselect();
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    InsertPasted(clipboard->text(QClipboard::Selection));
}

void EntryField::focusInEvent(QFocusEvent* event) {
    ShowFocus(true);
    QLineEdit::focusInEvent(event);
    emit Entered();
}

void EntryField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // The field's own context menu takes the focus only for a while.
    if (event->reason() == Qt::PopupFocusReason) return;
    ShowFocus(false);
    emit Left();
}

void EntryField::ShowFocus(bool focused) {
    QPalette colours = palette();
    colours.setColor(QPalette::Base, focused ? kFocusedBack : kRestingBack);
    colours.setColor(QPalette::Text, kText);
    colours.setColor(QPalette::PlaceholderText, kFaintText);
    colours.setColor(QPalette::Highlight, kChosenGround);
    colours.setColor(QPalette::HighlightedText, kChosenText);
    setPalette(colours);
}
