#include "widgets/entryfield.h"

#include "base/pastedtext.h"
#include "platform/qttext.h"
#include "platform/typedkey.h"
#include "widgets/colours.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
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

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

// A key press that brings a character along without typing it. The text box itself knows what Ctrl
// does, and would write the letters of the other two.
bool TypesNothing(const QKeyEvent& event) {
    const bool command = (event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) != 0;
    return command && !event.text().isEmpty() && event.text().front().isPrint() &&
           !TypedCharacter(event);
}

bool Erases(const QKeyEvent& event) {
    return event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace;
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
    if (!pasteFilter_) return InsertFiltered(ToQt(PastedLine(FromQt(text))));
    if (isReadOnly() || Blocked()) return;
    const std::optional<std::string> pasted = pasteFilter_(FromQt(text));
    // A sign that may not stand here is not left out: the rest would be another number.
    if (!pasted || Filtered(ToQt(*pasted)) != ToQt(*pasted)) return QApplication::beep();
    insert(ToQt(*pasted));
}

void EntryField::keyPressEvent(QKeyEvent* event) {
    const std::optional<char32_t> typed = TypedCharacter(*event);
    if (swallowed_.contains(event->key())) return event->accept();
    if (event->matches(QKeySequence::Paste)) {
        event->accept();
        return InsertPasted(QGuiApplication::clipboard()->text());
    }
    if (Blocked() && (typed || Erases(*event) || IsEnter(*event))) return event->accept();
    if (IsEnter(*event) && enter_) {
        event->accept();
        return enter_();
    }
    // A command is for the window; the text box would write its letter.
    if (TypesNothing(*event)) return event->ignore();
    if (!typed || !filter_) return QLineEdit::keyPressEvent(event);
    event->accept();
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
    // Its own text moved to another place has been through the filter.
    if (event->source() == this && !Blocked()) return QLineEdit::dropEvent(event);
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
    const bool neverLeft = away_ && event->reason() == Qt::ActiveWindowFocusReason;
    away_ = false;
    if (!neverLeft) emit Entered();
}

void EntryField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // The field's own context menu takes the focus only for a while.
    if (event->reason() == Qt::PopupFocusReason) return;
    ShowFocus(false);
    // Another window has the keys for a while: what is half typed here goes on afterwards.
    away_ = event->reason() == Qt::ActiveWindowFocusReason;
    if (!away_) emit Left();
}

void EntryField::ShowFocus(bool focused) {
    using namespace colours;
    QPalette shown = palette();
    const auto set = [&shown](QPalette::ColorRole role, Colour colour) {
        shown.setColor(role, ToQColor(colour));
    };
    // The style draws the border so much darker than this.
    shown.setColor(QPalette::Window, ToQColor(colours::kButtonBorder).lighter(140));
    set(QPalette::Base, focused ? kFieldFocused : kField);
    set(QPalette::Text, kFieldText);
    set(QPalette::PlaceholderText, kFieldQuietText);
    set(QPalette::Highlight, kAccent);
    set(QPalette::HighlightedText, kWhite);
    shown.setColor(QPalette::Disabled, QPalette::Base, ToQColor(kFieldOff));
    shown.setColor(QPalette::Disabled, QPalette::Text, ToQColor(kFieldQuietText));
    setPalette(shown);
}
