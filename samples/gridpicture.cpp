#include "samples/gridpicture.h"

#include "base/colour.h"

#include <array>
#include <cstddef>
#include <utility>

namespace {

constexpr std::uint32_t kWidth = 1768, kHeight = 827;             // 14.965 x 7 cm
constexpr std::uint32_t kDotsPerMetre = 11811;                    // 300 dots per inch
constexpr std::uint32_t kMonths = 12, kBands = 5, kZeroBand = 3;  // the scale is 3 up and 2 down
constexpr std::uint32_t kThin = 2, kThick = 4;

enum PaletteIndex : std::uint8_t { kPaper = 0, kLine, kMonthLine, kZeroLine, kColourCount };

constexpr std::array<Colour, kColourCount> kPalette = {
    Colour{255, 255, 255}, Colour{205, 205, 200}, Colour{222, 222, 218}, Colour{120, 120, 115}};

using Rows = std::vector<std::vector<std::uint8_t>>;

struct Box {
    std::uint32_t left, top, width, height;
};

void Fill(Rows& rows, const Box& box, PaletteIndex colour) {
    for (std::uint32_t y = box.top; y < box.top + box.height; ++y) {
        for (std::uint32_t x = box.left; x < box.left + box.width; ++x) rows[y][x] = colour;
    }
}

Rows Draw() {
    Rows rows(kHeight, std::vector<std::uint8_t>(kWidth, kPaper));
    for (std::uint32_t month = 0; month <= kMonths; ++month) {
        const std::uint32_t x = month * (kWidth - kThin) / kMonths;
        Fill(rows, {x, 0, kThin, kHeight}, month % kMonths == 0 ? kZeroLine : kMonthLine);
    }
    for (std::uint32_t band = 0; band <= kBands; ++band) {
        const bool zero = band == kZeroBand;
        const std::uint32_t thickness = zero ? kThick : kThin;
        const std::uint32_t y = band * (kHeight - thickness) / kBands;
        Fill(rows, {0, y, kWidth, thickness}, zero || band % kBands == 0 ? kZeroLine : kLine);
    }
    return rows;
}

class Bytes {
  public:
    void Put16(std::uint32_t value) { Put(value, 2); }
    void Put32(std::uint32_t value) { Put(value, 4); }
    void Put8(std::uint32_t value) { Put(value, 1); }
    std::vector<std::uint8_t> Take() { return std::move(bytes_); }

  private:
    void Put(std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i) {
            bytes_.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
        }
    }
    std::vector<std::uint8_t> bytes_;
};

constexpr std::uint32_t kPaletteSize = 16;
constexpr std::uint32_t kRowBytes = (kWidth * 4 + 31) / 32 * 4;  // four bits a dot, whole words
constexpr std::uint32_t kPixelsAt = 14 + 40 + 4 * kPaletteSize;

void PutHeaders(Bytes& bytes) {
    bytes.Put8('B');
    bytes.Put8('M');
    bytes.Put32(kPixelsAt + kRowBytes * kHeight);
    bytes.Put32(0);
    bytes.Put32(kPixelsAt);
    bytes.Put32(40);  // size of what follows up to the palette
    bytes.Put32(kWidth);
    bytes.Put32(kHeight);
    bytes.Put16(1);  // planes
    bytes.Put16(4);  // bits a dot
    bytes.Put32(0);  // not compressed
    bytes.Put32(kRowBytes * kHeight);
    bytes.Put32(kDotsPerMetre);
    bytes.Put32(kDotsPerMetre);
    bytes.Put32(kPaletteSize);
    bytes.Put32(kColourCount);
}

void PutPalette(Bytes& bytes) {
    for (std::uint32_t colour = 0; colour < kPaletteSize; ++colour) {
        const Colour dot = kPalette[colour < kPalette.size() ? colour : 0];  // 0 is the paper
        bytes.Put8(dot.blue);
        bytes.Put8(dot.green);
        bytes.Put8(dot.red);
        bytes.Put8(0);
    }
}

}  // namespace

std::vector<std::uint8_t> GridPicture() {
    Bytes bytes;
    PutHeaders(bytes);
    PutPalette(bytes);
    const Rows rows = Draw();
    for (std::size_t y = kHeight; y-- > 0;) {  // the lowest row comes first
        for (std::size_t i = 0; i < kRowBytes; ++i) {
            const std::uint8_t left = 2 * i < kWidth ? rows[y][2 * i] : std::uint8_t{kPaper};
            const std::uint8_t right =
                2 * i + 1 < kWidth ? rows[y][2 * i + 1] : std::uint8_t{kPaper};
            bytes.Put8(static_cast<std::uint32_t>(left << 4 | right));
        }
    }
    return bytes.Take();
}
