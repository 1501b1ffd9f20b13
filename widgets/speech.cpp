#include "widgets/speech.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QList>
#include <QMainWindow>
#include <QMetaObject>
#include <QModelIndex>
#include <QPointer>
#include <QString>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr const char* kSilent = "silent";
constexpr const char* kWhole = "wholeText";
constexpr QLatin1String kHerald("herald");

using Relations = QList<std::pair<QAccessibleInterface*, QAccessible::Relation>>;

QString WithoutMnemonic(QString text) {
    text.replace(QLatin1String("&&"), QLatin1String("\n"));
    text.remove(u'&');
    return text.replace(u'\n', u'&');
}

QLabel* LabelOver(const QLabel& label) {
    if (label.parentWidget() == nullptr) return nullptr;
    for (QObject* sibling : label.parentWidget()->children()) {
        auto* other = qobject_cast<QLabel*>(sibling);
        if (other != nullptr && other->buddy() == &label) return other;
    }
    return nullptr;
}

QString TextOf(const QLabel& label) {
    const QVariant whole = label.property(kWhole);
    if (whole.isValid()) return whole.toString();
    const bool rich = label.textFormat() == Qt::RichText ||
                      (label.textFormat() == Qt::AutoText && Qt::mightBeRichText(label.text()));
    if (rich) return QTextDocumentFragment::fromHtml(label.text()).toPlainText();
    return label.buddy() != nullptr ? WithoutMnemonic(label.text()) : label.text();
}

class LabelSpeech final : public QAccessibleWidget {
  public:
    explicit LabelSpeech(QLabel* label)
        : QAccessibleWidget(label, QAccessible::StaticText), label_(label) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? Name() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const bool saidByBuddy = qobject_cast<QLabel*>(label_->buddy()) != nullptr;
        if (saidByBuddy || label_->property(kSilent).toBool() || TextOf(*label_).isEmpty()) {
            state.invisible = true;
        }
        return state;
    }
    Relations relations(QAccessible::Relation match) const override {
        if (!match.testFlag(QAccessible::Labelled) || label_->buddy() == nullptr) return {};
        return {{QAccessible::queryAccessibleInterface(label_->buddy()), QAccessible::Labelled}};
    }

  private:
    QString Name() const {
        const QString text = TextOf(*label_);
        if (text.isEmpty()) return {};
        const QLabel* over = LabelOver(*label_);
        const QString heading =
            over != nullptr ? TextOf(*over) : WithoutMnemonic(label_->accessibleName());
        const bool said = text.startsWith(heading);
        return said ? text : heading + QStringLiteral(": ") + text;
    }

    QLabel* label_;
};

/// The frame's parts as they are read: row by row. A row is what lies beside its topmost part.
QList<QWidget*> InReadingOrder(QList<QWidget*> parts) {
    const auto higher = [](const QWidget* one, const QWidget* other) {
        return one->y() < other->y();
    };
    const auto before = [](const QWidget* one, const QWidget* other) {
        return std::pair(one->x(), one->y()) < std::pair(other->x(), other->y());
    };
    std::stable_sort(parts.begin(), parts.end(), higher);
    for (auto row = parts.begin(); row != parts.end();) {
        const int bottom = (*row)->geometry().bottom();
        const auto end = std::find_if(row, parts.end(), [bottom](const QWidget* part) {
            return part->geometry().center().y() > bottom;
        });
        // The topmost part itself belongs to its row, even where it has no height.
        const auto next = end == row ? std::next(row) : end;
        std::stable_sort(row, next, before);
        row = next;
    }
    return parts;
}

class FrameSpeech final : public QAccessibleWidget {
  public:
    explicit FrameSpeech(QWidget* frame) : QAccessibleWidget(frame, QAccessible::Grouping) {}

    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
        const auto* box = qobject_cast<const QGroupBox*>(widget());
        const QString title = box != nullptr ? WithoutMnemonic(box->title()).trimmed() : QString();
        return title.isEmpty() ? widget()->accessibleName() : title;
    }
    /// The keys are in a part of it.
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.focused = state.focusable = false;
        return state;
    }
    QAccessible::Role role() const override {
        return text(QAccessible::Name).isEmpty() ? QAccessible::Client : QAccessible::Grouping;
    }
    Relations relations(QAccessible::Relation /*match*/) const override {
        return {};  // its title is nobody's name
    }
    int childCount() const override { return static_cast<int>(Parts().size()); }
    QAccessibleInterface* child(int index) const override {
        const QList<QWidget*> parts = Parts();
        if (index < 0 || index >= parts.size()) return nullptr;
        return QAccessible::queryAccessibleInterface(parts[index]);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        if (child == nullptr) return -1;
        return static_cast<int>(Parts().indexOf(qobject_cast<QWidget*>(child->object())));
    }

  private:
    QList<QWidget*> Parts() const {
        QList<QWidget*> parts, carried, hidden;
        for (QObject* child : widget()->children()) {
            auto* part = qobject_cast<QWidget*>(child);
            if (part == nullptr || part->isWindow()) continue;
            (part->isHidden() ? hidden : parts).push_back(part);
            const auto* table = qobject_cast<const QAbstractItemView*>(part);
            if (table == nullptr) continue;
            for (QLineEdit* field : table->viewport()->findChildren<QLineEdit*>(
                     QString(), Qt::FindDirectChildrenOnly)) {
                carried.push_back(field);
            }
        }
        return InReadingOrder(parts) + carried + hidden;
    }
};

/// A picture that its accessible name tells; without one there is nothing to see in it.
class PictureSpeech final : public QAccessibleWidget {
  public:
    explicit PictureSpeech(QWidget* picture) : QAccessibleWidget(picture, QAccessible::Graphic) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? widget()->accessibleName()
                                         : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (widget()->accessibleName().isEmpty()) state.invisible = true;
        return state;
    }
    Relations relations(QAccessible::Relation /*match*/) const override { return {}; }
};

/// Nobody sees it: it stands for the message while that is said.
class NewsSpeech final : public QAccessibleWidget {
  public:
    explicit NewsSpeech(QWidget* news) : QAccessibleWidget(news, QAccessible::Notification) {}
};

/// It has the panel around it for context already, not for a name.
class ChartSpeech final : public QAccessibleWidget {
  public:
    explicit ChartSpeech(QWidget* chart) : QAccessibleWidget(chart, QAccessible::Chart) {}

    Relations relations(QAccessible::Relation /*match*/) const override { return {}; }
};

/// Of a list or table its current cell.
QAccessibleInterface* SpokenFocus(QWidget& focused) {
    QAccessibleInterface* whole = QAccessible::queryAccessibleInterface(&focused);
    const auto* view = qobject_cast<const QAbstractItemView*>(&focused);
    const bool flat = view != nullptr && whole->role() != QAccessible::Tree;
    if (!flat || whole->tableInterface() == nullptr) return whole;
    const QModelIndex at = view->currentIndex();
    QAccessibleInterface* cell =
        at.isValid() ? whole->tableInterface()->cellAt(at.row(), at.column()) : nullptr;
    return cell != nullptr ? cell : whole;
}

void TellFocus(QWidget& focused) {
    QAccessibleEvent told(SpokenFocus(focused), QAccessible::Focus);
    QAccessible::updateAccessibility(&told);
}

/// Plain widgets are asked as QWidget: the window's ground holds its panels.
QAccessibleInterface* SpeechOfPlain(QWidget* widget) {
    if (widget->metaObject() != &QWidget::staticMetaObject) return nullptr;
    if (widget->objectName() == kHerald) return new NewsSpeech(widget);
    const auto* window = qobject_cast<const QMainWindow*>(widget->parentWidget());
    const bool ground = window != nullptr && window->centralWidget() == widget;
    return ground ? new FrameSpeech(widget) : nullptr;
}

QAccessibleInterface* SpeechOf(const QString& kind, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr) return nullptr;
    if (kind == QLatin1String("QLabel")) return new LabelSpeech(static_cast<QLabel*>(widget));
    if (kind == QLatin1String("QGroupBox")) {
        // One that can be ticked says so in the toolkit's own way.
        const bool plain = !static_cast<const QGroupBox*>(widget)->isCheckable();
        return plain ? new FrameSpeech(widget) : nullptr;
    }
    if (kind == QLatin1String("DataGrid")) return new FrameSpeech(widget);
    if (kind == QLatin1String("QFrame")) {
        const bool plain = widget->metaObject() == &QFrame::staticMetaObject;
        return plain ? new FrameSpeech(widget) : nullptr;
    }
    if (kind == QLatin1String("DiagramView")) return new ChartSpeech(widget);
    if (kind == QLatin1String("DayMarks") || kind == QLatin1String("Swatch")) {
        return new PictureSpeech(widget);
    }
    if (kind == QLatin1String("StatusPanels")) {
        return new QAccessibleWidget(widget, QAccessible::StatusBar);
    }
    return kind == QLatin1String("QWidget") ? SpeechOfPlain(widget) : nullptr;
}

}  // namespace

void speech::Install() {
    static QPointer<QApplication> installed;
    if (installed != nullptr && installed == qApp) return;
    installed = qApp;
    QAccessible::installFactory(SpeechOf);
    QObject::connect(qApp, &QApplication::focusChanged, qApp, [](QWidget*, QWidget* now) {
        if (qobject_cast<QAbstractItemView*>(now) != nullptr) SayFocus(now);
    });
}

void speech::SayFocus(QWidget* focused) {
    if (!QAccessible::isActive()) return;
    QTimer::singleShot(0, focused, [focused] {
        if (focused->hasFocus()) TellFocus(*focused);
    });
}

void speech::Silence(QWidget* control) {
    control->setProperty(kSilent, true);
}

void speech::SetWhole(QLabel* label, const QString& text) {
    if (label->property(kWhole).toString() == text) return;
    label->setProperty(kWhole, text);
    QAccessibleEvent renamed(label, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&renamed);
}

void speech::Announce(QWidget* from, const QString& text) {
    if (text.isEmpty()) return;
    auto* herald = from->findChild<QWidget*>(kHerald, Qt::FindDirectChildrenOnly);
    if (herald == nullptr) {
        herald = new QWidget(from);
        herald->setObjectName(kHerald);
        herald->resize(1, 1);  // it is never seen
    }
    herald->setAccessibleName(text);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent news(herald, text);
    QAccessible::updateAccessibility(&news);
#else
    // What comes into sight as a notification is said.
    for (const QAccessible::Event kind : {QAccessible::ObjectShow, QAccessible::Alert}) {
        QAccessibleEvent news(herald, kind);
        QAccessible::updateAccessibility(&news);
    }
#endif
}
