#pragma once
// The base of all controllers: the window, and ways to connect a handler so
// that no Error crosses a Qt frame.

#include "base/error.h"

#include <QEvent>
#include <QObject>

#include <functional>
#include <string_view>
#include <utility>

class QListWidget;
class frmPPM;

class Controller {
  public:
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;

  protected:
    explicit Controller(frmPPM& ppm);
    ~Controller();

    /// Runs `handler` of `self` on every `signal` of `sender`, with the signal's values where the
    /// handler takes them. An Error that the handler lets out becomes
    /// a message box and a log entry.
    template <typename Sender, typename Signal, typename Self, typename Result, typename... Values>
    void On(Sender* sender, Signal signal, Self* self, Result (Self::*handler)(Values...)) {
        QObject::connect(sender, signal, &context_, [this, self, handler](Values... values) {
            Run([&] { (self->*handler)(values...); });
        });
    }
    template <typename Sender, typename Signal>
    void On(Sender* sender, Signal signal, std::function<void()> work) {
        QObject::connect(sender, signal, &context_,
                         [this, work = std::move(work)] { Run([&work] { work(); }); });
    }

    /// Shows `target`'s events of one type to `handler` first; true swallows the event. Show and
    /// Hide are the program's own only, not those that the desktop causes.
    using EventHandler = std::function<bool(QEvent&)>;
    void OnEvent(QObject* target, QEvent::Type type, EventHandler handler);

    /// A line of `list` is chosen, by mouse, by key or by the program;
    /// or the chosen line is clicked again.
    void OnListClick(QListWidget* list, const std::function<void()>& work);

    /// Runs `work`; an Error becomes a message box with its number and text, and a log entry.
    void Run(const std::function<void()>& work);

    /// For a procedure's own trap: the message box,
    /// then `logText` and the error's number in the log.
    void Report(std::string_view text, std::string_view logText, const Error& error);
    /// One of the window's messages: a box with one OK button and no icon.
    void Tell(std::string_view text);

    frmPPM& window;

  private:
    QObject context_;
};
