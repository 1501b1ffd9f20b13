// What events put into what is shown: the holding, its prices, the curves, the day's round. No
// panel comes or goes by them.

#include "app/rules/modes.h"

#include <algorithm>
#include <utility>

WindowState AfterDayPriceTyped(WindowState state, std::int32_t kontoId, TypedDayPrice typed) {
    state.round.typed[kontoId] = std::move(typed);
    return state;
}

WindowState AfterDayPriceGone(WindowState state, std::int32_t kontoId) {
    state.round.typed.erase(kontoId);
    return state;
}

WindowState AfterDayChosen(WindowState state, std::int32_t day) {
    state.round.day = day;
    if (day == state.TodayDay) state.round.day.reset();
    return state;
}

WindowState AfterOverviewSorted(WindowState state, int column) {
    OverviewOrder& order = state.overviewOrder;
    order = {column, order.column == column && !order.descending};
    return state;
}

WindowState AfterPriceTyped(WindowState state, PriceNote note) {
    state.priceNote = std::move(note);
    return state;
}

WindowState AfterCurvesDrawn(WindowState state, std::vector<ShownCurve> curves) {
    state.curves = std::move(curves);
    state.lit.reset();
    return state;
}

WindowState AfterCurveLit(WindowState state, LitCurve lit) {
    const bool there =
        std::any_of(state.curves.begin(), state.curves.end(),
                    [&](const ShownCurve& curve) { return curve.kontoId == lit.kontoId; });
    if (there) state.lit = lit;
    return state;
}

WindowState AfterLightOut(WindowState state) {
    state.lit.reset();
    return state;
}

WindowState AfterDaysMissed(WindowState state, std::vector<std::int32_t> days) {
    state.missingDays = std::move(days);
    return state;
}

WindowState AfterHoldingOpened(WindowState state, OpenHolding holding, HoldingView view) {
    const bool another = !state.holding || state.holding->kontoId != holding.kontoId;
    if (another) state.reading = {};
    // A price typed for one holding is not the next one's.
    if (another) state.typedPrice = TypedPrice::Cleared;
    state.caption = view.windowCaption;
    state.Scale = state.FundScale = holding.scale;
    state.SelectedCurves = {holding.kontoId};
    state.holding = std::move(holding);
    state.view = std::move(view);
    state.notice.clear();
    return state;
}

WindowState AfterPriceStored(WindowState state, OpenHolding stored) {
    const HoldingSummary& summary = stored.summary;
    state.view.status.latestPrice = summary.latestPrice;
    state.view.status.change = summary.change;
    state.view.status.value = summary.value;
    state.caption = UpdatedCaption(stored.fond, summary.day.value_or(state.TodayDay));
    state.holding = std::move(stored);
    return state;
}
