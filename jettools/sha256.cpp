#include "jettools/sha256.h"

#include <array>
#include <bit>
#include <vector>

namespace {

constexpr std::size_t kBlock = 64, kRounds = 64;
using State = std::array<std::uint32_t, 8>;

// The first 32 bits of the fractions of square roots, and of cube roots, of the first primes, as
// FIPS 180-4 lists them.
constexpr State kStart = {0x6A09E667, 0xBB67AE85, 0x3C6EF372, 0xA54FF53A,
                          0x510E527F, 0x9B05688C, 0x1F83D9AB, 0x5BE0CD19};
constexpr std::array<std::uint32_t, kRounds> kRoundConstants = {
    0x428A2F98, 0x71374491, 0xB5C0FBCF, 0xE9B5DBA5, 0x3956C25B, 0x59F111F1, 0x923F82A4, 0xAB1C5ED5,
    0xD807AA98, 0x12835B01, 0x243185BE, 0x550C7DC3, 0x72BE5D74, 0x80DEB1FE, 0x9BDC06A7, 0xC19BF174,
    0xE49B69C1, 0xEFBE4786, 0x0FC19DC6, 0x240CA1CC, 0x2DE92C6F, 0x4A7484AA, 0x5CB0A9DC, 0x76F988DA,
    0x983E5152, 0xA831C66D, 0xB00327C8, 0xBF597FC7, 0xC6E00BF3, 0xD5A79147, 0x06CA6351, 0x14292967,
    0x27B70A85, 0x2E1B2138, 0x4D2C6DFC, 0x53380D13, 0x650A7354, 0x766A0ABB, 0x81C2C92E, 0x92722C85,
    0xA2BFE8A1, 0xA81A664B, 0xC24B8B70, 0xC76C51A3, 0xD192E819, 0xD6990624, 0xF40E3585, 0x106AA070,
    0x19A4C116, 0x1E376C08, 0x2748774C, 0x34B0BCB5, 0x391C0CB3, 0x4ED8AA4A, 0x5B9CCA4F, 0x682E6FF3,
    0x748F82EE, 0x78A5636F, 0x84C87814, 0x8CC70208, 0x90BEFFFA, 0xA4506CEB, 0xBEF9A3F7, 0xC67178F2};

void Mix(State& state, const std::uint8_t* block) {
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
            ((s[4] & s[5]) ^ (~s[4] & s[6])) + kRoundConstants[i] + words[i];
        const std::uint32_t second =
            (std::rotr(s[0], 2) ^ std::rotr(s[0], 13) ^ std::rotr(s[0], 22)) +
            ((s[0] & s[1]) ^ (s[0] & s[2]) ^ (s[1] & s[2]));
        s = {first + second, s[0], s[1], s[2], s[3] + first, s[4], s[5], s[6]};
    }
    for (std::size_t i = 0; i < state.size(); ++i) state[i] += s[i];
}

}  // namespace

std::string Sha256(std::span<const std::uint8_t> bytes) {
    std::vector<std::uint8_t> padded(bytes.begin(), bytes.end());
    padded.push_back(0x80);
    while (padded.size() % kBlock != kBlock - 8) padded.push_back(0);
    const std::uint64_t bits = std::uint64_t{8} * bytes.size();
    for (int shift = 56; shift >= 0; shift -= 8) {
        padded.push_back(static_cast<std::uint8_t>(bits >> static_cast<unsigned>(shift)));
    }
    State state = kStart;
    for (std::size_t at = 0; at < padded.size(); at += kBlock) {
        Mix(state, padded.data() + at);
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
