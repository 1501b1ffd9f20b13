#include "entry/sourcefailures.h"

#include "app/frmPPM.h"
#include "base/number.h"
#include "entry/texts.h"
#include "platform/datasource.h"

#include <cstdint>
#include <string>

SourceFailures::SourceFailures(frmPPM& ppm) : Controller(ppm) {
    On(window.dtaBasData, &DataSource::Failed, this, &SourceFailures::dtaBasData_Error);
    On(window.dtaPlott, &DataSource::Failed, this, &SourceFailures::dtaPlott_Error);
    On(window.dtaSQL, &DataSource::Failed, this, &SourceFailures::dtaSQL_Error);
}

void SourceFailures::dtaBasData_Error(int number) {
    ShowSourceError(number, texts::BasDataFailed);
}
void SourceFailures::dtaPlott_Error(int number) {
    ShowSourceError(number, texts::PlottFailed);
}
void SourceFailures::dtaSQL_Error(int number) {
    ShowSourceError(number, texts::SqlFailed);
}

void SourceFailures::ShowSourceError(int number, std::string_view source) {
    Tell(PlainText(static_cast<std::int32_t>(number)) + std::string(source));
}
