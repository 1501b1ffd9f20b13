#include "fundfile/newfiles.h"

#include "fundfile/fundfile.h"
#include "fundfile/schema.h"
#include "fundfile/wholefile.h"
#include "jet/transaction.h"

namespace {

constexpr std::size_t kCopiedHoldingColumns = schema::holding::kSkala + 1;

void CopyRows(jet::RecordSet& from, jet::RecordSet& to, std::size_t columns) {
    const std::int32_t count = from.RecordCount();
    const bool savesValues = to.FieldCount() == schema::holding::kColumnCount;
    for (std::int32_t row = 0; row < count; ++row) {
        to.AddNew();
        for (std::size_t position = 0; position < columns; ++position) {
            to.Set(position, from.At(row, position));
        }
        if (savesValues) {  // not copied: a copy begins without saved values
            to.Set(schema::holding::kSparadeVarden, schema::kNothingSaved);
        }
        to.Update();
    }
}

}  // namespace

void CreateFundFile(const std::filesystem::path& templateFile,
                    const std::filesystem::path& target) {
    CheckNotInUse(target);
    WholeFile file(templateFile, target);
    file.PutInPlace();
}

void SaveCopy(DataSource& holdings, DataSource& points, const std::filesystem::path& templateFile,
              const std::filesystem::path& target) {
    CheckNotInUse(target);
    WholeFile file(templateFile, target);
    const std::shared_ptr<jet::Database> copy = jet::Database::Open(file.Path());
    try {
        jet::Transaction transaction(copy);
        CopyRows(holdings.Records(), *copy->OpenRecordSet("FondData"), kCopiedHoldingColumns);
        CopyRows(points.Records(), *copy->OpenRecordSet("PlottData"), schema::point::kColumnCount);
        transaction.Commit();
    } catch (const Error&) {
        copy->Close();
        throw;
    }
    copy->Close();
    file.PutInPlace();
}
