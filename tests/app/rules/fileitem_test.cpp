#include "app/rules/fileitem.h"

#include "base/text.h"

#include <gtest/gtest.h>
#include <string_view>

TEST(FileItem, HasItsNumberBeforeItsName) {
    EXPECT_EQ(FileItemCaption(1, "Elsa & jag"), "1  Elsa && jag");
    EXPECT_EQ(FileItemCaption(8, ""), "8  ");
}

TEST(FileItem, IsTheNameWithoutFolderAndEnding) {
    const struct {
        std::string_view path, name;
    } rows[] = {{"/fonder/Elsa.mdb", "Elsa"},
                {"Elsa.MDB", "Elsa"},
                {"/a/f.d. Elsa 2026.11.mdb", "f.d. Elsa 2026.11"},
                {"/a/en\trad\nmed annat\x7f.mdb", "en rad med annat "},
                {"/a/1234567890123456789012345678901234567890.mdb",
                 "1234567890123456789012345678901234567890"},
                {"/a/åtta och fyrtio tecken långt, och så slutet 2026.mdb",
                 "åtta och fyrtio tecken l… så slutet 2026"}};
    for (const auto& row : rows) EXPECT_EQ(FileItemName(row.path), row.name);
    EXPECT_EQ(Length(FileItemName("/a/åtta och fyrtio tecken långt, och så slutet 2026.mdb")), 40U);
}
