#include "entry/rules/pricefile.h"

#include "base/daynumber.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

TEST(PriceFile, ReadsDaysAsSwedishBanksAndSpreadsheetsWriteThem) {
    const std::optional<std::int32_t> day = ParseDate("2026-11-03");
    for (const char* text : {"2026-11-03", "2026-11-3", "2026/11/03", "2026.11.03", "20261103",
                             "3/11 2026", "03/11/2026", "3.11.2026", "03-11-2026", " 2026-11-03 ",
                             "2026-11-03 17:30", "2026-11-03T00:00:00", "3/11/2026 9:05"}) {
        EXPECT_EQ(ReadForeignDay(text), day) << text;
    }
    for (const char* text : {"", "26-11-03", "3/11/26", "2026-13-03", "31/2/2026", "11/31/2026",
                             "2026-11", "20261", "2026-11-03-1", "2026-11-03x", "-2026-11-03",
                             "3 november 2026", "175,10", "249 995", "2026--11-3", "12345678901"}) {
        EXPECT_EQ(ReadForeignDay(text), std::nullopt) << text;
    }
}

FundNames Funds() {
    OpenHolding asp, ek;
    asp.fond = "Asp";
    asp.fondNr = "249 995";
    ek.fond = "Ek";
    ek.fondNr = "468 024";
    return FundNames(std::vector<OpenHolding>{asp, ek});
}

/// "line|day|konto|number|name|price" of each.
std::vector<std::string> Lines(std::string_view text) {
    std::vector<std::string> lines;
    const auto read = ReadPriceFile(text, Funds());
    if (!read) return {"no"};
    for (const PriceLine& line : *read) {
        lines.push_back(std::to_string(line.number) + "|" + line.day + "|" + line.kontoId + "|" +
                        line.fondNr + "|" + line.fond + "|" + line.price +
                        (line.tooLong ? "|long" : ""));
    }
    return lines;
}

using Strings = std::vector<std::string>;

TEST(PriceFile, FindsItsColumnsByTheirHeadings) {
    EXPECT_EQ(Lines("Kurs (kr);Fond;Datum\n175,10;Asp;2026-11-13\n"),
              (Strings{"2|2026-11-13|||Asp|175,10"}));
    EXPECT_EQ(Lines("Datum;Nr;Fondnr;Fond;Konto;Procent;Kronor\r\n"
                    "2026-11-13;3;249 995;Asp;PPM;82;175,10\r\n"),
              (Strings{"2|2026-11-13|3|249 995|Asp|175,10"}));
    EXPECT_EQ(Lines("date,fund,open,price\n2026-11-13,Asp,170.00,175.10"),
              (Strings{"2|2026-11-13|||Asp|175.10"}));
}

TEST(PriceFile, FindsColumnsWithoutHeadingsByWhatStandsThere) {
    EXPECT_EQ(Lines("2026-11-13\tAsp\t175,10\n2026-11-12\tEk\t12"),
              (Strings{"1|2026-11-13|||Asp|175,10", "2|2026-11-12|||Ek|12"}));
    EXPECT_EQ(Lines("175.10,468024,13/11/2026"), (Strings{"1|13/11/2026||468024||175.10"}));
    EXPECT_EQ(Lines("okänt;rubrik;tre\nEk;2026-11-13;12,5"), (Strings{"2|2026-11-13|||Ek|12,5"}))
        << "a first line without a day is a heading";
    EXPECT_EQ(Lines("2026-11-13;Okänd;12,5"), (Strings{"1|2026-11-13|||Okänd|12,5"}));
}

TEST(PriceFile, GuessesNothing) {
    EXPECT_EQ(Lines(""), Strings{"no"});
    EXPECT_EQ(Lines("Asp;175,10"), Strings{"no"}) << "no day";
    EXPECT_EQ(Lines("2026-11-13;Asp"), Strings{"no"}) << "no price";
    EXPECT_EQ(Lines("2026-11-13,Asp,175,10"), Strings{"no"})
        << "a comma that parts and one that is in the price";
    EXPECT_EQ(Lines("Datum,Fond,Kurs\n2026-11-13,Asp,175,10\n2026-11-12,Asp,\"175,10\""),
              (Strings{"2|2026-11-13|||Asp|175|long", "3|2026-11-12|||Asp|175,10"}));
    EXPECT_EQ(Lines("Datum;Fond;Kurs\n2026-11-13"), (Strings{"2|2026-11-13||||"}));
}

TEST(PriceFile, TakesTheMarkOfAHarmlessTextAway) {
    EXPECT_EQ(Lines("Datum;Fond;Kurs\n2026-11-13;'=Asp;1"), (Strings{"2|2026-11-13|||=Asp|1"}));
}

}  // namespace
