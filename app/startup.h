#pragma once
// How the window comes up and goes: load, first activation, the end of the start-up pause, unload;
// and the way back to the plain diagram view.

#include "app/controller.h"
#include "fundfile/fundfile.h"
#include "platform/clock.h"

#include <memory>

class StartUp : Controller {
  public:
    explicit StartUp(frmPPM& ppm);

    void Load();
    void Activate();
    void ResetPanels();
    void Unload();
    /// Programs stay open over midnight: day, date and, where the window still shows its start
    /// position, the months become those of the clock's today.
    void BringTodayUpToDate();

  private:
    void Form_Activate();
    void Timer1_Timer();
    void ReadSettings();
    void OpenDatabase();
    void InitialiseScales();
    void SetToday();

    std::unique_ptr<Clock::Pause> Timer1_;  ///< `Timer1`, the start-up pause
    FundFile opened_;  ///< until the window has come up and says how the file was opened
};
