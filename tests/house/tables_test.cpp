// The two tables that say what the window does name everything there is: every event, and every
// control that a state shows or enables.

#include "tests/house/source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const house::SourceFile& File(std::string_view path) {
    static const std::vector<house::SourceFile> files = house::SourceFiles();
    static const house::SourceFile none;
    for (const auto& file : files) {
        if (file.path == path) return file;
    }
    ADD_FAILURE() << path << " is not there";
    return none;
}

/// What the pattern's first group finds.
std::vector<std::string> Names(const std::string& code, const char* pattern) {
    std::vector<std::string> names;
    const std::regex wanted(pattern);
    for (std::sregex_iterator at(code.begin(), code.end(), wanted), end; at != end; ++at) {
        names.push_back((*at)[1]);
    }
    return names;
}

/// The names that do not stand behind `before` in `code`.
std::vector<std::string> Missing(const std::vector<std::string>& names, const std::string& before,
                                 const std::string& code) {
    std::vector<std::string> missing;
    for (const std::string& name : names) {
        if (!std::regex_search(code, std::regex(before + name + "\\b"))) missing.push_back(name);
    }
    return missing;
}

/// The fields of one struct in shown.h.
std::vector<std::string> FieldsOf(const std::string& name) {
    const std::string& code = File("app/rules/shown.h").code;
    const std::size_t begin = code.find("struct " + name);
    std::vector<std::string> fields =
        Names(code.substr(begin, code.find('}', begin) - begin), R"((\w+)(?: = false)?[,;])");
    std::erase(fields, "default");
    return fields;
}

TEST(HouseTables, NameEveryEvent) {
    const std::vector<std::string> events =
        Names(File("app/rules/modes.h").code, R"(WindowState (\w+)\()");
    EXPECT_GT(events.size(), 40U);
    EXPECT_THAT(Missing(events, "\\b", File("tests/app/rules/modes_test.cpp").code), IsEmpty());
}

TEST(HouseTables, NameEveryFieldOfWhatIsShown) {
    const std::string& table = File("tests/app/rules/shown_test.cpp").code;
    const struct {
        const char* part;
        const char* before;
        std::size_t atLeast;
    } parts[] = {{"Visible", "&V::", 20},
                 {"Enabled", "&E::", 10},
                 {"Captions", "\\.", 20},
                 {"Tags", "\\.", 5}};
    for (const auto& [part, before, atLeast] : parts) {
        EXPECT_GT(FieldsOf(part).size(), atLeast) << part;
        EXPECT_THAT(Missing(FieldsOf(part), before, table), IsEmpty()) << part;
    }
}

TEST(HouseTables, FindWhatIsMissing) {
    EXPECT_THAT(Missing({"Esc", "F11"}, "After", "AfterEsc, AfterF1"), ElementsAre("F11"));
}

}  // namespace
