// Days without a price: marked on the time axis, and filled in afterwards in the day's round.

#include "platform/datasource.h"
#include "tests/window/dayprices.h"
#include "widgets/daymarks.h"

#include <vector>

namespace {

constexpr std::int32_t kFriday = kRoundDay - 3;
constexpr std::int32_t kThursday = kRoundDay - 4;

class EarlierDaysTest : public DayPricesTest {
  protected:
    /// Both have all weekdays of the last weeks but Thursday; the first one lacks Friday, too.
    void SetUp() override {
        std::vector<TestHolding> holdings = ManyHoldings(2);
        for (TestHolding& holding : holdings) {
            holding.points = {{kRoundDay - 7, 8}, {kRoundDay - 6, 9}, {kRoundDay - 5, 10}};
            holding.senasteDag = kRoundDay - 5;
        }
        holdings[1].points.push_back({kFriday, 11});
        holdings[1].senasteDag = kFriday;
        holdings[1].senasteKurs = "Senaste : 111,00";
        holdings[1].procent = "11 %";
        MakeFile(holdings);
        Start();
    }
    std::vector<std::int32_t> Marks() {
        std::vector<std::int32_t> days = Window().axlSaknas->Days();
        for (std::int32_t& day : days) day += Window().WindowStartDay;
        return days;
    }
    void ChooseDay(int index) {
        Window().cboDag->setFocus();
        for (int i = 0; i < index; ++i) Press(Qt::Key_Down);
        Press(Qt::Key_Return);
    }
};

using Days = std::vector<std::int32_t>;

}  // namespace

TEST_F(EarlierDaysTest, TheOpenFundsMissingWeekdaysAreMarkedOnTheTimeAxis) {
    EXPECT_EQ(Marks(), Days{});
    ChooseFund(0);
    EXPECT_EQ(Marks(), (Days{kThursday, kFriday}));
    EXPECT_TRUE(Window().axlSaknas->isVisible());
    ChooseFund(1);
    EXPECT_EQ(Marks(), Days{kThursday});
    Press(Qt::Key_F11);
    Press(Qt::Key_F11);
    EXPECT_EQ(Marks(), Days{}) << "no holding is open";
}

TEST_F(EarlierDaysTest, TheMarksFollowTheMonthsShown) {
    ChooseFund(0);
    Press(Qt::Key_Escape);
    Press(Qt::Key_Left);
    Press(Qt::Key_Left);
    EXPECT_EQ(Marks(), Days{}) << "November is not among them";
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    EXPECT_EQ(Marks(), (Days{kThursday, kFriday}));
}

TEST_F(EarlierDaysTest, TheDaysToChooseSayHowManyAreMissing) {
    Open();
    const QComboBox& days = *Window().cboDag;
    EXPECT_EQ(FromQt(days.itemText(0)), "2026-11-16  måndag, idag");
    EXPECT_EQ(FromQt(days.itemText(1)), "2026-11-13  fredag, 1 saknas");
    EXPECT_EQ(FromQt(days.itemText(2)), "2026-11-12  torsdag, 2 saknas");
    EXPECT_EQ(FromQt(days.itemText(3)), "2026-11-11  onsdag");
    EXPECT_EQ(days.count(), 43);
    EXPECT_EQ(days.currentIndex(), 0);
}

TEST_F(EarlierDaysTest, APriceOfAnEarlierDayChangesTheSummaryOnlyWithoutALaterOne) {
    ChooseFund(1);
    Open();
    ChooseDay(1);
    EXPECT_TRUE(Window().txtNyKurs->hasFocus());
    EXPECT_EQ(FromQt(Window().panKurser->title()), "Dagens kurser  Fredag 13 November 2026");
    EXPECT_EQ(Done(), "1 av 2 klara");
    EXPECT_EQ(Row(), 0);
    TypeAndEnter("112");
    EXPECT_EQ(PointsOf(1).back(), (CurvePoint{kFriday, 12}));
    EXPECT_EQ(Holding(0, 12), "46339") << "the latest it has: the summary follows";
    EXPECT_EQ(Holding(0, 13), "Senaste : 112,00");
    EXPECT_EQ(Holding(0, 14), "12 %");
    EXPECT_EQ(Done(), "2 av 2 klara");

    ChooseDay(2 - 1);
    EXPECT_EQ(FromQt(Window().panKurser->title()), "Dagens kurser  Torsdag 12 November 2026");
    TypeAndEnter("105");
    TypeAndEnter("106");
    EXPECT_EQ(Done(), "2 av 2 klara");
    EXPECT_EQ(PointsOf(1)[3], (CurvePoint{kThursday, 5}));
    EXPECT_EQ(PointsOf(2)[3], (CurvePoint{kThursday, 6}));
    EXPECT_EQ(Holding(0, 13), "Senaste : 112,00") << "Friday is later";
    EXPECT_EQ(Holding(1, 13), "Senaste : 111,00");
    EXPECT_EQ(Holding(1, 12), "46339");
    EXPECT_EQ(Status(4), "Senaste : 111,00") << "the open holding's, too";
    EXPECT_EQ(Cell(0, kChangeColumn), "5 % sedan start");
    EXPECT_TRUE(Faults().empty());

    Press(Qt::Key_Escape);
    EXPECT_EQ(Marks(), Days{}) << "nothing is missing any more";
    Open();
    EXPECT_EQ(Window().cboDag->currentIndex(), 0) << "today again";
}

TEST_F(EarlierDaysTest, AnEarlierDaysPriceIsCheckedAsTodaysIs) {
    Open();
    ChooseDay(2);
    const std::string before = Bytes();
    outside.dialogs.Expect("Felaktig inmatning");
    TypeAndEnter("0");
    EXPECT_EQ(Bytes(), before);
    TypeAndEnter("160");
    EXPECT_EQ(Holding(0, 16), "./75/-50") << "the scale takes the point in";
    TypeAndEnter("105");
    EXPECT_EQ(Row(), 1) << "the last line";
    TypeAndEnter("109");
    EXPECT_EQ(PointsOf(2)[3], (CurvePoint{kThursday, 9})) << "mended";
    EXPECT_EQ(PointsOf(2).size(), 5U);
}
