#include "entry/rules/pricepreview.h"

#include "base/daynumber.h"

#include <chrono>
#include <cstdint>
#include <gtest/gtest.h>
#include <string_view>

namespace {

using std::chrono::November;
using std::chrono::October;

std::int32_t Day(std::chrono::month month, unsigned day, int year = 2026) {
    return DayNumber(std::chrono::year{year} / month / std::chrono::day{day});
}

const std::int32_t kToday = Day(November, 23);

OpenHolding Holding(double startPrice, std::string_view latest, std::int32_t day) {
    OpenHolding holding;
    holding.startPrice = startPrice;
    holding.summary = {day, "Senaste : " + std::string(latest), "82 %", "1750"};
    return holding;
}

TEST(PricePreview, SaysWhatEnterWouldMakeOfIt) {
    const OpenHolding holding = Holding(96.2, "174,98", Day(November, 20));
    const struct {
        std::string_view typed, text;
        bool doubtful;
    } rows[] = {
        {"", "", false},
        {"175,10", "175,10 kr = 82 %, +0,1 % sedan 174,98 (20 nov)", false},
        {"175,1", "175,10 kr = 82 %, +0,1 % sedan 174,98 (20 nov)", false},
        {"174,98", "174,98 kr = 82 %, 0,0 % sedan 174,98 (20 nov)", false},
        {"174,97", "174,97 kr = 82 %, 0,0 % sedan 174,98 (20 nov)", false},
        {"170", "170,00 kr = 77 %, -2,8 % sedan 174,98 (20 nov)", false},
        {"209,97", "209,97 kr = 118 %, +20,0 % sedan 174,98 (20 nov)", false},
        {"210", "Stämmer det? 210,00 kr = 118 %, +20,0 % sedan 174,98 (20 nov)", true},
        {"139,98", "Stämmer det? 139,98 kr = 46 %, -20,0 % sedan 174,98 (20 nov)", true},
        {"17,51", "Stämmer det? 17,51 kr = -82 %, -90,0 % sedan 174,98 (20 nov)", true},
        {"1751", "Stämmer det? 1751,00 kr = 1720 %, +900,7 % sedan 174,98 (20 nov)", true},
        {"0", "Stämmer det? Det är ingen kurs", true},
        {"1,2,3", "Stämmer det? Det är ingen kurs", true},
        {",", "Stämmer det? Det är ingen kurs", true},
    };
    for (const auto& row : rows) {
        const PriceNote note = PricePreview(holding, row.typed, kToday);
        EXPECT_EQ(note.text, row.text) << row.typed;
        EXPECT_EQ(note.doubtful, row.doubtful) << row.typed;
    }
}

TEST(PricePreview, DoubtsWhatWouldBeAskedAboutHoweverNearItIs) {
    const OpenHolding holding = Holding(100, "300", Day(November, 20));
    EXPECT_FALSE(PricePreview(holding, "300", kToday).doubtful);
    EXPECT_TRUE(PricePreview(holding, "301", kToday).doubtful);
}

TEST(PricePreview, LeavesOutALatestPriceThatIsNotKnown) {
    for (const std::string_view latest : {"0", "", "-", "Senaste : 0", "Senaste :", "okänd"}) {
        OpenHolding holding = Holding(100, "1", kToday);
        holding.summary.latestPrice = latest;
        EXPECT_EQ(PricePreview(holding, "105", kToday).text, "105,00 kr = 5 %") << latest;
    }
    OpenHolding holding = Holding(100, "104", kToday);
    holding.summary.day.reset();
    EXPECT_EQ(PricePreview(holding, "105", kToday).text, "105,00 kr = 5 %, +1,0 % sedan 104,00");
}

TEST(PricePreview, KnowsNoPercentageWithoutAStartPrice) {
    const PriceNote note = PricePreview(Holding(0, "10", kToday), "12", kToday);
    EXPECT_EQ(note.text, "Stämmer det? 12,00 kr går inte att räkna om till procent");
    EXPECT_TRUE(note.doubtful);
}

TEST(ShortDay, NamesTheYearOnlyWhereItIsAnother) {
    EXPECT_EQ(ShortDay(kToday, kToday), "idag");
    EXPECT_EQ(ShortDay(Day(October, 1), kToday), "1 okt");
    EXPECT_EQ(ShortDay(Day(November, 20, 2025), kToday), "20 nov 2025");
}

}  // namespace
