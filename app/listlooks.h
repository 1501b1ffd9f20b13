#pragma once
// What stands beside the texts of the fund list: each curve's colour, the latest change, and a tick
// while curves are chosen.

#include "app/controller.h"
#include "widgets/listlines.h"

#include <cstdint>
#include <optional>
#include <vector>

class QKeyEvent;
class QMouseEvent;

class ListLooks : Controller {
  public:
    explicit ListLooks(frmPPM& window);
    ~ListLooks();

  private:
    struct Line {
        std::int32_t kontoId = 0;
        LineLook look;
    };
    const Line& LineAt(int row);
    Line ReadLine(int row);
    LineLook LookOf(int row);
    void Forget();
    bool TakeAway(int row);
    bool lstFonder_KeyDown(const QKeyEvent& event);
    bool lstFonder_MouseDown(const QMouseEvent& event);

    std::vector<std::optional<Line>> lines_;  ///< those that were drawn since a row changed
};
