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

class ModelOfSample : public testing::TestWithParam<SampleShare> {};

TEST_P(ModelOfSample, AgreesWithACopy) {
    SKIP_WITHOUT_SAMPLES();
    ScratchFolder folder;
    const std::filesystem::path source = *Samples() / GetParam().file;
    std::filesystem::copy_file(source, folder / "copy.mdb");
    std::filesystem::permissions(folder / "copy.mdb", std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
    ModelFile(folder / "copy.mdb", 600, ModelSeed()).Run(ModelChanges(GetParam().percent));
}

INSTANTIATE_TEST_SUITE_P(Files, ModelOfSample,
                         testing::Values(SampleShare{"fundfiles/access97.mdb", 12},
                                         SampleShare{"mdb-samples/testIndexCodesV1997.mdb", 12},
                                         SampleShare{"mdb-samples/nwind.mdb", 6},
                                         SampleShare{"mdb-samples/testV1997.mdb", 6},
                                         SampleShare{"fundfiles/valuta.mdb", 6},
                                         SampleShare{"fundfiles/textindex.mdb", 6},
                                         SampleShare{"mdb-samples/mixed1.mdb", 4},
                                         SampleShare{"mdb-samples/mixed2.mdb", 4},
                                         SampleShare{"mdb-samples/mixed3.mdb", 4}),
                         [](const auto& tested) {
                             return std::filesystem::path(tested.param.file).stem().string();
                         });

}  // namespace
}  // namespace jet::test
