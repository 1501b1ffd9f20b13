#include "app/rules/shown.h"

#include "app/rules/daystep.h"
#include "app/rules/fileitem.h"
#include "app/rules/fundline.h"
#include "app/rules/spoken.h"
#include "base/daynumber.h"
#include "base/number.h"
#include "base/text.h"

#include <optional>
#include <string>
#include <string_view>

namespace {

// The given tags. They are there for whoever looks; nothing of ours asks them.
constexpr std::string_view kSingleFund = "idxY";
constexpr std::string_view kStartFile = "Start";
constexpr std::string_view kCollecting = "1";
constexpr std::string_view kColour = "2";
constexpr std::string_view kOff = "0";
constexpr std::string_view kHeld = "1";

constexpr std::int32_t kDaysShown = 365;

bool ChoosingColour(const WindowState& state) {
    return Choosing(state) && !CollectingCurves(state);
}

/// After Enter in the list the instruction's label stands there empty while the holding is open.
bool ChoiceConfirmed(const WindowState& state) {
    return state.left == LeftPanel::FundList && state.listUse == ListUse::Nothing && state.holding;
}

bool LegendShown(const WindowState& state) {
    return state.stage != Stage::Starting && !state.holding && !state.curves.empty();
}

Shown::Visible VisibleIn(const WindowState& state) {
    const bool started = state.stage != Stage::Starting;
    const bool notice = state.stage == Stage::SharesNotice;
    return {.panRubrik = started,
            .panControl = started,
            .panDiagram = started,
            .fraStartData = started,
            .lblIngenFil = !state.NoFileReason.empty(),
            .panListFonder = state.left == LeftPanel::FundList,
            .panTotal = state.left == LeftPanel::Totals,
            .panPlottData = state.left == LeftPanel::PlotData,
            .panBasData = GridShown(state),
            .panKopior = state.left == LeftPanel::Copies,
            .imgColor = state.modeButtons,
            .imgGrafNr = state.modeButtons,
            .lblGrafNr = CollectingCurves(state) && !state.chosenCurves.empty(),
            .lblPlottInfo = Choosing(state) || ChoiceConfirmed(state),
            .lblColorNr = state.holding.has_value(),
            .lblFraHint = !state.holding && !LegendShown(state),
            .lblForhand = !state.priceNote.text.empty(),
            .lstLegend = LegendShown(state),
            .cmdNyAndel = !notice,
            .txtGrid = state.gridHelp,
            .fraNyAndel = notice,
            .cmdNyOk = notice,
            .txtNyAndel = notice,
            .lblTotal = true,
            .panKurser = state.stage == Stage::DayPrices,
            .txtNyKurs = !state.round.pasted,
            .panOversikt = state.stage == Stage::Overview,
            .panKort = OverviewInColumn(state),
            .fraSlapp = !state.heldFile.empty(),
            .panImport = state.stage == Stage::Import};
}

/// What the grid covers takes no keys: neither typed prices nor the way of the Tab key.
Shown::Enabled EnabledIn(const WindowState& state) {
    const bool started = state.stage != Stage::Starting;
    const bool grid = GridShown(state);
    return {.mnuArkiv = started,
            .mnuRedigera = started,
            .mnuShow = started,
            .mnuPrint = true,
            .mnuAterstall = state.FundDb != nullptr,
            .cmdAterstall = state.hasCopies,
            .mnuAngra = started && state.undoName,
            .mnuGorOm = started && state.redoName,
            .cboDag = !state.round.pasted,
            .mnuExportera = state.FundDb != nullptr,
            .mnuImportera = state.FundDb != nullptr && state.hasHoldings,
            .cmdImportera = state.imported.stores,
            .cmdFondList = !grid && !Choosing(state),
            .cmdNyAndel = state.hasHoldings,
            .txtValue = !grid,
            .picDiagram = !grid && !PageShown(state)};
}

std::string_view ListCaption(ListUse use) {
    switch (use) {
        case ListUse::Nothing:
            return "";
        case ListUse::Prices:
            return texts::ListForPrices;
        case ListUse::Colour:
            return texts::ChooseColourFor;
        case ListUse::Curves:
            return texts::ChooseCurves;
    }
    return "";
}

std::string_view Instruction(const WindowState& state) {
    if (!Choosing(state)) return "";
    return CollectingCurves(state) ? texts::ChooseCurvesInfo : texts::ChooseColourInfo;
}

std::string CurveNumbers(const WindowState& state) {
    std::string marks;
    for (const std::int32_t kontoId : state.chosenCurves) marks += CurveMark(FundLine(kontoId, ""));
    return marks;
}

/// What to do about a picture that has no curve to show; nothing while curves are chosen for it,
/// or another label says why there is none.
std::string_view EmptyPictureHint(const WindowState& state) {
    if (CollectingCurves(state) || !state.NoFileReason.empty()) return "";
    if (!state.hasHoldings) return texts::NoHoldings;
    if (state.SelectedCurves.empty()) return texts::NoCurvesChosen;
    return state.holding ? texts::NoPointsOfHolding : texts::NoPoints;
}

std::string PointCount(const WindowState& state) {
    if (!state.pointCount) return "";
    return std::string(texts::ListHolds) + PlainText(*state.pointCount) + std::string(texts::Rows);
}

/// "Ångra : kursen 190,32 för Asp". An "&" in a name is no mark of a letter to press.
std::string ReplayCaption(std::string_view command, const std::optional<std::string>& name) {
    if (!name) return std::string(command);
    std::string caption = std::string(command) + std::string(texts::BeforeChangeName);
    for (const char letter : *name) {
        caption += letter;
        if (letter == '&') caption += letter;
    }
    return caption;
}

std::string Heading(const WindowState& state) {
    if (!state.FundDb) return std::string(texts::NoFileOpen);
    const std::string& path = state.CurrentFile;
    const std::string name = path.substr(path.find_last_of("/\\") + 1);
    return std::string(texts::WorkingWith) + name.substr(0, name.rfind('.'));
}

const ShownCurve* LitOf(const WindowState& state) {
    if (!state.lit) return nullptr;
    for (const ShownCurve& curve : state.curves) {
        if (curve.kontoId == state.lit->kontoId) return &curve;
    }
    return nullptr;
}

std::string NoteOf(const WindowState& state, const ShownCurve& curve) {
    return state.lit->point ? PointText(curve, *state.lit->point) : "";
}

std::string TitleOf(const ShownCurve& curve) {
    return FundLine(curve.kontoId, curve.name);
}

std::string SpokenOf(const WindowState& state) {
    const ShownCurve* curve = LitOf(state);
    if (curve == nullptr) return SpokenPicture(state, EmptyPictureHint(state));
    const std::string note = NoteOf(state, *curve);
    return Trim(TitleOf(*curve)) + (note.empty() ? "" : "   " + note);
}

std::optional<Shown::Lit> LitIn(const WindowState& state) {
    const ShownCurve* curve = LitOf(state);
    if (curve == nullptr) return std::nullopt;
    Shown::Lit lit{.kontoId = curve->kontoId};
    if (!state.lit->point) return lit;
    lit.at = CurvePoint{state.lit->point->day - state.WindowStartDay, state.lit->point->value};
    lit.title = Trim(TitleOf(*curve));
    lit.note = NoteOf(state, *curve);
    return lit;
}

/// What the moment asks for stands over what was told before.
std::string StatusNotice(const WindowState& state) {
    if (!state.heldFile.empty()) return std::string(texts::DropOpens) + state.heldFile;
    if (!state.pointedFile.empty()) return state.pointedFile;
    // In the start-up pause nothing else says what is going on.
    if (state.stage == Stage::Starting && state.FundDb && state.notice.empty()) {
        return std::string(texts::Opening) + state.CurrentFile;
    }
    return state.notice;
}

Shown::Captions CaptionsIn(const WindowState& state) {
    const bool days = state.DayStep == daystep::kWeek || state.DayStep == daystep::kMonth;
    return {.frmPPM = state.caption,
            .lblRubrik = Heading(state),
            .lblPanDatum = DateText(state.TodayDay),
            .lblIngenFil = state.NoFileReason,
            .panListFonder = std::string(ListCaption(state.listUse)),
            .lblGrafNr = CurveNumbers(state),
            .lblPlottInfo = std::string(Instruction(state)),
            .cmdPPMData = std::string(GridShown(state) ? texts::ToDiagram : texts::ToHoldings),
            .mnuVeckor = std::string(days ? texts::ShowDays : texts::ShowWeeks),
            .mnuMonth = std::string(days ? texts::ShowDays : texts::ShowMonths),
            .lblTotal = state.totals,
            .lblXCord = state.reading.date,
            .lblYCord = state.reading.value,
            .lblKopia = state.copyText,
            .mnuAngra = ReplayCaption(texts::Undo, state.undoName),
            .mnuGorOm = ReplayCaption(texts::Redo, state.redoName),
            .lblForhand = state.priceNote.text,
            .panKurser = std::string(texts::DayPricesOf) +
                         DateText(state.round.day.value_or(state.TodayDay)),
            .lblKlara = state.round.done,
            .lblKursBesked = state.round.note.text,
            .panImport = std::string(texts::ImportFrom) + state.imported.file,
            .lblImport = state.imported.text,
            .lblRecCount = PointCount(state),
            .picDiagram = std::string(EmptyPictureHint(state)),
            .spoken = SpokenOf(state),
            .missingDays = SpokenMissingDays(state.missingDays),
            .curveColour = SpokenColour(state.view.colour),
            .news = state.news,
            .staBar = StatusNotice(state)};
}

Shown::Tags TagsIn(const WindowState& state) {
    const std::string_view view = state.holding ? kSingleFund : "";
    return {.panListFonder = std::string(state.choosingStartFile ? kStartFile : view),
            .imgGrafNr = std::string(CollectingCurves(state) ? kCollecting : kOff),
            .imgColor = std::string(ChoosingColour(state) ? kColour : kOff),
            .GridPlott = std::string(state.storingPoint ? kHeld : ""),
            .DBGrid = state.rowBeingDeleted ? PlainText(*state.rowBeingDeleted) : "",
            .CmDialog = std::string(state.choosingStartFile ? kStartFile : "")};
}

std::vector<Shown::FileItem> FileItems(const WindowState& state) {
    std::vector<Shown::FileItem> items;
    for (const ListedFile& file : state.files) {
        const auto number = static_cast<std::int32_t>(items.size()) + 1;
        items.push_back({FileItemCaption(number, FileItemName(file.path)), file.path, file.open});
    }
    return items;
}

std::optional<std::int32_t> TodayIn(const WindowState& state) {
    const std::int32_t day = state.TodayDay - state.WindowStartDay;
    return day >= 0 && day <= kDaysShown ? std::optional(day) : std::nullopt;
}

std::vector<std::int32_t> DaysOfAxis(const WindowState& state) {
    std::vector<std::int32_t> days = state.missingDays;
    for (std::int32_t& day : days) day -= state.WindowStartDay;
    return days;
}

}  // namespace

Shown ShownBy(const WindowState& state) {
    return {.visible = VisibleIn(state),
            .enabled = EnabledIn(state),
            .captions = CaptionsIn(state),
            .tags = TagsIn(state),
            .listColour = CollectingCurves(state) ? ListUse::Curves : ListUse::Prices,
            .priceDoubted = state.priceNote.doubtful,
            .roundDoubted = state.round.note.doubtful,
            .missingDays = DaysOfAxis(state),
            .view = state.view,
            .focus = state.focus,
            .typedPrice = state.typedPrice,
            .legend = LegendShown(state) ? state.curves : std::vector<ShownCurve>{},
            .lit = LitIn(state),
            .files = FileItems(state),
            .today = TodayIn(state)};
}
