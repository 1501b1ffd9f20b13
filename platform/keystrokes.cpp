#include "platform/keystrokes.h"

#include "base/error.h"
#include "platform/qttext.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <array>
#include <string>

namespace {

struct NamedKey {
    std::string_view name;
    int key;
    const char* text;
};

constexpr std::array<NamedKey, 9> kKeys{{{"RIGHT", Qt::Key_Right, ""},
                                         {"LEFT", Qt::Key_Left, ""},
                                         {"UP", Qt::Key_Up, ""},
                                         {"DOWN", Qt::Key_Down, ""},
                                         {"TAB", Qt::Key_Tab, "\t"},
                                         {"ENTER", Qt::Key_Return, "\r"},
                                         {"ESC", Qt::Key_Escape, "\x1b"},
                                         {"DELETE", Qt::Key_Delete, "\x7f"},
                                         {"BACKSPACE", Qt::Key_Backspace, "\b"}}};

const NamedKey& FindKey(std::string_view name) {
    for (const NamedKey& key : kKeys) {
        if (key.name == name) return key;
    }
    throw Error{ErrorNumber::InvalidProcedureCall, "no key is called " + std::string(name)};
}

// The key may have moved the focus: it is let go where the focus is by then, as on a keyboard.
void Stroke(int key, const QString& text) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QWidget* target = QApplication::focusWidget();
        if (target == nullptr) target = QApplication::activeWindow();
        if (target == nullptr) return;
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(target, &event);
    }
}

}  // namespace

void FocusKeyStrokes::Send(std::string_view keys) {
    while (!keys.empty()) {
        const std::size_t end = keys.front() == '{' ? keys.find('}') : std::string_view::npos;
        if (end != std::string_view::npos) {
            const NamedKey& key = FindKey(keys.substr(1, end - 1));
            keys.remove_prefix(end + 1);
            Stroke(key.key, QString::fromLatin1(key.text));
            continue;
        }
        const QString rest = ToQt(keys);
        const QString character = rest.left(rest.at(0).isHighSurrogate() ? 2 : 1);
        keys.remove_prefix(std::min(keys.size(), FromQt(character).size()));
        Stroke(character.at(0).toUpper().unicode(), character);
    }
}
