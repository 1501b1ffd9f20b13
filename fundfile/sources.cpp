#include "fundfile/sources.h"

#include "base/error.h"
#include "fundfile/schema.h"
#include "jet/files.h"

#include <utility>

namespace {

void Bind(const std::shared_ptr<jet::Database>& database, const FundSources& sources,
          const std::string& pointsQuery) {
    // What can fail comes first: the sources stay bound to the former file then.
    const std::shared_ptr<jet::RecordSet> points = database->OpenRecordSet(pointsQuery);
    database->OpenRecordSet(schema::kHoldingsSource);
    sources.holdings.SetDatabase(database);
    sources.holdings.SetRecordSource(std::string(schema::kHoldingsSource));
    sources.holdings.Refresh();
    sources.points.SetRecordSet(points);
}

}  // namespace

FundFile OpenAndBind(const std::filesystem::path& path, const FundSources& sources,
                     const std::string& pointsQuery) {
    sources.points.Close();
    sources.holdings.Close();
    std::shared_ptr<jet::Database> none;
    return OpenInPlaceOf(none, path, sources, pointsQuery);
}

FundFile OpenInPlaceOf(std::shared_ptr<jet::Database>& former, const std::filesystem::path& path,
                       const FundSources& sources, const std::string& pointsQuery) {
    if (former && jet::IsSameFile(former->Path(), path)) {
        sources.points.Close();
        sources.holdings.Close();
        CloseFundFile(former);
    }
    FundFile file = OpenFundFile(path);
    try {
        Bind(file.database, sources, pointsQuery);
    } catch (const Error&) {
        CloseFundFile(file.database);
        throw;
    }
    CloseFundFile(former);
    return file;
}
