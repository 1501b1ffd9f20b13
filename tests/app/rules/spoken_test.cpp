#include "app/rules/spoken.h"

#include "app/rules/daystep.h"

#include <gtest/gtest.h>
#include <string>

namespace {

WindowState WithCurves() {
    WindowState state;
    state.WindowStartDay = 45748;  // 2025-04-01
    state.drawnScale = {30, -20};
    state.curves = {{.kontoId = 1, .name = "Asp", .change = "6 %", .latest = "106,00"},
                    {.kontoId = 12, .name = "Bok"}};
    return state;
}

TEST(Spoken, ThePictureNamesItsCurvesMonthsAndScale) {
    WindowState state = WithCurves();
    const std::string curves = ", skala -20 till 30 %. 1. Asp, 106,00 kr, 6 %. 12. Bok";
    EXPECT_EQ(SpokenPicture(state, ""), "2 kurvor från april 2025 till mars 2026" + curves);
    state.DayStep = daystep::kWeek;
    EXPECT_EQ(SpokenPicture(state, ""),
              "2 kurvor från april 2025 till mars 2026, vecka för vecka" + curves);
    state.DayStep = daystep::kMonth;
    state.curves.pop_back();
    EXPECT_EQ(SpokenPicture(state, ""),
              "1 kurva från april 2025 till mars 2026, månad för månad, skala -20 till 30 %. "
              "1. Asp, 106,00 kr, 6 %");
}

TEST(Spoken, AnEmptyPictureSaysWhatToDo) {
    EXPECT_EQ(SpokenPicture({}, "do this"), "do this");
    EXPECT_EQ(SpokenPicture({}, ""), "Inga kurvor");
}

TEST(Spoken, DaysWithoutAPriceAreCountedOut) {
    EXPECT_EQ(SpokenMissingDays({}), "");
    EXPECT_EQ(SpokenMissingDays({46338, 46342}), "Dagar utan kurs: 12 november, 16 november");
}

TEST(Spoken, AStoredPriceIsToldWithItsFundAndChange) {
    EXPECT_EQ(SpokenStoredPrice("175,10", "Asp", -3), "Kursen 175,10 för Asp är sparad: -3 %");
}

TEST(Spoken, ColoursHaveNames) {
    const struct {
        Colour colour;
        std::string name;
    } rows[] = {
        {{0, 0, 0}, "svart"},      {{255, 255, 255}, "vit"},     {{128, 128, 128}, "grå"},
        {{60, 60, 60}, "mörkgrå"}, {{200, 200, 200}, "ljusgrå"}, {{220, 20, 20}, "röd"},
        {{230, 20, 40}, "röd"},    {{255, 140, 0}, "orange"},    {{255, 230, 0}, "gul"},
        {{0, 160, 0}, "mörkgrön"}, {{0, 220, 0}, "grön"},        {{0, 200, 200}, "turkos"},
        {{0, 0, 255}, "blå"},      {{0, 0, 120}, "mörkblå"},     {{160, 200, 255}, "ljusblå"},
        {{150, 0, 220}, "lila"},   {{255, 0, 200}, "rosa"},      {{192, 0, 10}, "röd"},
        {{120, 80, 0}, "brun"}};
    for (const auto& row : rows) {
        EXPECT_EQ(SpokenColour(row.colour), "Kurvans färg: " + row.name);
    }
    EXPECT_EQ(SpokenColour(std::nullopt), "");
}

}  // namespace
