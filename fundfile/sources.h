#pragma once
// The road from a path to working data sources,
// the same at start and when the user opens another file.

#include "fundfile/fundfile.h"
#include "platform/datasource.h"

#include <filesystem>
#include <memory>
#include <string>

struct FundSources {
    DataSource& holdings;  ///< `dtaBasData`
    DataSource& points;    ///< `dtaPlott`
};

/// Opens `path`, binds the holdings to FR_FONDDATA and the points to `pointsQuery`
/// (queries::AllPoints or AllPointsAfterOpening), and refreshes holdings, then points. Throws what
/// OpenFundFile throws; the sources are bound to nothing then, and no file is left open by it.
/// Tell the user when `right` is not WriteRight::Ours: fundtexts::Explain says it.
FundFile OpenAndBind(const std::filesystem::path& path, const FundSources& sources,
                     const std::string& pointsQuery);

/// The same in the place of `former`, which is closed once the other file is open: on an Error
/// everything is as it was before. Null stands for none. A file that is opened once more is read
/// anew, so it is closed first; if it can no longer be opened, `former` is null and the sources are
/// bound to nothing.
FundFile OpenInPlaceOf(std::shared_ptr<jet::Database>& former, const std::filesystem::path& path,
                       const FundSources& sources, const std::string& pointsQuery);
