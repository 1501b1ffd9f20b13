#include "reports/accounts.h"

#include "fundfile/schema.h"
#include "platform/datasource.h"
#include "reports/rules/totals.h"

#include <cstddef>
#include <cstdint>

std::vector<std::string> AccountNames(DataSource& holdings) {
    if (!holdings.IsAttached() || holdings.Empty()) return {};
    jet::RecordSet& rows = holdings.Records();
    const std::int32_t count = rows.RecordCount();
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(count));
    for (std::int32_t row = 0; row < count; ++row) {
        names.push_back(rows.At(row, schema::holding::kNamn).Text());
    }
    holdings.MoveFirst();
    return DistinctAccounts(names);
}
