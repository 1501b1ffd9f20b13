// The engine on point files of three sizes: open, read, store one price, delete a holding, copy all
// points. "Bare" is the whole file anew: the same bytes written to a new file, synced, renamed, and
// the folder synced. "In place" is the least that any durable store costs, with no promise: some
// pages written where they stand, and synced. How long that takes changes from minute to minute, so
// both are done in turn with what they are compared with.

#include "bench/beside.h"
#include "jet/database.h"
#include "jet/transaction.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/types.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::int32_t kFirstDay = 38000;
constexpr int kPointsOfHolding = 5000;

std::string TextOf(std::int32_t number) {
    return jet::Value(number).Text();
}

/// `PLOTTDATA` with the points of `points` / 5000 holdings, stored as they come in: day after day.
fs::path MakePointFile(int points) {
    const fs::path path = Folder() / ("points" + TextOf(points) + ".mdb");
    if (fs::exists(path)) return path;
    const jet::TableDesign table{"PLOTTDATA",
                                 {{"FondNr", jet::ColumnType::Text, 10},
                                  {"XCord", jet::ColumnType::Long},
                                  {"YCord", jet::ColumnType::Long},
                                  {"KontoId", jet::ColumnType::Long}},
                                 {{"KontoId", {{"KontoId"}}}}};
    jet::Database::Create(path, std::array{table});
    const auto database = jet::Database::Open(path);
    jet::Transaction transaction(database);
    const auto records = database->OpenRecordSet("PLOTTDATA");
    const int holdings = points / kPointsOfHolding;
    for (int i = 0; i < points; ++i) {
        records->AddNew();
        records->Set(0, "249 995");
        records->Set(1, kFirstDay + i / holdings);
        records->Set(2, i % 77 - 20);
        records->Set(3, i % holdings + 1);
        records->Update();
    }
    transaction.Commit();
    database->Close();
    return path;
}

/// A copy to change; made anew each time.
fs::path WorkCopy(int points) {
    const fs::path copy = Folder() / "work.mdb";
    fs::copy_file(MakePointFile(points), copy, fs::copy_options::overwrite_existing);
    return copy;
}

std::string HoldingQuery(int holding) {
    return "SELECT XCord,YCord FROM  PLOTTDATA WHERE KontoId = " + TextOf(holding) +
           " ORDER BY XCord";
}

void OpenFile(benchmark::State& state) {
    const fs::path path = MakePointFile(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const auto database = jet::Database::Open(path);
        benchmark::DoNotOptimize(database->StoredRowCount("PLOTTDATA"));
        database->Close();
    }
}

/// From the closed file to the last of all points.
void OpenAndReadAllPoints(benchmark::State& state) {
    const fs::path path = MakePointFile(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const auto database = jet::Database::Open(path);
        const auto records = database->OpenRecordSet("SELECT XCord,YCord,KontoId FROM PLOTTDATA");
        benchmark::DoNotOptimize(records->Integers({0, 1, 2}).size());
        database->Close();
    }
}

/// Holding by holding in day order, as curves are drawn; the file is open.
void ReadEveryHolding(benchmark::State& state) {
    const int points = static_cast<int>(state.range(0));
    const auto database = jet::Database::Open(MakePointFile(points));
    std::size_t read = 0;
    for (auto _ : state) {
        read = 0;
        for (int holding = 1; holding <= points / kPointsOfHolding; ++holding) {
            read += database->OpenRecordSet(HoldingQuery(holding))->Integers({0, 1}).size();
        }
    }
    if (read != static_cast<std::size_t>(points)) state.SkipWithError("points are missing");
    database->Close();
}

/// One holding's points; the others must not count.
void ReadOneHolding(benchmark::State& state) {
    const auto database = jet::Database::Open(MakePointFile(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        benchmark::DoNotOptimize(database->OpenRecordSet(HoldingQuery(1))->Integers({0, 1}).size());
    }
    database->Close();
}

/// A price entry: today's point is looked for, deleted and added again; durable when it returns.
void StorePrice(benchmark::State& state) {
    const fs::path path = WorkCopy(static_cast<int>(state.range(0)));
    const auto database = jet::Database::Open(path);
    std::vector<double> inMemory;
    const auto edit = [&](std::int32_t value) {
        const auto points = database->OpenRecordSet(HoldingQuery(1));
        if (points->FindFirst("XCord = 43000")) points->Delete();
        const auto all = database->OpenRecordSet("PLOTTDATA");
        all->AddNew();
        all->Set(0, "249 995");
        all->Set(1, 43000);
        all->Set(2, value);
        all->Set(3, 1);
        all->Update();
    };
    const auto store = [&](std::int32_t value) {
        jet::Transaction transaction(database);
        inMemory.push_back(Seconds([&] { edit(value); }));
        transaction.Commit();
    };
    store(0);  // the first one checks the table
    BesideBare both(state, path);
    std::int32_t value = 0;
    for (auto _ : state) both.Add(Seconds([&] { store(++value); }));
    state.counters["edit_ms"] = Median(inMemory) * kMilliseconds;
    database->Close();
}

/// The least that opening costs: the file's bytes read into memory of large pages.
void ReadIntoMemory(benchmark::State& state) {
    const fs::path path = MakePointFile(static_cast<int>(state.range(0)));
    const auto size = static_cast<std::size_t>(fs::file_size(path));
    constexpr std::size_t kLargePage = std::size_t{2} << 20U;
    const std::size_t room = (size + kLargePage - 1) / kLargePage * kLargePage;
    for (auto _ : state) {
        void* const memory = std::aligned_alloc(kLargePage, room);
        if (size >= kLargePage) ::madvise(memory, room, MADV_HUGEPAGE);
        const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        const ssize_t got = ::read(file, memory, size);
        if (got != static_cast<ssize_t>(size)) state.SkipWithError("the file was not read");
        ::close(file);
        std::free(memory);
    }
}

/// From the closed file: the first curve, which also checks the table.
void OpenAndFirstCurve(benchmark::State& state) {
    const fs::path path = WorkCopy(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const auto database = jet::Database::Open(path);
        benchmark::DoNotOptimize(database->OpenRecordSet(HoldingQuery(1))->Integers({0, 1}).size());
        database->Close();
    }
}

/// The first write after it, without the disk.
void FirstWrite(benchmark::State& state) {
    const fs::path path = WorkCopy(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const auto database = jet::Database::Open(path);
        benchmark::DoNotOptimize(database->OpenRecordSet(HoldingQuery(1))->Integers({0, 1}).size());
        state.SetIterationTime(Seconds([&] {
            const jet::Transaction taken(database);
            const auto all = database->OpenRecordSet("PLOTTDATA");
            all->AddNew();
            all->Update();
        }));
        database->Close();
    }
}

/// All points, ordered, row by row into a new file, as "save as" does it.
void CopyAllPoints(benchmark::State& state) {
    const auto database = jet::Database::Open(MakePointFile(static_cast<int>(state.range(0))));
    const fs::path path = Folder() / "copy.mdb";
    for (auto _ : state) {
        jet::Database::Create(path, std::array{database->Describe("PLOTTDATA")});
        const auto copy = jet::Database::Open(path);
        jet::Transaction transaction(copy);
        const auto from =
            database->OpenRecordSet("SELECT* FROM  PLOTTDATA  ORDER BY KontoId,XCord");
        const auto to = copy->OpenRecordSet("PLOTTDATA");
        for (std::int32_t row = 0; row < from->RecordCount(); ++row) {
            to->AddNew();
            for (std::size_t i = 0; i < from->FieldCount(); ++i) to->Set(i, from->At(row, i));
            to->Update();
        }
        transaction.Commit();
        copy->Close();
    }
    database->Close();
}

/// The same, without the disk: what is left of it when the transaction is taken back.
void StorePriceInMemory(benchmark::State& state) {
    const auto database = jet::Database::Open(WorkCopy(static_cast<int>(state.range(0))));
    const auto all = database->OpenRecordSet("PLOTTDATA");
    jet::Transaction transaction(database);
    const auto addAndDelete = [&] {
        all->AddNew();
        all->Set(1, 43000);
        all->Set(3, 1);
        all->Update();
        all->Delete();
    };
    addAndDelete();  // the first one checks the table
    for (auto _ : state) addAndDelete();
    database->Close();
}

/// Durable when it returns. The table was checked before, as it is where prices were stored.
void DeleteHolding(benchmark::State& state) {
    const int points = static_cast<int>(state.range(0));
    BesideBare both(state, WorkCopy(points));
    for (auto _ : state) {
        const auto database = jet::Database::Open(WorkCopy(points));
        {
            const jet::Transaction taken(database);
            const auto all = database->OpenRecordSet("PLOTTDATA");
            all->AddNew();
            all->Update();
        }
        database->OpenRecordSet(HoldingQuery(1))->RecordCount();
        std::int32_t gone = 0;
        both.Add(Seconds(
            [&] { gone = database->Execute("DELETE *  FROM  PLOTTDATA WHERE KontoId = 1"); }));
        if (gone != kPointsOfHolding) state.SkipWithError("not the points of one holding");
        database->Close();
    }
}

long PeakKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (!line.starts_with("VmHWM:")) continue;
        const std::size_t digits = line.find_first_of("0123456789");
        return jet::Value(line.substr(digits, line.find(' ', digits) - digits)).Integer();
    }
    return 0;
}

/// What a fresh process takes at its peak that opens the file, orders all its points and reads one
/// holding, beyond what it took when it began. Printed, for PeakOfAReader.
int PrintPeak(const char* path) {
    const long before = PeakKilobytes();
    const auto database = jet::Database::Open(path);
    const auto all = database->OpenRecordSet("SELECT* FROM  PLOTTDATA  ORDER BY KontoId,XCord");
    all->MoveLast();
    benchmark::DoNotOptimize(database->OpenRecordSet(HoldingQuery(1))->Integers({0, 1}).size());
    std::cout << PeakKilobytes() - before << std::endl;
    return 0;
}

long PeakOfAReader(const fs::path& path) {
    const std::string command =
        fs::read_symlink("/proc/self/exe").string() + " --peak '" + path.string() + "'";
    std::FILE* output = popen(command.c_str(), "r");
    if (output == nullptr) return -1;
    std::array<char, 64> line{};
    const bool answered = std::fgets(line.data(), line.size(), output) != nullptr;
    pclose(output);
    return answered ? jet::Value(line.data()).Integer() : -1;
}

void PeakMemory(benchmark::State& state) {
    const fs::path path = MakePointFile(static_cast<int>(state.range(0)));
    long peak = 0;
    for (auto _ : state) peak = PeakOfAReader(path);
    if (peak < 0) state.SkipWithError("no answer from the reader");
    state.counters["KiB"] = static_cast<double>(peak);
    state.counters["file_KiB"] = static_cast<double>(fs::file_size(path)) / 1024;
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(5000)->Arg(50000)->Arg(500000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

void StoredSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(5000)->Arg(50000)->Arg(500000)->Unit(benchmark::kMillisecond)->UseManualTime();
}

}  // namespace

BENCHMARK(ReadIntoMemory)->Apply(Sizes);
BENCHMARK(OpenFile)->Apply(Sizes);
BENCHMARK(OpenAndReadAllPoints)->Apply(Sizes);
BENCHMARK(ReadEveryHolding)->Apply(Sizes);
BENCHMARK(ReadOneHolding)->Apply(Sizes);
BENCHMARK(StorePriceInMemory)->Apply(Sizes);
BENCHMARK(OpenAndFirstCurve)->Apply(Sizes);
BENCHMARK(FirstWrite)->Apply(StoredSizes)->Iterations(20);
BENCHMARK(CopyAllPoints)->Apply(Sizes);
BENCHMARK(StorePrice)->Apply(StoredSizes)->Iterations(200);
BENCHMARK(DeleteHolding)->Apply(StoredSizes)->Iterations(50);
BENCHMARK(PeakMemory)->Apply(Sizes)->Iterations(1);

int main(int argc, char** argv) {
    if (argc == 3 && std::string_view(argv[1]) == "--peak") return PrintPeak(argv[2]);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
