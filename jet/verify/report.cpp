#include "jet/verify/report.h"

#include "jet/storage/layout.h"

namespace jet::detail {
namespace {

constexpr std::size_t kMaxFaults = 1000;

}  // namespace

std::string PageText(std::uint32_t page) {
    return "page " + Decimal(page);
}
std::string RowText(RowPointer row) {
    return "row " + Decimal(row.page) + "/" + Decimal(row.row);
}

void Report::Fault(const std::string& line) {
    if (findings.faults.size() < kMaxFaults) findings.faults.push_back(line);
}

void Report::Note(const std::string& line) {
    if (findings.notes.size() < kMaxFaults) findings.notes.push_back(line);
}

bool Report::Claim(std::uint32_t page, const std::string& owner) {
    if (page >= owners_.size()) {
        Fault(owner + ": " + PageText(page) + " is not in the file");
        return false;
    }
    if (!owners_[page].empty()) {
        Fault(PageText(page) + " belongs to " + owners_[page] + " and to " + owner);
        return false;
    }
    owners_[page] = owner;
    return true;
}

void Report::ClaimMapPage(std::uint32_t page) {
    static const std::string kMaps = "usage maps";
    if (page < owners_.size() && owners_[page] == kMaps) return;
    Claim(page, kMaps);
}

void CheckMapPages(const PageFile& file, Report& report, RowPointer map) {
    report.ClaimMapPage(map.page);
    const ByteView row = RowAt(file, map);
    if (U8(row, 0, map.page) == 0) return;
    for (std::size_t at = 1; at + 4 <= row.size(); at += 4) {
        const std::uint32_t page = U32(row, at, map.page);
        if (page == 0 || page >= file.PageCount()) continue;
        if (U8(file.Page(page), 0, page) != kMapPage) {
            report.Fault(PageText(page) + ": a usage map refers to it, but it holds none");
        }
        report.Claim(page, "the usage map " + RowText(map));
    }
}

void CheckFreeBytes(const DataPage& page, Report& report) {
    if (page.StoredFreeBytes() == page.FreeBytes()) return;
    report.Fault(PageText(page.Number()) + ": says " + Decimal(page.StoredFreeBytes()) +
                 " bytes are free, but " + Decimal(page.FreeBytes()) + " are");
}

}  // namespace jet::detail
