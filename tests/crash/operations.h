#pragma once
// A file with holdings and points, and changes of it that are the same each time.

#include "jet/database.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace crash {

std::string BytesOf(const std::filesystem::path& path);
void Write(const std::filesystem::path& path, const std::string& bytes);

/// Points of each holding: some 600 kB, so that a save takes several writes; or a small file.
inline constexpr std::int32_t kManyDays = 6000, kFewDays = 200;

/// Creates the file with three holdings and the points of that many days for each.
void Fill(const std::filesystem::path& path, std::int32_t days);

struct Operation {
    const char* name;
    /// Changes the file at the path; the database is that file, open, or null for operations that
    /// open nothing.
    std::function<void(const std::shared_ptr<jet::Database>&, const std::filesystem::path&)> run;
    bool opens = true;
    bool replaces = true;  ///< a file is there before
};

inline void PrintTo(const Operation& tested, std::ostream* out) {
    *out << tested.name;
}

using jet::Database;
void Insert(const std::shared_ptr<Database>& database, const std::filesystem::path& path);
void Update(const std::shared_ptr<Database>& database, const std::filesystem::path& path);
void Delete(const std::shared_ptr<Database>& database, const std::filesystem::path& path);
void DeleteWithPoints(const std::shared_ptr<Database>& database, const std::filesystem::path& path);
void StorePrice(const std::shared_ptr<Database>& database, const std::filesystem::path& path);
void Create(const std::shared_ptr<Database>& database, const std::filesystem::path& path);

}  // namespace crash
