// Fund files that another engine wrote: each opens, takes a price typed by key strokes, and is
// sound afterwards for this engine and for an independent reader.

#include "platform/datasource.h"
#include "tests/window/windowtest.h"

#include <QLabel>

#include <array>
#include <cmath>
#include <cstdio>
#include <sstream>

namespace {

/// The lines that a command prints; a command that fails prints none.
std::vector<std::string> OutputOf(const std::string& command) {
    std::vector<std::string> lines;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return lines;
    std::string text;
    std::array<char, 4096> buffer{};
    while (fgets(buffer.data(), static_cast<int>(buffer.size()), pipe) != nullptr) {
        text += buffer.data();
    }
    if (pclose(pipe) != 0) return lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

class SampleFiles : public WindowTest, public ::testing::WithParamInterface<const char*> {
  protected:
    void SetUp() override {
        CopySample(GetParam());
        Start();
    }
    std::vector<std::string> PointLinesOfToday() {
        std::vector<std::string> today;
        for (const std::string& line :
             OutputOf("mdb-export -Q '" + SamplePath().string() + "' PLOTTDATA")) {
            if (line.find(",46342,") != std::string::npos) today.push_back(line);
        }
        return today;
    }
};

}  // namespace

TEST_P(SampleFiles, OpensAndTakesAPriceThatAnotherReaderSees) {
    EXPECT_EQ(Caption(Window().lblRubrik), "Du arbetar med Vimmels_exempel");
    EXPECT_EQ(Window().lstFonder->count(), Window().dtaBasData->RecordCount());
    if (Window().lstFonder->count() == 0) return;  // the empty template takes no price

    ChooseFund(1);
    const auto start = static_cast<float>(Window().holding->startPrice);
    ASSERT_GT(start, 0);
    TypePrice(
        "0,01");  // a fall of just about 100 %: the percentage is known whatever the start price
    const auto percent = static_cast<int>(std::lround((0.01F - start) * 100 / start));
    const std::int32_t kontoId = Window().SelectedCurves.at(0);

    EXPECT_EQ(PointLinesOfToday(),
              std::vector<std::string>{FraData(0) + ",46342," + std::to_string(percent) + "," +
                                       std::to_string(kontoId)});
    EXPECT_EQ(Faults(), std::vector<std::string>{});
    EXPECT_EQ(PointsOf(kontoId).back(), (CurvePoint{46342, percent}));
    EXPECT_EQ(Status(4), "Senaste : 0,01");
}

TEST_P(SampleFiles, EveryHoldingOpens) {
    for (int row = 0; row < Window().lstFonder->count(); ++row) {
        Window().lstFonder->setCurrentRow(row);
        if (row == 0) Window().OpenSelectedFund();  // it was the current line already
        EXPECT_NE(FraData(0), "") << row;
        EXPECT_EQ(Window().SelectedCurves.size(), 1U) << row;
    }
}

INSTANTIATE_TEST_SUITE_P(All, SampleFiles,
                         ::testing::Values("liten", "konton", "utan_index", "raderad", "valuta",
                                           "tom", "svensk", "textindex", "access97"),
                         [](const auto& parameter) { return std::string(parameter.param); });
