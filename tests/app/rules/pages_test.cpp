// What the pages of their own keep and forget: the day's round and the overview.

#include "app/rules/modes.h"

#include <gtest/gtest.h>
#include <optional>
#include <utility>

namespace {

WindowState On(Stage stage) {
    WindowState state;
    state.stage = stage;
    state.hasHoldings = true;
    return state;
}

TEST(Pages, HideAndShowWhatIsDoneOfTheRoundWithItsOwnKey) {
    WindowState state = AfterDayPricesKey(On(Stage::Diagram));
    EXPECT_FALSE(state.round.hidesDone);
    state = AfterDayPricesKey(std::move(state));
    EXPECT_TRUE(state.round.hidesDone);
    EXPECT_FALSE(AfterDayPricesKey(state).round.hidesDone);
    EXPECT_FALSE(AfterDayPricesKey(AfterEscape(state)).round.hidesDone) << "every round is whole";
    state.hasHoldings = false;
    EXPECT_EQ(AfterDayPricesKey(AfterEscape(state)).stage, Stage::Diagram);
    EXPECT_EQ(AfterOverviewKey(AfterEscape(state)).stage, Stage::Diagram);
}

TEST(Pages, KeepWhatIsTypedInTheRoundUntilItIsGoneOrTheFileIs) {
    const TypedDayPrice typed{"Fond 1", "11"};
    for (const Stage stage : {Stage::Diagram, Stage::DayPrices, Stage::Holdings}) {
        const WindowState state = AfterDayPriceTyped(On(stage), 1, typed);
        EXPECT_EQ(AfterDayPricesKey(AfterEscape(state)).round.typed.at(1), typed);
        EXPECT_TRUE(AfterDayPriceGone(state, 1).round.typed.empty());
        EXPECT_TRUE(AfterFileOpened(state).round.typed.empty());
    }
}

TEST(Pages, TypeForTodayUnlessADayWasChosenForWhatIsStillTyped) {
    WindowState state = On(Stage::DayPrices);
    state.TodayDay = 46342;
    state = AfterDayChosen(std::move(state), 46339);
    EXPECT_EQ(state.round.day, 46339);
    EXPECT_EQ(AfterDayPricesKey(AfterEscape(state)).round.day, std::nullopt);
    EXPECT_EQ(AfterDayChosen(state, 46342).round.day, std::nullopt);
    const WindowState typed = AfterDayPriceTyped(state, 1, {"Fond 1", "11"});
    EXPECT_EQ(AfterDayPricesKey(AfterEscape(typed)).round.day, 46339);
}

TEST(Pages, EndAPasteWithItsPage) {
    const WindowState pasted = AfterPasteShown(On(Stage::DayPrices), {"what Enter does", false});
    EXPECT_TRUE(pasted.round.pasted);
    EXPECT_EQ(pasted.round.note.text, "what Enter does");
    const WindowState ended = AfterPasteEnded(pasted);
    EXPECT_FALSE(ended.round.pasted);
    EXPECT_EQ(ended.round.note, PriceNote{});
    EXPECT_EQ(ended.focus, Focus::DayPrice);
    EXPECT_FALSE(AfterDayPricesKey(AfterEscape(pasted)).round.pasted);
    EXPECT_EQ(AfterDayPricesKey(pasted), pasted) << "F6 waits until it is stored or given up";
}

TEST(Pages, SortTheOverviewByAColumnAndTurnItRound) {
    WindowState state = On(Stage::Overview);
    const auto order = [&](int column) {
        state = AfterOverviewSorted(state, column);
        return state.overviewOrder;
    };
    EXPECT_EQ(order(3), (OverviewOrder{3, false}));
    EXPECT_EQ(order(3), (OverviewOrder{3, true}));
    EXPECT_EQ(order(3), (OverviewOrder{3, false}));
    EXPECT_EQ(order(0), (OverviewOrder{0, false}));
}

}  // namespace
