#pragma once
// What the desktop's and the toolkit's own dialogs say in Swedish: captions and the default title.

#include <array>
#include <string_view>

namespace texts::dialogs {

inline constexpr std::string_view DefaultTitle = "Kvarnbo";
inline constexpr std::string_view Ok = "OK";
inline constexpr std::string_view Cancel = "Avbryt";
inline constexpr std::string_view Yes = "&Ja";
inline constexpr std::string_view No = "&Nej";
/// After a file's name.
inline constexpr std::string_view Replace = " finns redan.\r\nVill du ersätta den?";

/// What the table of files says of them.
inline constexpr std::string_view Bytes = " byte";
inline constexpr std::string_view Kilobytes = " kB";
inline constexpr std::string_view Megabytes = " MB";
inline constexpr std::string_view Folder = "Mapp";
inline constexpr std::string_view File = "Fil";
inline constexpr std::string_view FileOfKind = "-fil";
/// After a path that leads nowhere.
inline constexpr std::string_view NoFile = "\r\nFilen finns inte.\r\nKontrollera filnamnet.";

/// The look at the pages before they are printed. The document's name follows.
inline constexpr std::string_view kPreviewOf = "Förhandsgranska ";
inline constexpr std::string_view kPreviewPages = "Sidorna som de skrivs ut";
inline constexpr std::string_view kPageBack = "&Förra";
inline constexpr std::string_view kPageOn = "&Nästa";
inline constexpr std::string_view kPageNumber = "Sida ";
inline constexpr std::string_view kOfPages = " av ";
inline constexpr std::string_view kZoomIn = "S&törre";
inline constexpr std::string_view kZoomOut = "&Mindre";
inline constexpr std::string_view kWholePage = "&Hel sida";
inline constexpr std::string_view kPrintIt = "S&kriv ut...";
inline constexpr std::string_view kSaveAsPdf = "Spara som &PDF...";
inline constexpr std::string_view kClose = "&Stäng";

struct Translation {
    std::string_view english, swedish;
};

inline constexpr auto Toolkit = std::to_array<Translation>({
    // Buttons
    {"OK", "OK"},
    {"&OK", "&OK"},
    {"Cancel", "Avbryt"},
    {"&Cancel", "&Avbryt"},
    {"&Yes", "&Ja"},
    {"&No", "&Nej"},
    {"Open", "Öppna"},
    {"&Open", "&Öppna"},
    {"Save", "Spara"},
    {"&Save", "&Spara"},
    {"Close", "Stäng"},
    {"&Choose", "&Välj"},
    {"Show Details...", "Visa detaljer..."},
    {"Hide Details...", "Dölj detaljer..."},
    // Text boxes
    {"&Undo", "&Ångra"},
    {"&Redo", "&Gör om"},
    {"Cu&t", "Klipp u&t"},
    {"&Copy", "&Kopiera"},
    {"&Paste", "K&listra in"},
    {"Delete", "Ta bort"},
    {"&Delete", "&Ta bort"},
    {"Select All", "Markera allt"},
    {"&Select All", "&Markera allt"},
    // Files
    {"Look in:", "Leta i:"},
    {"Directory:", "Mapp:"},
    {"File &name:", "Fil&namn:"},
    {"File name:", "Filnamn:"},
    {"Files of type:", "Filtyp:"},
    {"Save As", "Spara som"},
    {"Name", "Namn"},
    {"Size", "Storlek"},
    {"Type", "Typ"},
    {"Kind", "Typ"},
    {"Date Modified", "Ändrad"},
    {"Computer", "Dator"},
    {"My Computer", "Dator"},
    {"Back", "Bakåt"},
    {"Go back", "Gå bakåt"},
    {"Forward", "Framåt"},
    {"Go forward", "Gå framåt"},
    {"Parent Directory", "Överordnad mapp"},
    {"Go to the parent directory", "Gå till överordnad mapp"},
    {"Create New Folder", "Skapa ny mapp"},
    {"Create a New Folder", "Skapa en ny mapp"},
    {"New Folder", "Ny mapp"},
    {"&New Folder", "&Ny mapp"},
    {"List View", "Lista"},
    {"Change to list view mode", "Visa som lista"},
    {"Detail View", "Detaljer"},
    {"Change to detail view mode", "Visa detaljer"},
    {"&Rename", "&Byt namn"},
    {"Remove", "Ta bort"},
    {"Show &hidden files", "Visa &dolda filer"},
    {"Recent Places", "Senaste platser"},
    {"All Files (*)", "Alla filer (*)"},
    {"All files (*)", "Alla filer (*)"},
    {"Sidebar", "Platser"},
    {"List of places and bookmarks", "Mappar som dialogen går direkt till"},
    {"Files", "Filer"},
    {"Drive", "Enhet"},
    {"File", "Fil"},
    {"Folder", "Mapp"},
    {"Unknown", "Okänd"},
    {"%1 already exists.\nDo you want to replace it?", "%1 finns redan.\nVill du ersätta den?"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     "%1\nFilen finns inte.\nKontrollera filnamnet."},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "%1\nMappen finns inte.\nKontrollera mappens namn."},
    {"Are you sure you want to delete '%1'?", "Vill du verkligen ta bort '%1'?"},
    {"'%1' is write protected.\nDo you want to delete it anyway?",
     "'%1' är skrivskyddad.\nVill du ta bort den ändå?"},
    {"Could not delete directory.", "Mappen kunde inte tas bort."},
    // Colours
    {"Select Color", "Välj färg"},
    {"&Basic colors", "&Grundfärger"},
    {"&Custom colors", "&Egna färger"},
    {"&Add to Custom Colors", "&Lägg till i egna färger"},
    {"&Pick Screen Color", "&Hämta färg från skärmen"},
    {"Cursor at %1, %2\nPress ESC to cancel", "Markören vid %1, %2\nTryck Esc för att avbryta"},
    {"Hu&e:", "&Nyans:"},
    {"&Sat:", "&Mättnad:"},
    {"&Val:", "&Värde:"},
    {"&Red:", "&Röd:"},
    {"&Green:", "&Grön:"},
    {"Bl&ue:", "&Blå:"},
    {"A&lpha channel:", "A&lfakanal:"},
    {"&HTML:", "&HTML:"},
    // Printing
    {"Print", "Skriv ut"},
    {"&Print", "&Skriv ut"},
    {"Printer", "Skrivare"},
    {"&Name:", "&Namn:"},
    {"P&roperties", "&Egenskaper"},
    {"Location:", "Plats:"},
    {"Preview", "Förhandsvisning"},
    {"Type:", "Typ:"},
    {"Output &file:", "&Utdatafil:"},
    {"Print to File (PDF)", "Skriv till fil (PDF)"},
    {"Print To File ...", "Skriv till fil ..."},
    {"Local file", "Lokal fil"},
    {"Write PDF file", "Skriv PDF-fil"},
    {"&Options >>", "&Alternativ >>"},
    {"&Options <<", "&Alternativ <<"},
    {"Copies", "Kopior"},
    {"Copies:", "Kopior:"},
    {"Collate", "Sortera"},
    {"Reverse", "Omvänd"},
    {"Options", "Alternativ"},
    {"Print range", "Utskriftsområde"},
    {"Print all", "Skriv ut allt"},
    {"Pages from", "Sidor från"},
    {"to", "till"},
    {"Current Page", "Aktuell sida"},
    {"Selection", "Markering"},
    {"Pages:", "Sidor:"},
    {"Page Set:", "Sidurval:"},
    {"All Pages", "Alla sidor"},
    {"Odd Pages", "Udda sidor"},
    {"Even Pages", "Jämna sidor"},
    {"Color Mode", "Färgläge"},
    {"Color", "Färg"},
    {"Grayscale", "Gråskala"},
    {"Duplex Printing", "Dubbelsidig utskrift"},
    {"Double Sided Printing", "Dubbelsidig utskrift"},
    {"Output Settings", "Utdata"},
    {"None", "Ingen"},
    {"Off", "Av"},
    {"Long side", "Långsida"},
    {"Short side", "Kortsida"},
    {"Long side binding", "Långsida"},
    {"Short side binding", "Kortsida"},
    {"Advanced", "Avancerat"},
    {"Page setup", "Utskriftsformat"},
    {"Page Setup", "Utskriftsformat"},
    {"Paper", "Papper"},
    {"Page size:", "Pappersformat:"},
    {"Width:", "Bredd:"},
    {"Height:", "Höjd:"},
    {"Paper source:", "Papperskälla:"},
    {"Orientation", "Orientering"},
    {"Portrait", "Stående"},
    {"Landscape", "Liggande"},
    {"Reverse portrait", "Stående, upp och ned"},
    {"Reverse landscape", "Liggande, upp och ned"},
    {"Margins", "Marginaler"},
    {"Custom", "Eget"},
    {"Printer Properties", "Skrivarens egenskaper"},
    {"Page", "Sida"},
    {"Pages", "Sidor"},
    {"Page Layout", "Sidlayout"},
    {"Page order:", "Sidordning:"},
    {"Pages per sheet:", "Sidor per ark:"},
    {"Left to Right, Top to Bottom", "Vänster till höger, uppifrån och ned"},
    {"Left to Right, Bottom to Top", "Vänster till höger, nedifrån och upp"},
    {"Right to Left, Top to Bottom", "Höger till vänster, uppifrån och ned"},
    {"Right to Left, Bottom to Top", "Höger till vänster, nedifrån och upp"},
    {"Top to Bottom, Left to Right", "Uppifrån och ned, vänster till höger"},
    {"Top to Bottom, Right to Left", "Uppifrån och ned, höger till vänster"},
    {"Bottom to Top, Left to Right", "Nedifrån och upp, vänster till höger"},
    {"Bottom to Top, Right to Left", "Nedifrån och upp, höger till vänster"},
    {"Millimeters (mm)", "Millimeter (mm)"},
    {"Inches (in)", "Tum (in)"},
    {"Points (pt)", "Punkter (pt)"},
    {"Job Options", "Utskriftsval"},
    {"Job Control", "Utskriftsjobb"},
    {"Scheduled printing:", "Tidpunkt:"},
    {"Print Immediately", "Skriv ut direkt"},
    {"Hold Indefinitely", "Vänta tills vidare"},
    {"Day (06:00 to 17:59)", "Dag (06:00 till 17:59)"},
    {"Night (18:00 to 05:59)", "Natt (18:00 till 05:59)"},
    {"Second Shift (16:00 to 23:59)", "Kväll (16:00 till 23:59)"},
    {"Third Shift (00:00 to 07:59)", "Småtimmar (00:00 till 07:59)"},
    {"Weekend (Saturday to Sunday)", "Helg (lördag till söndag)"},
    {"Specific Time", "Bestämd tid"},
    {"Billing information:", "Debitering:"},
    {"Job priority:", "Prioritet:"},
    {"Banner Pages", "Försättsblad"},
    {"End:", "Slut:"},
    {"Unclassified", "Öppen"},
    {"Confidential", "Förtrolig"},
    {"Classified", "Sekretess"},
    {"Secret", "Hemlig"},
    {"Top Secret", "Kvalificerat hemlig"},
    {"%1 already exists.\nDo you want to overwrite it?",
     "%1 finns redan.\nVill du skriva över den?"},
    {"File %1 is not writable.\nPlease choose a different file name.",
     "Filen %1 kan inte skrivas.\nVälj ett annat filnamn."},
    {"%1 is a directory.\nPlease choose a different file name.",
     "%1 är en mapp.\nVälj ett annat filnamn."},
});

}  // namespace texts::dialogs
