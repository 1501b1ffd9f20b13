#include "entry/newsharesnotice.h"

#include "app/change.h"
#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "base/keyfilter.h"
#include "base/pastedtext.h"
#include "entry/rules/cells.h"
#include "entry/texts.h"
#include "fundfile/editrow.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "platform/caption.h"
#include "platform/dialogs.h"
#include "platform/keystrokes.h"
#include "platform/platform.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"

#include <QEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include <cstdint>
#include <optional>
#include <string>

namespace {

using namespace schema::holding;

constexpr int kNameBox = 0;
constexpr int kNumberBox = 1;
constexpr int kDateBox = 2;
constexpr int kSharesBox = 3;
constexpr int kPriceBox = 4;
constexpr int kValueBox = 5;

}  // namespace

NewSharesNotice::NewSharesNotice(frmPPM& ppm) : Controller(ppm) {
    for (std::size_t i = 0; i < window.txtNyAndel.size(); ++i) {
        const int index = static_cast<int>(i);
        BoundField* box = window.txtNyAndel[index];
        box->Bind(window.dtaBasData, std::string(kNames[kFond + i]));
        box->StoreOnlyWhenTold();
        box->SetFilter(kNewSharesKeys);
        box->SetPasteFilter(index == kDateBox ? PastedDate : PastedNumber);
        box->SetEnter([this] { Run([this] { window.platform.keyStrokes.Send("{TAB}"); }); });
        On(box, &EntryField::Entered, [this, index] { txtNyAndel_GotFocus(index); });
    }
    // They say which holding the notice is about.
    for (const int index : {kNameBox, kNumberBox}) {
        window.txtNyAndel[index]->ShowOnly();
        window.txtNyAndel[index]->setFocusPolicy(Qt::ClickFocus);
    }
    On(window.cmdNyAndel, &QPushButton::clicked, [this] { cmdNyAndel_Click(); });
    On(window.cmdNyOk, &QPushButton::clicked, [this] { cmdNyOk_Click(); });
    OnEvent(window.cmdNyOk, QEvent::KeyPress, [this](QEvent& event) {
        const int key = static_cast<const QKeyEvent&>(event).key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
        cmdNyOk_Click();
        return true;
    });
    // However the row is left: what was typed in it and not stored is gone.
    OnEvent(window.fraNyAndel, QEvent::Hide, [this](QEvent&) {
        ForgetTyping();
        return false;
    });
}

void NewSharesNotice::cmdNyAndel_Click() {
    if (!window.DBGrid->StoreRow()) return;
    DataSource& holdings = *window.dtaBasData;
    if (holdings.Empty()) return;
    // A notice is about a holding, never about the empty last row.
    if (holdings.Eof()) holdings.MoveLast();
    const Answer answer = window.platform.dialogs.Show({.text = std::string(texts::AskNewShares),
                                                        .buttons = Buttons::YesNo,
                                                        .icon = Icon::Information,
                                                        .defaultButton = DefaultButton::Second});
    if (answer == Answer::Yes) return OpenRow();
    window.DBGrid->setFocus();
}

void NewSharesNotice::OpenRow() {
    ForgetTyping();
    window.Put(AfterNoticeOpened(window.State()));
    window.txtNyAndel[kDateBox]->selectAll();
}

void NewSharesNotice::CloseRow() {
    window.Put(AfterNoticeClosed(window.State()));
    for (BoundField* box : window.txtNyAndel) SetCaption(box, "");
}

void NewSharesNotice::ForgetTyping() {
    for (BoundField* box : window.txtNyAndel) box->Reload();
}

void NewSharesNotice::txtNyAndel_GotFocus(int index) {
    if (index != kValueBox) return;
    // Half-typed numbers have no product yet: storing tells what is wrong.
    Skipping skip;
    skip([&] {
        const auto value = ValueBoxText(Caption(window.txtNyAndel[kSharesBox]),
                                        Caption(window.txtNyAndel[kPriceBox]));
        if (value) SetCaption(window.txtNyAndel[kValueBox], *value);
    });
}

NoticeBoxes NewSharesNotice::Texts() const {
    NoticeBoxes boxes;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        boxes[i] = Caption(window.txtNyAndel[static_cast<int>(i)]);
    }
    return boxes;
}

void NewSharesNotice::cmdNyOk_Click() {
    const NoticeBoxes boxes = Texts();
    if (const auto empty = EmptyBox(boxes)) {
        Tell(texts::AllFieldsNeeded);
        window.txtNyAndel[static_cast<int>(*empty)]->setFocus();
        return;
    }
    Notice notice;
    try {
        notice = ReadNotice(boxes);
    } catch (const Error&) {
        return Tell(texts::NoNumbers);
    }
    if (!window.dtaBasData->Guard([&] { Store(notice); })) return;
    CloseRow();
    ShowOpenHoldingAgain();
}

/// The old values are kept and the new ones written in one edit: all of it, or nothing.
void NewSharesNotice::Store(const Notice& notice) {
    const HoldingRow before = ReadHolding(*window.dtaBasData);
    const std::optional<std::string> saved = ValuesToSave(before);
    const Change change(window, SharesChange(before.fond));
    EditRow(*window.dtaBasData, [&](DataSource& row) {
        if (saved) row.Set(kSparadeVarden, *saved);
        row.Set(kBokfortDatum, FormatDay(notice.day));
        row.Set(kFondandelar, notice.shares);
        row.Set(kKursKr, notice.price);
        if (const auto value = RowValue(notice.shares, notice.price)) {
            row.Set(kVardeKr, *value);
        }
        row.Set(kAndel, notice.percent);
    });
}

/// The fund panel's start price and values are those of the row as it is now.
void NewSharesNotice::ShowOpenHoldingAgain() {
    if (!window.holding) return;
    const std::int32_t row = window.dtaBasData->Position();
    window.OpenSelectedFund();
    window.dtaBasData->MoveTo(row);
}
