#pragma once
// Taking changes of the fund file back, and doing them again: names them, runs it, and shows the
// window anew.

#include "app/controller.h"
#include "app/rules/changename.h"
#include "jet/journal.h"

#include <cstdint>
#include <optional>
#include <string>

class QKeyEvent;

class UndoRedo : Controller {
  public:
    explicit UndoRedo(frmPPM& window);

    /// Changes of the open file can be taken back from here on; those of another no more.
    void KeepChanges();

    /// Shows the open file's rows as they are now.
    void ShowFileAnew();

    // For Change
    void BeginChange(ChangeName name);
    void ContinueChange();
    void EndChange() noexcept;

  private:
    enum class Way { Back, Again };
    void Replay(Way way);
    bool MayReplay();
    void Refuse(Way way, const Error& error);
    void TellOf(Way way, const jet::JournalNote& note);
    bool ShowsStoredCurves() const;
    void ShowFileAnew(bool showsStoredCurves);
    void ShowSeveralCurves(bool showsStoredCurves);
    void ShowNames();
    bool Window_KeyDown(const QKeyEvent& event);

    std::optional<jet::Journal> journal_;
    std::int32_t depth_ = 0;  ///< of changes inside each other
};
