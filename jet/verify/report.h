#pragma once
// What a check of a file has found so far, and which object each page belongs to.

#include "jet/error.h"
#include "jet/storage/bytes.h"
#include "jet/storage/datapage.h"
#include "jet/storage/pagefile.h"
#include "jet/verify/verify.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace jet::detail {

std::string PageText(std::uint32_t page);
std::string RowText(RowPointer row);

/// Collects the lines, and which object each page belongs to.
class Report {
  public:
    explicit Report(PageFile& file) : owners_(file.PageCount()) {}

    void Fault(const std::string& line);
    void Note(const std::string& line);
    /// Runs one part of the check; what it throws is a fault.
    template <typename Part>
    void Try(const std::string& what, Part&& part) {
        try {
            part();
        } catch (const Error& error) {
            Fault(what + ": " + error.what());
        }
    }
    /// False, and a fault, when the page is another object's or is no page of the file.
    bool Claim(std::uint32_t page, const std::string& owner);
    /// Pages of maps are shared by many maps.
    void ClaimMapPage(std::uint32_t page);
    const std::string& OwnerOf(std::uint32_t page) const { return owners_[page]; }

    Findings findings;

  private:
    std::vector<std::string> owners_;
};

/// Claims the pages of a usage map, and looks whether they hold one.
void CheckMapPages(const PageFile& file, Report& report, RowPointer map);
/// Whether a page of rows has as many free bytes as it says.
void CheckFreeBytes(const DataPage& page, Report& report);

}  // namespace jet::detail
