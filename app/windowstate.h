#pragma once
// The window-level state that several procedures share. Plain values; knows no controls and no Qt.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace jet {
class Database;
}

struct WindowState {
    std::shared_ptr<jet::Database> FundDb;  ///< the open fund file; null while none is open
    std::string AppFolder;                  ///< the program's folder, ending in the separator
    std::string CurrentFile;                ///< full path of the fund file in use

    std::int32_t TodayDay = 0;      ///< today as a day number
    std::int32_t CurrentMonth = 1;  ///< 1 to 12
    std::int32_t WindowStartDay =
        0;                     ///< first day of the twelve months shown, always the 1st of a month
    std::int32_t DayStep = 1;  ///< 1, 7 or 30: day, week or month view

    std::int32_t ScaleTop = 15;  ///< the diagram's scale in whole percent
    std::int32_t ScaleBottom = -10;
    std::int32_t FundScaleTop = 15;  ///< the automatic scale of the single holding shown
    std::int32_t FundScaleBottom = -10;
    std::int32_t AllScaleTop = 15;  ///< the automatic scale of the several-curves view
    std::int32_t AllScaleBottom = -10;

    std::vector<std::int32_t> SelectedCurves;  ///< KontoId of each curve drawn, in drawing order
    std::vector<std::string> MonthNames;       ///< 25 labels; entry 0 is January
    std::int32_t ChangePercent = 0;            ///< the open holding's change since its start
    bool Activated = false;                    ///< the first activation has run
};
