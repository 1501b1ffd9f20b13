// makesamples FOLDER DATE: writes Db0.dat, the sample fund files and Grid.dib into FOLDER. The
// prices of the sample files end on DATE (yyyy-mm-dd); the same date gives the same bytes.

#include "base/daynumber.h"
#include "base/error.h"
#include "fundfile/fundfile.h"
#include "jet/database.h"
#include "samples/gridpicture.h"
#include "samples/samplefile.h"

#include <QByteArray>
#include <QIODevice>
#include <QSaveFile>
#include <QString>

#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

QString ToQt(const fs::path& path) {
    return QString::fromStdString(path.string());
}

void WriteAll(const fs::path& path, const QByteArray& bytes) {
    QSaveFile file(ToQt(path.string()));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        throw Error{ErrorNumber::DeviceIo, path.string() + " cannot be written"};
    }
}

void WriteGrid(const fs::path& path) {
    const std::vector<std::uint8_t> picture = GridPicture();
    QByteArray bytes;
    for (const std::uint8_t byte : picture) bytes.append(static_cast<char>(byte));
    WriteAll(path, bytes);
}

/// Put in place by a rename: a reader meets the whole file, the old or the new one.
void WriteWhole(const fs::path& path, const Sample& content, std::int32_t lastDay) {
    const fs::path fresh = path.string() + ".new";
    WriteSample(content, lastDay, fresh);
    fs::rename(fresh, path);
}

void MakeSamples(const fs::path& folder, std::int32_t lastDay) {
    jet::Database::Create(folder / "Db0.dat", NewFundFileDesign(),
                          jet::Date{static_cast<double>(lastDay)});
    WriteGrid(folder / "Grid.dib");
    WriteWhole(folder / "Vimmels_exempel.mdb", VimmelsSample(), lastDay);
    WriteWhole(folder / "Rusken_Kina.mdb", RuskenSample(), lastDay);
}

}  // namespace

int main(int argc, char** argv) try {
    const auto lastDay = argc == 3 ? ParseDate(argv[2]) : std::nullopt;
    if (!lastDay) {
        std::cerr << "usage: makesamples FOLDER DATE\n";
        return 2;
    }
    MakeSamples(argv[1], *lastDay);
    return 0;
} catch (const std::exception& error) {
    std::cerr << "makesamples: " << error.what() << "\n";
    return 1;
}
