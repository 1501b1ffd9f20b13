// The three data sources and the file dialog: controls that nobody sees.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "fundfile/schema.h"
#include "platform/datasource.h"

#include <string>

namespace {

DataSource* Source(frmPPM& window, const char* name, const char* caption) {
    return Named(new DataSource(name, caption, &window), name);
}

}  // namespace

void FurnishDataSources(frmPPM& window) {
    window.dtaBasData = Source(window, "dtaBasData", "BasData");
    window.dtaPlott = Source(window, "dtaPlott", "Plotting");
    window.dtaSQL = Source(window, "dtaSQL", "SQL");
    window.dtaBasData->SetRecordSource(std::string(schema::kHoldingsSource));
}
