#pragma once
// The Swedish texts, file names and command lines of the tools.

#include "fundfile/appfolder.h"

#include <string_view>

namespace texts {

inline constexpr std::string_view LogFile = programfiles::kLog;
inline constexpr std::string_view NotesFile = programfiles::kNotes;
inline constexpr std::string_view HelpFile = "Kvarnbo.hlp";

// Their trailing blanks, two and one, belong to the command lines.
inline constexpr std::string_view EditorCommand = "NotePad.exe  ";
inline constexpr std::string_view HelpCommand = "WinHlp32.exe ";

/// Between the help file and the page to open it at.
inline constexpr char kHelpPageMark = '#';

inline constexpr std::string_view About = "Om Kvarnbo";
inline constexpr std::string_view AboutVersion = "Kvarnbo ";
inline constexpr std::string_view AboutFile = "\r\n\r\nFondfil: ";
inline constexpr std::string_view AboutEngine = "\r\nDatabasmotor: jet ";
inline constexpr std::string_view AboutFormat97 = ", filen har Access 97-format";
inline constexpr std::string_view AboutFormat2000 = ", filen har Access 2000-format";
inline constexpr std::string_view AboutFolder = "\r\nProgrammets mapp: ";

inline constexpr std::string_view NoEditor = "Kunde inte hitta fil NotePad.exe";
// Not the name in the command line: users know this message as it is.
inline constexpr std::string_view NoHelpViewer = "Kunde inte hitta fil WinHelp32.exe";

}  // namespace texts
