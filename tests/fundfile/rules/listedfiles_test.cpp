#include "fundfile/rules/listedfiles.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace {

TEST(ListedFiles, AreFundFilesAndNoneThatTheProgramKeepsForItself) {
    const struct {
        std::string_view name;
        bool listed;
    } rows[] = {{"fonder.mdb", true},
                {"Fonder å ö.MDB", true},
                {"a.b.mdb", true},
                {"Db0.dat", false},
                {"fonder.ldb", false},
                {"fonder.mdb.lock", false},
                {".fonder.mdb.x1", false},
                {".mdb", false},
                {".fonder.mdb", false},
                {"fonder.mdb.jet-new", false},
                {"mdb", false},
                {"", false}};
    for (const auto& row : rows) EXPECT_EQ(IsFundFileName(row.name), row.listed) << row.name;
}

std::vector<std::string> Paths(const std::vector<ListedFile>& files) {
    std::vector<std::string> paths;
    for (const ListedFile& file : files) paths.push_back(file.path);
    return paths;
}

TEST(ListedFiles, StandWithTheNewestFirst) {
    const auto files = Newest({{{"old"}, 1}, {{"b"}, 5}, {{"new"}, 9}, {{"a"}, 5}});
    EXPECT_EQ(Paths(files), (std::vector<std::string>{"new", "a", "b", "old"}));
    EXPECT_TRUE(Newest({}).empty());
}

TEST(ListedFiles, AreSoManyAtMostAndTheOpenOneIsAmongThem) {
    for (const bool open : {false, true}) {
        std::vector<FoundFile> found;
        for (int i = 1; i <= 20; ++i) found.push_back({{std::to_string(i)}, i});
        found.front().file.open = open;
        const auto files = Newest(found);
        ASSERT_EQ(files.size(), kMaxListedFiles);
        EXPECT_EQ(files.front().path, "20");
        EXPECT_EQ(files[6].path, "14");
        EXPECT_EQ(files.back().path, open ? "1" : "13");
        EXPECT_EQ(files.back().open, open);
    }
}

}  // namespace
