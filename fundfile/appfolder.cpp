#include "fundfile/appfolder.h"

#include "base/error.h"
#include "base/path.h"
#include "jet/files.h"
#include "platform/qttext.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>
#include <QString>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

namespace fs = std::filesystem;

enum class Owner { Program, User };

struct ProgramFile {
    std::string_view name;
    Owner owner;
};

constexpr std::string_view kTemplate = "Db0.dat";
constexpr std::array kFiles = {
    ProgramFile{kTemplate, Owner::Program},      ProgramFile{"Vimmels_exempel.mdb", Owner::User},
    ProgramFile{"Rusken_Kina.mdb", Owner::User}, ProgramFile{"Grid.dib", Owner::Program},
    ProgramFile{"Kvarnbo.hlp", Owner::Program},
};

bool Exists(const fs::path& path) {
    std::error_code code;
    return fs::is_regular_file(path, code);
}

bool IsFundFile(const fs::path& path) {
    std::string ending = path.extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return ending == ".mdb";
}

/// Fund files, log or notes: who finds them gone believes them lost.
bool HoldsAnythingOfTheSavers(const fs::path& folder) {
    if (Exists(folder / programfiles::kLog) || Exists(folder / programfiles::kNotes)) return true;
    std::error_code code;
    for (fs::directory_iterator entry(folder, code), end; !code && entry != end;
         entry.increment(code)) {
        if (IsFundFile(entry->path()) && Exists(entry->path())) return true;
    }
    return false;
}

bool CanBeWritten(const fs::path& folder) {
    return QFileInfo(ToQt(folder.string())).isWritable();
}

/// False where one of them cannot be read.
bool SameContents(const fs::path& left, const fs::path& right) {
    std::error_code unknown;
    const std::uintmax_t size = fs::file_size(left, unknown);
    if (unknown || fs::file_size(right, unknown) != size || unknown) return false;
    std::ifstream first(left, std::ios::binary), second(right, std::ios::binary);
    // In pieces: at every start all of them are read, and whole ones would be new memory each time.
    constexpr std::size_t kPiece = 32768;
    std::vector<char> one(kPiece), other(kPiece);
    for (std::uintmax_t rest = size; rest > 0;) {
        const auto length = static_cast<std::streamsize>(std::min<std::uintmax_t>(rest, kPiece));
        if (!first.read(one.data(), length) || !second.read(other.data(), length)) return false;
        if (!std::equal(one.begin(), one.begin() + length, other.begin())) return false;
        rest -= static_cast<std::uintmax_t>(length);
    }
    return true;
}

fs::path Source(const ProgramFolders& folders, const ProgramFile& file) {
    const fs::path beside = folders.program / file.name;
    return Exists(beside) ? beside : folders.installed / file.name;
}

void FillPersonal(const ProgramFolders& folders, const ProgramFile& file) {
    const fs::path source = Source(folders, file);
    const fs::path own = folders.personal / file.name;
    if (!Exists(source)) {
        return;
    }
    if (!Exists(own) || (file.owner == Owner::Program && !SameContents(own, source))) {
        jet::CopyFile(source, own);
    }
}

/// What lies beside the program is never replaced, only what is missing is made again.
void FillProgram(const ProgramFolders& folders, const ProgramFile& file) {
    const fs::path source = folders.installed / file.name;
    const fs::path own = folders.program / file.name;
    if (!Exists(own) && Exists(source)) {
        jet::CopyFile(source, own);
    }
}

void FillAll(const ProgramFolders& folders,
             void (*fill)(const ProgramFolders&, const ProgramFile&)) {
    Skipping skip;
    for (const ProgramFile& file : kFiles) {
        skip([&] { fill(folders, file); });
    }
}

bool IsInUse(const fs::path& folder) {
    return CanBeWritten(folder) && (Exists(folder / kTemplate) || HoldsAnythingOfTheSavers(folder));
}

}  // namespace

ProgramFolders FindProgramFolders() {
    const fs::path program = FromQt(QCoreApplication::applicationDirPath());
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return {program, KVARNBO_DATA_FOLDER, fs::path(FromQt(data)) / "Kvarnbo"};
}

std::string AppFolder(const ProgramFolders& folders) {
    if (IsInUse(folders.program)) {
        FillAll(folders, FillProgram);
        return WithSeparator(folders.program);
    }
    std::error_code code;
    fs::create_directories(folders.personal, code);
    if (!code) {
        FillAll(folders, FillPersonal);
    }
    if (CanBeWritten(folders.personal)) {
        return WithSeparator(folders.personal);
    }
    const bool isInstalled = Exists(folders.installed / kTemplate);
    return WithSeparator(isInstalled ? folders.installed : folders.program);
}
