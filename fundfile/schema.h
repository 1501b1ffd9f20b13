#pragma once
// The layout of a fund file: its two tables, their columns in stored order, and the texts that have
// a meaning there.

#include <array>
#include <cstddef>
#include <string_view>

namespace schema {

inline constexpr std::string_view kHoldingsTable = "FONDDATA";
inline constexpr std::string_view kPointsTable = "PLOTTDATA";

/// What `dtaBasData` is bound to: a table or saved query of the file, or another name for FONDDATA.
inline constexpr std::string_view kHoldingsSource = "FR_FONDDATA";

/// What the first column of FONDDATA can always be called, whatever the file calls it.
inline constexpr std::string_view kKontoId = "KontoId";

/// Column positions in FONDDATA.
namespace holding {
inline constexpr std::size_t kKontoId = 0;
inline constexpr std::size_t kFond = 1;
inline constexpr std::size_t kFondNr = 2;
inline constexpr std::size_t kBokfortDatum = 3;
inline constexpr std::size_t kFondandelar = 4;
inline constexpr std::size_t kKursKr = 5;
inline constexpr std::size_t kVardeKr = 6;
inline constexpr std::size_t kAndel = 7;
inline constexpr std::size_t kNamn = 10;
inline constexpr std::size_t kPlottFarg = 11;
inline constexpr std::size_t kSenasteDag = 12;
inline constexpr std::size_t kSenasteKurs = 13;
inline constexpr std::size_t kProcent = 14;
inline constexpr std::size_t kKursVarde = 15;
inline constexpr std::size_t kSkala = 16;
inline constexpr std::size_t kSparadeVarden = 17;
inline constexpr std::size_t kColumnCount = 18;

/// These two stand at positions 8 and 9, in either order: they are addressed by name only.
inline constexpr std::string_view kKontoinnehavare = "Kontoinnehavare";
inline constexpr std::string_view kKontonummer = "Kontonummer";

/// The names by position, as a new file gets them.
inline constexpr std::array<std::string_view, kColumnCount> kNames = {
    "KontoId",    "Fond",        "FondNr",         "BokförtDatum", "Fondandelar", "KursKr",
    "VärdeKr",    "Andel%",      kKontoinnehavare, kKontonummer,   "Namn",        "PlottFärg",
    "SenasteDag", "SenasteKurs", "Procent",        "KursVärde",    "Skala",       "SparadeVärden"};
}  // namespace holding

/// Column positions in PLOTTDATA.
namespace point {
inline constexpr std::size_t kFondNr = 0;
inline constexpr std::size_t kXCord = 1;
inline constexpr std::size_t kYCord = 2;
inline constexpr std::size_t kKontoId = 3;
inline constexpr std::size_t kColumnCount = 4;

inline constexpr std::array<std::string_view, kColumnCount> kNames = {"FondNr", "XCord", "YCord",
                                                                      "KontoId"};
}  // namespace point

}  // namespace schema
