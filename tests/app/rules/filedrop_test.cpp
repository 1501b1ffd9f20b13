#include "app/rules/filedrop.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace {

using Paths = std::vector<std::optional<std::string>>;

TEST(FileDrop, OpensOneFundFileOfThisComputer) {
    const struct {
        Paths paths;
        DropVerdict verdict;
    } rows[] = {
        {{"/fonder/a.mdb"}, DropVerdict::Opens},
        {{"/fonder/A.MDB"}, DropVerdict::Opens},
        {{"/fonder/a.txt"}, DropVerdict::NoFundFile},
        {{"/fonder/Db0.dat"}, DropVerdict::NoFundFile},
        {{"/fonder.mdb/a"}, DropVerdict::NoFundFile},
        {{std::nullopt}, DropVerdict::NoFundFile},
        {{}, DropVerdict::NoFundFile},
        {{"/a.mdb", "/b.mdb"}, DropVerdict::Several},
    };
    for (const auto& row : rows) EXPECT_EQ(JudgeDrop(row.paths), row.verdict);
}

TEST(FileDrop, SaysWhyAFileIsNotTaken) {
    EXPECT_EQ(DropText(DropVerdict::Opens), "");
    EXPECT_EQ(DropText(DropVerdict::NoFundFile),
              "Bara en fondfil, som slutar på .mdb, kan öppnas här");
    EXPECT_EQ(DropText(DropVerdict::Several), "Bara en fil i taget kan öppnas");
}

}  // namespace
