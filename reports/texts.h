#pragma once
// The Swedish texts of the reports that no rule puts together.

#include <string_view>

namespace texts {

/// Before the sum of everything in the short overview.
inline constexpr std::string_view SumShort = "Summa";

inline constexpr std::string_view PrintFailed = "Fel i PrintRutinen";
inline constexpr std::string_view PrintFailedLog = "Fel i Printrutinen mnuPrint ";
inline constexpr std::string_view PrintFailedAccountLog = ", konto ";

// Saving the report as a PDF file
inline constexpr std::string_view PdfTitle = "Spara rapporten som PDF";
inline constexpr std::string_view PdfFiles = "PDF-fil|*.pdf";
inline constexpr std::string_view PdfNotSaved = "PDF-filen sparades inte";
inline constexpr std::string_view PdfSaved = "Rapporten är sparad : ";
inline constexpr std::string_view IsFundFilesName =
    "Så heter en fondfil. Välj ett namn som slutar på .pdf.";

// Holdings and points as tables
inline constexpr std::string_view ExportTitle = "Exportera innehav och kurser";
inline constexpr std::string_view ExportFiles = "Tabeller för kalkylark|*.csv";
inline constexpr std::string_view NotExported = "Tabellerna sparades inte";
inline constexpr std::string_view Exported = "Exporterat : ";
inline constexpr std::string_view AndFile = " och ";
inline constexpr std::string_view ReplacedFile = " finns redan.\r\n";
inline constexpr std::string_view AskReplace = "\r\nVill du ersätta det som finns ?";

}  // namespace texts
