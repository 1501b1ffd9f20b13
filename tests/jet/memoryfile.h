#pragma once
// Small files of either version made in memory, and whole files as bytes.

#include "jet/storage/datapage.h"
#include "jet/storage/pagefile.h"
#include "jet/storage/usagemap.h"
#include "jet/table/tabledef.h"
#include "jet/table/tabledefbytes.h"
#include "tests/jet/support.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace jettest {

namespace fs = std::filesystem;
using jet::ColumnType;
using jet::detail::ByteView;
using jet::detail::PageFile;

inline fs::path Sample(std::string_view name) {
    for (const fs::path& file : jet::test::SampleFiles()) {
        if (file.stem() == name) return file;
    }
    return {};
}

inline std::string ReadText(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}
inline void WriteText(const fs::path& path, std::string_view text) {
    std::ofstream(path, std::ios::binary) << text;
}

/// A writable copy of a file.
inline fs::path CopyInto(const jet::test::ScratchFolder& folder, const fs::path& file) {
    const fs::path copy = folder.Path() / file.filename();
    WriteText(copy, ReadText(file));
    return copy;
}

inline jet::detail::FileImage ImageOf(std::string_view bytes) {
    jet::detail::FileImage image;
    image.Resize(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        *image.At(i) = static_cast<std::uint8_t>(bytes[i]);
    }
    return image;
}

/// A file in memory with a global map and nothing else.
inline std::unique_ptr<PageFile> EmptyFile(const jet::detail::Layout& layout) {
    auto file = PageFile::New(layout);
    file->AppendPage();
    file->AppendPage();
    jet::detail::FormatDataPage(*file, 1, 1);
    std::vector<std::uint8_t> map(layout.inlineMapRow, 0xFF);
    std::fill_n(map.begin(), 5, std::uint8_t{0});
    map[5] = 0xFC;
    jet::detail::AddRow(*file, 1, map);
    jet::detail::AddRow(*file, 1, jet::detail::EmptyInlineMap(layout));
    for (int page = 2; page < 6; ++page) jet::detail::AllocatePage(*file);
    return file;
}

struct TestColumn {
    std::string name;
    ColumnType type;
    std::uint16_t length;
    std::uint8_t flags = 0;  ///< besides "fixed", which follows from the type
};

/// A table without indexes; returns the page of its definition.
inline std::uint32_t AddTable(PageFile& file, const std::vector<TestColumn>& columns) {
    using namespace jet::detail;
    TableDef def;
    std::uint16_t offset = 0, variables = 0, number = 0;
    std::size_t longValues = 0;
    for (const TestColumn& wanted : columns) {
        ColumnDef column;
        column.name = wanted.name;
        column.typeCode = static_cast<std::uint8_t>(wanted.type);
        column.number = column.ordinal = number++;
        column.length = wanted.length;
        column.collation = kGeneralCollation;
        column.codePage = 1252;
        column.variableNumber = variables;
        column.extra = column.IsText() ? kExtraCompressed : std::uint8_t{0};
        const bool fixed = wanted.type != ColumnType::Text && wanted.type != ColumnType::Binary &&
                           !column.IsLongValue();
        column.flags =
            static_cast<std::uint8_t>(wanted.flags | kColumnUpdatable | (fixed ? kColumnFixed : 0));
        if (fixed) {
            column.fixedOffset = offset;
            if (wanted.type != ColumnType::Boolean)
                offset = static_cast<std::uint16_t>(offset + wanted.length);
        } else {
            ++variables;
        }
        if (column.IsLongValue()) ++longValues;
        def.columns.push_back(column);
    }
    def.maxColumns = number;
    def.variableCount = variables;
    def.page = AllocatePage(file);
    const std::uint32_t maps = AllocateMapPage(file, 2 + 2 * longValues);
    def.ownedMap = {maps, 0};
    def.freeMap = {maps, 1};
    std::uint8_t row = 2;
    for (const ColumnDef& column : def.columns) {
        if (!column.IsLongValue()) continue;
        def.longValueMaps.push_back(
            {column.number, {maps, row}, {maps, static_cast<std::uint8_t>(row + 1)}});
        row = static_cast<std::uint8_t>(row + 2);
    }
    WriteTableDef(file, def.page, BuildTableDef(file.Format(), file.Header().codePage, def));
    return def.page;
}

}  // namespace jettest
