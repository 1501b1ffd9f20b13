#include "fundfile/curvelist.h"

#include "fundfile/editrow.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "platform/datasource.h"

#include <string>

using schema::holding::kSkala;

std::vector<std::int32_t> ListedCurves(DataSource& holdings) {
    if (holdings.Empty()) return {};
    return ParseScaleText(holdings.Records().At(0, kSkala).Text()).curves;
}

void WriteCurveList(DataSource& holdings, const std::vector<std::int32_t>& curves) {
    const std::int32_t before = holdings.Position();
    const std::int32_t count = holdings.RecordCount();
    for (std::int32_t row = 0; row < count; ++row) {
        const std::string present = holdings.Records().At(row, kSkala).Text();
        const std::string wanted =
            row == 0 ? WithCurves(AsFirstRow(present), curves) : AsOtherRow(present);
        if (wanted == present) continue;
        holdings.MoveTo(row);
        EditRow(holdings, [&](DataSource& edited) { edited.Set(kSkala, wanted); });
    }
    holdings.MoveTo(before);
}
