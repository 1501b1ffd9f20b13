#pragma once
// The folder where the program's own files lie: template, sample files,
// grid picture, help, log and notes.

#include <filesystem>
#include <string>
#include <string_view>

namespace programfiles {
inline constexpr std::string_view kLog = "FonderLogg.txt";
inline constexpr std::string_view kNotes = "Anteckningar.txt";
}  // namespace programfiles

struct ProgramFolders {
    std::filesystem::path program;  ///< where the program file lies
    std::filesystem::path
        installed;  ///< read-only copies of its files, when it is installed for all
    std::filesystem::path personal;  ///< this user's own folder, made when it is needed
};

/// This program's folders: where the copies lie is known from the build, the user's own folder is
/// the system's place for a program's data.
ProgramFolders FindProgramFolders();

/// The program's folder when it can be written and holds the template or anything of the saver's: a
/// fund file, the log, the notes. A file of the program's that is missing there is made again when
/// it is installed, and done without otherwise. Else the personal folder, filled with what is
/// missing there. A template, picture or help file that differs from the installed one is renewed;
/// the sample fund files are the user's from then on. Ends in the platform's separator.
///
/// Never throws: a personal folder that cannot be made leaves the folder with the installed copies.
std::string AppFolder(const ProgramFolders& folders);
