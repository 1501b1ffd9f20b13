#include "app/controller.h"

#include "app/errortexts.h"
#include "app/frmPPM.h"
#include "base/error.h"
#include "base/number.h"

#include <QListWidget>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace {

/// A desktop hides and shows windows as well: minimised, on another desktop, brought back. What the
/// program shows has not changed by that, and nothing may be reset or forgotten.
bool IsTheDesktops(const QEvent& event) {
    const bool shows = event.type() == QEvent::Show || event.type() == QEvent::Hide;
    return shows && event.spontaneous();
}

class EventWatcher final : public QObject {
  public:
    EventWatcher(QObject* parent, QEvent::Type type, std::function<bool(QEvent&)> handler)
        : QObject(parent), type_(type), handler_(std::move(handler)) {}

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        return event->type() == type_ && !IsTheDesktops(*event) && handler_(*event);
    }

  private:
    QEvent::Type type_;
    std::function<bool(QEvent&)> handler_;
};

}  // namespace

Controller::Controller(frmPPM& ppm) : window(ppm) {}
Controller::~Controller() = default;

void Controller::OnEvent(QObject* target, QEvent::Type type, EventHandler handler) {
    auto guarded = [this, handler = std::move(handler)](QEvent& event) {
        bool swallowed = false;
        Run([&] { swallowed = handler(event); });
        return swallowed;
    };
    target->installEventFilter(new EventWatcher(&context_, type, std::move(guarded)));
}

void Controller::OnListClick(QListWidget* list, const std::function<void()>& work) {
    // A press on another line chooses it, and that is the click;
    // a press on the chosen line is one as well.
    auto clicked = std::make_shared<bool>(false);
    OnEvent(list->viewport(), QEvent::MouseButtonPress, [clicked](QEvent&) {
        *clicked = false;
        return false;
    });
    const auto click = [list, work, clicked] {
        // A list that gets the focus makes its first line the current one without choosing it.
        const QListWidgetItem* line = list->currentItem();
        if (line == nullptr || !line->isSelected()) return;
        *clicked = true;
        work();
    };
    On(list, &QListWidget::currentRowChanged, click);
    On(list, &QListWidget::itemPressed, [click, clicked] {
        if (!*clicked) click();
    });
}

void Controller::Run(const std::function<void()>& work) {
    try {
        work();
    } catch (const Error& error) {
        const std::string text = UntrappedText(error);
        Tell(text);
        Skipping skip;
        skip([&] { window.WriteLogEntry(text); });
    }
}

void Controller::Report(std::string_view text, std::string_view logText, const Error& error) {
    Tell(text);
    // A log that cannot be written must not hide what it was to say: the message has been shown.
    Skipping skip;
    skip([&] {
        window.WriteLogEntry(std::string(logText) +
                             PlainText(static_cast<std::int32_t>(error.Number())));
    });
}

void Controller::Tell(std::string_view text) {
    window.messages.Tell(text);
}
