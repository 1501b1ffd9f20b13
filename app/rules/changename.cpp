#include "app/rules/changename.h"

#include "app/rules/texts.h"
#include "base/daynumber.h"

namespace {

std::string OfFund(std::string_view fond) {
    return fond.empty() ? "" : std::string(texts::ForFund) + std::string(fond);
}

ChangeName Named(std::string_view what, std::string_view of) {
    return {std::string(what) + std::string(of), {}};
}

std::string PointName(std::string_view what, std::optional<std::int32_t> day,
                      std::string_view fondNr) {
    const bool hasDate = day && *day >= kFirstDay && *day <= kLastDay;
    return std::string(what) + (hasDate ? " " + FormatDay(*day) : "") + OfFund(fondNr);
}

}  // namespace

ChangeName PriceChange(std::string_view price, std::string_view fond) {
    return Named(texts::PriceOf, std::string(price) + OfFund(fond));
}

ChangeName RowChange(std::string_view fond) {
    return Named(texts::RowOf, fond);
}

ChangeName HoldingDeletionChange(std::string_view account, std::string_view fond) {
    return {std::string(texts::DeletedHolding) + std::string(fond),
            std::string(texts::DeletionOf) + std::string(account) + " " + std::string(fond)};
}

ChangeName SharesChange(std::string_view fond) {
    return Named(texts::NewSharesOf, fond);
}

ChangeName ColourChange(std::string_view fond) {
    return Named(texts::ColourOf, fond);
}

ChangeName ImportChange(std::string_view file) {
    return {std::string(texts::ImportOf) + std::string(file), {}};
}

ChangeName CurvesChange() {
    return Named(texts::CurveChoice, "");
}

ChangeName PointChange(std::optional<std::int32_t> day, std::string_view fondNr) {
    return {PointName(texts::PointOfDay, day, fondNr), {}};
}

ChangeName PointDeletionChange(std::optional<std::int32_t> day, std::string_view fondNr) {
    return {PointName(texts::DeletedPointOfDay, day, fondNr), {}};
}
