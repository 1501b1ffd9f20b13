#include "app/rules/holdingview.h"

#include "app/rules/texts.h"
#include "base/daynumber.h"
#include "base/number.h"
#include "fundfile/rules/savedvalues.h"
#include "fundfile/rules/texts.h"

#include <optional>

namespace {

constexpr int kShareDecimals = 4;
constexpr int kAmountDecimals = 2;
constexpr std::string_view kNoLatestPrice = "0";

std::string Text(std::string_view text) {
    return std::string(text);
}

std::string ShownFixed(std::optional<double> number, int decimals) {
    return number ? Fixed(*number, decimals) : "";
}

std::array<std::string, 10> Labels(const HoldingRow& row, const std::optional<SavedValues>& saved) {
    const std::string day = ShownDay(row.bokfortDatum);
    const std::string shares = ShownFixed(row.fondandelar, kShareDecimals);
    const std::string part = ShownNumber(row.andel);
    const std::string fondNr = row.fondNr.empty() ? Text(texts::NoValue) : row.fondNr;
    if (!saved) {
        return {fondNr, day, shares, ShownFixed(row.vardeKr, kAmountDecimals), part};
    }
    return {fondNr,       saved->date,  saved->shares,
            saved->price, saved->value, "",
            day,          shares,       ShownNumber(row.vardeKr),
            part};
}

}  // namespace

HoldingView ViewOf(const HoldingRow& row, std::string_view line) {
    const auto saved = ParseSavedValues(row.sparadeVarden);
    HoldingView view;
    view.labels = Labels(row, saved);
    view.headings = saved ? texts::HeadingsOfChange : texts::HeadingsOfStart;
    view.frameCaption = Text(texts::StartData) + Text(line) + "  " + row.namn;
    view.windowCaption = Text(texts::WindowCaptionOfFund) + row.fond + Text(texts::LastUpdate) +
                         (row.senasteDag ? DateText(*row.senasteDag) : "");
    view.colourNumber = PlainText(row.kontoId);
    view.colour = CurveColour(row.plottFarg, row.kontoId);
    view.status = StatusOf(row);
    return view;
}

StatusTexts StatusOf(const HoldingRow& row) {
    StatusTexts status;
    status.fund = row.fond;
    status.startPriceTag = PlainText(StartPriceOf(row));
    status.startPrice = StartPriceText(status.startPriceTag);
    const bool known = !row.senasteKurs.empty() && row.senasteKurs != kNoLatestPrice;
    status.latestPrice = known ? row.senasteKurs : Text(texts::NoLatestPrice);
    // A new holding has a price and no change yet.
    const auto orElse = [known](const std::string& text, std::string_view none) {
        return known && !text.empty() ? text : Text(none);
    };
    status.change = orElse(row.procent, texts::NoPercent);
    status.value = orElse(row.kursVarde, texts::NoValue);
    return status;
}

HoldingView EmptyView() {
    HoldingView view;
    view.frameCaption = texts::StartData;
    view.windowCaption = texts::WindowCaption;
    view.status = {Text(texts::NoFund),    Text(texts::StartPrice), Text(texts::LatestPrice),
                   Text(texts::NoPercent), Text(texts::NoValue),    ""};
    return view;
}

std::string StartPriceText(std::string_view price) {
    return Text(texts::StartPrice) + Text(price);
}

std::string UpdatedCaption(std::string_view fund, std::int32_t latestDay) {
    return Text(texts::WindowCaption) + Text(fund) + Text(texts::LastUpdate) + DateText(latestDay);
}
