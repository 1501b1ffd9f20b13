#include "entry/sourcefailures.h"

#include "app/frmPPM.h"
#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "entry/texts.h"
#include "fundfile/texts.h"
#include "platform/datasource.h"
#include "widgets/datagrid.h"

#include <cstdint>
#include <optional>
#include <string>

SourceFailures::SourceFailures(frmPPM& ppm) : Controller(ppm) {
    On(window.dtaBasData, &DataSource::Failed, this, &SourceFailures::dtaBasData_Error);
    On(window.dtaPlott, &DataSource::Failed, this, &SourceFailures::dtaPlott_Error);
    On(window.dtaSQL, &DataSource::Failed, this, &SourceFailures::dtaSQL_Error);
}

void SourceFailures::dtaBasData_Error(int number) {
    if (!ShowRefusedCell(number, *window.DBGrid)) ShowSourceError(number, texts::BasDataFailed);
}
void SourceFailures::dtaPlott_Error(int number) {
    if (!ShowRefusedCell(number, *window.GridPlott)) ShowSourceError(number, texts::PlottFailed);
}
void SourceFailures::dtaSQL_Error(int number) {
    ShowSourceError(number, texts::SqlFailed);
}

/// A text that its column cannot hold is the user's to mend:
/// the column is named and the cursor stands there.
bool SourceFailures::ShowRefusedCell(int number, DataGrid& grid) {
    const std::optional<int> column = grid.RefusedColumn();
    if (!column) return false;
    grid.SetCurrentColumn(*column);
    Tell(Trim(grid.ColumnCaption(*column)) + std::string(texts::AfterRefusedColumn) +
         std::string(fundtexts::Explain(static_cast<ErrorNumber>(number))));
    return true;
}

void SourceFailures::ShowSourceError(int number, std::string_view source) {
    Tell(PlainText(static_cast<std::int32_t>(number)) + std::string(source));
}
