#include "tests/window/fundfiles.h"

#include "fundfile/fundfile.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "jet/transaction.h"

namespace {

void AddHolding(jet::RecordSet& rows, const TestHolding& holding) {
    using namespace schema::holding;
    rows.AddNew();
    rows.Set(kFond, holding.fond);
    rows.Set(kFondNr, holding.fondNr);
    rows.Set(kBokfortDatum, holding.bokfortDatum);
    rows.Set(kFondandelar, holding.fondandelar);
    rows.Set(kKursKr, holding.kursKr);
    rows.Set(kVardeKr, holding.vardeKr);
    rows.Set(kAndel, holding.andel);
    rows.Set(kNamn, holding.namn);
    rows.Set(kPlottFarg, holding.plottFarg);
    if (holding.senasteDag) rows.Set(kSenasteDag, *holding.senasteDag);
    rows.Set(kSenasteKurs, holding.senasteKurs);
    rows.Set(kProcent, holding.procent);
    rows.Set(kKursVarde, holding.kursVarde);
    rows.Set(kSkala, holding.skala);
    rows.Set(kSparadeVarden, holding.sparadeVarden);
    rows.Update();
}

}  // namespace

void WriteFundFile(const std::filesystem::path& path, const std::vector<TestHolding>& holdings) {
    jet::Database::Create(path, NewFundFileDesign());
    const auto database = jet::Database::Open(path);
    {
        jet::Transaction transaction(database);
        const auto rows = database->OpenRecordSet("FONDDATA");
        const auto points = database->OpenRecordSet("PLOTTDATA");
        for (const TestHolding& holding : holdings) {
            AddHolding(*rows, holding);
            const std::int32_t kontoId = rows->Field(0).Integer();
            for (const CurvePoint& point : holding.points) {
                points->AddNew();
                points->Set(schema::point::kFondNr, holding.fondNr);
                points->Set(schema::point::kXCord, point.day);
                points->Set(schema::point::kYCord, point.value);
                points->Set(schema::point::kKontoId, kontoId);
                points->Update();
            }
        }
        transaction.Commit();
    }
    database->Close();
}

std::vector<TestHolding> TwoHoldings() {
    TestHolding first;
    first.skala = "1.2./15/-10";
    TestHolding second;
    second.fond = "Kvarnbo Europa";
    second.fondNr = "468 024";
    second.fondandelar = 20;
    second.kursKr = 50;
    second.skala = "45/-30";
    second.plottFarg = 0xA04000;
    second.points = {{46024, 0}, {46325, 30}};
    return {first, second};
}

std::vector<TestHolding> ManyHoldings(int count) {
    std::vector<TestHolding> holdings;
    for (int i = 1; i <= count; ++i) {
        TestHolding holding;
        holding.fond = "Fond " + std::to_string(i);
        holding.skala = i == 1 ? "./15/-10" : "15/-10";
        holdings.push_back(holding);
    }
    return holdings;
}
