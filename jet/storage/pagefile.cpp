#include "jet/storage/pagefile.h"

#include "jet/error.h"
#include "jet/storage/filestore.h"
#include "jet/storage/pagejournal.h"
#include "jet/storage/storedfile.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstring>
#include <exception>
#include <functional>
#include <system_error>

namespace jet::detail {

namespace {

constexpr std::size_t kMinHeaderSize = 0x800;
constexpr std::uint32_t kMinPageCount = 3;

}  // namespace

PageFile::PageFile(const Layout& layout, FileImage image)
    : layout_(layout),
      pageShift_(static_cast<unsigned>(std::countr_zero(layout.pageSize))),
      image_(std::move(image)),
      pageCount_(static_cast<std::uint32_t>(image_.Size() >> pageShift_)) {
    if (image_.Size() % layout_.pageSize != 0) readOnly_ = true;
}

std::unique_ptr<PageFile> PageFile::FromImage(FileImage image) {
    const Layout& layout = LayoutOf(image);
    if (image.Size() < kMinHeaderSize) ThrowHeader(ErrorNumber::NotADatabase, "cut off");
    std::unique_ptr<PageFile> file(new PageFile(layout, std::move(image)));
    if (file->pageCount_ < kMinPageCount) ThrowHeader(ErrorNumber::NotADatabase, "cut off");
    file->header_ = DecodeHeader(layout, file->Page(0));
    const ByteView objects = file->Page(kSystemObjectsPage);
    if (U16(objects, 0) != (0x0100 | kTdefPage)) {
        ThrowDamaged(kSystemObjectsPage, 0, "not the definition of the list of objects");
    }
    return file;
}

std::unique_ptr<PageFile> PageFile::Open(const std::filesystem::path& path) {
    const std::filesystem::path target = Resolve(path);
    LoadedFile loaded = Load(target);
    std::unique_ptr<PageFile> file = FromImage(std::move(loaded.image));
    std::error_code unknown;
    const auto reached = std::filesystem::is_symlink(path, unknown)
                             ? StoredFile::Reached::ThroughLink
                             : StoredFile::Reached::Directly;
    file->stored_ = std::make_unique<StoredFile>(target, loaded.fingerprint, reached);
    file->path_ = target;
    if (!CanReplace(target)) file->readOnly_ = true;
    return file;
}

std::unique_ptr<PageFile> PageFile::New(const Layout& layout, const FileHeader& header) {
    std::unique_ptr<PageFile> file(new PageFile(layout, FileImage{}));
    file->header_ = header;
    return file;
}

PageFile::~PageFile() = default;

void PageFile::ThrowNoSuchPage(std::uint32_t page) const {
    throw Error{ErrorNumber::NotADatabase,
                "page " + Decimal(page) + " of a file with " + Decimal(pageCount_) + " pages"};
}

ByteSpan PageFile::EditPage(std::uint32_t page) {
    if (readOnly_) throw Error{ErrorNumber::ReadOnly, path_.string() + " is read-only"};
    if (page >= pageCount_) ThrowNoSuchPage(page);
    std::uint8_t* bytes = image_.At(static_cast<std::uint64_t>(page) << pageShift_);
    if (!levels_.empty()) {
        Level& level = levels_.back();
        level.changed = true;
        if (page < level.pageCount && !level.images.contains(page)) {
            auto image = std::make_unique_for_overwrite<std::uint8_t[]>(layout_.pageSize);
            std::memcpy(image.get(), bytes, layout_.pageSize);
            level.images.emplace(page, std::move(image));
        }
    }
    return {bytes, layout_.pageSize};
}

std::uint32_t PageFile::AppendPage() {
    if (readOnly_) throw Error{ErrorNumber::ReadOnly, path_.string() + " is read-only"};
    const std::uint64_t newSize = (static_cast<std::uint64_t>(pageCount_) + 1) << pageShift_;
    if (newSize > layout_.largestFile) {
        throw Error{ErrorNumber::NotSupported, "the file has the largest size of its format"};
    }
    image_.Resize(newSize);
    std::memset(image_.At(newSize - layout_.pageSize), 0, layout_.pageSize);
    if (!levels_.empty()) levels_.back().changed = true;
    return pageCount_++;
}

void PageFile::Begin() {
    levels_.emplace_back();
    levels_.back().pageCount = pageCount_;
}

void PageFile::Commit() {
    assert(!levels_.empty());
    if (levels_.size() > 1) return JoinOuter();
    if (levels_.back().changed) {
        try {
            Store();
        } catch (...) {
            Rollback();
            throw;
        }
        if (journal_ != nullptr) journal_->Stored(std::move(levels_.back()));
    }
    levels_.pop_back();
}

/// Moves what the inner level kept, which takes no memory: it must not stay half joined.
void PageFile::JoinOuter() noexcept {
    Level inner = std::move(levels_.back());
    levels_.pop_back();
    levels_.back().Join(std::move(inner));
}

void PageFile::PutBack(const EarlierPages& earlier) {
    assert(!levels_.empty());
    while (pageCount_ < earlier.pageCount) AppendPage();
    for (const auto& [page, image] : earlier.images) {
        std::memcpy(EditPage(page).data(), image.get(), layout_.pageSize);
    }
    if (earlier.pageCount < pageCount_) CutTo(earlier.pageCount);
    if (earlier.freed) {
        KeepFreed();
        freed_ = *earlier.freed;
    }
}

/// The pages that go are kept for Rollback, as edited ones are.
void PageFile::CutTo(std::uint32_t pageCount) {
    for (std::uint32_t page = pageCount; page < pageCount_; ++page) EditPage(page);
    pageCount_ = pageCount;
    image_.Resize(static_cast<std::uint64_t>(pageCount_) << pageShift_);
}

void PageFile::Rollback() noexcept {
    assert(!levels_.empty());
    Level level = std::move(levels_.back());
    levels_.pop_back();
    SwapImages(level);
    if (level.freed) freed_ = *std::move(level.freed);
}

void PageFile::SwapImages(Level& level) noexcept {
    for (auto& [page, image] : level.images) {
        std::uint8_t* bytes = image_.At(static_cast<std::uint64_t>(page) << pageShift_);
        std::swap_ranges(bytes, bytes + layout_.pageSize, image.get());
    }
    if (level.pageCount != pageCount_) {
        std::swap(level.pageCount, pageCount_);
        image_.Resize(static_cast<std::uint64_t>(pageCount_) << pageShift_);
    }
}

std::vector<std::uint32_t> PageFile::ChangedPages(const Level& level) const {
    std::vector<std::uint32_t> pages;
    const std::uint32_t appended = pageCount_ - std::min(pageCount_, level.pageCount);
    pages.reserve(level.images.size() + appended);
    for (const auto& [page, image] : level.images) {
        if (page < pageCount_) pages.push_back(page);
    }
    for (std::uint32_t page = level.pageCount; page < pageCount_; ++page) pages.push_back(page);
    return pages;
}

/// Whether the bytes are the file's at the level's Begin.
bool PageFile::IsBefore(const Level& level, const FileImage& image) const {
    if (image.Size() != static_cast<std::uint64_t>(level.pageCount) << pageShift_) return false;
    for (std::uint32_t page = 0; page < level.pageCount; ++page) {
        const std::uint64_t at = static_cast<std::uint64_t>(page) << pageShift_;
        const auto kept = level.images.find(page);
        const std::uint8_t* before =
            kept == level.images.end() ? image_.At(at) : kept->second.get();
        if (std::memcmp(before, image.At(at), layout_.pageSize) != 0) return false;
    }
    return true;
}

/// When the new version is in place but the folder could not be synced, the caller is to hear of a
/// failure and find nothing stored: the old state is put back in the same way. Should that fail
/// too, the new state is in the file and stays in memory: what the file shows and what we show
/// never differ.
void PageFile::Store() {
    if (!stored_) return;
    if (beforeStoring_) {
        try {
            beforeStoring_();
        } catch (const std::exception&) {
            // What it was to do has failed; the change is stored all the same.
        }
    }
    Level& level = levels_.front();
    const auto isBefore = [&](const FileImage& image) { return IsBefore(level, image); };
    if (stored_->Store({image_, layout_.pageSize, ChangedPages(level), isBefore}) ==
        StoredFile::Stored::Safely) {
        return;
    }
    SwapImages(level);
    try {
        const auto unknown = [](const FileImage&) { return false; };
        stored_->Store({image_, layout_.pageSize, {}, unknown});
    } catch (const std::exception&) {
        SwapImages(level);
        return;
    }
    SwapImages(level);  // Rollback, which follows, swaps for good
    throw Error{ErrorNumber::DeviceIo, "sync the folder of " + path_.string() + ": device failed"};
}

void PageFile::SaveAs(const std::filesystem::path& path) const {
    SaveWhole(image_, path);
}

void PageFile::SaveAsCopyOf(const std::filesystem::path& source,
                            const std::filesystem::path& path) const {
    SaveWhole(image_, path, ModeForCopyOf(source));
}

std::optional<std::uint32_t> PageFile::TakeFreed() {
    if (freed_.empty()) return std::nullopt;
    KeepFreed();
    const std::uint32_t page = freed_.back();
    freed_.pop_back();
    return page;
}

void PageFile::GiveFreed(std::uint32_t page) {
    KeepFreed();
    const auto place = std::lower_bound(freed_.begin(), freed_.end(), page, std::greater<>());
    if (place == freed_.end() || *place != page) freed_.insert(place, page);
}

/// Before the first change in a level.
void PageFile::KeepFreed() {
    if (!levels_.empty() && !levels_.back().freed) levels_.back().freed = freed_;
}

}  // namespace jet::detail
