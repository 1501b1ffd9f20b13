#include "entry/holdingcolumns.h"

#include "base/keyfilter.h"
#include "base/pastedtext.h"
#include "base/text.h"
#include "entry/texts.h"
#include "widgets/recordsetmodel.h"

#include <optional>
#include <string_view>
#include <utility>

namespace {

using namespace holdingcolumns;

/// A date may be typed with slashes too.
std::optional<char32_t> DateKey(char32_t typed) {
    return kGridKeys(typed == U'/' ? U'-' : typed);
}

std::string PastedFundNumber(std::string_view text) {
    std::u32string passed;
    for (const char32_t character : ToCodePoints(PastedLine(text))) {
        if (const auto typed = kGridKeys(character)) passed += *typed;
    }
    return ToUtf8(passed);
}

GridColumn ColumnOf(Column column, std::string_view caption, int widthShare) {
    const auto position = schema::holding::kFond + static_cast<std::size_t>(column);
    GridColumn made{.caption = std::string(caption), .field = HoldingField(position)};
    made.widthShare = widthShare;
    // Names take every key, and Enter in them moves on by itself.
    if (column == Fond) return made;
    made.filter = kGridKeys;
    made.enterKeys = "{RIGHT}";
    return made;
}

GridColumn NumberColumn(Column column, std::string_view caption, int widthShare) {
    GridColumn made = ColumnOf(column, caption, widthShare);
    made.pasteFilter = PastedNumber;
    return made;
}

}  // namespace

std::vector<GridColumn> holdingcolumns::All() {
    std::vector<GridColumn> columns = {ColumnOf(Fond, texts::FondColumn, 30),
                                       ColumnOf(FondNr, texts::FondNrColumn, 12),
                                       ColumnOf(BokfortDatum, texts::DateColumn, 13),
                                       NumberColumn(Fondandelar, texts::SharesColumn, 15),
                                       NumberColumn(KursKr, texts::PriceColumn, 13),
                                       ColumnOf(VardeKr, texts::ValueColumn, 15),
                                       NumberColumn(Andel, texts::PercentColumn, 10)};
    columns[Fond].pasteFilter = PastedLine;
    columns[FondNr].pasteFilter = PastedFundNumber;
    columns[BokfortDatum].filter = DateKey;
    columns[BokfortDatum].pasteFilter = PastedDate;
    columns[Fondandelar].decimals = 4;
    columns[VardeKr].decimals = 2;
    columns[VardeKr].locked = true;
    return columns;
}
