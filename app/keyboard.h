#pragma once
// The keys of the window as a whole: it sees them before the control that has the focus.

#include "app/controller.h"
#include "app/rules/keys.h"

#include <QObject>

#include <memory>

class QKeyEvent;

class Keyboard : Controller {
  public:
    explicit Keyboard(frmPPM& ppm);
    ~Keyboard();

  private:
    class Preview;
    /// True swallows the key.
    bool Form_KeyPress(const QKeyEvent& event);
    void Form_KeyUp(const QKeyEvent& event);
    bool Waits() const;
    ShownPanels KeyPanels() const;
    void Act(KeyAction action);
    void EscapeFromHoldings();
    bool MayGiveUpRow();

    std::unique_ptr<QObject> preview_;
};
