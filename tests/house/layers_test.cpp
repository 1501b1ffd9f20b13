// Who may include whom. What is linked holds part of this; the rest is read from the sources.

#include "tests/house/source.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ::testing::IsEmpty;

enum class Layer { Base, Rules, Jet, Data, Platform, Window, Program };

Layer LayerOf(std::string_view path) {
    if (path.find("/rules/") != std::string_view::npos) return Layer::Rules;
    if (path.starts_with("base/")) return Layer::Base;
    if (path.starts_with("jet/tools/")) return Layer::Program;
    if (path.starts_with("jet/")) return Layer::Jet;
    if (path.starts_with("fundfile/filemenu.") || path == "fundfile/texts.h") return Layer::Window;
    if (path.starts_with("fundfile/")) return Layer::Data;
    if (path.starts_with("platform/")) return Layer::Platform;
    for (const std::string_view folder : {"app/", "entry/", "diagram/", "reports/", "tools/"}) {
        if (path.starts_with(folder)) return Layer::Window;
    }
    return Layer::Program;
}

/// The little that the engine brings along instead of writing it twice.
bool IsSharedWithTheEngine(std::string_view path) {
    return path == "base/error.h" || path == "base/path.h" || path == "base/systemerror.h";
}

bool MayInclude(Layer from, std::string_view path) {
    const Layer to = LayerOf(path);
    switch (from) {
        case Layer::Base:
            return to == Layer::Base;
        case Layer::Rules:
            return to == Layer::Base || to == Layer::Rules;
        case Layer::Jet:
            return to == Layer::Jet || IsSharedWithTheEngine(path);
        case Layer::Data:
            return to == Layer::Base || to == Layer::Rules || to == Layer::Jet || to == Layer::Data;
        case Layer::Platform:
            return to != Layer::Window && to != Layer::Program;
        case Layer::Window:
        case Layer::Program:
            return true;
    }
    return false;
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
            return MayInclude(LayerOf(file.path), Unquoted(include)) ? ""
                                                                     : "an arrow up or sideways";
        }),
        IsEmpty());
}

TEST(HouseLayers, KnowNoQtBelowTheData) {
    EXPECT_THAT(
        Findings([](const house::SourceFile& file, const std::string& include) -> std::string {
            const Layer layer = LayerOf(file.path);
            const bool plain = layer == Layer::Base || layer == Layer::Rules || layer == Layer::Jet;
            return plain && IsQt(include) ? "no Qt here" : "";
        }),
        IsEmpty());
}

TEST(HouseLayers, LeaveTheSystemToTheFileStore) {
    EXPECT_THAT(
        Findings([](const house::SourceFile& file, const std::string& include) -> std::string {
            const Layer layer = LayerOf(file.path);
            const bool plain = layer == Layer::Base || layer == Layer::Rules || layer == Layer::Jet;
            const bool store = file.path == "jet/detail/filestore.cpp";
            return plain && !store && IsSystem(include) ? "system calls belong to the file store"
                                                        : "";
        }),
        IsEmpty());
}

TEST(HouseLayers, KeepTheClockAndTheFilesOutOfTheRules) {
    EXPECT_THAT(
        Findings([](const house::SourceFile& file, const std::string& include) -> std::string {
            if (LayerOf(file.path) != Layer::Rules) return "";
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
            const bool inside = Unquoted(include).starts_with("jet/detail/");
            const bool engine = file.In("jet/") || file.In("fuzz/") || file.In("bench/");
            return inside && !engine ? "jet/detail is for the engine alone" : "";
        }),
        IsEmpty());
}

TEST(HouseLayers, KeepControllersFromEachOther) {
    std::vector<std::string> controllers;
    static const std::regex derived(
        R"(\bclass\s+\w+(\s+final)?\s*:\s*(public\s+|private\s+)?Controller\b)");
    for (const auto& file : house::ProductFiles()) {
        if (file.path.ends_with(".h") && std::regex_search(file.code, derived))
            controllers.push_back(file.path);
    }
    EXPECT_THAT(
        Findings([&](const house::SourceFile& file, const std::string& include) -> std::string {
            const std::string path = Unquoted(include);
            if (std::find(controllers.begin(), controllers.end(), path) == controllers.end())
                return "";
            const bool own = file.path == path.substr(0, path.size() - 1) + "cpp";
            return own || file.path == "app/frmPPM.cpp"
                       ? ""
                       : "controllers ask the window, not each other";
        }),
        IsEmpty());
}

TEST(HouseLayers, BeginEveryHeaderOnce) {
    std::vector<std::string> findings;
    for (const auto& file : house::SourceFiles()) {
        if (file.path.ends_with(".h") && !file.text.starts_with("#pragma once\n"))
            findings.push_back(file.path);
    }
    EXPECT_THAT(findings, IsEmpty());
}

TEST(HouseLayers, TellWhatEveryHeaderIsFor) {
    std::vector<std::string> findings;
    for (const auto& file : house::ProductFiles()) {
        if (file.path.ends_with(".h") && !file.text.starts_with("#pragma once\n//"))
            findings.push_back(file.path);
    }
    EXPECT_THAT(findings, IsEmpty());
}

}  // namespace
