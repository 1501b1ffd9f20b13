#pragma once
// The one value that says what the window shows. Plain data: events change it by the rules in
// modes.h, and what it shows is the table in shown.h. Nothing is read back from a control to find
// out what is going on.

#include "app/rules/holdingview.h"
#include "app/rules/showncurve.h"
#include "app/rules/texts.h"
#include "fundfile/rules/listedfiles.h"
#include "fundfile/rules/openholding.h"
#include "fundfile/rules/scale.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace jet {
class Database;
}

/// What covers the diagram, if anything.
enum class Stage { Starting, Diagram, Holdings, SharesNotice, DayPrices, Overview, Import };

/// The left column: one panel at a time.
enum class LeftPanel { None, FundList, Totals, PlotData, Copies };

/// What a line of the fund list is chosen for. Nothing: its last choice was confirmed with Enter.
enum class ListUse { Nothing, Prices, Colour, Curves };

/// Where an event sends the keys. It holds for one showing; then the user moves about freely.
enum class Focus {
    Stays,
    Picture,
    FundList,
    Price,
    Accounts,
    Points,
    Copies,
    HoldingsGrid,
    NoticeDate,
    DayPrice,
    PastedPrices,
    Overview,
    Import
};

/// What an event does to a price that was typed and not confirmed. It holds for one showing, too.
enum class TypedPrice { Stays, Cleared };

/// What is said of a price while it is typed.
struct PriceNote {
    std::string text;
    bool doubtful = false;  ///< it would be asked about or refused, or is far from the latest one
    bool operator==(const PriceNote&) const = default;
};

/// A price of the day's round that is typed and not stored.
struct TypedDayPrice {
    std::string fond, text;
    bool operator==(const TypedDayPrice&) const = default;
};

/// The page of the day's round. What is typed there stays until it is stored or given up, whatever
/// covers the page meanwhile.
struct DayRound {
    std::optional<std::int32_t> day;  ///< that prices are typed for; none: today
    bool hidesDone = false;
    bool pasted = false;  ///< a pasted column is shown, and waits to be stored
    std::string done;     ///< "7 av 10 klara"
    PriceNote note;       ///< about the price in the field, or the pasted ones
    std::map<std::int32_t, TypedDayPrice> typed;  ///< by KontoId
    bool operator==(const DayRound&) const = default;
};

/// The page of prices from a file.
struct ImportPage {
    std::string file;     ///< its name
    std::string text;     ///< what Enter makes of them
    bool stores = false;  ///< there is something to store
    bool operator==(const ImportPage&) const = default;
};

/// What the lines of the overview are sorted by.
struct OverviewOrder {
    int column = 0;
    bool descending = false;
    bool operator==(const OverviewOrder&) const = default;
};

/// What the two labels under the picture say; empty before anything is measured, and when the
/// picture has changed under it.
struct Reading {
    std::string date, value;
    bool operator==(const Reading&) const = default;
};

/// What an event does to the picture. It holds for one showing, too. Restored: what was drawn
/// before it was cleared comes back.
enum class Picture { Stays, Cleared, Restored };

struct WindowState {
    std::shared_ptr<jet::Database> FundDb;  ///< the open fund file; null while none is open
    std::string AppFolder;                  ///< the program's folder, ending in the separator
    std::string CurrentFile;                ///< full path of the fund file in use
    std::string NoFileReason;  ///< why no file is open, as the empty window says it; "" with a file
    bool hasHoldings = false;  ///< the open file has a row
    std::optional<std::int32_t> pointCount;  ///< the rows of the plot data, once they were counted

    Stage stage = Stage::Starting;
    LeftPanel left = LeftPanel::None;
    ListUse listUse = ListUse::Prices;
    bool modeButtons = false;  ///< `imgColor` and `imgGrafNr` are offered
    bool gridHelp = false;     ///< `txtGrid` explains the holdings grid
    Focus focus = Focus::Stays;
    TypedPrice typedPrice = TypedPrice::Stays;
    Picture picture = Picture::Stays;
    std::string news;  ///< said to those who do not see it; it holds for one showing, too

    std::optional<OpenHolding> holding;      ///< the one open in the fund panel
    HoldingView view = EmptyView();          ///< what the panel and the status bar say of it
    std::vector<std::int32_t> chosenCurves;  ///< while they are being collected, in their order
    std::string caption{texts::WindowCaption};
    std::string totals;  ///< of the account chosen in the totals panel
    Reading reading;
    PriceNote priceNote;                    ///< of what stands in `txtValue`
    std::vector<std::int32_t> missingDays;  ///< without a price of the open holding, lately
    DayRound round;
    OverviewOrder overviewOrder;
    ImportPage imported;
    std::vector<ListedFile> files;  ///< that the menu offers to open
    std::string pointedFile;        ///< one of them, whole, while it is pointed at
    std::string heldFile;           ///< the name of a fund file held over the window, to be dropped
    std::string notice;  ///< stands over the status bar until that has something else to tell

    bool hasCopies = false;  ///< of the open file, to restore
    std::string copyText;    ///< what differs in the one that is chosen

    std::optional<std::string> undoName, redoName;  ///< the next change to take back, to do again

    bool choosingStartFile = false;
    bool storingPoint = false;                    ///< rows stored meanwhile draw nothing anew
    std::optional<std::int32_t> rowBeingDeleted;  ///< its KontoId

    std::int32_t TodayDay = 0;        ///< today as a day number
    std::int32_t CurrentMonth = 1;    ///< 1 to 12; for whoever looks, the months follow TodayDay
    std::int32_t WindowStartDay = 0;  ///< first of the twelve months shown, always the 1st of one
    std::int32_t DayStep = 1;         ///< 1, 7 or 30: day, week or month view

    ScaleRange Scale;       ///< ScaleTop and ScaleBottom: the diagram's
    ScaleRange FundScale;   ///< FundScaleTop and FundScaleBottom: of the single holding shown
    ScaleRange AllScale;    ///< AllScaleTop and AllScaleBottom: of the several-curves view
    ScaleRange drawnScale;  ///< what the picture and its labels show; a zoom may be stored only

    std::vector<ShownCurve> curves;  ///< that the picture has now, in drawing order
    std::optional<LitCurve> lit;     ///< one of them, while it is pointed at

    std::vector<std::int32_t> SelectedCurves;  ///< KontoId of each curve drawn, in drawing order
    std::vector<std::string> MonthNames;       ///< 25 labels; entry 0 is January
    std::int32_t ChangePercent = 0;            ///< the open holding's change since its start
    bool Activated = false;                    ///< the first activation has run

    bool operator==(const WindowState&) const = default;
};

/// The holdings grid covers the diagram, with or without a notice of new shares under it.
bool GridShown(const WindowState& state);
/// A page of its own covers the left column and the diagram.
bool PageShown(const WindowState& state);
/// The short overview fills the left column, which nothing else needs.
bool OverviewInColumn(const WindowState& state);
/// The list is open for the choice of a colour or of curves, and ends with it.
bool Choosing(const WindowState& state);
bool CollectingCurves(const WindowState& state);
/// The picture was cleared for a choice of curves in which nothing is chosen yet.
bool PictureCleared(const WindowState& state);
