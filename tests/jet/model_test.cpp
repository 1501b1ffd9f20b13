#include "model.h"

#include "support.h"

#include <gtest/gtest.h>

namespace jet::test {
namespace {

std::vector<TableDesign> Tables() {
    using enum ColumnType;
    return {
        {"Rader",
         {{.name = "Nr", .type = Long, .autonumber = true},
          {.name = "Namn", .type = Text, .size = 255},
          {.name = "Grupp", .type = Long},
          {.name = "Värde%", .type = Double},
          {.name = "Belopp", .type = Currency},
          {.name = "Dag", .type = Date},
          {.name = "På", .type = Boolean},
          {.name = "Kod", .type = Text, .size = 20},
          {.name = "Not", .type = Memo},
          {.name = "Rå", .type = Binary, .size = 100},
          {.name = "Liten", .type = Integer},
          {.name = "Bild", .type = Ole},
          {.name = "Fri", .type = Text, .size = 200},
          {.name = "Nyckel", .type = Guid},
          {.name = "Tal", .type = Numeric, .precision = 12, .scale = 3}},
         {{.name = "PrimaryKey", .columns = {{"Nr"}}, .primary = true},
          {.name = "Grupp", .columns = {{"Grupp"}}},
          {.name = "Namn", .columns = {{"Namn"}, {"Dag", true}}},
          {.name = "Kod", .columns = {{"Kod"}}, .unique = true, .ignoreNulls = true},
          {.name = "Blandad", .columns = {{"Grupp", true}, {"Kod"}, {"Värde%"}}},
          {.name = "Belopp", .columns = {{"Belopp", true}, {"På"}}},
          {.name = "Bytes", .columns = {{"Rå"}, {"Nyckel", true}}},
          {.name = "Tal", .columns = {{"Tal"}, {"Liten", true}}, .ignoreNulls = true}}},
        {"Punkter",
         {{.name = "XCord", .type = Long},
          {.name = "YCord", .type = Long},
          {.name = "KontoId", .type = Long}},
         {{.name = "KontoId", .columns = {{"KontoId"}}},
          {.name = "Unik", .columns = {{"KontoId"}, {"XCord"}}, .unique = true}}},
        {"Namn",
         {{.name = "Namn", .type = Text, .size = 200}, {.name = "Vikt", .type = Single}},
         {{.name = "PrimaryKey", .columns = {{"Namn"}}, .primary = true},
          {.name = "Vikt", .columns = {{"Vikt", true}}}}},
    };
}

TEST(Model, AgreesWithACreatedFile) {
    ScratchFolder folder;
    Database::Create(folder / "new.mdb", Tables(), Date{46000});
    ModelFile(folder / "new.mdb", 1500, ModelSeed()).Run(ModelChanges(40));
}

struct SampleShare {
    const char* file;
    std::size_t percent;
};

void PrintTo(const SampleShare& tested, std::ostream* out) {
    *out << tested.file;
}

/// Empty where other programs' files are not there.
std::filesystem::path PlaceOf(const std::string& name) {
    for (const std::filesystem::path& file : SampleFiles()) {
        if (file.stem() == name) return file;
    }
    return {};
}

class ModelOfSample : public testing::TestWithParam<SampleShare> {};

TEST_P(ModelOfSample, AgreesWithACopy) {
    const std::filesystem::path source = PlaceOf(GetParam().file);
    if (source.empty()) GTEST_SKIP() << "KVARNBO_SAMPLES names no folder of sample files";
    ScratchFolder folder;
    std::filesystem::copy_file(source, folder / "copy.mdb");
    std::filesystem::permissions(folder / "copy.mdb", std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
    ModelFile(folder / "copy.mdb", 600, ModelSeed()).Run(ModelChanges(GetParam().percent));
}

INSTANTIATE_TEST_SUITE_P(Files, ModelOfSample,
                         testing::Values(SampleShare{"access97", 12},
                                         SampleShare{"testIndexCodesV1997", 12},
                                         SampleShare{"nwind", 6}, SampleShare{"testV1997", 6},
                                         SampleShare{"valuta", 6}, SampleShare{"textindex", 6},
                                         SampleShare{"mixed1", 4}, SampleShare{"mixed2", 4},
                                         SampleShare{"mixed3", 4}),
                         [](const auto& tested) { return std::string(tested.param.file); });

}  // namespace
}  // namespace jet::test
