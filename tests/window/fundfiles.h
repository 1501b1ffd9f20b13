#pragma once
// Fund files for window tests: a few holdings with their points, written by the engine, and what is
// in a file afterwards.

#include "fundfile/rules/point.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

struct TestHolding {
    std::string fond = "Vimmels Asien";
    std::string fondNr = "249 995";
    std::string bokfortDatum = "2026-01-02";
    double fondandelar = 10;
    double kursKr = 100;
    double vardeKr = 1000;
    double andel = 50;
    std::string namn = "Premiepension";
    std::int32_t plottFarg = 0x0000C0;
    std::optional<std::int32_t> senasteDag = 46325;
    std::string senasteKurs = "Senaste : 110,00";
    std::string procent = "10 %";
    std::string kursVarde = "1100";
    std::string skala = "15/-10";
    std::string sparadeVarden = "x";
    std::vector<CurvePoint> points = {{46024, 0}, {46325, 10}};
};

/// Writes a new fund file; KontoIds count from 1 in the order given.
void WriteFundFile(const std::filesystem::path& path, const std::vector<TestHolding>& holdings);

/// Two holdings, both listed for the several-curves view.
std::vector<TestHolding> TwoHoldings();
/// So many holdings, "Fond 1" and so on, without curves listed.
std::vector<TestHolding> ManyHoldings(int count);
