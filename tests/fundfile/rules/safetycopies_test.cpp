// What safety copies are called, and which of them stay.

#include "fundfile/rules/safetycopies.h"

#include "base/daynumber.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

TEST(SafetyCopies, AreKnownByTheirNamesWhateverTheFileIs) {
    for (const char* copy : {"fonder 2026-11-22.mdb", "a b c 2026-11-22 nr 2.mdb"}) {
        EXPECT_TRUE(IsCopyName(copy)) << copy;
    }
    for (const char* other : {"fonder.mdb", "2026-11-22.mdb", "fonder 2026-11-22 nr 1.mdb", "",
                              "fonder 2026-11-22 igen.mdb", "fonder 2026-13-22.mdb", " "}) {
        EXPECT_FALSE(IsCopyName(other)) << other;
    }
}

using testing::ElementsAre;
using testing::IsEmpty;

std::int32_t Day(const std::string& date) {
    return ParseDate(date).value();
}

TEST(SafetyCopies, AreNamedByFileDateAndNumber) {
    const struct {
        std::string file, date;
        std::int32_t number;
        std::string copy;
    } rows[] = {
        {"fonder.mdb", "2026-11-22", 1, "fonder 2026-11-22.mdb"},
        {"fonder.mdb", "2026-11-22", 2, "fonder 2026-11-22 nr 2.mdb"},
        {"Mina fonder å.MDB", "2026-01-02", 12, "Mina fonder å 2026-01-02 nr 12.MDB"},
        {"utan", "2026-11-22", 1, "utan 2026-11-22"},
        {"fonder 2026-11-21.mdb", "2026-11-22", 1, "fonder 2026-11-21 2026-11-22.mdb"},
        {".mdb", "2026-11-22", 1, ".mdb 2026-11-22"},
    };
    for (const auto& row : rows) {
        const CopyName name{Day(row.date), row.number};
        EXPECT_EQ(CopyFileName(row.file, name), row.copy);
        EXPECT_EQ(ReadCopyName(row.file, row.copy), name) << row.copy;
    }
}

TEST(SafetyCopies, AreNotTakenForOneAnotherOrForOtherFiles) {
    for (const std::string copy :
         {"fonder.mdb", "fonder 2026-11-22.mdb.lock", "fonder 2026-13-22.mdb",
          "fonder 26-11-22.mdb", "fonder 2026-11-21 2026-11-22.mdb", "fonder2026-11-22.mdb",
          "fonder_2026-11-22.mdb", "andra 2026-11-22.mdb", "fonder 2026-11-22 nr 1.mdb",
          "fonder 2026-11-22 nr 02.mdb", "fonder 2026-11-22 nr x.mdb", "fonder 2026-11-22 nr .mdb",
          "fonder 2026/11/22.mdb", "fonder 2026-11-22 (kopia).mdb", "fonder 2026-11-22", ""}) {
        EXPECT_EQ(ReadCopyName("fonder.mdb", copy), std::nullopt) << copy;
    }
}

std::vector<std::string> Kept(const std::vector<std::string>& dates, const std::string& today) {
    std::vector<std::int32_t> days;
    for (const std::string& date : dates) days.push_back(Day(date));
    std::vector<std::string> kept;
    for (const std::int32_t day : DaysToKeep(days, Day(today))) kept.push_back(FormatDay(day));
    return kept;
}

TEST(SafetyCopies, OfTheLastTenDaysThatHadOneStay) {
    EXPECT_THAT(Kept({}, "2026-11-22"), IsEmpty());
    EXPECT_THAT(Kept({"2026-11-22"}, "2026-11-22"), ElementsAre("2026-11-22"));
    // Ten days with a copy, however far apart; the eleventh is the first of its month.
    EXPECT_THAT(
        Kept({"2026-11-02", "2026-11-03", "2026-11-04", "2026-11-05", "2026-11-06", "2026-11-09",
              "2026-11-10", "2026-11-11", "2026-11-12", "2026-11-13", "2026-11-16", "2026-11-17"},
             "2026-11-17"),
        ElementsAre("2026-11-02", "2026-11-04", "2026-11-05", "2026-11-06", "2026-11-09",
                    "2026-11-10", "2026-11-11", "2026-11-12", "2026-11-13", "2026-11-16",
                    "2026-11-17"));
    // Of somebody who was away for ten years.
    EXPECT_THAT(Kept({"2016-01-04", "2016-01-05", "2016-01-07"}, "2026-11-22"),
                ElementsAre("2016-01-04", "2016-01-05", "2016-01-07"));
}

TEST(SafetyCopies, OfTheFirstDayOfEachMonthStayForTwoYears) {
    const std::vector<std::string> lastTen = {
        "2026-11-09", "2026-11-10", "2026-11-11", "2026-11-12", "2026-11-13",
        "2026-11-16", "2026-11-17", "2026-11-18", "2026-11-19", "2026-11-20"};
    const struct {
        std::vector<std::string> older, kept;
    } rows[] = {
        {{"2026-10-01", "2026-10-30"}, {"2026-10-01"}},
        {{"2026-10-30", "2026-10-01"}, {"2026-10-01"}},
        {{"2024-12-02", "2024-12-03", "2025-11-03"}, {"2024-12-02", "2025-11-03"}},
        {{"2024-11-29", "2024-11-30"}, {}},  // the 25th month
        {{"2000-01-01", "2023-11-01"}, {}},
        {{"2025-12-31", "2026-01-01"}, {"2025-12-31", "2026-01-01"}},
    };
    for (const auto& row : rows) {
        std::vector<std::string> all = row.older;
        all.insert(all.end(), lastTen.begin(), lastTen.end());
        std::vector<std::string> expected = row.kept;
        expected.insert(expected.end(), lastTen.begin(), lastTen.end());
        EXPECT_EQ(Kept(all, "2026-11-20"), expected) << row.older.front();
    }
}

TEST(SafetyCopies, OfAClockThatWasAheadStayAndCrowdNobodyOut) {
    std::vector<std::string> days, expected;
    for (int day = 1; day <= 9; ++day) expected.push_back("2026-11-0" + std::to_string(day));
    expected.push_back("2026-11-10");
    for (int day = 1; day <= 9; ++day) expected.push_back("2099-01-0" + std::to_string(day));
    days = expected;
    EXPECT_EQ(Kept(days, "2026-11-10"), expected);
}

TEST(SafetyCopies, ThatStayTodayAreAmongThoseThatStayedYesterday) {
    // A year of workdays, thinned out each day, as it happens.
    std::vector<std::int32_t> days;
    for (std::int32_t day = Day("2025-01-01"); day < Day("2027-03-01"); ++day) {
        days.push_back(day);
        days = DaysToKeep(days, day);
    }
    EXPECT_EQ(days.size(), 10U + 24U);
    EXPECT_EQ(FormatDay(days.front()), "2025-03-01");
    EXPECT_EQ(FormatDay(days.back()), "2027-02-28");
}

}  // namespace
