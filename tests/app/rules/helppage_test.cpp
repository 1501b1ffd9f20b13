#include "app/rules/helppage.h"

#include <gtest/gtest.h>
#include <string_view>

namespace {

TEST(HelpPage, IsTheOneAboutWhatIsOpen) {
    using enum LeftPanel;
    const struct {
        Stage stage;
        LeftPanel left;
        ListUse use;
        std::string_view page;
    } rows[] = {
        {Stage::Starting, None, ListUse::Prices, "valkommen"},
        {Stage::Diagram, FundList, ListUse::Prices, "kurs"},
        {Stage::Diagram, FundList, ListUse::Nothing, "kurs"},
        {Stage::Diagram, FundList, ListUse::Colour, "farg"},
        {Stage::Diagram, FundList, ListUse::Curves, "valja-kurvor"},
        {Stage::Diagram, Totals, ListUse::Prices, "summor"},
        {Stage::Diagram, PlotData, ListUse::Prices, "plottdata"},
        {Stage::Diagram, Copies, ListUse::Prices, "kopior"},
        {Stage::Diagram, None, ListUse::Prices, "diagrammet"},
        {Stage::Holdings, None, ListUse::Prices, "andra-innehav"},
        {Stage::SharesNotice, None, ListUse::Prices, "nya-andelar"},
        {Stage::DayPrices, None, ListUse::Prices, "dagens-kurser"},
        {Stage::Overview, None, ListUse::Prices, "oversikt"},
        {Stage::Import, None, ListUse::Prices, "importera"},
    };
    for (const auto& row : rows) {
        WindowState state;
        state.stage = row.stage;
        state.left = row.left;
        state.listUse = row.use;
        state.hasHoldings = true;
        EXPECT_EQ(HelpPageFor(state), row.page);
        state.NoFileReason = "gone";
        EXPECT_EQ(HelpPageFor(state), row.stage == Stage::Diagram ? "oppna-fil" : row.page);
    }
    WindowState state;
    state.stage = Stage::Diagram;
    state.holding.emplace();
    EXPECT_EQ(HelpPageFor(state), "se-fond");
    state.stage = Stage::Holdings;
    EXPECT_EQ(HelpPageFor(state), "lagg-till") << "nothing is held yet";
}

}  // namespace
