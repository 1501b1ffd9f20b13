#pragma once
// The curve under the pointer lights up and says its fund and nearest stored point; in the picture
// keys walk along its days and from curve to curve. The legend brings curves forward, too, and it
// and the numbers at the curves' ends open their funds.

#include "app/controller.h"
#include "app/rules/showncurve.h"
#include "diagram/rules/curvewalk.h"
#include "widgets/rules/stroke.h"

#include <QPointF>

#include <cstddef>
#include <cstdint>
#include <optional>

class QKeyEvent;
struct WindowState;

class CurvePointer : Controller {
  public:
    explicit CurvePointer(frmPPM& window);

  private:
    void picDiagram_Hovered(QPointF at);
    bool picDiagram_KeyDown(const QKeyEvent& event);
    void lstLegend_Lit(std::int32_t kontoId);
    void Open(std::int32_t kontoId);
    void Step(Walk walk);
    void StepToCurve(std::size_t from, std::int32_t day, Walk walk);
    void Light(const Drawing& drawing, std::optional<CurvePoint> point);
    void Put(WindowState next);
    std::optional<std::size_t> LitDrawing() const;
    ShownDays DaysShown() const;
};
