#include "fundfile/queries.h"

#include "base/number.h"

namespace queries {
namespace {

std::string OfHolding(std::string_view start, std::int32_t kontoId) {
    return std::string(start) + "WHERE KontoId = " + PlainText(kontoId);
}

}  // namespace

std::string AllPoints() {
    return "SELECT* FROM  PLOTTDATA  ORDER BY KontoId,XCord";
}

std::string AllPointsAfterOpening() {
    return "SELECT * FROM  PLOTTDATA  ORDER BY KontoId,XCord";
}

std::string AllPointsOf(std::int32_t kontoId) {
    return OfHolding("SELECT * FROM  PLOTTDATA ", kontoId) + " ORDER BY KontoId,XCord";
}

std::string PointsOf(std::int32_t kontoId) {
    return OfHolding("SELECT XCord,YCord FROM  PLOTTDATA ", kontoId) + " ORDER BY XCord";
}

std::string PointsWithHolding() {
    return "SELECT XCord,YCord,KontoId FROM  PLOTTDATA ";
}

std::string ValuesOf(std::int32_t kontoId) {
    return OfHolding("SELECT YCord FROM  PLOTTDATA ", kontoId);
}

std::string FondNrOfPointsOf(std::int32_t kontoId) {
    return OfHolding("SELECT FondNr FROM  PLOTTDATA ", kontoId);
}

std::string DeletePointsOf(std::int32_t kontoId) {
    return OfHolding("DELETE *  FROM  PLOTTDATA ", kontoId);
}

std::string TotalsOf(std::string_view accountName) {
    return "SELECT FondNr,KursKr,VärdeKr,Procent,KursVärde,SenasteKurs FROM  FONDDATA WHERE Namn = "
           "'" +
           std::string(accountName) + "'";
}

std::string KontoIdIs(std::int32_t kontoId) {
    return "KontoId = " + PlainText(kontoId);
}

std::string XCordIs(std::int32_t day) {
    return "XCord = " + PlainText(day);
}

}  // namespace queries
