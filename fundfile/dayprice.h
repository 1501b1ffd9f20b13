#pragma once
// Storing points together with what follows from them: a day's price with the holding's summary and
// scale, and a corrected series with its scale.

#include "fundfile/rules/openholding.h"
#include "fundfile/rules/summary.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

class DataSource;
namespace jet {
class Database;
}

/// Stores the price: the day's point in place of an earlier one of that day, the summary, and the
/// scale. A new day widens the stored scale as far as the points need; a replaced point makes it
/// the automatic one. A day before today that is filled in afterwards leaves the summary as it is
/// where a later day has a point. All of it or nothing; the holding as it is stored then comes
/// back. Data sources are refreshed by the caller. Throws Overflow for a price without a summary,
/// RecordDeleted when the holding is no longer in the file, and what the file throws.
OpenHolding StoreDayPrice(const std::shared_ptr<jet::Database>& database, const OpenHolding& opened,
                          const DayPrice& price, std::int32_t today);

/// Several prices of one holding, each of another day; at least one.
OpenHolding StoreDayPrices(const std::shared_ptr<jet::Database>& database,
                           const OpenHolding& opened, std::span<const DayPrice> prices,
                           std::int32_t today);

/// A holding whose summary is another because its last point is.
struct FollowedSummary {
    OpenHolding holding;
    double price = 0;
};

/// Runs `store`, which adds, changes or deletes the current row of `points`, and gives the scales
/// of the holdings concerned what the changed series need, all of it or nothing. A new point widens
/// the stored scale; a changed or deleted one makes it the automatic one. Where the last point of a
/// holding is another then, its summary is that point's: with the `price` of the row that is
/// stored, where that is known, else with the one that the percentage stands for.
std::vector<FollowedSummary> StorePoint(const std::shared_ptr<jet::Database>& database,
                                        DataSource& points, const std::function<void()>& store,
                                        std::optional<double> price = std::nullopt);
