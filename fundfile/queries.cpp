#include "fundfile/queries.h"

#include <array>
#include <charconv>

namespace queries {
namespace {

std::string Decimal(std::int32_t number) {
    std::array<char, 12> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return {digits.data(), end};
}

std::string OfHolding(std::string_view start, std::int32_t kontoId) {
    return std::string(start) + "WHERE KontoId = " + Decimal(kontoId);
}

}  // namespace

std::string AllPoints() {
    return "SELECT* FROM  PLOTTDATA  ORDER BY KontoId,XCord";
}

std::string AllPointsAfterOpening() {
    return "SELECT * FROM  PLOTTDATA  ORDER BY KontoId,XCord";
}

std::string PointsOf(std::int32_t kontoId) {
    return OfHolding("SELECT XCord,YCord FROM  PLOTTDATA ", kontoId) + " ORDER BY XCord";
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
    return "KontoId = " + Decimal(kontoId);
}

std::string XCordIs(std::int32_t day) {
    return "XCord = " + Decimal(day);
}

}  // namespace queries
