// What each mode shows: one row a control, one column a mode, every cell filled.

#include "app/rules/shown.h"

#include "app/rules/modes.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

// S starting, D diagram, B with the mode buttons, P list of prices, T with the buttons, E after
// Enter in the list (in all three a price is being typed), C colour, K curves without and L with
// chosen ones, A totals, X plot data, R safety copies, G holdings grid, N notice of new shares, M
// day's prices, O overview, I prices from a file. A holding is open in all but S, D and P.
constexpr std::string_view kModes = "SDBPTECKLAXRGNMOI";

WindowState In(char mode) {
    static const std::map<char, LeftPanel> lefts = {
        {'P', LeftPanel::FundList}, {'T', LeftPanel::FundList}, {'E', LeftPanel::FundList},
        {'C', LeftPanel::FundList}, {'K', LeftPanel::FundList}, {'L', LeftPanel::FundList},
        {'A', LeftPanel::Totals},   {'X', LeftPanel::PlotData}, {'R', LeftPanel::Copies}};
    static const std::map<char, ListUse> uses = {{'E', ListUse::Nothing},
                                                 {'C', ListUse::Colour},
                                                 {'K', ListUse::Curves},
                                                 {'L', ListUse::Curves}};
    static const std::map<char, Stage> stages = {
        {'S', Stage::Starting},  {'G', Stage::Holdings}, {'N', Stage::SharesNotice},
        {'M', Stage::DayPrices}, {'O', Stage::Overview}, {'I', Stage::Import}};
    WindowState state;
    state.stage = stages.contains(mode) ? stages.at(mode) : Stage::Diagram;
    if (lefts.contains(mode)) state.left = lefts.at(mode);
    if (uses.contains(mode)) state.listUse = uses.at(mode);
    state.modeButtons = std::string_view("BTECKL").find(mode) != std::string_view::npos;
    state.gridHelp = mode == 'G';
    state.hasHoldings = true;
    if (mode == 'L') state.chosenCurves = {3, 12};
    if (std::string_view("PTE").find(mode) != std::string_view::npos) state.priceNote = {"a note"};
    if (std::string_view("SDP").find(mode) == std::string_view::npos) state.holding.emplace();
    return state;
}

template <typename Part>
struct Row {
    std::string_view name, cells;
    bool Part::*control;
};

template <typename Part>
void Expect(Part Shown::*part, const std::vector<Row<Part>>& rows) {
    for (const Row<Part>& row : rows) {
        std::string cells;
        for (const char mode : kModes) {
            cells += ShownBy(In(mode)).*part.*(row.control) ? 'x' : '.';
        }
        EXPECT_EQ(cells, row.cells) << row.name;
    }
}

TEST(Shown, ControlsAreVisibleAsTheTableSays) {
    using V = Shown::Visible;
    Expect<V>(&Shown::visible, {
                                   // clang-format off
        //                SDBPTECKLAXRGNMOI
        {"panRubrik",     ".xxxxxxxxxxxxxxxx", &V::panRubrik},
        {"panControl",    ".xxxxxxxxxxxxxxxx", &V::panControl},
        {"panDiagram",    ".xxxxxxxxxxxxxxxx", &V::panDiagram},
        {"fraStartData",  ".xxxxxxxxxxxxxxxx", &V::fraStartData},
        {"lblIngenFil",   ".................", &V::lblIngenFil},
        {"panListFonder", "...xxxxxx........", &V::panListFonder},
        {"panTotal",      ".........x.......", &V::panTotal},
        {"panPlottData",  "..........x......", &V::panPlottData},
        {"panKopior",     "...........x.....", &V::panKopior},
        {"panBasData",    "............xx...", &V::panBasData},
        {"imgColor",      "..x.xxxxx........", &V::imgColor},
        {"imgGrafNr",     "..x.xxxxx........", &V::imgGrafNr},
        {"lblGrafNr",     "........x........", &V::lblGrafNr},
        {"lblPlottInfo",  ".....xxxx........", &V::lblPlottInfo},
        {"lblColorNr",    "..x.xxxxxxxxxxxxx", &V::lblColorNr},
        {"lblFraHint",    "xx.x.............", &V::lblFraHint},
        {"lstLegend",     ".................", &V::lstLegend},
        {"lblForhand",    "...xxx...........", &V::lblForhand},
        {"cmdNyAndel",    "xxxxxxxxxxxxx.xxx", &V::cmdNyAndel},
        {"txtGrid",       "............x....", &V::txtGrid},
        {"fraNyAndel",    ".............x...", &V::fraNyAndel},
        {"cmdNyOk",       ".............x...", &V::cmdNyOk},
        {"txtNyAndel",    ".............x...", &V::txtNyAndel},
        {"lblTotal",      "xxxxxxxxxxxxxxxxx", &V::lblTotal},
        {"panKurser",     "..............x..", &V::panKurser},
        {"txtNyKurs",     "xxxxxxxxxxxxxxxxx", &V::txtNyKurs},
        {"panOversikt",   "...............x.", &V::panOversikt},
        {"panKort",       ".xx..............", &V::panKort},
        {"panImport",     "................x", &V::panImport},
        {"fraSlapp",      ".................", &V::fraSlapp},
                                   // clang-format on
                               });
}

TEST(Shown, ControlsAreEnabledAsTheTableSays) {
    using E = Shown::Enabled;
    Expect<E>(&Shown::enabled, {
                                   // clang-format off
        //              SDBPTECKLAXRGNMOI
        {"mnuArkiv",    ".xxxxxxxxxxxxxxxx", &E::mnuArkiv},
        {"mnuRedigera", ".xxxxxxxxxxxxxxxx", &E::mnuRedigera},
        {"mnuAterstall",".................", &E::mnuAterstall},
        {"cmdAterstall",".................", &E::cmdAterstall},
        {"mnuAngra",    ".................", &E::mnuAngra},
        {"mnuGorOm",    ".................", &E::mnuGorOm},
        {"mnuShow",     ".xxxxxxxxxxxxxxxx", &E::mnuShow},
        {"mnuPrint",    "xxxxxxxxxxxxxxxxx", &E::mnuPrint},
        {"cmdFondList", "xxxxxx...xxx..xxx", &E::cmdFondList},
        {"cmdNyAndel",  "xxxxxxxxxxxxxxxxx", &E::cmdNyAndel},
        {"txtValue",    "xxxxxxxxxxxx..xxx", &E::txtValue},
        {"picDiagram",  "xxxxxxxxxxxx.....", &E::picDiagram},
        {"mnuExportera",".................", &E::mnuExportera},
        {"mnuImportera",".................", &E::mnuImportera},
        {"cmdImportera",".................", &E::cmdImportera},
        {"cboDag",      "xxxxxxxxxxxxxxxxx", &E::cboDag},
                                   // clang-format on
                               });
}

struct Texts {
    std::string_view modes;  ///< the modes that show these
    std::string list, numbers, instruction, gridSwitch;
    std::string listTag, curvesTag, colourTag;
    ListUse listColour = ListUse::Prices;
};

TEST(Shown, CaptionsTagsAndTheListsColourAreThoseOfTheMode) {
    const std::string colour =
        "Välj ovan vilken plottfärg du vill ändra. Tryck <Enter> när du gjort ditt val";
    const std::string curves =
        "Välj ovan vilka kurvor du vill plotta.Tryck Diagramknappen eller F12 när du är färdig";
    const std::string prices = "Ny DagsKurs för...", data = "&PPM Data";
    const Texts rows[] = {
        {"SDP", prices, "", "", data, "", "0", "0"},
        {"BTAXRMOI", prices, "", "", data, "idxY", "0", "0"},
        {"E", "", "", "", data, "idxY", "0", "0"},
        {"C", "Välj Färg för Fond  <Enter>", "", colour, data, "idxY", "0", "2"},
        {"K", "Välj Fonder att rita", "", curves, data, "idxY", "1", "0", ListUse::Curves},
        {"L", "Välj Fonder att rita", " 3.12.", curves, data, "idxY", "1", "0", ListUse::Curves},
        {"GN", prices, "", "", "&Diagram", "idxY", "0", "0"},
    };
    std::size_t cells = 0;
    for (const Texts& row : rows) {
        for (const char mode : row.modes) {
            const Shown shown = ShownBy(In(mode));
            EXPECT_EQ(shown.captions.panListFonder, row.list) << mode;
            EXPECT_EQ(shown.captions.lblGrafNr, row.numbers) << mode;
            EXPECT_EQ(shown.captions.lblPlottInfo, row.instruction) << mode;
            EXPECT_EQ(shown.captions.cmdPPMData, row.gridSwitch) << mode;
            EXPECT_EQ(shown.tags.panListFonder, row.listTag) << mode;
            EXPECT_EQ(shown.tags.imgGrafNr, row.curvesTag) << mode;
            EXPECT_EQ(shown.tags.imgColor, row.colourTag) << mode;
            EXPECT_EQ(shown.listColour, row.listColour) << mode;
            ++cells;
        }
    }
    EXPECT_EQ(cells, kModes.size()) << "every mode is in the table";
}

TEST(Shown, TheChoiceOfTheStartFileAndHeldRowsAreMarked) {
    WindowState state = In('B');
    EXPECT_EQ(ShownBy(state).tags.GridPlott, "");
    EXPECT_EQ(ShownBy(state).tags.DBGrid, "");
    EXPECT_EQ(ShownBy(state).tags.CmDialog, "");
    state.choosingStartFile = true;
    state.storingPoint = true;
    state.rowBeingDeleted = 12;
    EXPECT_EQ(ShownBy(state).tags.panListFonder, "Start");
    EXPECT_EQ(ShownBy(state).tags.CmDialog, "Start");
    EXPECT_EQ(ShownBy(state).tags.GridPlott, "1");
    EXPECT_EQ(ShownBy(state).tags.DBGrid, "12");
}

TEST(Shown, WhatCanBeTakenBackAndDoneAgainStandsInTheMenu) {
    for (const char mode : kModes) {
        WindowState state = In(mode);
        EXPECT_EQ(ShownBy(state).captions.mnuAngra, "Ångra");
        EXPECT_EQ(ShownBy(state).captions.mnuGorOm, "Gör om");
        state.undoName = "kursen 190,32 för A&B";
        state.redoName = "";
        const Shown shown = ShownBy(state);
        EXPECT_EQ(shown.captions.mnuAngra, "Ångra : kursen 190,32 för A&&B");
        EXPECT_EQ(shown.captions.mnuGorOm, "Gör om : ");
        EXPECT_EQ(shown.enabled.mnuAngra, mode != 'S');
        EXPECT_EQ(shown.enabled.mnuGorOm, mode != 'S');
    }
}

TEST(Shown, FilesToOpenStandInTheMenuEachWithItsNumberAsItsKey) {
    for (const char mode : kModes) {
        WindowState state = In(mode);
        EXPECT_TRUE(ShownBy(state).files.empty());
        state.files = {{"/fonder/Elsa & jag.mdb", false}, {"/fonder/b.mdb", true}};
        EXPECT_EQ(ShownBy(state).files,
                  (std::vector<Shown::FileItem>{{"1  Elsa && jag", "/fonder/Elsa & jag.mdb", false},
                                                {"2  b", "/fonder/b.mdb", true}}));
    }
}

TEST(Shown, AFileThatIsPointedAtOrHeldOverTheWindowStandsInTheStatusBar) {
    for (const char mode : kModes) {
        WindowState state = In(mode);
        state.notice = "saved";
        state.pointedFile = "/fonder/a.mdb";
        EXPECT_EQ(ShownBy(state).captions.staBar, "/fonder/a.mdb");
        EXPECT_FALSE(ShownBy(state).visible.fraSlapp);
        state.heldFile = "b.mdb";
        EXPECT_EQ(ShownBy(state).captions.staBar, "Släpp filen för att öppna b.mdb");
        EXPECT_TRUE(ShownBy(state).visible.fraSlapp);
        state.heldFile.clear();
        state.pointedFile.clear();
        EXPECT_EQ(ShownBy(state).captions.staBar, "saved");
    }
}

TEST(Shown, PricesFromAFileAreStoredWhereThereAreSome) {
    WindowState state = In('I');
    state.imported = {"kurser.csv", "what Enter does", false};
    EXPECT_EQ(ShownBy(state).captions.panImport, "Importera kurser ur kurser.csv");
    EXPECT_EQ(ShownBy(state).captions.lblImport, "what Enter does");
    EXPECT_FALSE(ShownBy(state).enabled.cmdImportera);
    state.imported.stores = true;
    EXPECT_TRUE(ShownBy(state).enabled.cmdImportera);
}

TEST(Shown, CopiesAreRestoredInAnOpenFileThatHasSome) {
    WindowState state = In('R');
    state.copyText = "what differs";
    EXPECT_EQ(ShownBy(state).captions.lblKopia, "what differs");
    EXPECT_FALSE(ShownBy(state).enabled.cmdAterstall);
    state.hasCopies = true;
    EXPECT_TRUE(ShownBy(state).enabled.cmdAterstall);
}

TEST(Shown, AFileWithoutHoldingsOffersNoNotice) {
    WindowState state = In('G');
    state.hasHoldings = false;
    EXPECT_FALSE(ShownBy(state).enabled.cmdNyAndel);
}

TEST(Shown, WithoutAFileTheReasonStandsInThePictureAndTheHeadingNamesNone) {
    for (const char mode : kModes) {
        WindowState state = In(mode);
        state.CurrentFile = "/fonder/skrot.mdb";
        state.NoFileReason = "Filen är skadad.";
        const Shown shown = ShownBy(state);
        EXPECT_TRUE(shown.visible.lblIngenFil);
        EXPECT_EQ(shown.captions.lblIngenFil, "Filen är skadad.");
        EXPECT_EQ(shown.captions.lblRubrik, "Ingen fondfil är öppen");
        EXPECT_EQ(shown.captions.picDiagram, "") << "one text in the picture";
    }
}

TEST(Shown, APictureWithoutACurveSaysWhatToDoUnlessCurvesAreBeingChosen) {
    for (const char mode : kModes) {
        WindowState state = In(mode);
        const auto hint = [&](std::string_view expected) {
            const bool collecting = mode == 'K' || mode == 'L';
            EXPECT_EQ(ShownBy(state).captions.picDiagram, collecting ? "" : expected) << mode;
        };
        hint("Inga kurvor valda: Visa, Välj kurvor");
        state.SelectedCurves = {1};
        state.holding.reset();
        hint("De valda fonderna har inga kurser ännu");
        state.holding.emplace();
        hint("Fonden har inga kurser ännu: skriv dagens kurs och tryck Enter");
        state.hasHoldings = false;
        hint("Filen har inga innehav ännu: skriv in det första under PPM Data");
    }
}

TEST(Shown, TheLegendListsTheCurvesWhileNoHoldingIsOpen) {
    const std::vector<ShownCurve> curves{{.kontoId = 2, .name = "b"}, {.kontoId = 1, .name = "a"}};
    std::string legend, hint;
    for (const char mode : kModes) {
        WindowState state = In(mode);
        state.holding.reset();
        EXPECT_FALSE(ShownBy(state).visible.lstLegend) << "no curves in " << mode;
        EXPECT_TRUE(ShownBy(state).visible.lblFraHint);
        state.curves = curves;
        const Shown shown = ShownBy(state);
        legend += shown.visible.lstLegend ? 'x' : '.';
        hint += shown.visible.lblFraHint ? 'x' : '.';
        EXPECT_EQ(shown.legend, shown.visible.lstLegend ? curves : std::vector<ShownCurve>{});
        EXPECT_THAT(shown.captions.spoken, testing::StartsWith("2 kurvor från ")) << mode;
        state.holding.emplace();
        EXPECT_FALSE(ShownBy(state).visible.lstLegend) << "a holding is open in " << mode;
        EXPECT_TRUE(ShownBy(state).legend.empty());
    }
    EXPECT_EQ(legend, ".xxxxxxxxxxxxxxxx");
    EXPECT_EQ(hint, "x................");
}

TEST(Shown, ACurveThatIsPointedAtStandsOutAndIsNamedAtItsPoint) {
    for (const char mode : kModes) {
        WindowState state = In(mode);
        state.WindowStartDay = 38700;
        EXPECT_EQ(ShownBy(state).captions.spoken, ShownBy(state).captions.picDiagram.empty()
                                                      ? "Inga kurvor"
                                                      : ShownBy(state).captions.picDiagram);
        EXPECT_EQ(ShownBy(state).lit, std::nullopt);
        state.curves = {{.kontoId = 7, .name = "Asien", .startPrice = 100}};
        state.lit = {7, std::nullopt};
        EXPECT_EQ(ShownBy(state).lit, (Shown::Lit{7, std::nullopt, "", ""})) << mode;
        state.lit = {7, CurvePoint{38772, -5}};
        EXPECT_EQ(ShownBy(state).lit, (Shown::Lit{7, CurvePoint{72, -5}, "7. Asien",
                                                  "24 februari 2006   -5 %   95,00 kr"}));
        EXPECT_EQ(ShownBy(state).captions.spoken, "7. Asien   24 februari 2006   -5 %   95,00 kr");
    }
}

TEST(Shown, TodayIsMarkedWhereThePictureHoldsIt) {
    const struct {
        std::int32_t start;
        std::optional<std::int32_t> marked;
    } rows[] = {
        {38772, 0}, {38773, std::nullopt}, {38407, 365}, {38406, std::nullopt}, {38500, 272}};
    for (const char mode : kModes) {
        for (const auto& row : rows) {
            WindowState state = In(mode);
            state.TodayDay = 38772;
            state.WindowStartDay = row.start;
            EXPECT_EQ(ShownBy(state).today, row.marked) << mode << " " << row.start;
        }
    }
}

TEST(Shown, TheRoundNamesItsDayAndAPastedColumnTakesTheFieldsPlace) {
    WindowState state = In('R');
    state.TodayDay = 46342;
    EXPECT_EQ(ShownBy(state).captions.panKurser, "Dagens kurser  Måndag 16 November 2026");
    state.round.day = 46339;
    EXPECT_EQ(ShownBy(state).captions.panKurser, "Dagens kurser  Fredag 13 November 2026");
    state.round.pasted = true;
    EXPECT_FALSE(ShownBy(state).visible.txtNyKurs);
    EXPECT_FALSE(ShownBy(state).enabled.cboDag);
}

TEST(Shown, TheStepsMenuItemsLeadBackToDaysFromWeeksAndMonths) {
    const struct {
        std::int32_t step;
        std::string weeks, months;
    } rows[] = {{1, "Visa Vecka för Vecka", "Visa Månad för Månad"},
                {7, "Visa Dag för Dag", "Visa Dag för Dag"},
                {30, "Visa Dag för Dag", "Visa Dag för Dag"}};
    for (const auto& row : rows) {
        WindowState state = In('D');
        state.DayStep = row.step;
        EXPECT_EQ(ShownBy(state).captions.mnuVeckor, row.weeks);
        EXPECT_EQ(ShownBy(state).captions.mnuMonth, row.months);
    }
}

TEST(Shown, TheNumberOfPointsIsSaidOnceTheyWereCounted) {
    for (const char mode : kModes) {
        WindowState state = In(mode);
        EXPECT_EQ(ShownBy(state).captions.lblRecCount, "") << mode;
        state.pointCount = 0;
        EXPECT_EQ(ShownBy(state).captions.lblRecCount, "Listan innehåller 0 poster") << mode;
        state.pointCount = 1234;
        EXPECT_EQ(ShownBy(state).captions.lblRecCount, "Listan innehåller 1234 poster") << mode;
    }
}

TEST(Shown, TextsAndWishesOfTheStateAreThoseShown) {
    WindowState state = In('A');
    state.caption = "caption";
    state.totals = "sums";
    state.reading = {"date", "value"};
    state.notice = "saved";
    state.news = "has happened";
    state.TodayDay = 38772;
    state.focus = Focus::Accounts;
    state.typedPrice = TypedPrice::Cleared;
    state.priceNote = {"about the price", true};
    state.round.done = "7 av 10 klara";
    state.round.note = {"about a price of the round", true};
    state.WindowStartDay = 38700;
    state.missingDays = {38699, 38703};
    state.view.status.fund = "a fund";
    const Shown shown = ShownBy(state);
    EXPECT_EQ(shown.captions.frmPPM, "caption");
    EXPECT_EQ(shown.captions.lblTotal, "sums");
    EXPECT_EQ(shown.captions.lblXCord, "date");
    EXPECT_EQ(shown.captions.lblYCord, "value");
    EXPECT_EQ(shown.captions.staBar, "saved");
    EXPECT_EQ(shown.captions.news, "has happened");
    EXPECT_EQ(shown.captions.lblForhand, "about the price");
    EXPECT_TRUE(shown.priceDoubted);
    EXPECT_EQ(shown.captions.lblKlara, "7 av 10 klara");
    EXPECT_EQ(shown.captions.lblKursBesked, "about a price of the round");
    EXPECT_TRUE(shown.roundDoubted);
    EXPECT_EQ(shown.missingDays, (std::vector<std::int32_t>{-1, 3}));
    EXPECT_EQ(shown.captions.missingDays, "Dagar utan kurs: 13 december, 17 december");
    EXPECT_EQ(shown.captions.curveColour, "");
    EXPECT_EQ(shown.captions.lblPanDatum, "Fredag 24 Februari 2006");
    EXPECT_EQ(shown.focus, Focus::Accounts);
    EXPECT_EQ(shown.typedPrice, TypedPrice::Cleared);
    EXPECT_EQ(shown.view, state.view);
}

}  // namespace
