#include "fundfile/sources.h"

#include "base/error.h"
#include "fundfile/schema.h"

FundFile OpenAndBind(const std::filesystem::path& path, const FundSources& sources,
                     const std::string& pointsQuery) {
    sources.points.Close();
    sources.holdings.Close();
    FundFile file = OpenFundFile(path);
    try {
        sources.holdings.SetDatabase(file.database);
        sources.holdings.SetRecordSource(std::string(schema::kHoldingsSource));
        sources.points.SetRecordSet(file.database->OpenRecordSet(pointsQuery));
        sources.holdings.Refresh();
        sources.points.Refresh();
    } catch (const Error&) {
        sources.points.Close();
        sources.holdings.Close();
        CloseFundFile(file.database);
        throw;
    }
    return file;
}
