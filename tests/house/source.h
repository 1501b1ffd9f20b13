#pragma once
// The program's own source files, taken apart for the tests that read them.

#include <string>
#include <string_view>
#include <vector>

namespace house {

struct Literal {
    int line = 0;
    std::string text;  ///< between the quotes, escapes as they are written
};

struct SourceFile {
    std::string path;  ///< from the project's root on, "base/number.h"
    std::string text;
    std::string code;      ///< comments and the insides of literals blanked, lines kept
    std::string comments;  ///< everything but comments blanked, lines kept
    std::vector<Literal> literals;
    std::vector<std::string> includes;  ///< as written, with their quotes or brackets

    bool In(std::string_view folder) const { return path.starts_with(folder); }
    std::string FileName() const { return path.substr(path.rfind('/') + 1); }
};

/// Takes one text apart. Knows line and block comments, escapes and raw literals.
SourceFile Scan(std::string path, std::string text);

/// Every .h and .cpp file below these folders; all of the program's folders by default.
std::vector<SourceFile> SourceFiles();
/// The same without tests.
std::vector<SourceFile> ProductFiles();

/// Every text file that is part of the project, sources or not, as (path, text).
std::vector<SourceFile> AllTexts();

/// "path:line: why", the line of the character at `offset`.
std::string Finding(const SourceFile& file, std::size_t offset, std::string_view why);

}  // namespace house
