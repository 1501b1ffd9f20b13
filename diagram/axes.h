#pragma once
// The diagram's axes: the percent scale with its labels and zoom, the twelve months with theirs and
// how they are scrolled, and the step of day, week or month view.

#include "app/controller.h"
#include "app/rules/timewindow.h"
#include "fundfile/rules/scale.h"

#include <Qt>

#include <cstdint>

class Axes : Controller {
  public:
    explicit Axes(frmPPM& ppm);

    /// Sets and labels the scale, and draws the curves anew.
    /// Storing ScaleTop and ScaleBottom is the caller's.
    void SetVerticalScale(ScaleRange scale);
    /// The open holding's stored scale after its points have changed: the picture takes it over
    /// where it changed or is wider than the picture, and is drawn anew in any case.
    void ShowFundScale(ScaleRange stored);
    /// Moves and labels the months; draws nothing.
    void AdvanceOneMonth();
    /// The twelve months that today's date asks for, labelled; draws nothing.
    void ShowMonthsOfToday();
    /// Another day than `before` is today: months that stand where it put them follow, drawn anew.
    void FollowToday(std::int32_t before);
    /// Scrolls back to the months that today's date asks for.
    void ReturnToToday();

    void Image4_MouseUp(Qt::MouseButton button);
    void Image5_MouseUp(Qt::MouseButton button);
    void mnuPlus_Click();
    void mnuMinus_Click();

  private:
    void mnuVeckor_Click();
    void mnuMonth_Click();

    void ShowMonthsFrom(std::int32_t startDay);
    void LabelScale(ScaleRange scale);
    void MoveWindow(WindowMove move);
    void Scroll(WindowMove move);
    void ToggleStep(std::int32_t days);
    void Redraw();
};
