#include "jet/tools/jetdump/sha256.h"

#include <array>
#include <bit>
#include <vector>

namespace {

constexpr std::size_t kBlock = 64, kRounds = 64;
using State = std::array<std::uint32_t, 8>;

/// The first 32 fraction bits of square or cube roots of the first primes.
struct Constants {
    State start{};
    std::array<std::uint32_t, kRounds> rounds{};
};

/// floor(2^32 * root) of a prime, found by bits in whole numbers: exact, unlike floating
/// arithmetic.
std::uint32_t FractionOfRoot(std::uint32_t prime, int power) {
    __extension__ using Wide = unsigned __int128;
    std::uint64_t root = 0;
    for (int bit = 36; bit >= 0; --bit) {
        const std::uint64_t tried = root | std::uint64_t{1} << bit;
        // Compares tried^power with prime * 2^(32 * power), the cube in two halves of 64 bits.
        const Wide square = static_cast<Wide>(tried) * tried;
        bool fits = false;
        if (power == 2) {
            fits = square <= static_cast<Wide>(prime) << 64U;
        } else {
            const Wide limit = (static_cast<Wide>(prime) << 96U) / tried;
            fits = square <= limit;
        }
        if (fits) root = tried;
    }
    return static_cast<std::uint32_t>(root);
}

Constants MakeConstants() {
    Constants constants;
    std::size_t found = 0;
    for (std::uint32_t number = 2; found < kRounds; ++number) {
        bool prime = true;
        for (std::uint32_t divisor = 2; divisor * divisor <= number; ++divisor) {
            if (number % divisor == 0) prime = false;
        }
        if (!prime) continue;
        if (found < constants.start.size()) constants.start[found] = FractionOfRoot(number, 2);
        constants.rounds[found++] = FractionOfRoot(number, 3);
    }
    return constants;
}

void Mix(State& state, const std::uint8_t* block, const Constants& constants) {
    std::array<std::uint32_t, kRounds> words{};
    for (std::size_t i = 0; i < 16; ++i) {
        for (std::size_t byte = 0; byte < 4; ++byte)
            words[i] = words[i] << 8U | block[4 * i + byte];
    }
    for (std::size_t i = 16; i < kRounds; ++i) {
        const std::uint32_t a = words[i - 15], b = words[i - 2];
        words[i] = words[i - 16] + words[i - 7] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ (a >> 3U)) +
                   (std::rotr(b, 17) ^ std::rotr(b, 19) ^ (b >> 10U));
    }
    State s = state;
    for (std::size_t i = 0; i < kRounds; ++i) {
        const std::uint32_t first =
            s[7] + (std::rotr(s[4], 6) ^ std::rotr(s[4], 11) ^ std::rotr(s[4], 25)) +
            ((s[4] & s[5]) ^ (~s[4] & s[6])) + constants.rounds[i] + words[i];
        const std::uint32_t second =
            (std::rotr(s[0], 2) ^ std::rotr(s[0], 13) ^ std::rotr(s[0], 22)) +
            ((s[0] & s[1]) ^ (s[0] & s[2]) ^ (s[1] & s[2]));
        s = {first + second, s[0], s[1], s[2], s[3] + first, s[4], s[5], s[6]};
    }
    for (std::size_t i = 0; i < state.size(); ++i) state[i] += s[i];
}

}  // namespace

std::string Sha256(std::span<const std::uint8_t> bytes) {
    static const Constants kConstants = MakeConstants();
    std::vector<std::uint8_t> padded(bytes.begin(), bytes.end());
    padded.push_back(0x80);
    while (padded.size() % kBlock != kBlock - 8) padded.push_back(0);
    const std::uint64_t bits = std::uint64_t{8} * bytes.size();
    for (int shift = 56; shift >= 0; shift -= 8) {
        padded.push_back(static_cast<std::uint8_t>(bits >> static_cast<unsigned>(shift)));
    }
    State state = kConstants.start;
    for (std::size_t at = 0; at < padded.size(); at += kBlock) {
        Mix(state, padded.data() + at, kConstants);
    }
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string digest;
    for (const std::uint32_t word : state) {
        for (int shift = 28; shift >= 0; shift -= 4) {
            digest += kDigits[word >> static_cast<unsigned>(shift) & 0xFU];
        }
    }
    return digest;
}
