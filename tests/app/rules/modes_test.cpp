// What each event does to what the window shows: one row an event,
// one column a mode, every cell filled.

#include "app/rules/modes.h"

#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

// S starting        D diagram alone        B the same, with the mode buttons
// P list of prices  T the same, with the buttons: a price is being typed
// E after Enter in the list                C list for a colour
// K list for curves, nothing chosen        L the same, two chosen
// A totals          a with the buttons     X plot data      x with the buttons
// R safety copies   r with the buttons
// G holdings grid   N notice of new shares
// M day's prices    O overview        I prices from a file
constexpr std::string_view kModes = "SDBPTECKLAaXxRrGNMOI";

struct Mode {
    Stage stage;
    LeftPanel left;
    ListUse listUse;
    bool buttons;
};

const std::map<char, Mode>& Modes() {
    using enum Stage;
    using enum LeftPanel;
    using enum ListUse;
    static const std::map<char, Mode> modes = {
        {'S', {Starting, None, Prices, false}},     {'D', {Diagram, None, Prices, false}},
        {'B', {Diagram, None, Prices, true}},       {'P', {Diagram, FundList, Prices, false}},
        {'T', {Diagram, FundList, Prices, true}},   {'E', {Diagram, FundList, Nothing, true}},
        {'C', {Diagram, FundList, Colour, true}},   {'K', {Diagram, FundList, Curves, true}},
        {'L', {Diagram, FundList, Curves, true}},   {'A', {Diagram, Totals, Prices, false}},
        {'a', {Diagram, Totals, Prices, true}},     {'X', {Diagram, PlotData, Prices, false}},
        {'x', {Diagram, PlotData, Prices, true}},   {'G', {Holdings, None, Prices, false}},
        {'R', {Diagram, Copies, Prices, false}},    {'r', {Diagram, Copies, Prices, true}},
        {'N', {SharesNotice, None, Prices, false}}, {'M', {DayPrices, None, Prices, false}},
        {'O', {Overview, None, Prices, false}},     {'I', {Import, None, Prices, false}},
    };
    return modes;
}

OpenHolding Holding(std::int32_t kontoId) {
    OpenHolding holding;
    holding.kontoId = kontoId;
    holding.scale = {45, -30};
    return holding;
}

/// Everything that a mode can leave behind is there.
WindowState In(char name) {
    const Mode& mode = Modes().at(name);
    WindowState state;
    state.stage = mode.stage;
    state.left = mode.left;
    state.listUse = mode.listUse;
    state.modeButtons = mode.buttons;
    if (name == 'L') state.chosenCurves = {3, 2};
    state.hasHoldings = true;
    state.holding = Holding(1);
    state.view.colourNumber = "1";
    state.caption = "fund 1";
    state.totals = "sums";
    state.reading = {"a date", "a value"};
    state.SelectedCurves = {1};
    return state;
}

/// The list's use is part of the mode only while the list is open.
char NameOf(const WindowState& state) {
    for (const auto& [name, mode] : Modes()) {
        const bool sameUse = mode.left != LeftPanel::FundList || mode.listUse == state.listUse;
        const bool sameChosen = (name == 'L') == !state.chosenCurves.empty();
        if (state.stage == mode.stage && state.left == mode.left && sameUse && sameChosen &&
            state.modeButtons == mode.buttons) {
            return name;
        }
    }
    return '?';
}

using Event = WindowState (*)(WindowState);

WindowState ChoosesLine(WindowState state) {
    return AfterLineChosen(std::move(state), 7);
}
WindowState TypesPrice(WindowState state) {
    return AfterPriceTyped(std::move(state), {"a note", true});
}
WindowState PastesColumn(WindowState state) {
    return AfterPasteShown(std::move(state), {"what Enter does", false});
}
WindowState EndsPaste(WindowState state) {
    state.round.pasted = true;
    return AfterPasteEnded(std::move(state));
}
WindowState TypesDayPrice(WindowState state) {
    return AfterDayPriceTyped(std::move(state), 7, {"Asien", "105"});
}
WindowState GivesDayPriceUp(WindowState state) {
    return AfterDayPriceGone(std::move(state), 7);
}
WindowState MissesDays(WindowState state) {
    return AfterDaysMissed(std::move(state), {46339});
}
WindowState ShowsImport(WindowState state) {
    return AfterImportShown(std::move(state), {"a file", "what Enter does", true});
}
WindowState ChoosesDay(WindowState state) {
    return AfterDayChosen(std::move(state), 46339);
}
WindowState SortsOverview(WindowState state) {
    return AfterOverviewSorted(std::move(state), 3);
}
WindowState TakesLineAway(WindowState state) {
    return AfterLineTakenAway(std::move(state), 3);
}
WindowState DrawsCurves(WindowState state) {
    return AfterCurvesDrawn(std::move(state), {{.kontoId = 2}});
}
WindowState LightsCurve(WindowState state) {
    return AfterCurveLit(std::move(state), {2, std::nullopt});
}
WindowState OpensEmptyFile(WindowState state) {
    state.hasHoldings = false;
    return AfterFileOpened(std::move(state));
}

struct Row {
    std::string_view name;
    Event event;
    std::string_view after;  ///< the mode, for each of kModes
    std::string_view
        focus;  ///< where the keys go: . stays, D picture, L list, P price, A, X, G, N, U u O J
    std::string_view picture;  ///< . stays, 0 cleared, R what was drawn comes back
};

const std::vector<Row>& Rows() {
    static const std::vector<Row> rows = {
        // clang-format off
        //                                       SDBPTECKLAaXxRrGNMOI    SDBPTECKLAaXxRrGNMOI    SDBPTECKLAaXxRrGNMOI
        {"end of the pause", AfterPause,        "PDBPTECKLAaXxRrGNMOI", "L...................", "...................."},
        {"Esc",              AfterEscape,       "SDDDDDDDDDDDDDDDDDDD", ".DDDDDDDDDDDDDDDDDDD", ".......R............"},
        {"F11",              AfterFundListButton,"SPPBBBBBBPPPPPPGNPPP", ".LL......LLLLLL..LLL", ".......R............"},
        {"F9",               AfterColourButton, "SDCPCCBCCACXCRCGNMOI", "..L.LL.LL.L.L.L.....", ".......R............"},
        {"F12",              AfterCurvesButton, "SDKPBBBBBAKXKRKGNMOI", "..L.......L.L.L.....", "..0....R..0.0.0....."},
        {"F8",               AfterScreenButton, "SDBPTEBBBAaXxRrDDDDD", "...............DDDDD", "...................."},
        {"grid's switch",    AfterGridSwitch,   "SGGGGGGGGGGGGGGDDGGG", ".GGGGGGGGGGGGGGDDGGG", ".......R............"},
        {"scrolling",        AfterScroll,       "SDDDDDDDDDDDDDDGNMOI", ".DDDDDDDDDDDDDD.....", ".......R............"},
        {"totals",           AfterTotalsMenu,   "SAaAaaaaaAaAaAaAAAAA", ".AAAAAAAAAAAAAAAAAAA", ".......R............"},
        {"plot data",        AfterPlotDataMenu, "SXxXxxxxxXxXxXxXXXXX", ".XXXXXXXXXXXXXXXXXXX", ".......R............"},
        {"copies",           AfterCopiesMenu,   "SRrRrrrrrRrRrRrRRRRR", ".RRRRRRRRRRRRRRRRRRR", ".......R............"},
        {"replay",           AfterReplay,       "SDBPTEBBBAaXxDBGGMOI", "................G...", "...................."},
        {"all curves",       AfterAllCurvesMenu,"SDDDDDDDDDDXXRRDDDDD", ".DDDDDDDDDDDDDDDDDDD", "...................."},
        {"printing",         AfterPrinting,     "SDBPTECKLDBXxRrDDDDD", ".DDDDDDDDDDDDDDDDDDD", "...................."},
        {"file opened",      AfterFileOpened,   "SPPPPPPPPPPPPPPPPPPP", ".LLLLLLLLLLLLLLLLLLL", "...................."},
        {"empty file opened",OpensEmptyFile,    "SGGGGGGGGGGGGGGGGGGG", ".GGGGGGGGGGGGGGGGGGG", "...................."},
        {"file lost",        AfterFileLost,     "SDDDDDDDDDDDDDDDDDDD", ".DDDDDDDDDDDDDDDDDDD", "...................."},
        {"line chosen",      ChoosesLine,       "SDBPTECLLAaXxRrGNMOI", "....................", "...................."},
        {"Enter in the list",AfterEnterInList,  "SDBEEEBBBAaXxRrGNMOI", "...PPPP.............", ".......R............"},
        {"price focused",    AfterPriceFocus,   "SBBTTECKLaaxxrrGNMOI", "....................", "...................."},
        {"line taken away",  TakesLineAway,     "SDBPTECKLAaXxRrGNMOI", "....................", "...................."},
        {"choice's menu",    AfterChoiceMenu,   "SBBBBBCKLaaxxrrBBBBB", "...............DDDDD", "...................."},
        {"curves drawn",     DrawsCurves,       "SDBPTECKLAaXxRrGNMOI", "....................", "...................."},
        {"curve lit",        LightsCurve,       "SDBPTECKLAaXxRrGNMOI", "....................", "...................."},
        {"light out",        AfterLightOut,     "SDBPTECKLAaXxRrGNMOI", "....................", "...................."},
        {"price typed",      TypesPrice,        "SDBPTECKLAaXxRrGNMOI", "....................", "...................."},
        {"F6",               AfterDayPricesKey, "SMMMMMMMMMMMMMMMMMMM", ".UUUUUUUUUUUUUUUUUUU", ".......R............"},
        {"F7",               AfterOverviewKey,  "SOOOOOOOOOOOOOOOOODO", ".OOOOOOOOOOOOOOOOODO", ".......R............"},
        {"chosen in overview",AfterOverviewChosen,"SBBBBBBBBBBBBBBGNBBB", ".PPPPPPPPPPPPPP..PPP", ".......R............"},
        {"column pasted",    PastesColumn,      "SDBPTECKLAaXxRrGNMOI", ".................u..", "...................."},
        {"paste ended",      EndsPaste,         "SDBPTECKLAaXxRrGNMOI", ".................U..", "...................."},
        {"day price typed",  TypesDayPrice,     "SDBPTECKLAaXxRrGNMOI", "....................", "...................."},
        {"day price gone",   GivesDayPriceUp,   "SDBPTECKLAaXxRrGNMOI", "....................", "...................."},
        {"days missed",      MissesDays,        "SDBPTECKLAaXxRrGNMOI", "....................", "...................."},
        {"import shown",     ShowsImport,       "SIIIIIIIIIIIIIIIIIII", ".JJJJJJJJJJJJJJJJJJJ", ".......R............"},
        {"day chosen",       ChoosesDay,        "SDBPTECKLAaXxRrGNMOI", "....................", "...................."},
        {"overview sorted",  SortsOverview,     "SDBPTECKLAaXxRrGNMOI", "....................", "...................."},
        {"notice opened",    AfterNoticeOpened, "SDBPTECKLAaXxRrNNMOI", "...............N....", "...................."},
        {"notice closed",    AfterNoticeClosed, "SDBPTECKLAaXxRrGGMOI", "................G...", "...................."},
        {"panels reset",     AfterPanelsReset,  "SDDDDDDDDDDDDDDGNDDD", ".DDDDDDDDDDDDDDDDDDD", ".......R............"},
        {"grid left",        AfterGridLeft,     "SDBPTECKLAaXxRrDDMOI", "...............DD...", "...................."},
        {"cover left",       AfterCoverLeft,    "SDBPTECKLAaXxRrDDDDD", "...............DDDDD", "...................."},
        {"holding closed",   AfterHoldingClosed,"SDBPTEBBBDBXxRrGNMOI", "....................", ".......R............"},
        {"keys to the price",WithKeysInPrice,   "SDBPTECKLAaXxRrGNMOI", ".PPPPPPPPPPPPPP.....", "...................."},
        {"keys to the list", WithKeysInList,    "SDBPTECKLAaXxRrGNMOI", "...LLLLLL...........", "...................."},
        // clang-format on
    };
    return rows;
}

char LetterOf(Focus focus) {
    switch (focus) {
        case Focus::Stays:
            return '.';
        case Focus::Picture:
            return 'D';
        case Focus::FundList:
            return 'L';
        case Focus::Price:
            return 'P';
        case Focus::Accounts:
            return 'A';
        case Focus::Points:
            return 'X';
        case Focus::Copies:
            return 'R';
        case Focus::HoldingsGrid:
            return 'G';
        case Focus::NoticeDate:
            return 'N';
        case Focus::DayPrice:
            return 'U';
        case Focus::PastedPrices:
            return 'u';
        case Focus::Overview:
            return 'O';
        case Focus::Import:
            return 'J';
    }
    return '?';
}

char LetterOf(Picture picture) {
    if (picture == Picture::Stays) return '.';
    return picture == Picture::Cleared ? '0' : 'R';
}

template <typename Letter>
std::string Cells(const Row& row, Letter letter) {
    std::string cells;
    for (const char mode : kModes) cells += letter(row.event(In(mode)));
    return cells;
}

TEST(Modes, FollowFromEachOtherAsTheTableSays) {
    for (const Row& row : Rows()) EXPECT_EQ(Cells(row, NameOf), row.after) << row.name;
}

TEST(Modes, SendTheKeysWhereTheTableSays) {
    for (const Row& row : Rows()) {
        const auto focus = [](const WindowState& state) { return LetterOf(state.focus); };
        EXPECT_EQ(Cells(row, focus), row.focus) << row.name;
    }
}

TEST(Modes, NeverLeaveThePictureEmptyButForAChoiceOfCurves) {
    for (const Row& row : Rows()) {
        const auto picture = [](const WindowState& state) { return LetterOf(state.picture); };
        EXPECT_EQ(Cells(row, picture), row.picture) << row.name;
    }
}

TEST(Modes, AreEndedWholeByEveryWayOut) {
    for (const Row& row : Rows()) {
        for (const char mode : kModes) {
            const WindowState after = row.event(In(mode));
            if (CollectingCurves(after)) continue;
            EXPECT_TRUE(after.chosenCurves.empty()) << row.name << " in " << mode;
            const bool closedList = after.left != LeftPanel::FundList;
            const bool wasChoosing = Choosing(In(mode));
            if (closedList && wasChoosing) {
                EXPECT_EQ(after.listUse, ListUse::Nothing) << row.name << " in " << mode;
            }
        }
    }
}

struct Clears {
    Event event;
    std::string_view price, totals, reading, holding;  ///< x where it is gone, for each of kModes
};

TEST(Modes, ForgetWhatBelongsToWhatIsLeft) {
    const std::map<std::string_view, Clears> rows = {
        // clang-format off
        //                               SDBPTECKLAaXxRrGNMOI    SDBPTECKLAaXxRrGNMOI    SDBPTECKLAaXxRrGNMOI    SDBPTECKLAaXxRrGNMOI
        {"Esc",    {AfterEscape,        "...............xx...", ".xxxxxxxxxxxxxxxxxxx", "....................", "...................."}},
        {"F11",    {AfterFundListButton,".xx......xxxxxx..xxx", ".xx......xxxxxx..xxx", ".xx......xxxxxx..xxx", ".xx......xxxxxx..xxx"}},
        {"F8",     {AfterScreenButton,  "...............xx...", "...............xxxxx", "....................", "...................."}},
        {"switch", {AfterGridSwitch,    ".xxxxxxxxxxxxxxxxxxx", "...............xx...", "....................", "...................."}},
        {"scroll", {AfterScroll,        "....................", ".xxxxxxxxxxxxxx.....", ".xxxxxxxxxxxxxx.....", "...................."}},
        {"all",    {AfterAllCurvesMenu, "...............xx...", ".xxxxxxxxxxxxxxxxxxx", ".xxxxxxxxxxxxxxxxxxx", ".xxxxxxxxxxxxxxxxxxx"}},
        {"print",  {AfterPrinting,      "...............xx...", ".xxxxxxxxxxxxxxxxxxx", "....................", "...................."}},
        {"file",   {AfterFileOpened,    ".xxxxxxxxxxxxxxxxxxx", ".xxxxxxxxxxxxxxxxxxx", "....................", "...................."}},
        {"lost",   {AfterFileLost,      ".xxxxxxxxxxxxxxxxxxx", ".xxxxxxxxxxxxxxxxxxx", "....................", "...................."}},
        {"closed", {AfterHoldingClosed, "....................", "xxxxxxxxxxxxxxxxxxxx", "xxxxxxxxxxxxxxxxxxxx", "xxxxxxxxxxxxxxxxxxxx"}},
        // clang-format on
    };
    const auto gone = [](bool is) { return is ? 'x' : '.'; };
    for (const auto& [name, row] : rows) {
        std::string price, totals, reading, holding;
        for (const char mode : kModes) {
            const WindowState after = row.event(In(mode));
            price += gone(after.typedPrice == TypedPrice::Cleared);
            totals += gone(after.totals.empty());
            reading += gone(after.reading == Reading{});
            holding += gone(!after.holding);
            EXPECT_EQ(!after.holding, after.caption == texts::WindowCaption) << name << mode;
            EXPECT_EQ(!after.holding, after.view == EmptyView()) << name << mode;
        }
        EXPECT_EQ(price, row.price) << name;
        EXPECT_EQ(totals, row.totals) << name;
        EXPECT_EQ(reading, row.reading) << name;
        EXPECT_EQ(holding, row.holding) << name;
    }
}

TEST(Modes, EndANoticeWithTheHoldingThatTheStatusBarTellsOf) {
    for (const char mode : kModes) {
        WindowState state = In(mode);
        state.notice = "saved";
        EXPECT_EQ(AfterHoldingOpened(state, Holding(2), {}).notice, "");
        EXPECT_EQ(AfterHoldingClosed(state).notice, "");
        EXPECT_EQ(AfterEscape(state).notice, "saved");
    }
}

TEST(Modes, SayOfATypedPriceWhatIsKnownUntilItsHoldingIsClosed) {
    for (const char mode : kModes) {
        const PriceNote note{"a note", true};
        const WindowState typed = AfterPriceTyped(In(mode), note);
        EXPECT_EQ(typed.priceNote, note) << mode;
        EXPECT_EQ(AfterEscape(typed).priceNote, note) << mode;
        EXPECT_EQ(AfterHoldingClosed(typed).priceNote, PriceNote{}) << mode;
    }
}

TEST(Modes, KeepWhatIsTypedForAHoldingUntilItIsGivenUp) {
    for (const char mode : kModes) {
        const WindowState typed = TypesDayPrice(In(mode));
        EXPECT_EQ(typed.round.typed, (std::map<std::int32_t, TypedDayPrice>{{7, {"Asien", "105"}}}))
            << mode;
        EXPECT_EQ(AfterEscape(typed).round.typed, typed.round.typed) << mode;
        EXPECT_TRUE(GivesDayPriceUp(typed).round.typed.empty()) << mode;
    }
}

TEST(Modes, KnowWhereTheShortOverviewHasRoom) {
    std::string shown;
    for (const char mode : kModes) shown += OverviewInColumn(In(mode)) ? mode : '.';
    EXPECT_EQ(shown, ".DB.................");
    WindowState empty = In('D');
    empty.hasHoldings = false;
    EXPECT_FALSE(OverviewInColumn(empty));
}

TEST(Modes, ForgetTheMissingDaysWithTheirHolding) {
    const WindowState state = AfterDaysMissed(In('B'), {46339});
    EXPECT_EQ(state.missingDays, std::vector<std::int32_t>{46339});
    EXPECT_TRUE(AfterHoldingClosed(state).missingDays.empty());
}

TEST(Modes, LightACurveThatIsThereUntilItIsDrawnAnewOrLeft) {
    const ShownCurve two{.kontoId = 2}, five{.kontoId = 5};
    const LitCurve point{2, CurvePoint{46000, 3}};
    for (const char mode : kModes) {
        const WindowState drawn = AfterCurvesDrawn(In(mode), {five, two});
        EXPECT_EQ(drawn.curves, (std::vector<ShownCurve>{five, two})) << mode;
        EXPECT_EQ(AfterCurveLit(drawn, {7, std::nullopt}).lit, std::nullopt) << mode;
        const WindowState lit = AfterCurveLit(drawn, point);
        EXPECT_EQ(lit.lit, point) << mode;
        EXPECT_EQ(AfterLightOut(lit).lit, std::nullopt) << mode;
        EXPECT_EQ(AfterLightOut(lit).curves, drawn.curves) << mode;
        EXPECT_EQ(AfterCurvesDrawn(lit, {five, two}).lit, std::nullopt) << mode;
        EXPECT_EQ(AfterEscape(lit).lit.has_value(), mode == 'S') << mode;
        const bool starts = CollectingCurves(AfterCurvesButton(lit)) && !CollectingCurves(lit);
        EXPECT_EQ(AfterCurvesButton(lit).curves.empty(), starts) << mode;
        EXPECT_EQ(AfterCurvesButton(lit).lit.has_value(), !starts) << mode;
    }
}

TEST(Modes, TakeAChosenLineAwayFromTheChoice) {
    EXPECT_EQ(AfterLineTakenAway(In('L'), 3).chosenCurves, std::vector<std::int32_t>{2});
    EXPECT_EQ(AfterLineTakenAway(In('L'), 9).chosenCurves, (std::vector<std::int32_t>{3, 2}));
    EXPECT_TRUE(PictureCleared(AfterLineTakenAway(AfterLineTakenAway(In('L'), 3), 2)));
}

TEST(Modes, CollectEveryCurveOnceInTheOrderChosen) {
    WindowState state = In('K');
    for (const std::int32_t kontoId : {2, 11, 2}) {
        state = AfterLineChosen(std::move(state), kontoId);
    }
    EXPECT_EQ(state.chosenCurves, (std::vector<std::int32_t>{2, 11}));
}

TEST(Modes, OpenAHoldingOnItsOwnScaleAndForgetWhatWasTypedForAnother) {
    HoldingView view;
    view.windowCaption = "fund 2";
    for (const char mode : kModes) {
        const WindowState after = AfterHoldingOpened(In(mode), Holding(2), view);
        EXPECT_EQ(NameOf(after), mode);
        EXPECT_EQ(after.holding, Holding(2));
        EXPECT_EQ(after.view, view);
        EXPECT_EQ(after.caption, "fund 2");
        EXPECT_EQ(after.SelectedCurves, std::vector<std::int32_t>{2});
        EXPECT_EQ(after.Scale.top, 45);
        EXPECT_EQ(after.FundScale.bottom, -30);
        EXPECT_EQ(after.typedPrice, TypedPrice::Cleared);
        EXPECT_EQ(after.reading, Reading{});
        const WindowState again = AfterHoldingOpened(In(mode), Holding(1), view);
        EXPECT_EQ(again.typedPrice, TypedPrice::Stays) << "the same holding";
        EXPECT_EQ(again.reading, In(mode).reading);
    }
}

TEST(Modes, ShowTheSummaryThatWasStoredAndStayWhereTheyAre) {
    for (const char mode : kModes) {
        OpenHolding stored = Holding(1);
        stored.fond = "Asien";
        stored.summary = {46342, "Senaste : 105,00", "5 %", "1050"};
        const WindowState after = AfterPriceStored(In(mode), stored);
        EXPECT_EQ(NameOf(after), mode);
        EXPECT_EQ(after.holding, stored);
        EXPECT_EQ(after.view.status.latestPrice, "Senaste : 105,00");
        EXPECT_EQ(after.view.status.change, "5 %");
        EXPECT_EQ(after.view.status.value, "1050");
        EXPECT_EQ(after.view.status.fund, In(mode).view.status.fund);
        EXPECT_EQ(after.caption, "  Kvarnbo  Asien Senaste uppdatering    Måndag 16 November 2026");
    }
}

TEST(Modes, ExplainTheGridUntilTheNoticeOrAHoldingIsClosed) {
    WindowState state = AfterGridSwitch(In('P'));
    EXPECT_TRUE(state.gridHelp);
    EXPECT_FALSE(AfterNoticeOpened(state).gridHelp);
    EXPECT_FALSE(AfterHoldingClosed(state).gridHelp);
}

}  // namespace
