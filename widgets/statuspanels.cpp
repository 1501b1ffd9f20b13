#include "widgets/statuspanels.h"

#include "base/error.h"
#include "platform/qttext.h"
#include "widgets/speech.h"
#include "widgets/tag.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QResizeEvent>
#include <QSize>
#include <QSizePolicy>

#include <algorithm>

namespace {

/// Beside a panel's text. Above and under it stands none: in a small window the text needs it all.
constexpr int kPadding = 3;

/// A long text must not make the window wider: the panels need no width.
class Row final : public QHBoxLayout {
  public:
    using QHBoxLayout::QHBoxLayout;
    QSize minimumSize() const override { return {0, QHBoxLayout::minimumSize().height()}; }
};

}  // namespace

class StatusPanels::Panel : public QLabel {
  public:
    using QLabel::QLabel;

    void SetWhole(const QString& text) {
        whole_ = text;
        speech::SetWhole(this, text);
        updateGeometry();
        Elide();
    }
    /// `width` is what the panel has even for a short text.
    void SetLeastWidth(int width) {
        leastWidth_ = width;
        updateGeometry();
    }
    const QString& Whole() const { return whole_; }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QLabel::resizeEvent(event);
        Elide();
    }
    void changeEvent(QEvent* event) override {
        QLabel::changeEvent(event);
        if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
        updateGeometry();
        Elide();
    }

    /// The panel takes what its text needs from neighbours that have room to spare. Where none has,
    /// the layout takes from the widest panel first, and the text is cut.
    QSize minimumSizeHint() const override {
        const int frame = width() - contentsRect().width();
        const int needed = fontMetrics().horizontalAdvance(whole_) + 2 * kPadding + frame;
        return {std::max(leastWidth_, needed), QLabel::minimumSizeHint().height()};
    }
    QSize sizeHint() const override { return minimumSizeHint(); }

  private:
    void Elide() {
        const QString shown =
            fontMetrics().elidedText(whole_, Qt::ElideRight, contentsRect().width() - 2 * kPadding);
        setText(shown);
        setToolTip(shown == whole_ ? QString() : whole_);
    }

    QString whole_;
    int leastWidth_ = 0;
};

StatusPanels::StatusPanels(int panels, QWidget* parent) : QWidget(parent) {
    auto* row = new Row(this);
    row->setContentsMargins(2, 0, 2, 0);
    row->setSpacing(2);
    row->setSizeConstraint(QLayout::SetNoConstraint);
    for (int i = 0; i < panels; ++i) {
        auto* panel = new Panel(this);
        panel->setObjectName(QStringLiteral("panel"));
        panel->setTextFormat(Qt::PlainText);
        panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        panel->setIndent(kPadding);
        panel->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        row->addWidget(panel, 1);
        panels_.push_back(panel);
    }
    notice_ = new Panel(this);
    notice_->setObjectName(QStringLiteral("notice"));
    notice_->setTextFormat(Qt::PlainText);
    notice_->setIndent(kPadding);
    notice_->hide();
}

int StatusPanels::Count() const {
    return static_cast<int>(panels_.size());
}

StatusPanels::Panel& StatusPanels::At(int panel) const {
    if (panel < 1 || panel > Count()) {
        throw Error{ErrorNumber::SubscriptOutOfRange, "the status bar has no such panel"};
    }
    return *panels_[static_cast<std::size_t>(panel - 1)];
}

void StatusPanels::SetText(int panel, std::string_view text) {
    At(panel).SetWhole(ToQt(text));
}

std::string StatusPanels::Text(int panel) const {
    return FromQt(At(panel).Whole());
}

void StatusPanels::SetTag(int panel, std::string_view tag) {
    ::SetTag(&At(panel), tag);
}

std::string StatusPanels::Tag(int panel) const {
    return ::Tag(&At(panel));
}

void StatusPanels::SetNotice(std::string_view text) {
    notice_->SetWhole(ToQt(text));
    notice_->setVisible(!text.empty());
    speech::Announce(this, ToQt(text));
    notice_->raise();
}

std::string StatusPanels::Notice() const {
    return FromQt(notice_->Whole());
}

void StatusPanels::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    notice_->setGeometry(rect());
}

void StatusPanels::SetSpokenName(int panel, std::string_view name) {
    At(panel).setAccessibleName(ToQt(name));
}

void StatusPanels::SetMinimumPanelWidth(int panel, int width, int share) {
    Panel& one = At(panel);
    static_cast<QHBoxLayout*>(layout())->setStretchFactor(&one, share);
    one.setSizePolicy(share == 0 ? QSizePolicy::Fixed : QSizePolicy::Expanding,
                      QSizePolicy::Preferred);
    if (share == 0) one.setFixedWidth(width);
    one.SetLeastWidth(width);
}
