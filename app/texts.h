#pragma once
// The Swedish texts of the main window that procedures show. Captions of controls are in furnish.

#include "app/rules/texts.h"
#include "base/error.h"

#include <array>
#include <string_view>

namespace texts {

struct Failure {
    ErrorNumber number;
    std::string_view text;
};

inline constexpr std::string_view FailureNumber = "Fel ";
inline constexpr auto kFailures = std::to_array<Failure>({
    {ErrorNumber::FileNotFound, "Filen hittades inte."},
    {ErrorNumber::DeviceIo, "Det gick inte att läsa eller skriva på disken."},
    {ErrorNumber::DiskFull, "Disken är full."},
    {ErrorNumber::PermissionDenied, "Behörighet saknas för filen eller mappen."},
    {ErrorNumber::FileInUse, "Filen används av ett annat program."},
    {ErrorNumber::PathNotFound, "Mappen hittades inte."},
    {ErrorNumber::ObjectNotSet, "Ingen fondfil är öppen."},
    {ErrorNumber::NoCurrentRecord, "Det finns ingen aktuell post."},
    {ErrorNumber::ReadOnly, "Fondfilen är skrivskyddad."},
    {ErrorNumber::PasswordProtected, "Fondfilen är skyddad med lösenord."},
    {ErrorNumber::NotADatabase, "Fondfilen är skadad eller är ingen fondfil."},
    {ErrorNumber::TableNotFound, "Filen är ingen fondfil."},
    {ErrorNumber::FieldNotFound, "Filen är ingen fondfil."},
    {ErrorNumber::RecordDeleted, "Posten är borttagen."},
    {ErrorNumber::ChangedByOther, "Fondfilen har ändrats av ett annat program. Öppna den igen."},
    {ErrorNumber::Encrypted, "Fondfilen är krypterad."},
    {ErrorNumber::NewerFormat, "Fondfilen är gjord i en senare version av formatet."},
    {ErrorNumber::ForeignFormat, "Filen är ingen fondfil."},
    {ErrorNumber::ObjectClosed, "Fondfilen är stängd."},
});

inline constexpr std::string_view ListForPrices = "Ny DagsKurs för...";
inline constexpr std::string_view WorkingWith = "Du arbetar med ";
inline constexpr std::string_view SampleFile = "Vimmels_exempel.mdb";

inline constexpr std::string_view DayByDay = "Visa Dag för Dag";

inline constexpr std::string_view ToDiagram = "&Diagram";
inline constexpr std::string_view ToHoldings = "&PPM Data";

}  // namespace texts
