#include "tests/house/source.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <utility>

namespace house {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kProductFolders[] = {
    "app",      "base", "bench",     "diagram",  "entry",   "fundfile", "fuzz",  "help",   "jet",
    "jettools", "main", "packaging", "platform", "reports", "samples",  "tools", "widgets"};

std::string Read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool IsSource(const fs::path& path) {
    return path.extension() == ".h" || path.extension() == ".cpp";
}

/// Walks a text and keeps code, comments and literals apart.
class Scanner {
  public:
    explicit Scanner(SourceFile& file) : file_(file), text_(file.text) {
        file_.code.assign(text_.size(), ' ');
        file_.comments.assign(text_.size(), ' ');
    }

    void Run() {
        while (at_ < text_.size()) Step();
    }

  private:
    bool Sees(std::string_view what) const { return text_.compare(at_, what.size(), what) == 0; }

    void Step() {
        if (Sees("//")) return Comment("\n");
        if (Sees("/*")) return Comment("*/");
        if (Sees("R\"") && !InNumber()) return RawLiteral();
        if (text_[at_] == '"') return Quoted('"');
        if (text_[at_] == '\'' && !InNumber()) return Quoted('\'');
        Keep(file_.code);
    }

    /// The quote in 1'000 belongs to the number; the one in u'x' does not.
    bool InNumber() const {
        std::size_t begin = at_;
        const auto inWord = [](unsigned char c) { return std::isalnum(c) != 0 || c == '\''; };
        while (begin > 0 && inWord(static_cast<unsigned char>(text_[begin - 1]))) --begin;
        return begin < at_ && std::isdigit(static_cast<unsigned char>(text_[begin])) != 0;
    }

    void Keep(std::string& where) {
        if (text_[at_] == '\n') {
            file_.code[at_] = file_.comments[at_] = '\n';
            ++line_;
        } else {
            where[at_] = text_[at_];
        }
        ++at_;
    }

    void Comment(std::string_view end) {
        while (at_ < text_.size() && !Sees(end)) Keep(file_.comments);
        for (std::size_t i = 0; i < end.size() && at_ < text_.size(); ++i) Keep(file_.comments);
    }

    void Quoted(char quote) {
        Literal literal{line_, ""};
        file_.code[at_++] = quote;
        while (at_ < text_.size() && text_[at_] != quote && text_[at_] != '\n') {
            if (text_[at_] == '\\') literal.text += text_[at_++];
            literal.text += text_[at_++];
        }
        if (at_ < text_.size() && text_[at_] == quote) file_.code[at_++] = quote;
        if (quote == '"') file_.literals.push_back(literal);
    }

    void RawLiteral() {
        const std::size_t open = text_.find('(', at_);
        const std::string end = ")" + text_.substr(at_ + 2, open - at_ - 2) + "\"";
        const std::size_t close = std::min(text_.find(end, open), text_.size());
        file_.literals.push_back({line_, text_.substr(open + 1, close - open - 1)});
        std::string nowhere(text_.size(), ' ');
        while (at_ < std::min(close + end.size(), text_.size())) Keep(nowhere);
    }

    SourceFile& file_;
    const std::string& text_;
    std::size_t at_ = 0;
    int line_ = 1;
};

void FindIncludes(SourceFile& file) {
    static const std::regex include(R"re(#\s*include\s*("[^"]+"|<[^>]+>))re");
    for (std::sregex_iterator at(file.text.begin(), file.text.end(), include), end; at != end;
         ++at) {
        const auto offset = static_cast<std::size_t>(at->position());
        if (file.code[offset] == '#') file.includes.push_back((*at)[1]);
    }
}

template <typename Accept>
void Walk(std::string_view folder, std::vector<SourceFile>& files, Accept accept) {
    const fs::path root = KVARNBO_SOURCES;
    if (!fs::exists(root / folder)) return;
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
        if (!entry.is_regular_file() || !accept(entry.path())) continue;
        const std::string path = fs::relative(entry.path(), root).generic_string();
        files.push_back(IsSource(entry.path())
                            ? Scan(path, Read(entry.path()))
                            : SourceFile{path, Read(entry.path()), "", "", {}, {}});
    }
}

void Sort(std::vector<SourceFile>& files) {
    std::sort(files.begin(), files.end(),
              [](const auto& a, const auto& b) { return a.path < b.path; });
}

}  // namespace

SourceFile Scan(std::string path, std::string text) {
    SourceFile file{std::move(path), std::move(text), "", "", {}, {}};
    Scanner(file).Run();
    FindIncludes(file);
    return file;
}

std::vector<SourceFile> ProductFiles() {
    std::vector<SourceFile> files;
    for (const auto folder : kProductFolders) Walk(folder, files, IsSource);
    Sort(files);
    return files;
}

std::vector<SourceFile> SourceFiles() {
    auto files = ProductFiles();
    Walk("tests", files, IsSource);
    Sort(files);
    return files;
}

std::vector<SourceFile> AllTexts() {
    std::vector<SourceFile> files;
    const auto isText = [](const fs::path& path) {
        static const std::string kText[] = {
            "",      ".h",   ".cpp",  ".md",      ".txt", ".cmake", ".json", ".sh", ".in", ".yml",
            ".yaml", ".svg", ".html", ".desktop", ".xml", ".qrc",   ".css",  ".1",  ".py"};
        return std::find(std::begin(kText), std::end(kText), path.extension().string()) !=
               std::end(kText);
    };
    for (const auto folder : kProductFolders) Walk(folder, files, isText);
    for (const auto* folder : {"tests", "docs", "icons", ".ci"}) Walk(folder, files, isText);
    for (const auto& entry : fs::directory_iterator(KVARNBO_SOURCES)) {
        if (!entry.is_regular_file() || !isText(entry.path()) ||
            entry.path().filename() == ".git") {
            continue;
        }
        files.push_back({entry.path().filename().string(), Read(entry.path()), "", "", {}, {}});
    }
    Sort(files);
    return files;
}

std::string Finding(const SourceFile& file, std::size_t offset, std::string_view why) {
    const auto line = 1 + std::count(file.text.begin(),
                                     file.text.begin() + static_cast<std::ptrdiff_t>(offset), '\n');
    return file.path + ":" + std::to_string(line) + ": " + std::string(why);
}

}  // namespace house
