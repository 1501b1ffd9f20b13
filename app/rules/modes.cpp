#include "app/rules/modes.h"

#include <algorithm>
#include <utility>

bool GridShown(const WindowState& state) {
    return state.stage == Stage::Holdings || state.stage == Stage::SharesNotice;
}

bool PageShown(const WindowState& state) {
    return state.stage == Stage::DayPrices || state.stage == Stage::Overview ||
           state.stage == Stage::Import;
}

bool OverviewInColumn(const WindowState& state) {
    return state.stage == Stage::Diagram && state.left == LeftPanel::None && state.hasHoldings;
}

bool Choosing(const WindowState& state) {
    return state.left == LeftPanel::FundList &&
           (state.listUse == ListUse::Colour || state.listUse == ListUse::Curves);
}

bool CollectingCurves(const WindowState& state) {
    return state.left == LeftPanel::FundList && state.listUse == ListUse::Curves;
}

bool PictureCleared(const WindowState& state) {
    return CollectingCurves(state) && state.chosenCurves.empty();
}

namespace {

bool Waits(const WindowState& state) {
    return state.stage == Stage::Starting;
}

/// Another panel, or none, takes the left column. A choice that was made in the list is over, and
/// what was drawn before it comes back if nothing was chosen.
WindowState WithLeft(WindowState state, LeftPanel left) {
    if (PictureCleared(state)) state.picture = Picture::Restored;
    if (Choosing(state)) state.listUse = ListUse::Nothing;
    state.chosenCurves.clear();
    state.left = left;
    return state;
}

WindowState WithListFor(WindowState state, ListUse use) {
    state = WithLeft(std::move(state), LeftPanel::FundList);
    state.listUse = use;
    state.focus = Focus::FundList;
    return state;
}

WindowState WithChoiceEnded(WindowState state) {
    return Choosing(state) ? WithLeft(std::move(state), LeftPanel::None) : state;
}

WindowState WithGrid(WindowState state) {
    state = WithLeft(std::move(state), LeftPanel::None);
    state.stage = Stage::Holdings;
    state.modeButtons = false;
    state.gridHelp = true;
    state.typedPrice = TypedPrice::Cleared;
    state.focus = Focus::HoldingsGrid;
    return state;
}

WindowState WithPage(WindowState state, Stage page) {
    state = WithLeft(AfterGridLeft(std::move(state)), LeftPanel::None);
    state.stage = page;
    state.modeButtons = false;
    return state;
}

}  // namespace

WindowState AfterPause(WindowState state) {
    if (!Waits(state)) return state;
    state.stage = Stage::Diagram;
    return WithListFor(std::move(state), ListUse::Prices);
}

WindowState AfterPanelsReset(WindowState state) {
    if (Waits(state)) return state;
    if (PageShown(state)) state.stage = Stage::Diagram;
    state = WithLeft(std::move(state), LeftPanel::None);
    state.modeButtons = false;
    state.totals.clear();
    state.lit.reset();
    state.focus = Focus::Picture;
    return state;
}

WindowState AfterGridLeft(WindowState state) {
    if (!GridShown(state)) return state;
    state.stage = Stage::Diagram;
    state.typedPrice = TypedPrice::Cleared;
    return AfterPanelsReset(std::move(state));
}

WindowState AfterCoverLeft(WindowState state) {
    return PageShown(state) ? AfterPanelsReset(std::move(state)) : AfterGridLeft(std::move(state));
}

WindowState AfterEscape(WindowState state) {
    return AfterPanelsReset(AfterGridLeft(std::move(state)));
}

WindowState AfterFundListButton(WindowState state) {
    if (Waits(state) || GridShown(state)) return state;
    if (PageShown(state)) state = AfterCoverLeft(std::move(state));
    if (state.left == LeftPanel::FundList) {
        state = WithLeft(std::move(state), LeftPanel::None);
        state.modeButtons = true;
        return state;
    }
    state = AfterHoldingClosed(WithListFor(std::move(state), ListUse::Prices));
    state.typedPrice = TypedPrice::Cleared;
    state.modeButtons = false;
    return state;
}

WindowState AfterColourButton(WindowState state) {
    if (!state.modeButtons) return state;
    if (Choosing(state) && !CollectingCurves(state)) return WithChoiceEnded(std::move(state));
    return WithListFor(std::move(state), ListUse::Colour);
}

WindowState AfterCurvesButton(WindowState state) {
    if (!state.modeButtons) return state;
    // Whatever the open list is for: the button closes it.
    if (state.left == LeftPanel::FundList) return WithLeft(std::move(state), LeftPanel::None);
    state = WithListFor(std::move(state), ListUse::Curves);
    state.picture = Picture::Cleared;
    state.curves.clear();
    state.lit.reset();
    return state;
}

WindowState AfterScreenButton(WindowState state) {
    state = WithChoiceEnded(AfterCoverLeft(std::move(state)));
    state.picture = Picture::Stays;  // what comes now is drawn by who knows the listed curves
    return state;
}

WindowState AfterGridSwitch(WindowState state) {
    if (Waits(state)) return state;
    return GridShown(state) ? AfterGridLeft(std::move(state)) : WithGrid(std::move(state));
}

WindowState AfterScroll(WindowState state) {
    if (Waits(state) || GridShown(state) || PageShown(state)) return state;
    state = AfterPanelsReset(std::move(state));
    state.reading = {};
    return state;
}

WindowState AfterDayPricesKey(WindowState state) {
    if (Waits(state) || !state.hasHoldings) return state;
    DayRound& round = state.round;
    const bool again = state.stage == Stage::DayPrices;
    if (again && round.pasted) return state;
    round.hidesDone = again && !round.hidesDone;
    // What is typed belongs to the day it was typed for.
    if (!again && round.typed.empty()) round.day.reset();
    round.pasted = false;
    if (!again) state = WithPage(std::move(state), Stage::DayPrices);
    state.focus = Focus::DayPrice;
    return state;
}

WindowState AfterPasteShown(WindowState state, PriceNote note) {
    if (state.stage != Stage::DayPrices) return state;
    state.round.pasted = true;
    state.round.note = std::move(note);
    state.focus = Focus::PastedPrices;
    return state;
}

WindowState AfterPasteEnded(WindowState state) {
    if (!state.round.pasted) return state;
    state.round.pasted = false;
    state.round.note = {};
    if (state.stage == Stage::DayPrices) state.focus = Focus::DayPrice;
    return state;
}

WindowState AfterImportShown(WindowState state, ImportPage page) {
    if (Waits(state)) return state;
    state = WithPage(std::move(state), Stage::Import);
    state.imported = std::move(page);
    state.focus = Focus::Import;
    return state;
}

WindowState AfterOverviewKey(WindowState state) {
    if (Waits(state) || !state.hasHoldings) return state;
    if (state.stage == Stage::Overview) return AfterEscape(std::move(state));
    state = WithPage(std::move(state), Stage::Overview);
    state.focus = Focus::Overview;
    return state;
}

WindowState AfterOverviewChosen(WindowState state) {
    if (Waits(state) || GridShown(state)) return state;
    state = WithLeft(AfterCoverLeft(std::move(state)), LeftPanel::None);
    state.modeButtons = true;
    state.focus = Focus::Price;
    return state;
}

WindowState AfterTotalsMenu(WindowState state) {
    if (Waits(state)) return state;
    state = WithLeft(AfterCoverLeft(std::move(state)), LeftPanel::Totals);
    state.focus = Focus::Accounts;
    return state;
}

WindowState AfterPlotDataMenu(WindowState state) {
    if (Waits(state)) return state;
    state = WithLeft(AfterCoverLeft(std::move(state)), LeftPanel::PlotData);
    state.focus = Focus::Points;
    return state;
}

WindowState AfterCopiesMenu(WindowState state) {
    if (Waits(state)) return state;
    state = WithLeft(AfterCoverLeft(std::move(state)), LeftPanel::Copies);
    state.focus = Focus::Copies;
    return state;
}

WindowState AfterReplay(WindowState state) {
    if (Waits(state)) return state;
    state = WithChoiceEnded(AfterNoticeClosed(std::move(state)));
    state.picture = Picture::Stays;  // it is drawn anew
    state.reading = {};
    if (state.left == LeftPanel::Copies) state.left = LeftPanel::None;
    return state;
}

WindowState AfterAllCurvesMenu(WindowState state) {
    if (Waits(state)) return state;
    state = AfterHoldingClosed(AfterCoverLeft(std::move(state)));
    if (state.left == LeftPanel::FundList) state = WithLeft(std::move(state), LeftPanel::None);
    state.modeButtons = false;
    state.picture = Picture::Stays;
    state.focus = Focus::Picture;
    return state;
}

WindowState AfterPrinting(WindowState state) {
    if (Waits(state)) return state;
    state = AfterCoverLeft(std::move(state));
    if (state.left == LeftPanel::Totals) state.left = LeftPanel::None;
    state.totals.clear();
    state.focus = Focus::Picture;
    return state;
}

WindowState AfterFileLost(WindowState state) {
    if (Waits(state)) return state;
    state = AfterEscape(std::move(state));
    state.typedPrice = TypedPrice::Cleared;
    state.picture = Picture::Stays;
    state.round = {};
    state.imported = {};
    return state;
}

WindowState AfterFileOpened(WindowState state) {
    if (Waits(state)) return state;
    state = AfterFileLost(std::move(state));
    // The first holding of an empty file is typed in the grid.
    return state.hasHoldings ? WithListFor(std::move(state), ListUse::Prices)
                             : WithGrid(std::move(state));
}

WindowState AfterLineChosen(WindowState state, std::int32_t kontoId) {
    if (!CollectingCurves(state)) return state;
    auto& chosen = state.chosenCurves;
    if (std::find(chosen.begin(), chosen.end(), kontoId) == chosen.end()) chosen.push_back(kontoId);
    return state;
}

WindowState AfterEnterInList(WindowState state) {
    if (state.left != LeftPanel::FundList) return state;
    if (CollectingCurves(state)) return WithLeft(std::move(state), LeftPanel::None);
    state = WithChoiceEnded(std::move(state));
    state.listUse = ListUse::Nothing;
    state.modeButtons = true;
    state.focus = Focus::Price;
    return state;
}

WindowState AfterPriceFocus(WindowState state) {
    // The buttons belong to the diagram and never stand over the grid.
    if (state.stage == Stage::Diagram) state.modeButtons = true;
    return state;
}

WindowState WithKeysInPrice(WindowState state) {
    if (state.stage == Stage::Diagram) state.focus = Focus::Price;
    return state;
}

WindowState WithKeysInList(WindowState state) {
    if (state.left == LeftPanel::FundList) state.focus = Focus::FundList;
    return state;
}

WindowState AfterChoiceMenu(WindowState state) {
    if (Waits(state)) return state;
    state = AfterCoverLeft(std::move(state));
    // A list that is open for something else would be closed by the button.
    const bool otherList = state.left == LeftPanel::FundList && !Choosing(state);
    if (otherList) state = WithLeft(std::move(state), LeftPanel::None);
    state.modeButtons = true;
    return state;
}

WindowState AfterLineTakenAway(WindowState state, std::int32_t kontoId) {
    if (CollectingCurves(state)) std::erase(state.chosenCurves, kontoId);
    return state;
}

WindowState AfterNoticeOpened(WindowState state) {
    if (state.stage != Stage::Holdings) return state;
    state.stage = Stage::SharesNotice;
    state.gridHelp = false;
    state.focus = Focus::NoticeDate;
    return state;
}

WindowState AfterNoticeClosed(WindowState state) {
    if (state.stage != Stage::SharesNotice) return state;
    state.stage = Stage::Holdings;
    state.focus = Focus::HoldingsGrid;
    return state;
}

WindowState AfterHoldingClosed(WindowState state) {
    state = WithChoiceEnded(std::move(state));
    if (state.left == LeftPanel::Totals) state.left = LeftPanel::None;
    state.holding.reset();
    state.view = EmptyView();
    state.caption = texts::WindowCaption;
    state.reading = {};
    state.missingDays.clear();
    state.priceNote = {};
    state.totals.clear();
    state.notice.clear();
    state.gridHelp = false;
    return state;
}
