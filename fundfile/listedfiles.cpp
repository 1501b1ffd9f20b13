#include "fundfile/listedfiles.h"

#include "fundfile/rules/safetycopies.h"
#include "fundfile/texts.h"

#include <set>
#include <system_error>
#include <utility>

namespace {

namespace fs = std::filesystem;

bool IsSafetyCopy(const fs::path& file) {
    return file.parent_path().filename() == fundtexts::CopiesFolder &&
           IsCopyName(file.filename().string());
}

class Search {
  public:
    explicit Search(const std::string& openFile) : open_(Real(openFile)) {}

    void In(const fs::path& folder) {
        std::error_code code;
        for (fs::directory_iterator at(folder, code), end; !code && at != end; at.increment(code)) {
            Add(*at);
        }
    }

    std::vector<FoundFile> found;

  private:
    /// Empty where there is none.
    static fs::path Real(const fs::path& path) {
        std::error_code code;
        const fs::path real = fs::canonical(path, code);
        return code ? fs::path() : real;
    }

    void Add(const fs::directory_entry& entry) {
        const fs::path& path = entry.path();
        if (!IsFundFileName(path.filename().string()) || IsSafetyCopy(path)) return;
        std::error_code code;
        if (!entry.is_regular_file(code)) return;
        const auto changed = entry.last_write_time(code);
        const fs::path real = Real(path);
        if (code || real.empty() || !seen_.insert(real).second) return;
        found.push_back({{path.string(), real == open_}, changed.time_since_epoch().count()});
    }

    fs::path open_;
    std::set<fs::path> seen_;
};

}  // namespace

std::vector<ListedFile> ListFundFiles(const fs::path& programFolder, const std::string& openFile) {
    Search search(openFile);
    search.In(programFolder);
    if (!openFile.empty()) search.In(fs::path(openFile).parent_path());
    return Newest(std::move(search.found));
}
