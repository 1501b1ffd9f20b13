// What changes are called in the menu.

#include "app/rules/changename.h"

#include "base/daynumber.h"

#include <gtest/gtest.h>
#include <string>

namespace {

TEST(ChangeNames, SayWhatWouldBeTakenBack) {
    const std::int32_t day = ParseDate("2026-11-13").value();
    const struct {
        ChangeName change;
        std::string name, log;
    } rows[] = {
        {PriceChange("190,32", "Asp"), "kursen 190,32 för Asp", ""},
        {RowChange("Asp"), "raden Asp", ""},
        {HoldingDeletionChange("Privat", "Asp"), "borttaget innehav Asp",
         "raderingen av Privat Asp"},
        {SharesChange("Asp"), "nya andelar för Asp", ""},
        {ColourChange("Asp"), "färgen på Asp", ""},
        {ImportChange("kurser.csv"), "kurserna ur kurser.csv", ""},
        {CurvesChange(), "valet av kurvor", ""},
        {PointChange(day, "249 995"), "punkten 2026-11-13 för 249 995", ""},
        {PointChange(day, ""), "punkten 2026-11-13", ""},
        {PointChange(std::nullopt, "249 995"), "punkten för 249 995", ""},
        {PointChange(2147483647, "249 995"), "punkten för 249 995", ""},
        {PointDeletionChange(day, "249 995"), "borttagen punkt 2026-11-13 för 249 995", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.change.name, row.name);
        EXPECT_EQ(row.change.log, row.log);
    }
}

}  // namespace
