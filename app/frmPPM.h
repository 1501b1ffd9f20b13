#pragma once
// The hub: the main window with all window-level state and all controls. What controllers ask of
// each other goes through it; who answers stands above it.

#include "app/controls.h"
#include "app/layout.h"
#include "app/messages.h"
#include "app/procedures.h"
#include "app/rules/windowstate.h"

#include <QMainWindow>

#include <memory>

struct Platform;
class Panels;

class frmPPM : public QMainWindow, public WindowState, public Controls, public Procedures {
    Q_OBJECT

  public:
    ~frmPPM() override;

    /// What the window shows; a rule makes the next one of it.
    const WindowState& State() const { return *this; }
    /// Makes `next` the state and shows it. What is asked for meanwhile, by a control that gets the
    /// focus, is shown after it.
    void Put(WindowState next);
    /// Shows fields that were set one by one.
    void ShowState();

    Platform& platform;
    Layout layout;
    Messages messages;

  protected:
    /// The window with its controls, furnished; nobody listens to them yet.
    explicit frmPPM(Platform& outside, QWidget* parent);

  private:
    std::unique_ptr<CommonDialog> dialog_;
    std::unique_ptr<Panels> panels_;
    bool showing_ = false, showAgain_ = false;
};
