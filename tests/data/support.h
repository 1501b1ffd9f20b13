#pragma once
// What the tests of the fund file layer share: a folder of their own, fund files to work on, a
// second process, and an independent reader.

#include "base/error.h"
#include "fundfile/datasource.h"
#include "fundfile/fundfile.h"
#include "jet/database.h"

#include <QTemporaryDir>

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
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

/// The sample files for development; null where KVARNBO_SAMPLES does not lead to them.
std::optional<fs::path> SampleFolder();
std::vector<fs::path> SampleFundFiles();

/// A new fund file with `holdings` rows called Fond 1, Fond 2 ... and `points` points each.
void MakeFundFile(const fs::path& path, int holdings, int points);
void AddHolding(jet::RecordSet& records, std::string_view name);

/// The rows of a table as mdb-export prints them, without its heading; each line one text.
std::vector<std::string> MdbExport(const fs::path& path, std::string_view table);

std::string BytesOf(const fs::path& path);
void WriteText(const fs::path& path, std::string_view text);
std::vector<std::string> NamesIn(const fs::path& folder);

/// The number of the Error that `work` throws; None when it does not throw.
ErrorNumber NumberOf(const std::function<void()>& work);

/// Another process, begun as a copy of this one: make it before a file is opened here, or it would
/// believe that it has that file open itself. It waits until Run lets it work, and ends with that.
class Child {
  public:
    enum class As {
        Ourselves,
        OrdinaryUser
    };  ///< root gives up its rights, so that protection counts
    explicit Child(std::function<std::string()> work, As as = As::Ourselves);
    ~Child() { Run(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    std::string Run();  ///< what `work` returns there; "threw ..." for an exception

  private:
    int process_ = -1, toChild_ = -1, fromChild_ = -1;
};

/// Another process that has a fund file open until it is told to close it, or dies.
class OtherCopy {
  public:
    explicit OtherCopy(const fs::path& path);
    ~OtherCopy();
    OtherCopy(const OtherCopy&) = delete;
    OtherCopy& operator=(const OtherCopy&) = delete;

    WriteRight Right() const { return right_; }
    void Close();  ///< ends the process as a program that is quit
    void Die();    ///< kills it
    int Process() const { return process_; }

  private:
    void Wait();
    int process_ = -1, toChild_ = -1;
    WriteRight right_ = WriteRight::Ours;
};

}  // namespace testdata

#define SKIP_WITHOUT_SAMPLES()                                     \
    if (!testdata::SampleFolder())                                 \
    GTEST_SKIP() << "KVARNBO_SAMPLES does not name a folder with " \
                    "fundfiles/"
