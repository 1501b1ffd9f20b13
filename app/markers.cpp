#include "app/markers.h"

#include "app/controls.h"
#include "app/imagebutton.h"
#include "base/error.h"
#include "base/number.h"
#include "platform/caption.h"
#include "platform/commondialog.h"
#include "platform/datagrid.h"
#include "platform/statuspanels.h"
#include "platform/tag.h"

#include <QGroupBox>
#include <QLabel>

namespace {

constexpr std::string_view kSingleFund = "idxY";
constexpr std::string_view kStartFile = "Start";
constexpr std::string_view kCollecting = "1";
constexpr std::string_view kColour = "2";
constexpr std::string_view kOff = "0";
constexpr std::string_view kHeld = "1";

}  // namespace

bool Markers::SingleFundShown() const {
    return Tag(controls_.panListFonder) == kSingleFund;
}
void Markers::ShowSingleFund() {
    SetTag(controls_.panListFonder, kSingleFund);
}
void Markers::ShowSeveralCurves() {
    SetTag(controls_.panListFonder, "");
}

bool Markers::ChoosingStartFile() const {
    return controls_.CmDialog->tag == kStartFile;
}

void Markers::StartChoosingStartFile() {
    if (!ChoosingStartFile()) viewBeforeStartFile_ = Tag(controls_.panListFonder);
    controls_.CmDialog->tag = kStartFile;
    SetTag(controls_.panListFonder, kStartFile);
}

void Markers::StopChoosingStartFile() {
    if (ChoosingStartFile()) SetTag(controls_.panListFonder, viewBeforeStartFile_);
    controls_.CmDialog->tag.clear();
}

bool Markers::CollectingCurves() const {
    return Tag(controls_.imgGrafNr) == kCollecting;
}

void Markers::StartCollectingCurves() {
    SetTag(controls_.imgGrafNr, kCollecting);
    SetTag(controls_.imgColor, kOff);
}

void Markers::StopCollectingCurves() {
    SetTag(controls_.imgGrafNr, kOff);
}

bool Markers::ChoosingColour() const {
    return Tag(controls_.imgColor) == kColour;
}

void Markers::StartChoosingColour() {
    SetTag(controls_.imgColor, kColour);
    SetTag(controls_.imgGrafNr, kOff);
}

void Markers::StopChoosingColour() {
    SetTag(controls_.imgColor, kOff);
}

bool Markers::HoldingChosen() const {
    return !Caption(controls_.lblFraData[0]).empty();
}

float Markers::StartPrice() const {
    return ParseSingle(StartPriceText());
}
std::string Markers::StartPriceText() const {
    return controls_.staBar->Tag(statuspanel::kStartPrice);
}
void Markers::SetStartPrice(std::string_view text) {
    controls_.staBar->SetTag(statuspanel::kStartPrice, text);
}

bool Markers::GridRedraws() const {
    return Tag(controls_.GridPlott).empty();
}
void Markers::HoldGridRedraw() {
    SetTag(controls_.GridPlott, kHeld);
}
void Markers::LetGridRedraw() {
    SetTag(controls_.GridPlott, "");
}

std::optional<std::int32_t> Markers::RowBeingDeleted() const {
    const std::string text = Tag(controls_.DBGrid);
    if (text.empty()) return std::nullopt;
    return ParseInteger(text);
}

void Markers::SetRowBeingDeleted(std::int32_t kontoId) {
    SetTag(controls_.DBGrid, PlainText(kontoId));
}

void Markers::ForgetRowBeingDeleted() {
    SetTag(controls_.DBGrid, "");
}
