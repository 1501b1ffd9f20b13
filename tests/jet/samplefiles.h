#pragma once
// Sample files of other engines, temporary places, and small files made in memory.

#include "jet/detail/datapage.h"
#include "jet/detail/pagefile.h"
#include "jet/detail/tabledef.h"
#include "jet/detail/usagemap.h"

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

/// The folder of the sample files; empty when the environment names none.
inline fs::path SamplesFolder() {
    const char* folder = std::getenv("KVARNBO_SAMPLES");
    return folder == nullptr ? fs::path() : fs::path(folder);
}

/// All sample files, those of both folders.
inline std::vector<fs::path> SampleFiles() {
    std::vector<fs::path> files;
    for (const char* folder : {"fundfiles", "mdb-samples"}) {
        std::error_code none;
        for (const auto& entry : fs::directory_iterator(SamplesFolder() / folder, none)) {
            if (entry.path().extension() == ".mdb") files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

inline fs::path Sample(std::string_view name) {
    for (const fs::path& file : SampleFiles()) {
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

/// A folder of this test's own, removed afterwards.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (fs::temp_directory_path() / "jettest-XXXXXX").string();
        path_ = ::mkdtemp(name.data());
    }
    ~TemporaryFolder() {
        std::error_code none;
        fs::permissions(path_, fs::perms::owner_all, none);
        fs::remove_all(path_, none);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const fs::path& Path() const { return path_; }
    fs::path operator/(std::string_view name) const { return path_ / name; }
    /// A writable copy of a sample file.
    fs::path CopyOf(const fs::path& file) const {
        const fs::path copy = path_ / file.filename();
        WriteText(copy, ReadText(file));
        return copy;
    }

  private:
    fs::path path_;
};

/// What a program prints; its exit status is appended when it is not 0.
inline std::string OutputOf(const std::string& command) {
    std::string output;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) return "cannot run " + command;
    char buffer[65536];
    while (const std::size_t got = std::fread(buffer, 1, sizeof buffer, pipe)) {
        output.append(buffer, got);
    }
    const int status = ::pclose(pipe);
    if (status != 0) output += "[exit status " + std::to_string(status) + "]";
    return output;
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

/// Skips a test that needs the sample files where there are none.
#define NEEDS_SAMPLES() \
    if (jettest::SampleFiles().empty()) GTEST_SKIP() << "KVARNBO_SAMPLES names no sample files"
