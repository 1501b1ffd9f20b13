#include "app/typedwork.h"

#include "app/frmPPM.h"
#include "app/texts.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/qttext.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"
#include "widgets/entryfield.h"

#include <string_view>
#include <utility>

namespace {

/// What is typed in a notice: its date, shares, price and percentage. The name and the number are
/// the holding's, the value is computed.
constexpr int kTypedBoxes[] = {2, 3, 4, 6};

std::string Named(std::string_view what, const std::string& name, std::string_view without) {
    return name.empty() ? std::string(without) : std::string(what) + name;
}

std::string AccountFieldName(const BoundField& field) {
    return std::string(texts::AccountField) + FromQt(field.accessibleName());
}

}  // namespace

TypedWork::TypedWork(frmPPM& ppm) : Controller(ppm) {}

bool TypedWork::MayLeaveFile() {
    std::vector<Unstored> unstored;
    QWidget* first = nullptr;
    for (const Piece& piece : Pieces()) {
        bool stored = false;
        std::vector<std::string> told =
            window.messages.ToldBy([&] { Run([&] { stored = piece.store(); }); });
        if (stored) {
            for (const std::string& text : told) Tell(text);
            continue;
        }
        unstored.push_back({piece.name(), std::move(told)});
        if (first == nullptr) first = piece.place;
    }
    if (unstored.empty()) return true;
    if (Ask(unstored)) {
        GiveUp();
        return true;
    }
    GoTo(*first);
    return false;
}

bool TypedWork::MayLeaveNotice() {
    if (!NoticeTyped() || Ask({{NoticeName(), {}}})) return true;
    window.txtNyAndel[kTypedBoxes[0]]->setFocus();
    return false;
}

/// In the order in which the question names them.
std::vector<TypedWork::Piece> TypedWork::Pieces() {
    std::vector<Piece> pieces;
    for (BoundField* field : {window.txtKontoNr, window.txtPnr, window.txtNamn}) {
        pieces.push_back({field, [field] { return AccountFieldName(*field); },
                          [field] { return field->Store(); }});
    }
    for (const auto& [grid, name] : {std::pair(window.DBGrid, &TypedWork::HoldingName),
                                     std::pair(window.GridPlott, &TypedWork::PointName)}) {
        DataGrid* const typed = grid;
        pieces.push_back({typed, [this, name = name] { return (this->*name)(); },
                          [typed] { return typed->StoreRow(); }});
    }
    // Only Enter stores a price: it was never confirmed.
    for (const auto& [kontoId, price] : window.round.typed) {
        const std::string name = std::string(texts::DayPriceOf) + price.text +
                                 std::string(texts::DayPriceFor) + price.fond;
        pieces.push_back({window.txtNyKurs, [name] { return name; }, [] { return false; }});
    }
    // Only its own button stores a notice: it is either whole or not wanted.
    pieces.push_back({window.txtNyAndel[kTypedBoxes[0]], [this] { return NoticeName(); },
                      [this] { return !NoticeTyped(); }});
    return pieces;
}

std::string TypedWork::HoldingName() const {
    using namespace schema::holding;
    const std::string name = window.DBGrid->TypedText(std::string(kNames[kFond]));
    return Named(texts::HoldingOf, name, texts::NamelessHolding);
}

std::string TypedWork::PointName() const {
    using namespace schema::point;
    const std::string fondNr = window.GridPlott->TypedText(std::string(kNames[kFondNr]));
    return Named(texts::PointOf, fondNr, texts::NamelessPoint);
}

std::string TypedWork::NoticeName() const {
    return std::string(texts::NoticeOf) + ReadHolding(*window.dtaBasData).fond;
}

bool TypedWork::NoticeTyped() const {
    if (window.stage != Stage::SharesNotice) return false;
    for (const int box : kTypedBoxes) {
        if (window.txtNyAndel[box]->Changed()) return true;
    }
    return false;
}

bool TypedWork::Ask(const std::vector<Unstored>& unstored) {
    return window.platform.dialogs.Show({.text = UnstoredQuestion(unstored),
                                         .buttons = Buttons::YesNo,
                                         .icon = Icon::Question,
                                         .defaultButton = DefaultButton::Second}) == Answer::Yes;
}

void TypedWork::GoTo(QWidget& place) {
    if (&place == window.txtNyKurs && window.stage != Stage::DayPrices) {
        return window.mnuKurser_Click();
    }
    place.setFocus();
}

void TypedWork::GiveUp() {
    window.round.typed.clear();
    window.DBGrid->CancelRow();
    window.GridPlott->CancelRow();
    for (BoundField* field : {window.txtKontoNr, window.txtPnr, window.txtNamn}) field->Reload();
    for (BoundField* box : window.txtNyAndel) box->Reload();
}
