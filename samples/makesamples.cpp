// makesamples FOLDER: writes Db0.dat, the sample fund files and Grid.dib into FOLDER.
//
// The prices of the sample files end on the day of SOURCE_DATE_EPOCH, or today where that is not
// set. A sample file that was changed since it was written here is kept, since somebody may be
// using it.

#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "fundfile/fundfile.h"
#include "jet/database.h"
#include "samples/gridpicture.h"
#include "samples/samplefile.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QIODevice>
#include <QSaveFile>
#include <QString>

#include <chrono>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kStamp = "samples.sha256";

using Hashes = std::map<std::string, std::string>;

std::int32_t BuildDay() {
    using namespace std::chrono;
    const QByteArray epoch = qgetenv("SOURCE_DATE_EPOCH");
    sys_seconds now = floor<seconds>(system_clock::now());
    if (!epoch.isEmpty()) {
        now = sys_seconds(seconds(static_cast<std::int64_t>(ParseDouble(epoch.toStdString()))));
    }
    return DayNumber(floor<days>(now));
}

QString ToQt(const fs::path& path) {
    return QString::fromStdString(path.string());
}

std::string HashOf(const fs::path& path) {
    QFile file(ToQt(path));
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) {
        return {};
    }
    return hash.result().toHex().toStdString();
}

Hashes ReadStamp(const fs::path& folder) {
    Hashes hashes;
    QFile file(ToQt(folder / kStamp));
    if (file.open(QIODevice::ReadOnly)) {
        std::istringstream lines(file.readAll().toStdString());
        std::string hash, name;
        while (lines >> hash >> name) hashes[name] = hash;
    }
    return hashes;
}

void WriteAll(const fs::path& path, const QByteArray& bytes) {
    QSaveFile file(ToQt(path));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        throw Error{ErrorNumber::DeviceIo, path.string() + " cannot be written"};
    }
}

void WriteStamp(const fs::path& folder, const Hashes& hashes) {
    std::string text;
    for (const auto& [name, hash] : hashes) {
        text.append(hash).append("  ").append(name).append("\n");
    }
    WriteAll(folder / kStamp, QByteArray::fromStdString(text));
}

void WriteGrid(const fs::path& path) {
    const std::vector<std::uint8_t> picture = GridPicture();
    QByteArray bytes;
    for (const std::uint8_t byte : picture) bytes.append(static_cast<char>(byte));
    WriteAll(path, bytes);
}

using Writer = std::function<void(const fs::path&)>;

void Renew(const fs::path& folder, const std::string& name, const Writer& write, Hashes& hashes) {
    const fs::path path = folder / name;
    if (fs::exists(path) && hashes[name] != HashOf(path)) {
        std::cout << name << " was changed since it was written: kept\n";
        return;
    }
    const fs::path fresh = folder / (name + ".new");
    write(fresh);
    fs::rename(fresh, path);
    hashes[name] = HashOf(path);
}

void MakeSamples(const fs::path& folder) {
    const std::int32_t lastDay = BuildDay();
    Hashes hashes = ReadStamp(folder);
    jet::Database::Create(folder / "Db0.dat", NewFundFileDesign(),
                          jet::Date{static_cast<double>(lastDay)});
    WriteGrid(folder / "Grid.dib");
    const auto sample = [lastDay](const Sample& content) {
        return [content, lastDay](const fs::path& path) { WriteSample(content, lastDay, path); };
    };
    Renew(folder, "Vimmels_exempel.mdb", sample(VimmelsSample()), hashes);
    Renew(folder, "Rusken_Kina.mdb", sample(RuskenSample()), hashes);
    WriteStamp(folder, hashes);
}

}  // namespace

int main(int argc, char** argv) try {
    if (argc != 2) {
        std::cerr << "usage: makesamples FOLDER\n";
        return 2;
    }
    MakeSamples(argv[1]);
    return 0;
} catch (const std::exception& error) {
    std::cerr << "makesamples: " << error.what() << "\n";
    return 1;
}
