#include "app/fundsummary.h"

#include "app/frmPPM.h"
#include "app/rules/summary.h"
#include "fundfile/editrow.h"
#include "fundfile/schema.h"
#include "platform/caption.h"
#include "platform/statuspanels.h"

#include <QLabel>

#include <string>

namespace {

constexpr int kSharesNow = 7;
constexpr int kShares = 2;

}  // namespace

void FundSummary::RefreshFundSummary(float startPrice, float newPrice) {
    DataSource& row = *window.dtaBasData;
    StatusPanels& status = *window.staBar;
    window.ChangePercent = ChangeSinceStart(startPrice, newPrice);
    status.SetText(statuspanel::kChange, ChangeText(window.ChangePercent));

    const std::string sharesNow = Caption(window.lblFraData[kSharesNow]);
    const std::string shares = Caption(window.lblFraData[kShares]);
    status.SetText(statuspanel::kValue,
                   CurrentValueText(row.Field(schema::holding::kFondNr).Text(),
                                    SharesCaption(sharesNow, shares), newPrice));
    EditRow(row, [&](DataSource& edited) {
        edited.Set(schema::holding::kSenasteDag, window.TodayDay);
        edited.Set(schema::holding::kSenasteKurs, status.Text(statuspanel::kLatestPrice));
        edited.Set(schema::holding::kProcent, status.Text(statuspanel::kChange));
        edited.Set(schema::holding::kKursVarde, status.Text(statuspanel::kValue));
    });
    SetCaption(&window, UpdatedCaption(row.Field(schema::holding::kFond).Text(), window.TodayDay));
}
