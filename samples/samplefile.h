#pragma once
// A fund file filled with invented holdings, in the form in which the program itself leaves one.

#include "samples/market.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

struct SampleHolding {
    std::string name, fondNr, account;
    double startPrice = 0, shares = 0;
    std::int32_t daysBack = 0;  ///< bought so many days before the last day
    FundCharacter character;
    bool shown = false;        ///< among the curves shown together
    bool shareNotice = false;  ///< got new shares in a February since then
};

struct SampleAccount {
    std::string name, holder, number;
};

struct Sample {
    std::uint64_t seed = 0;
    std::vector<SampleAccount> accounts;
    std::vector<SampleHolding> holdings;  ///< their order gives the identities, from 1
};

void WriteSample(const Sample& sample, std::int32_t lastDay, const std::filesystem::path& path);

/// The two that come with the program.
Sample VimmelsSample();
Sample RuskenSample();
