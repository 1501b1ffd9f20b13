#include "app/listtyping.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "platform/qttext.h"
#include "platform/typedkey.h"
#include "widgets/entryfield.h"

#include <QCoreApplication>
#include <QEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QListWidget>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::u32string_view kPriceCharacters = U"0123456789,.";

std::vector<std::string> LinesOf(const QListWidget& list) {
    std::vector<std::string> lines;
    for (int row = 0; row < list.count(); ++row) lines.push_back(FromQt(list.item(row)->text()));
    return lines;
}

}  // namespace

ListTyping::ListTyping(frmPPM& ppm) : Controller(ppm) {
    OnEvent(window.lstFonder, QEvent::KeyPress, [this](QEvent& event) {
        return lstFonder_KeyPress(static_cast<const QKeyEvent&>(event));
    });
}

bool ListTyping::lstFonder_KeyPress(const QKeyEvent& event) {
    const bool brings = !event.text().isEmpty() && event.text().front().isPrint();
    const std::optional<char32_t> typed = TypedCharacter(event);
    // A blank chooses the line; a key without a character moves.
    if (!brings || typed == U' ') return false;
    if (!typed) return true;
    if (kPriceCharacters.find(*typed) != kPriceCharacters.npos) {
        TypePrice(event);
    } else {
        FindFund(event);
    }
    return true;
}

/// Whoever has just chosen a fund types its price. Where a colour or curves are chosen, and while
/// no fund is open, there is no price to type.
void ListTyping::TypePrice(const QKeyEvent& event) {
    if (Choosing(window.State()) || !window.holding) return;
    window.Put(WithKeysInPrice(window.State()));
    EntryField& price = *window.txtValue;
    // A price that was left there is replaced, not added to.
    price.selectAll();
    QKeyEvent again(event.type(), event.key(), event.modifiers(), event.text());
    QCoreApplication::sendEvent(&price, &again);
}

void ListTyping::FindFund(const QKeyEvent& event) {
    const QListWidget& list = *window.lstFonder;
    search_.Type(FromQt(event.text()), event.timestamp());
    // The first letter leads away from where one is, but at the start no line is more than marked.
    const bool somewhere = window.holding || CollectingCurves(window.State());
    const bool on = somewhere && !search_.MayStay();
    const int start = std::max(0, list.currentRow()) + (on ? 1 : 0);
    const auto found = search_.Find(LinesOf(list), static_cast<std::size_t>(start));
    if (found) GoTo(static_cast<int>(*found));
}

/// While curves are chosen every chosen line counts: there the mark alone moves.
void ListTyping::GoTo(int row) {
    QListWidget& list = *window.lstFonder;
    if (CollectingCurves(window.State())) {
        return list.setCurrentRow(row, QItemSelectionModel::NoUpdate);
    }
    const bool there = row == list.currentRow();
    list.setCurrentRow(row);
    if (there && !window.holding) window.OpenSelectedFund();
}
