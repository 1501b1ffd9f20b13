#pragma once
// What the tests of the fund file layer share: a folder of their own, fund files to work on, a
// second process, and an independent reader.

#include "base/error.h"
#include "fundfile/fundfile.h"
#include "fundfile/records.h"
#include "jet/database.h"
#include "platform/datasource.h"
#include "tests/support/otherprocess.h"
#include "tests/support/samplefiles.h"

#include <QTemporaryDir>

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace testdata {

namespace fs = std::filesystem;

/// A folder that is gone after the test.
class TemporaryFolder {
  public:
    fs::path Path() const { return folder_.path().toStdString(); }
    fs::path operator/(std::string_view name) const { return Path() / name; }

  private:
    QTemporaryDir folder_;
};

/// A new fund file with `holdings` rows called Fond 1, Fond 2 ... and `points` points each.
void MakeFundFile(const fs::path& path, int holdings, int points);
void AddHolding(jet::RecordSet& records, std::string_view name);

/// One holding's points in day order.
std::vector<CurvePoint> PointsOf(jet::Database& database, std::int32_t kontoId);

/// The rows of a table as mdb-export prints them, without its heading; each line one text.
std::vector<std::string> MdbExport(const fs::path& path, std::string_view table);

std::string BytesOf(const fs::path& path);
void WriteText(const fs::path& path, std::string_view text);
std::vector<std::string> NamesIn(const fs::path& folder);

/// The number of the Error that `work` throws; None when it does not throw.
ErrorNumber NumberOf(const std::function<void()>& work);

}  // namespace testdata
