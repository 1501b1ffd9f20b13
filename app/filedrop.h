#pragma once
// A fund file that is dragged over the window and dropped there opens as one that was chosen in the
// menu.

#include "app/controller.h"
#include "app/rules/filedrop.h"
#include "platform/clock.h"

#include <chrono>
#include <memory>
#include <string>

class QDropEvent;

class FileDrop : Controller {
  public:
    explicit FileDrop(frmPPM& window);
    ~FileDrop();

  private:
    class Watch;
    DropVerdict Judge(const QDropEvent& event) const;
    void Hold(QDropEvent& event);
    void Refuse(DropVerdict verdict);
    void LetGo();
    void Drop(QDropEvent& event);
    void OpenIn(std::chrono::milliseconds pause);

    std::unique_ptr<QObject> watch_;
    std::unique_ptr<Clock::Pause> opening_;
    std::string dropped_;  ///< the path of the file that is to be opened
};
