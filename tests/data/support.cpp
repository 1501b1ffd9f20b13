#include "tests/data/support.h"

#include "base/number.h"
#include "fundfile/queries.h"
#include "fundfile/rules/savedvalues.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "jet/transaction.h"

#include <QProcess>
#include <QString>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>

namespace testdata {

void AddHolding(jet::RecordSet& records, std::string_view name) {
    records.AddNew();
    records.Set(schema::holding::kFond, name);
    records.Set(schema::holding::kFondNr, "123 456");
    records.Set(schema::holding::kBokfortDatum, jet::Date{36526});
    records.Set(schema::holding::kFondandelar, 12.3456);
    records.Set(schema::holding::kKursKr, 100.25);
    records.Set(schema::holding::kNamn, "PPM Konto");
    records.Set(schema::holding::kSkala, kDefaultScaleText);
    records.Set(schema::holding::kSparadeVarden, kKeepValues);
    records.Update();
}

void MakeFundFile(const fs::path& path, int holdings, int points) {
    jet::Database::Create(path, NewFundFileDesign());
    const std::shared_ptr<jet::Database> file = jet::Database::Open(path);
    jet::Transaction transaction(file);
    const auto holdingRows = file->OpenRecordSet(schema::kHoldingsTable);
    const auto pointRows = file->OpenRecordSet(schema::kPointsTable);
    for (int kontoId = 1; kontoId <= holdings; ++kontoId) {
        AddHolding(*holdingRows, "Fond " + PlainText(kontoId));
        for (int point = 0; point < points; ++point) {
            pointRows->AddNew();
            pointRows->Set(schema::point::kFondNr, "123 456");
            pointRows->Set(schema::point::kXCord, 36526 + point);
            pointRows->Set(schema::point::kYCord, point % 60 - 20);
            pointRows->Set(schema::point::kKontoId, kontoId);
            pointRows->Update();
        }
    }
    transaction.Commit();
    file->Close();
}

std::vector<CurvePoint> PointsOf(jet::Database& database, std::int32_t kontoId) {
    return ReadPoints(*database.OpenRecordSet(queries::PointsOf(kontoId)));
}

std::vector<std::string> MdbExport(const fs::path& path, std::string_view table) {
    QProcess program;
    program.start(QStringLiteral("mdb-export"),
                  {QStringLiteral("-H"), QStringLiteral("-D"), QStringLiteral("%F"),
                   QString::fromStdString(path.string()),
                   QString::fromUtf8(table.data(), static_cast<qsizetype>(table.size()))});
    if (!program.waitForFinished() || program.exitCode() != 0) {
        ADD_FAILURE() << "mdb-export (package mdbtools) failed on " << path << ": "
                      << program.readAllStandardError().toStdString();
        return {};
    }
    std::istringstream lines(program.readAllStandardOutput().toStdString());
    std::vector<std::string> rows;
    for (std::string line; std::getline(lines, line);) rows.push_back(line);
    return rows;
}

std::string BytesOf(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void WriteText(const fs::path& path, std::string_view text) {
    std::ofstream(path, std::ios::binary) << text;
}

std::vector<std::string> NamesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

ErrorNumber NumberOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const Error& error) {
        return error.Number();
    }
    return ErrorNumber::None;
}

}  // namespace testdata
