#pragma once
// What storing is compared with: the bare calls that write a file anew, and a write in place.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <string>
#include <sys/types.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

inline constexpr double kMilliseconds = 1000;  ///< in a second

/// Where the benches' files lie: `KVARNBO_BENCH_FOLDER`, or here.
inline fs::path Folder() {
    static const fs::path folder = [] {
        const char* chosen = std::getenv("KVARNBO_BENCH_FOLDER");
        fs::path made = fs::path(chosen != nullptr ? chosen : ".") / "kvarnbo-bench";
        fs::create_directories(made);
        return made;
    }();
    return folder;
}

inline double Seconds(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// The system calls alone, on the bytes of a file.
class BareStore {
  public:
    explicit BareStore(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        bytes_.assign(std::istreambuf_iterator<char>(file), {});
    }
    /// Seconds; nothing when a call failed.
    std::optional<double> Run() {
        bool stored = false;
        const double seconds = Seconds([&] { stored = Store(); });
        return stored ? std::optional(seconds) : std::nullopt;
    }

  private:
    bool Store() const {
        const std::string temporary = (Folder() / "bare.tmp").string();
        const int out = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        bool well = out >= 0;
        for (std::size_t written = 0; well && written < bytes_.size();) {
            const ssize_t step = write(out, bytes_.data() + written, bytes_.size() - written);
            well = step > 0;
            written += static_cast<std::size_t>(step);
        }
        well = well && fsync(out) == 0;
        close(out);
        well = well && std::rename(temporary.c_str(), (Folder() / "bare.mdb").c_str()) == 0;
        const int directory = open(Folder().c_str(), O_RDONLY | O_DIRECTORY);
        well = well && fsync(directory) == 0;
        close(directory);
        return well;
    }
    std::vector<char> bytes_;
};

/// A price's pages written where they stand: the row's, its index's, the table's, the map's. A
/// crash in the middle leaves a torn file.
class InPlaceStore {
  public:
    explicit InPlaceStore(const fs::path& path) {
        const fs::path copy = Folder() / "inplace.mdb";
        fs::copy_file(path, copy, fs::copy_options::overwrite_existing);
        pages_ = static_cast<off_t>(fs::file_size(copy) / kPageSize);
        file_ = open(copy.c_str(), O_RDWR);
    }
    ~InPlaceStore() { close(file_); }
    InPlaceStore(const InPlaceStore&) = delete;
    InPlaceStore& operator=(const InPlaceStore&) = delete;
    /// Seconds; nothing when a call failed.
    std::optional<double> Run() {
        bool stored = file_ >= 0;
        const double seconds = Seconds([&] {
            for (off_t page = 1; page <= kPages; ++page) {
                const off_t at = page * (pages_ - 1) / kPages * static_cast<off_t>(kPageSize);
                stored = pwrite(file_, bytes_.data(), kPageSize, at) ==
                             static_cast<ssize_t>(kPageSize) &&
                         stored;
            }
            stored = fsync(file_) == 0 && stored;
        });
        return stored ? std::optional(seconds) : std::nullopt;
    }

  private:
    static constexpr std::size_t kPageSize = 4096;
    static constexpr off_t kPages = 4;
    std::vector<char> bytes_ = std::vector<char>(kPageSize);
    off_t pages_ = 0;
    int file_ = -1;
};

inline double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

/// Seconds of an operation, of the bare calls and of the write in place, in turn; shown as medians
/// and their ratios.
class BesideBare {
  public:
    BesideBare(benchmark::State& state, const fs::path& path)
        : state_(state), bare_(path), inPlace_(path) {}
    void Add(double seconds) {
        const auto bare = bare_.Run();
        const auto inPlace = inPlace_.Run();
        if (!bare || !inPlace) return state_.SkipWithError("a system call failed");
        state_.SetIterationTime(seconds);
        operation_.push_back(seconds);
        calls_.push_back(*bare);
        writes_.push_back(*inPlace);
    }
    ~BesideBare() {
        state_.counters["ms"] = Median(operation_) * kMilliseconds;
        state_.counters["bare_ms"] = Median(calls_) * kMilliseconds;
        state_.counters["times"] = Median(operation_) / Median(calls_);
        state_.counters["inplace_ms"] = Median(writes_) * kMilliseconds;
        state_.counters["times_inplace"] = Median(operation_) / Median(writes_);
    }
    BesideBare(const BesideBare&) = delete;
    BesideBare& operator=(const BesideBare&) = delete;

  private:
    benchmark::State& state_;
    BareStore bare_;
    InPlaceStore inPlace_;
    std::vector<double> operation_, calls_, writes_;
};
