// A model's table against what another program's reader prints of it.

#include "model.h"
#include "modelreader.h"
#include "support.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <utility>

namespace jet::test {

std::vector<std::vector<std::string>> ModelTable::ReaderRows(
    const std::filesystem::path& path) const {
    constexpr const char* kFormat = "%Y-%m-%d %H:%M:%S";
    const std::string text = ReadWith({"mdb-json", "-D", kFormat, "-T", kFormat, path, name_});
    std::vector<std::vector<std::string>> rows;
    for (JsonReader reader(text); !reader.AtEnd();) {
        const auto printed = reader.Row();
        auto& row = rows.emplace_back();
        for (const ColumnDesign& column : design_.columns) {
            const auto found = printed.find(column.name);
            row.push_back(found == printed.end() ? "" : Plain(found->second, column.type));
        }
    }
    return rows;
}

void ModelTable::LearnReader(const std::filesystem::path& path) {
    const auto rows = ReaderRows(path);
    for (std::size_t i = 0; i < design_.columns.size(); ++i) {
        std::multiset<std::string> printed, held;
        for (const auto& row : rows) printed.insert(row[i]);
        for (const Row& row : state_.rows) held.insert(Plain(row[i]));
        const ColumnType type = design_.columns[i].type;
        const bool bytes = type == ColumnType::Binary || type == ColumnType::Ole ||
                           type == ColumnType::Guid || type == ColumnType::LargeBinary;
        if (bytes || printed != held) leftOut_.insert(i);
    }
}

void ModelTable::CheckReader(const std::filesystem::path& path) const {
    std::multiset<std::string> printed, held;
    for (const auto& row : ReaderRows(path)) {
        std::string text;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (!leftOut_.contains(i)) text += row[i] + "|";
        }
        printed.insert(std::move(text));
    }
    for (const Row& row : state_.rows) {
        std::string text;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (!leftOut_.contains(i)) text += Plain(row[i]) + "|";
        }
        held.insert(std::move(text));
    }
    std::vector<std::string> missing, unknown;
    std::set_difference(held.begin(), held.end(), printed.begin(), printed.end(),
                        std::back_inserter(missing));
    std::set_difference(printed.begin(), printed.end(), held.begin(), held.end(),
                        std::back_inserter(unknown));
    EXPECT_TRUE(missing.empty()) << name_ << ": the other reader does not show " << missing.front();
    EXPECT_TRUE(unknown.empty()) << name_ << ": only the other reader shows " << unknown.front();
}

}  // namespace jet::test
