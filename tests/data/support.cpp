#include "tests/data/support.h"

#include "base/number.h"
#include "fundfile/rules/savedvalues.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "jet/transaction.h"

#include <QProcess>
#include <QString>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <signal.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace testdata {

std::optional<fs::path> SampleFolder() {
    const char* folder = std::getenv("KVARNBO_SAMPLES");
    if (folder == nullptr || !fs::is_directory(fs::path(folder) / "fundfiles")) {
        return std::nullopt;
    }
    return fs::path(folder) / "fundfiles";
}

std::vector<fs::path> SampleFundFiles() {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(*SampleFolder())) {
        if (entry.path().extension() == ".mdb") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

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

namespace {

std::string ReadAll(int descriptor) {
    std::string text;
    std::array<char, 512> buffer{};
    for (ssize_t count = 0; (count = ::read(descriptor, buffer.data(), buffer.size())) > 0;) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
}

void WriteAll(int descriptor, const std::string& text) {
    if (::write(descriptor, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
        ::_exit(3);
    }
}

[[noreturn]] void WorkAsChild(const std::function<std::string()>& work, Child::As as, int from,
                              int to) {
    constexpr uid_t kNobody = 65534;
    ReadAll(from);  // until the parent lets it begin
    if (as == Child::As::OrdinaryUser && ::geteuid() == 0 &&
        (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) {
        ::_exit(4);
    }
    std::string result;
    try {
        result = work();
    } catch (const std::exception& error) {
        result = std::string("threw ") + error.what();
    }
    WriteAll(to, result);
    ::_exit(0);
}

struct Pipe {
    Pipe() {
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    }
    std::array<int, 2> ends{};
};

}  // namespace

Child::Child(std::function<std::string()> work, As as) {
    const Pipe down, up;
    process_ = ::fork();
    if (process_ == 0) {
        ::close(down.ends[1]);
        WorkAsChild(work, as, down.ends[0], up.ends[1]);
    }
    ::close(down.ends[0]);
    ::close(up.ends[1]);
    toChild_ = down.ends[1];
    fromChild_ = up.ends[0];
}

std::string Child::Run() {
    if (process_ < 0) return {};
    ::close(toChild_);
    std::string result = ReadAll(fromChild_);
    ::close(fromChild_);
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return "the child failed: " + result;
    return result;
}

OtherCopy::OtherCopy(const fs::path& path) {
    const auto [down, up] = std::array{Pipe().ends, Pipe().ends};
    process_ = ::fork();
    if (process_ == 0) {
        ::close(down[1]);
        {
            FundFile file = OpenFundFile(path);
            WriteAll(up[1], std::string(1, static_cast<char>(file.right)));
            ReadAll(down[0]);  // until the other end closes
            CloseFundFile(file.database);
        }
        ::_exit(0);
    }
    ::close(down[0]);
    ::close(up[1]);
    toChild_ = down[1];
    char right = 0;
    if (::read(up[0], &right, 1) != 1) ADD_FAILURE() << "the other copy could not open " << path;
    right_ = static_cast<WriteRight>(right);
    ::close(up[0]);
}

void OtherCopy::Wait() {
    if (process_ > 0) {
        int status = 0;
        ::waitpid(process_, &status, 0);
        process_ = -1;
    }
}

void OtherCopy::Close() {
    if (toChild_ >= 0) ::close(toChild_);
    toChild_ = -1;
    Wait();
}

void OtherCopy::Die() {
    ::kill(process_, SIGKILL);
    Wait();
    Close();
}

OtherCopy::~OtherCopy() {
    Close();
}

}  // namespace testdata
