// Who may include whom. What is linked holds part of this; the rest is read from the sources.

#include "tests/house/source.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ::testing::IsEmpty;

/// The folders from the ground up; those of one floor do not see each other. In the engine the
/// words that all of it speaks lie below its folders, and what its users call above them.
constexpr std::string_view kEngineWords = "jet, values";
const std::vector<std::vector<std::string_view>> kFloors = {
    {kEngineWords},
    {"jet/storage"},
    {"jet/table"},
    {"jet/catalog", "jet/index"},
    {"jet/verify"},
    {"jet/create", "jet/query"},
    {"jet"},
    {"base"},
    {"platform"},
    {"fundfile"},
    {"widgets"},
    {"app"},
    {"entry", "diagram", "reports", "tools"},
    {"main"},
};

std::string_view FolderOf(std::string_view path) {
    if (!path.starts_with("jet/")) return path.substr(0, path.find('/'));
    for (const std::string_view header : {"design.h", "error.h", "journalnote.h", "loss.h",
                                          "recordset.h", "value.h", "windows1252.h"}) {
        if (path.substr(path.find('/') + 1) == header) return kEngineWords;
    }
    return path.substr(0, path.rfind('/'));
}

bool IsEngine(std::string_view path) {
    return path.starts_with("jet/");
}

bool IsRule(std::string_view path) {
    return path.find("/rules/") != std::string_view::npos;
}

/// What a program beside the window's floors is made of is its own business.
std::optional<std::size_t> FloorOf(std::string_view path) {
    for (std::size_t floor = 0; floor < kFloors.size(); ++floor) {
        const auto& folders = kFloors[floor];
        if (std::find(folders.begin(), folders.end(), FolderOf(path)) != folders.end()) {
            return floor;
        }
    }
    return std::nullopt;
}

bool MayInclude(std::string_view from, std::string_view path) {
    const auto here = FloorOf(from);
    if (!here) return true;
    const auto there = FloorOf(path);
    if (!there) return false;
    if (IsRule(from) && !IsRule(path) && FolderOf(path) != "base") return false;
    return FolderOf(from) == FolderOf(path) || *there < *here;
}

/// base, the engine and all rules: they know neither Qt nor the system.
bool IsPlain(std::string_view path) {
    return FloorOf(path) && (IsRule(path) || FolderOf(path) == "base" || IsEngine(path));
}

bool IsQt(std::string_view include) {
    return include.starts_with("<Q") || include.starts_with("<qt") || include.starts_with("<Qt");
}

bool IsSystem(std::string_view include) {
    // <iconv.h> knows the code pages and touches nothing outside.
    return include.ends_with(".h>") && include != "<iconv.h>";
}

std::string Unquoted(std::string_view include) {
    return std::string(include.substr(1, include.size() - 2));
}

template <typename Check>
std::vector<std::string> Findings(Check check) {
    std::vector<std::string> findings;
    for (const auto& file : house::ProductFiles()) {
        for (const auto& include : file.includes) {
            const std::string why = check(file, include);
            if (!why.empty()) findings.push_back(file.path + " includes " + include + ": " + why);
        }
    }
    return findings;
}

TEST(HouseLayers, PointDownwards) {
    EXPECT_THAT(
        Findings([](const house::SourceFile& file, const std::string& include) -> std::string {
            if (include.front() != '"') return "";
            return MayInclude(file.path, Unquoted(include)) ? "" : "an arrow up or sideways";
        }),
        IsEmpty());
}

TEST(HouseLayers, KnowNoQtBelowTheData) {
    EXPECT_THAT(
        Findings([](const house::SourceFile& file, const std::string& include) -> std::string {
            const bool plain = IsPlain(file.path);
            return plain && IsQt(include) ? "no Qt here" : "";
        }),
        IsEmpty());
}

TEST(HouseLayers, LeaveTheSystemToTheFileStore) {
    EXPECT_THAT(
        Findings([](const house::SourceFile& file, const std::string& include) -> std::string {
            const bool plain = IsPlain(file.path);
            const std::set<std::string> stores = {
                "jet/storage/fileimage.cpp",   "jet/storage/filestore.cpp",
                "jet/storage/secondimage.cpp", "jet/storage/storedfile.cpp",
                "jet/storage/systemfile.cpp",  "jet/storage/systemfile.h"};
            const bool store = stores.contains(file.path);
            return plain && !store && IsSystem(include) ? "system calls belong to the file store"
                                                        : "";
        }),
        IsEmpty());
}

TEST(HouseLayers, KeepTheClockAndTheFilesOutOfTheRules) {
    EXPECT_THAT(
        Findings([](const house::SourceFile& file, const std::string& include) -> std::string {
            if (!IsRule(file.path)) return "";
            for (const std::string_view banned :
                 {"<filesystem>", "<fstream>", "<cstdio>", "<iostream>", "<ctime>"}) {
                if (include == banned) return "a rule touches nothing outside";
            }
            return "";
        }),
        IsEmpty());
}

TEST(HouseLayers, LeaveTheEnginesInsideToTheEngine) {
    EXPECT_THAT(
        Findings([](const house::SourceFile& file, const std::string& include) -> std::string {
            const std::string path = Unquoted(include);
            const bool inside = IsEngine(path) && path.find('/') != path.rfind('/');
            const bool engine =
                file.In("jet/") || file.In("jettools/") || file.In("fuzz/") || file.In("bench/");
            return inside && !engine ? "the engine's folders are for the engine alone" : "";
        }),
        IsEmpty());
}

TEST(HouseLayers, KeepControllersFromEachOther) {
    std::vector<std::string> controllers;
    static const std::regex derived(
        R"(\bclass\s+\w+(\s+final)?\s*:\s*(public\s+|private\s+)?Controller\b)");
    for (const auto& file : house::ProductFiles()) {
        if (file.path.ends_with(".h") && std::regex_search(file.code, derived)) {
            controllers.push_back(file.path);
        }
    }
    EXPECT_THAT(
        Findings([&](const house::SourceFile& file, const std::string& include) -> std::string {
            const std::string path = Unquoted(include);
            if (std::find(controllers.begin(), controllers.end(), path) == controllers.end()) {
                return "";
            }
            const bool own = file.path == path.substr(0, path.size() - 1) + "cpp";
            return own || file.In("main/") ? "" : "controllers ask the window, not each other";
        }),
        IsEmpty());
}

TEST(HouseLayers, BeginEveryHeaderOnce) {
    std::vector<std::string> findings;
    for (const auto& file : house::SourceFiles()) {
        if (file.path.ends_with(".h") && !file.text.starts_with("#pragma once\n")) {
            findings.push_back(file.path);
        }
    }
    EXPECT_THAT(findings, IsEmpty());
}

TEST(HouseLayers, TellWhatEveryHeaderIsFor) {
    std::vector<std::string> findings;
    for (const auto& file : house::ProductFiles()) {
        if (file.path.ends_with(".h") && !file.text.starts_with("#pragma once\n//")) {
            findings.push_back(file.path);
        }
    }
    EXPECT_THAT(findings, IsEmpty());
}

}  // namespace
