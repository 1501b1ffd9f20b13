#include "fundfile/newfiles.h"

#include "base/error.h"
#include "fundfile/fundfile.h"
#include "fundfile/rules/savedvalues.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "jet/files.h"
#include "jet/transaction.h"

#include <cstdint>
#include <memory>

namespace {

constexpr std::size_t kCopiedHoldingColumns = schema::holding::kSkala + 1;

void CopyColumns(jet::RecordSet& from, std::int32_t row, jet::RecordSet& to, std::size_t columns) {
    for (std::size_t position = 0; position < columns; ++position) {
        to.Set(position, from.At(row, position));
    }
}

void CopyHoldings(jet::RecordSet& from, jet::RecordSet& to) {
    const std::int32_t count = from.RecordCount();
    for (std::int32_t row = 0; row < count; ++row) {
        to.AddNew();
        CopyColumns(from, row, to, kCopiedHoldingColumns);
        to.Set(schema::holding::kSparadeVarden, kKeepValues);  // a copy begins without
        to.Update();
    }
}

void CopyPoints(jet::RecordSet& from, jet::RecordSet& to) {
    const std::int32_t count = from.RecordCount();
    for (std::int32_t row = 0; row < count; ++row) {
        to.AddNew();
        CopyColumns(from, row, to, schema::point::kColumnCount);
        to.Update();
    }
}

}  // namespace

void CreateFundFile(const std::filesystem::path& templateFile,
                    const std::filesystem::path& target) {
    CheckNotInUse(target);
    jet::CopyFile(templateFile, target);
}

void SaveCopy(DataSource& holdings, jet::RecordSet& points,
              const std::filesystem::path& templateFile, const std::filesystem::path& target) {
    CheckNotInUse(target);
    const std::shared_ptr<jet::Database> copy = jet::Database::LoadCopy(templateFile);
    jet::Transaction transaction(copy);
    CopyHoldings(holdings.Records(), *copy->OpenRecordSet("FondData"));
    CopyPoints(points, *copy->OpenRecordSet("PlottData"));
    transaction.Commit();
    copy->SaveAs(target);
}
