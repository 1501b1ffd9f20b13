#include "fundfile/rules/openholding.h"

#include "fundfile/rules/savedvalues.h"
#include "fundfile/rules/scaletext.h"

OpenHolding OpenHoldingOf(const HoldingRow& row) {
    return {.kontoId = row.kontoId,
            .fondNr = row.fondNr,
            .fond = row.fond,
            .account = row.namn,
            .startPrice = StartPriceOf(row),
            .shares = row.fondandelar.value_or(0),
            .scale = ParseScaleText(row.skala).scale,
            .summary = {.day = row.senasteDag,
                        .latestPrice = row.senasteKurs,
                        .change = row.procent,
                        .value = row.kursVarde}};
}
