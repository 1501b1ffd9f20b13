#include "reports/rules/reportpage.h"

#include "base/error.h"
#include "base/number.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <string_view>
#include <vector>

namespace {

constexpr double kCmPerPoint = 2.54 / 72;

/// Every character is half as wide as the font is high.
class EvenMeasure : public FontMeasure {
  public:
    double ColumnCm(ReportFont font, int column) const override {
        return (column - 1) * CharacterCm(font);
    }
    double LineCm(ReportFont font) const override { return 1.2 * font.points * kCmPerPoint; }
    double TextCm(ReportFont font, std::string_view text) const override {
        return static_cast<double>(Length(text)) * CharacterCm(font);
    }
    static double CharacterCm(ReportFont font) { return 0.5 * font.points * kCmPerPoint; }
};

const EvenMeasure kMeasure;

HoldingRow Holding(int number) {
    HoldingRow row;
    row.kontoId = number;
    row.fond = "Fond " + PlainText(number);
    row.namn = "PPM Konto";
    row.kursKr = 28.5;
    row.vardeKr = 57286.5;
    row.senasteDag = 38772 - number;
    row.senasteKurs = "Senaste : 33,64";
    row.procent = "18 %";
    row.kursVarde = "67618";
    row.sparadeVarden = "x";
    return row;
}

Report ReportOf(int holdings) {
    Report report;
    report.title = "Rusken_Kina";
    report.today = "Måndag 16 November 2026";
    report.diagram.scale = {"-20", "-10", "0", "10", "20", "30"};
    report.diagram.months = {"April", "Maj", "Juni", "Juli", "Aug", "Sep",
                             "Okt",   "Nov", "Dec",  "Jan",  "Feb", "Mars"};
    report.diagram.leftYear = "2025";
    report.diagram.rightYear = "2026";
    for (int i = 1; i <= holdings; ++i) report.holdings.push_back(Holding(i));
    report.totals = {"PPM Konto/Startvärde/10234,5 kr/Senaste Totalvärde/11020 kr/7 %"};
    return report;
}

std::vector<PageItems> Pages(const Report& report) {
    return LayOut(report, PaperSize{}, kMeasure);
}

const PageText* Find(const std::vector<PageItems>& pages, std::string_view text) {
    for (const auto& page : pages) {
        for (const auto& item : page.texts) {
            if (item.text == text) return &item;
        }
    }
    return nullptr;
}

void ExpectAt(const std::vector<PageItems>& pages, std::string_view text, double xCm, double yCm) {
    const PageText* item = Find(pages, text);
    ASSERT_NE(item, nullptr) << text;
    EXPECT_NEAR(item->xCm, xCm, 1e-9) << text;
    EXPECT_NEAR(item->yCm, yCm, 1e-9) << text;
}

double ColumnOf(const PageText& item) {
    return item.xCm / EvenMeasure::CharacterCm(item.font) + 1;
}

bool Overlap(const PageText& a, const PageText& b) {
    const auto right = [](const PageText& t) { return t.xCm + kMeasure.TextCm(t.font, t.text); };
    const auto bottom = [](const PageText& t) { return t.yCm + 0.9 * t.font.points * kCmPerPoint; };
    return a.xCm < right(b) && b.xCm < right(a) && a.yCm < bottom(b) && b.yCm < bottom(a);
}

TEST(ReportPage, HasItsHeadingInArialBold) {
    const auto pages = Pages(ReportOf(1));
    ExpectAt(pages, "Rusken_Kina", 2.0, 3.0);
    EXPECT_EQ(Find(pages, "Rusken_Kina")->font, (ReportFont{16, true}));
    ExpectAt(pages, "Måndag 16 November 2026", 12.8, 1.5);
    EXPECT_EQ(Find(pages, "Måndag 16 November 2026")->font, (ReportFont{12, true}));
    EXPECT_EQ(kReportFamily, "Arial");
}

TEST(ReportPage, NamesTheLatestUpdateOfTheFile) {
    const auto pages = Pages(ReportOf(3));
    const PageText* date = Find(pages, "Torsdag 23 Februari 2006");
    ASSERT_NE(date, nullptr);
    EXPECT_EQ(date->xCm, 2.0);
    EXPECT_EQ(date->font, (ReportFont{10, true}));
    const PageText* label = Find(pages, "Senaste UppDatering  ");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->yCm, date->yCm);
    EXPECT_GT(label->xCm, date->xCm + kMeasure.TextCm(date->font, date->text));
}

TEST(ReportPage, HasTwoRulesUnderTheHeading) {
    const auto page = Pages(ReportOf(1)).front();
    ASSERT_EQ(page.lines.size(), 2U);
    EXPECT_EQ(page.lines[0].x1Cm, 1.7);
    EXPECT_EQ(page.lines[0].y1Cm, 4.6);
    EXPECT_EQ(page.lines[1].x1Cm, 1.8);
    EXPECT_EQ(page.lines[1].y1Cm, 4.7);
    for (const auto& line : page.lines) EXPECT_EQ(line.y1Cm, line.y2Cm);
}

TEST(ReportPage, PutsTheScaleDownTheLeftSide) {
    const auto pages = Pages(ReportOf(1));
    const std::string_view labels[] = {"30  %", "20", "10", "0", "-10", "-20"};
    for (int i = 0; i < 6; ++i) {
        const PageText* item = Find(pages, labels[i]);
        ASSERT_NE(item, nullptr) << labels[i];
        EXPECT_NEAR(item->yCm, 4.8 + i * 1.4, 1e-9);
        EXPECT_NEAR(item->xCm + kMeasure.TextCm(item->font, item->text), 2.85, 1e-9);
    }
}

TEST(ReportPage, PutsMonthsAndYearsUnderTheDiagram) {
    const Report report = ReportOf(1);
    const auto pages = Pages(report);
    const double left[] = {3.2, 4.4, 5.6, 7.0, 8.2, 9.4, 10.8, 12.0, 13.2, 14.6, 15.8, 17.0};
    for (std::size_t i = 0; i < 12; ++i) ExpectAt(pages, report.diagram.months[i], left[i], 12.1);
    EXPECT_EQ(Find(pages, "2025")->xCm, 3.2);
    EXPECT_EQ(Find(pages, "2026")->xCm, 16.9);
}

TEST(ReportPage, PrintsTwoLinesPerHolding) {
    const auto pages = Pages(ReportOf(1));
    const struct {
        std::string_view text;
        double column;
    } first[] = {{"PPM Konto", 11},
                 {"1.", 40},
                 {"Fond 1", 45},
                 {"StartKurs : 28,5", 71},
                 {"Senaste : 33,64", 92}},
      second[] = {{"Värde vid start : 57286 Kr", 11}, {"Värde idag : 67618", 45}, {"18 %", 96}};
    const double line = Find(pages, "1.")->yCm;
    for (const auto& row : first) {
        const PageText* item = Find(pages, row.text);
        ASSERT_NE(item, nullptr) << row.text;
        EXPECT_NEAR(ColumnOf(*item), row.column, 1e-9) << row.text;
        EXPECT_NEAR(item->yCm, line, 1e-9) << row.text;
    }
    for (const auto& row : second) {
        const PageText* item = Find(pages, row.text);
        ASSERT_NE(item, nullptr) << row.text;
        EXPECT_NEAR(ColumnOf(*item), row.column, 1e-9) << row.text;
        EXPECT_NEAR(item->yCm, line + kMeasure.LineCm(item->font), 1e-9) << row.text;
    }
}

TEST(ReportPage, TakesStartPriceAndValueFromSavedValues) {
    Report report = ReportOf(1);
    report.holdings[0].sparadeVarden = "2005-02-27¶1976,0607¶28,99¶57285,9992¶";
    const auto pages = Pages(report);
    EXPECT_NE(Find(pages, "StartKurs : 28,99"), nullptr);
    EXPECT_NE(Find(pages, "Värde vid start : 57286 Kr"), nullptr);
    EXPECT_NE(Find(pages, "Värde idag : 67618"), nullptr);
}

TEST(ReportPage, PrintsAHoldingWithoutPriceOrValue) {
    Report report = ReportOf(1);
    report.holdings[0] = HoldingRow{};
    const auto pages = Pages(report);
    EXPECT_NE(Find(pages, "StartKurs : "), nullptr);
    EXPECT_NE(Find(pages, "Värde vid start : 0 Kr"), nullptr);
    EXPECT_NE(Find(pages, "Värde idag : -"), nullptr);
    EXPECT_NE(Find(pages, "Senaste :"), nullptr);
}

TEST(ReportPage, PrintsASavedValueThatIsNoNumberAsItStands) {
    Report report = ReportOf(1);
    report.holdings[0].sparadeVarden = "2005-02-27¶1976,0607¶28,99¶ny¶";
    EXPECT_NE(Find(Pages(report), "Värde vid start : ny Kr"), nullptr);
}

TEST(ReportPage, EndsWithTheTotalsOfEveryAccount) {
    const auto pages = Pages(ReportOf(1));
    const struct {
        std::string_view text;
        double column;
    } rows[] = {{"Total Summa för konto :", 10}, {"Startvärde", 39}, {"10234,5 kr", 66},
                {"Senaste Totalvärde", 39},      {"11020 kr", 66},   {"7 %", 82}};
    for (const auto& row : rows) {
        const PageText* item = Find(pages, row.text);
        ASSERT_NE(item, nullptr) << row.text;
        EXPECT_NEAR(ColumnOf(*item), row.column, 1e-9) << row.text;
    }
    EXPECT_GT(Find(pages, "Senaste Totalvärde")->yCm, Find(pages, "Startvärde")->yCm);
}

TEST(ReportPage, LeavesALineEmptyAfterEachAccount) {
    Report report = ReportOf(1);
    report.totals = {"Konto A/Startvärde/1 kr/Senaste Totalvärde/2 kr/3 %",
                     "Konto B/Startvärde/1 kr/Senaste Totalvärde/2 kr/3 %"};
    const auto pages = Pages(report);
    const PageText* first = Find(pages, "Konto A");
    const PageText* second = Find(pages, "Konto B");
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NEAR(second->yCm - first->yCm, 3 * kMeasure.LineCm(first->font), 1e-9);
}

TEST(ReportPage, KeepsASlashInAnAccountsName) {
    Report report = ReportOf(1);
    report.totals = {"Barn/Spar/Startvärde/1 kr/Senaste Totalvärde/2 kr/100 %"};
    const auto pages = Pages(report);
    ASSERT_NE(Find(pages, "Barn/Spar"), nullptr);
    EXPECT_NEAR(ColumnOf(*Find(pages, "Barn/Spar")), 10, 1e-9);
}

TEST(ReportPage, RefusesALineOfTotalsWithPartsMissing) {
    Report report = ReportOf(1);
    report.totals = {"Konto A/Startvärde"};
    EXPECT_THROW(Pages(report), Error);
}

TEST(ReportPage, CutsANameThatWouldRunIntoTheNextColumn) {
    Report report = ReportOf(1);
    report.holdings[0].namn = "Pensionsspar för Åke och Örjan Ångström i Västerås";
    const auto pages = Pages(report);
    EXPECT_NE(Find(pages, "Pensionsspar för Åke och Ö.."), nullptr);
}

TEST(ReportPage, CutsATitleThatIsWiderThanThePaper) {
    Report report = ReportOf(60);
    for (int i = 0; i < 12; ++i) report.title += "_med_ett_namn";
    for (const PageItems& page : Pages(report)) {
        for (const PageText& item : page.texts) {
            EXPECT_LE(item.xCm + kMeasure.TextCm(item.font, item.text), 20.0) << item.text;
            for (const PageText& other : page.texts) {
                if (&other != &item) EXPECT_FALSE(Overlap(item, other)) << item.text;
            }
        }
    }
}

TEST(ReportPage, TakesTheLargestFontThatFits) {
    EXPECT_EQ(TableFont(PaperSize{}, kMeasure).points, 9);
    EXPECT_EQ(TableFont(PaperSize{16.0, 29.7}, kMeasure).points, 7);
    EXPECT_EQ(TableFont(PaperSize{5.0, 29.7}, kMeasure).points, 6);
}

class ReportPageWithHoldings : public ::testing::TestWithParam<int> {};

TEST_P(ReportPageWithHoldings, PrintsEveryHoldingOnce) {
    const auto pages = Pages(ReportOf(GetParam()));
    for (int i = 1; i <= GetParam(); ++i) {
        int found = 0;
        for (const auto& page : pages) {
            found += static_cast<int>(
                std::count_if(page.texts.begin(), page.texts.end(),
                              [i](const PageText& t) { return t.text == "Fond " + PlainText(i); }));
        }
        EXPECT_EQ(found, 1) << i;
    }
}

TEST_P(ReportPageWithHoldings, OverlapsNothingAndLeavesNoPaper) {
    for (const auto& page : Pages(ReportOf(GetParam()))) {
        for (std::size_t i = 0; i < page.texts.size(); ++i) {
            const PageText& item = page.texts[i];
            EXPECT_GE(item.xCm, 0.5) << item.text;
            EXPECT_LE(item.xCm + kMeasure.TextCm(item.font, item.text), 20.5) << item.text;
            EXPECT_LE(item.yCm + kMeasure.LineCm(item.font), 28.7) << item.text;
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_FALSE(Overlap(item, page.texts[j]))
                    << item.text << " | " << page.texts[j].text;
            }
        }
    }
}

TEST_P(ReportPageWithHoldings, TearsNoHoldingApart) {
    for (const auto& page : Pages(ReportOf(GetParam()))) {
        const auto count = [&](std::string_view start) {
            return std::count_if(page.texts.begin(), page.texts.end(),
                                 [&](const PageText& t) { return t.text.starts_with(start); });
        };
        EXPECT_EQ(count("StartKurs : "), count("Värde vid start : "));
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, ReportPageWithHoldings, ::testing::Values(0, 1, 12, 60, 200));

TEST(ReportPage, GoesOnOnNumberedPages) {
    EXPECT_EQ(Pages(ReportOf(1)).size(), 1U);
    EXPECT_EQ(Pages(ReportOf(12)).size(), 1U);
    const auto pages = Pages(ReportOf(60));
    ASSERT_GT(pages.size(), 2U);
    EXPECT_EQ(pages[1].texts[0].text, "Rusken_Kina");
    EXPECT_EQ(pages[1].texts[1].text, "2");
    EXPECT_EQ(pages[2].texts[1].text, "3");
    EXPECT_TRUE(pages[1].lines.empty());
}

TEST(ReportPage, KeepsTheTotalsHeadingWithItsFirstAccount) {
    for (int holdings = 1; holdings < 60; ++holdings) {
        for (const auto& page : Pages(ReportOf(holdings))) {
            const auto has = [&](std::string_view text) {
                return std::any_of(page.texts.begin(), page.texts.end(),
                                   [&](const PageText& t) { return t.text == text; });
            };
            EXPECT_EQ(has("Total Summa för konto :"), has("Senaste Totalvärde")) << holdings;
        }
    }
}

}  // namespace
