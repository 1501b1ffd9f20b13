#include "platform/caption.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QVariant>

#include <type_traits>

namespace {

constexpr const char* kCaption = "caption";

// Qt has no common name for the text of a control. Visits the control as the kind it is.
template <typename Object, typename Visitor>
void VisitControl(Object* control, Visitor&& visit) {
    [&]<typename... Kind>(std::type_identity<Kind>...) {
        const bool known = ([&] {
            auto* one =
                qobject_cast<std::conditional_t<std::is_const_v<Object>, const Kind, Kind>*>(
                    control);
            if (one != nullptr) visit(*one);
            return one != nullptr;
        }() || ...);
        if (!known && control != nullptr) visit(*control);
    }(std::type_identity<QLabel>{}, std::type_identity<QAbstractButton>{},
      std::type_identity<QLineEdit>{}, std::type_identity<QPlainTextEdit>{},
      std::type_identity<QTextEdit>{}, std::type_identity<QGroupBox>{}, std::type_identity<QMenu>{},
      std::type_identity<QAction>{});
}

struct Writer {
    const QString& text;
    template <typename Control>
    void operator()(Control& control) const {
        if constexpr (std::is_same_v<Control, QPlainTextEdit> ||
                      std::is_same_v<Control, QTextEdit>) {
            control.setPlainText(text);
        } else if constexpr (std::is_same_v<Control, QGroupBox>) {
            // A title may be a fund's name: its "&" is a sign and no mnemonic.
            control.setTitle(QString(text).replace(QLatin1String("&"), QLatin1String("&&")));
        } else if constexpr (std::is_same_v<Control, QMenu>) {
            control.setTitle(text);
        } else if constexpr (std::is_same_v<Control, QObject>) {
            WriteOther(control);
        } else {
            control.setText(text);
        }
    }
    void WriteOther(QObject& control) const {
        auto* widget = qobject_cast<QWidget*>(&control);
        const bool hasCaption = control.metaObject()->indexOfProperty(kCaption) >= 0;
        if (widget == nullptr || hasCaption || !widget->isWindow()) {
            control.setProperty(kCaption, text);
            return;
        }
        widget->setWindowTitle(text);
    }
};

QString ReadOther(const QObject& control) {
    const auto* widget = qobject_cast<const QWidget*>(&control);
    const bool hasCaption = control.metaObject()->indexOfProperty(kCaption) >= 0;
    if (widget == nullptr || hasCaption || !widget->isWindow())
        return control.property(kCaption).toString();
    return widget->windowTitle();
}

}  // namespace

QString ToQt(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string FromQt(const QString& text) {
    return text.toStdString();
}

void SetCaption(QObject* control, std::string_view text) {
    const QString shown = ToQt(text);
    VisitControl(control, Writer{shown});
}

std::string Caption(const QObject* control) {
    QString text;
    VisitControl(control, [&](const auto& one) {
        using Control = std::remove_cvref_t<decltype(one)>;
        if constexpr (std::is_same_v<Control, QPlainTextEdit> ||
                      std::is_same_v<Control, QTextEdit>) {
            text = one.toPlainText();
        } else if constexpr (std::is_same_v<Control, QGroupBox>) {
            text = one.title().replace(QLatin1String("&&"), QLatin1String("&"));
        } else if constexpr (std::is_same_v<Control, QMenu>) {
            text = one.title();
        } else if constexpr (std::is_same_v<Control, QObject>) {
            text = ReadOther(one);
        } else {
            text = one.text();
        }
    });
    return FromQt(text);
}
