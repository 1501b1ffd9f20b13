#include "platform/caption.h"

#include "platform/qttext.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QVariant>

namespace {

// Qt has no common name for the text of a control: two overloads for every kind that has its own.

constexpr const char* kCaption = "caption";

QString Read(const QLabel& label) {
    return label.text();
}
void Tell(QLabel& label, QAccessible::Event kind) {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent told(&label, kind);
    QAccessible::updateAccessibility(&told);
}
/// A screen reader keeps what it was told. A label's name holds its text, or that of the label over
/// it, and without a text the label is not there; the toolkit tells of one without a name of its
/// own.
void Write(QLabel& label, const QString& text) {
    if (label.text() == text) return;
    const bool empty = label.text().isEmpty();
    label.setText(text);
    if (auto* under = qobject_cast<QLabel*>(label.buddy())) {
        return Tell(*under, QAccessible::NameChanged);
    }
    if (!label.accessibleName().isEmpty()) Tell(label, QAccessible::NameChanged);
    if (empty == text.isEmpty() || !label.isVisible()) return;
    Tell(label, empty ? QAccessible::ObjectShow : QAccessible::ObjectHide);
}

QString Read(const QAbstractButton& button) {
    return button.text();
}
void Write(QAbstractButton& button, const QString& text) {
    button.setText(text);
}

QString Read(const QLineEdit& field) {
    return field.text();
}
void Write(QLineEdit& field, const QString& text) {
    field.setText(text);
}

QString Read(const QPlainTextEdit& box) {
    return box.toPlainText();
}
void Write(QPlainTextEdit& box, const QString& text) {
    box.setPlainText(text);
}

QString Read(const QTextEdit& box) {
    return box.toPlainText();
}
void Write(QTextEdit& box, const QString& text) {
    box.setPlainText(text);
}

// A frame's title may be a fund's name: its "&" is a sign and no mnemonic.
QString Read(const QGroupBox& frame) {
    return frame.title().replace(QLatin1String("&&"), QLatin1String("&"));
}
void Write(QGroupBox& frame, const QString& text) {
    frame.setTitle(QString(text).replace(QLatin1String("&"), QLatin1String("&&")));
}

QString Read(const QMenu& menu) {
    return menu.title();
}
void Write(QMenu& menu, const QString& text) {
    menu.setTitle(text);
}

QString Read(const QAction& item) {
    return item.text();
}
void Write(QAction& item, const QString& text) {
    item.setText(text);
}

/// The window whose title is its caption; null for a control with a caption property.
template <typename Object, typename Widget>
Widget* Window(Object& control) {
    auto* widget = qobject_cast<Widget*>(&control);
    const bool hasCaption = control.metaObject()->indexOfProperty(kCaption) >= 0;
    return widget != nullptr && !hasCaption && widget->isWindow() ? widget : nullptr;
}

QString Read(const QObject& control) {
    const auto* window = Window<const QObject, const QWidget>(control);
    return window != nullptr ? window->windowTitle() : control.property(kCaption).toString();
}
void Write(QObject& control, const QString& text) {
    if (auto* window = Window<QObject, QWidget>(control)) {
        window->setWindowTitle(text);
    } else {
        control.setProperty(kCaption, text);
    }
}

/// Does `work` with the control as the first of the kinds that it is; false when it is none.
template <typename... Kinds, typename Work>
bool AsOneOf(auto* control, const Work& work) {
    const auto tried = [&](auto* one) {
        if (one != nullptr) work(*one);
        return one != nullptr;
    };
    return (tried(qobject_cast<Kinds*>(control)) || ...);
}

}  // namespace

void SetCaption(QObject* control, std::string_view text) {
    const auto write = [shown = ToQt(text)](auto& one) { Write(one, shown); };
    AsOneOf<QLabel, QAbstractButton, QLineEdit, QPlainTextEdit, QTextEdit, QGroupBox, QMenu,
            QAction, QObject>(control, write);
}

std::string Caption(const QObject* control) {
    QString text;
    const auto read = [&text](const auto& one) { text = Read(one); };
    AsOneOf<const QLabel, const QAbstractButton, const QLineEdit, const QPlainTextEdit,
            const QTextEdit, const QGroupBox, const QMenu, const QAction, const QObject>(control,
                                                                                         read);
    return FromQt(text);
}
