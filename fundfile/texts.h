#pragma once
// What the user is told about fund files, in Swedish.

#include "base/error.h"
#include "base/number.h"
#include "fundfile/fundfile.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace fundtexts {

inline constexpr std::string_view TemplateFile = "Db0.dat";
inline constexpr std::string_view StartFile = "Rusken_Kina.mdb";

// The file dialog of each command. The leading and doubled blanks belong to the titles.
inline constexpr std::string_view FundFiles = "Access97 mdb|*.mdb";
inline constexpr std::string_view FilesToDelete = "Access mdb|*.mdb";
inline constexpr std::string_view NewTitle = "    Lägg upp Ny tom  och Spara som...";
inline constexpr std::string_view OpenTitle = "      Öppna FondFil";
inline constexpr std::string_view StartFileTitle = "      StartFil skall vara..";
inline constexpr std::string_view SaveAsTitle = "    Spara som...";
inline constexpr std::string_view DeleteTitle = "        Raderar denna fil";

inline constexpr std::string_view OpenNewFile = "Vill du Öppna med den Nya filen  ?";
inline constexpr std::string_view DeleteQuestion =
    "Du håller på att ta bort en Fondfil !\r\n\r\nÄr detta riktigt ?";
inline constexpr std::string_view FileToDelete = "Fil  ";
inline constexpr std::string_view WillBeDeleted =
    "  kommer att raderas !\r\n\r\nÄr detta riktigt ?";
inline constexpr std::string_view NotDeleted = "Filen Raderades Inte\r\n\r\nFilen är Öppen";

inline constexpr std::string_view NotCreated = "Den nya filen skapades inte";
inline constexpr std::string_view NotOpened = "Filen öppnades inte";
inline constexpr std::string_view NotCopied = "Filen sparades inte";
inline constexpr std::string_view IsTemplate =
    "Filen är mallen som nya fondfiler görs av. Välj ett annat namn.";

inline constexpr std::string_view NotRemoved = "Filen raderades inte";
inline constexpr std::string_view StartFileNotStored = "Valet av startfil sparades inte";
inline constexpr std::string_view SettingsNotWritten =
    "Programmets inställningar kan inte skrivas. Kvarnbo startar med samma fil som förut.";
inline constexpr std::string_view LockNotBroken = "Låset togs inte över";

// Receipts and notices in the status bar.
inline constexpr std::string_view CopySaved = "Kopian är sparad : ";
inline constexpr std::string_view StartsWith = "Nästa gång startar Kvarnbo med ";
inline constexpr std::string_view MayBeOpenElsewhere =
    " ligger bredvid filen : ett annat program kan ha den öppen";

// Safety copies
inline constexpr std::string_view CopiesFolder = "Kopior";
inline constexpr std::string_view NoSafetyCopy =
    "Ingen säkerhetskopia kunde göras i mappen Kopior bredvid filen";
inline constexpr std::string_view NoCopiesYet =
    "Det finns inga kopior ännu. En görs före dagens första ändring.";
inline constexpr std::string_view CopyNumber = "  nr ";
inline constexpr std::string_view HoldingsInCopy = " innehav, ";
inline constexpr std::string_view PointsInCopy = " punkter";
inline constexpr std::string_view CopyUnreadable = "kan inte läsas";
inline constexpr std::string_view AskRestore = "Du håller på att återställa kopian från ";
inline constexpr std::string_view RestoreReplaces =
    "\r\n\r\nFilen blir som den var före ändringarna då. Som den är nu sparas den först som en "
    "egen kopia.\r\n\r\nÄr detta riktigt ?";
inline constexpr std::string_view NotRestored = "Kopian återställdes inte";
inline constexpr std::string_view Restored = "Filen är återställd från kopian ";
inline constexpr std::string_view FormerState = " : som den var finns i ";

inline constexpr std::string_view TakeOver =
    "\r\n\r\nÄr du säker på att Kvarnbo inte är igång där kan du ta över filen.\r\n\r\nVill du ta "
    "över den ?";

struct Explanation {
    ErrorNumber number;
    std::string_view text;
};

inline constexpr Explanation kExplanations[] = {
    {ErrorNumber::FileNotFound, "Filen finns inte."},
    {ErrorNumber::PathNotFound, "Mappen finns inte."},
    {ErrorNumber::PermissionDenied, "Du har inte rätt att läsa eller skriva filen."},
    {ErrorNumber::FileInUse, "Filen är öppen, här eller i ett annat exemplar av Kvarnbo."},
    {ErrorNumber::DiskFull, "Disken är full. Inget har sparats och inget har gått förlorat."},
    {ErrorNumber::DeviceIo,
     "Disken kan inte läsas eller skrivas. Filen är som den var före ändringen."},
    {ErrorNumber::ReadOnly, "Filen är öppen bara för läsning. Ändringen är inte sparad."},
    {ErrorNumber::ChangedByOther,
     "Filen har ändrats av ett annat program sedan den öppnades. Öppna filen på nytt och gör "
     "om ändringen."},
    {ErrorNumber::NotADatabase, "Filen är skadad och kan inte läsas. Den är inte ändrad."},
    {ErrorNumber::Encrypted, "Filen är krypterad och kan inte läsas. Den är inte ändrad."},
    {ErrorNumber::PasswordProtected,
     "Filen är skyddad med lösenord. Ta bort lösenordet i det program som har satt det."},
    {ErrorNumber::NewerFormat,
     "Filen har ett nyare format (.accdb). Spara den i formatet Access 2000 till 2003 (.mdb)."},
    {ErrorNumber::ForeignFormat, "Filen är ingen databas i Access-format. Den är inte ändrad."},
    {ErrorNumber::TableNotFound,
     "Filen är en databas men ingen fondfil: tabellen FONDDATA eller PLOTTDATA saknas."},
    {ErrorNumber::FieldNotFound,
     "Filen är en databas men ingen fondfil: tabellerna har inte de kolumner som behövs."},
    {ErrorNumber::CollationUnknown,
     "Filen har ett index med en sorteringsordning som Kvarnbo inte känner. Ändringen är inte "
     "sparad."},
    {ErrorNumber::DuplicateKey,
     "Det finns redan en post med samma värde i ett fält som måste vara unikt."},
    {ErrorNumber::NullKey, "Ett fält som måste ha ett värde är tomt."},
    {ErrorNumber::FieldTooLong, "Texten är längre än fältet i filen."},
    {ErrorNumber::TypeMismatch, "Värdet passar inte i fältet."},
    {ErrorNumber::Overflow, "Talet är för stort för fältet."},
    {ErrorNumber::RecordDeleted, "Posten finns inte längre."},
    {ErrorNumber::RelatedRecords, "Posten används av en annan tabell i filen."},
    {ErrorNumber::RelatedRowMissing,
     "Posten hänvisar till en post i en annan tabell i filen, och den finns inte."},
    {ErrorNumber::RequiredField, "Fältet måste ha ett värde."},
    {ErrorNumber::ZeroLength, "Fältet får inte vara en tom text."},
    {ErrorNumber::ValidationRule, "Värdet följer inte den regel som filen har för fältet."},
    {ErrorNumber::NotSupported,
     "Filen använder något som Kvarnbo inte kan ändra utan att skada den. Ändringen är inte "
     "sparad."},
};

/// One whole sentence or two for an error that a fund file gave: what is wrong, and what can be
/// done. Errors that mean nothing to a user give the general sentence; the number belongs beside
/// it.
constexpr std::string_view Explain(ErrorNumber number) {
    if (number == kObjectNotSet) return "Ingen fondfil är öppen.";
    for (const Explanation& explanation : kExplanations) {
        if (explanation.number == number) return explanation.text;
    }
    return "Filen kunde inte användas.";
}

/// How much a file has lost, in one sentence or two.
inline std::string Lost(const jet::Loss& loss) {
    const auto number = [](std::uint64_t rows) {
        return PlainText(static_cast<std::int64_t>(rows));
    };
    std::string text = "Filen är avklippt eller skadad. ";
    if (loss.rowsFound == loss.rowsStated) {
        return text + "Alla " + number(loss.rowsStated) +
               " poster finns, men andra delar av filen saknas.";
    }
    return text + number(loss.rowsFound) + " poster finns av " + number(loss.rowsStated) + ".";
}

/// Why an open file can be read but not changed; "" when it can be changed.
inline std::string Explain(const FundFile& file) {
    constexpr std::string_view kReadable = "\r\n\r\nDu kan se den men inte ändra något.";
    const auto with = [&](std::string_view reason) {
        return std::string(reason) + std::string(kReadable);
    };
    switch (file.right) {
        case WriteRight::OtherCopy:
            return with("Filen är öppen i ett annat exemplar av Kvarnbo" +
                        (file.owner.empty() ? std::string() : " (" + file.owner + ")") + ".");
        case WriteRight::FileProtected:
            return with("Filen är skrivskyddad.");
        case WriteRight::FolderProtected:
            return with("Filens mapp är skrivskyddad.");
        case WriteRight::CannotLock:
            return with("Filen kunde inte låsas för ändringar. Disken kan vara full.");
        case WriteRight::OtherComputer:
            return with("Filen är låst av Kvarnbo på en annan dator (" + file.owner +
                        "). Den kan vara öppen där, eller så blev låset kvar efter ett avbrott.");
        case WriteRight::StaleLock:
            return with(
                "En låsfil ligger kvar efter ett exemplar av Kvarnbo som inte längre är "
                "igång, och filens mapp är skrivskyddad så att den inte kan tas bort.");
        case WriteRight::FolderAtLock:
            return with(
                "En mapp har det namn som filens låsfil ska ha : filens namn och .lock. "
                "Byt namn på mappen eller ta bort den.");
        case WriteRight::OthersFile:
            return with(
                "Filen tillhör någon annan och ligger i en delad mapp där bara ägaren kan "
                "ersätta den.");
        case WriteRight::Damaged:
            return with(Lost(file.loss));
        case WriteRight::Ours:
            break;
    }
    return {};
}

/// What a command could not do, with which file, and why.
inline std::string Failure(std::string_view failed, std::string_view path, std::string_view why) {
    constexpr std::string_view kParagraph = "\r\n\r\n";
    return std::string(failed) + std::string(kParagraph) + std::string(path) +
           std::string(kParagraph) + std::string(why);
}

/// What the window says in its own place while no file is open: which one could not be opened, why,
/// and what to do.
inline std::string NothingOpen(std::string_view path, ErrorNumber number) {
    return "Fondfilen kunde inte öppnas :\n" + std::string(path) + "\n\n" +
           std::string(Explain(number)) +
           "\n\nÖppna en annan fondfil med Arkiv, Öppna, eller lägg upp en ny med Arkiv, Ny "
           "Fondfil.";
}

}  // namespace fundtexts
