// makehelp FOLDER FILE: joins the pages that FOLDER/contents.txt lists into the help file. A page
// that is missing, not listed or without a title, and a link that leads nowhere, is an error.

#include "base/error.h"
#include "base/text.h"
#include "base/version.h"
#include "help/helpbook.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const std::string& why) {
    throw Error{ErrorNumber::InvalidProcedureCall, why};
}

std::string Read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) Fail("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A page names the version by this word.
std::string WithVersion(const std::string& html) {
    return Join(Split(html, "@VERSION@"), Version());
}

HelpPage ReadPage(const fs::path& folder, const std::string& id, const std::string& section) {
    const std::string html = WithVersion(Read(folder / (id + ".html")));
    constexpr std::string_view kTitle = "<h1>";
    const std::size_t end = html.find("</h1>");
    if (!html.starts_with(kTitle) || end == std::string::npos) {
        Fail(id + " does not begin with its title");
    }
    return {id, section, PlainHelpText(html.substr(kTitle.size(), end - kTitle.size())), html};
}

std::vector<HelpPage> ReadPages(const fs::path& folder) {
    std::vector<HelpPage> pages;
    std::string section;
    for (const auto& line : Split(Read(folder / "contents.txt"), "\n")) {
        if (line.starts_with("# ")) {
            section = line.substr(2);
        } else if (!line.empty()) {
            pages.push_back(ReadPage(folder, line, section));
        }
    }
    return pages;
}

void CheckAllListed(const fs::path& folder, const HelpBook& book) {
    for (const auto& entry : fs::directory_iterator(folder)) {
        const fs::path& path = entry.path();
        if (path.extension() == ".html" && !book.Find(path.stem().string())) {
            Fail(path.string() + " is not in contents.txt");
        }
    }
}

void Make(const fs::path& folder, const fs::path& file) {
    const HelpBook book(ReadPages(folder));
    CheckAllListed(folder, book);
    for (const auto& link : book.BrokenLinks()) Fail("a link leads nowhere: " + link);
    std::ofstream out(file, std::ios::binary);
    out << book.Text();
    if (!out.flush()) Fail("cannot write " + file.string());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "makehelp FOLDER FILE\n";
        return 2;
    }
    try {
        Make(argv[1], argv[2]);
    } catch (const Error& error) {
        std::cerr << "makehelp: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
