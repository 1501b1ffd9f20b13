#include "app/fundsummary.h"

#include "app/frmPPM.h"
#include "app/rules/summary.h"
#include "fundfile/editrow.h"
#include "fundfile/schema.h"
#include "platform/datasource.h"

namespace {

constexpr int kSharesNow = 7;
constexpr int kShares = 2;

}  // namespace

void FundSummary::RefreshFundSummary(float startPrice, float newPrice) {
    DataSource& row = *window.dtaBasData;
    StatusTexts& status = window.view.status;
    window.ChangePercent = ChangeSinceStart(startPrice, newPrice);
    status.change = ChangeText(window.ChangePercent);
    status.value = CurrentValueText(
        row.Field(schema::holding::kFondNr).Text(),
        SharesCaption(window.view.labels[kSharesNow], window.view.labels[kShares]), newPrice);
    EditRow(row, [&](DataSource& edited) {
        edited.Set(schema::holding::kSenasteDag, window.TodayDay);
        edited.Set(schema::holding::kSenasteKurs, status.latestPrice);
        edited.Set(schema::holding::kProcent, status.change);
        edited.Set(schema::holding::kKursVarde, status.value);
    });
    window.caption = UpdatedCaption(row.Field(schema::holding::kFond).Text(), window.TodayDay);
    window.ShowState();
}
