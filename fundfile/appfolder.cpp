#include "fundfile/appfolder.h"

#include "base/error.h"
#include "base/path.h"
#include "jet/copyfile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>
#include <QString>

#include <array>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

namespace {

namespace fs = std::filesystem;

enum class Owner { Program, User };

struct ProgramFile {
    std::string_view name;
    Owner owner;
    bool required;  // the program's folder serves only if it holds it
};

constexpr std::array kFiles = {
    ProgramFile{"Db0.dat", Owner::Program, true},
    ProgramFile{"Vimmels_exempel.mdb", Owner::User, true},
    ProgramFile{"Rusken_Kina.mdb", Owner::User, true},
    ProgramFile{"Grid.dib", Owner::Program, true},
    ProgramFile{"Kvarnbo.hlp", Owner::Program, false},
};

bool Exists(const fs::path& path) {
    std::error_code code;
    return fs::is_regular_file(path, code);
}

bool HoldsTheFiles(const fs::path& folder) {
    for (const ProgramFile& file : kFiles) {
        if (file.required && !Exists(folder / file.name)) {
            return false;
        }
    }
    return true;
}

bool CanBeWritten(const fs::path& folder) {
    return QFileInfo(QString::fromStdString(folder.string())).isWritable();
}

std::string Contents(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

fs::path Source(const ProgramFolders& folders, const ProgramFile& file) {
    const fs::path beside = folders.program / file.name;
    return Exists(beside) ? beside : folders.installed / file.name;
}

void Fill(const ProgramFolders& folders, const ProgramFile& file) {
    const fs::path source = Source(folders, file);
    const fs::path own = folders.personal / file.name;
    if (!Exists(source)) {
        return;
    }
    if (!Exists(own) || (file.owner == Owner::Program && Contents(own) != Contents(source))) {
        jet::CopyFile(source, own);
    }
}

}  // namespace

ProgramFolders FindProgramFolders() {
    const fs::path program = QCoreApplication::applicationDirPath().toStdString();
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return {program, (program / ".." / "share" / "kvarnbo").lexically_normal(),
            fs::path(data.toStdString()) / "Kvarnbo"};
}

std::string AppFolder(const ProgramFolders& folders) {
    if (CanBeWritten(folders.program) && HoldsTheFiles(folders.program)) {
        return WithSeparator(folders.program);
    }
    std::error_code code;
    fs::create_directories(folders.personal, code);
    if (!code) {
        Skipping skip;
        for (const ProgramFile& file : kFiles) {
            skip([&] { Fill(folders, file); });
        }
    }
    if (CanBeWritten(folders.personal)) {
        return WithSeparator(folders.personal);
    }
    return WithSeparator(HoldsTheFiles(folders.installed) ? folders.installed : folders.program);
}
