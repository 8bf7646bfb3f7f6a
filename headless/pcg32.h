// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The random stream of the runs without a screen: PCG32 (O'Neill's
// permuted congruential generator, XSH-RR output). Small, fast and good
// enough for shuffles and random play; the simulator draws a few hundred
// numbers a hand, and the Mersenne Twister cost more than the hand's rules.

#include <cstdint>

namespace lesta {

class Pcg32 {
public:
    explicit Pcg32(std::uint64_t seme) {
        (*this)();
        stato_ += seme;
        (*this)();
    }

    std::uint32_t operator()() {
        const std::uint64_t x = stato_;
        stato_ = x * 6364136223846793005ull + incremento;
        const auto mescolato = static_cast<std::uint32_t>(((x >> 18u) ^ x) >> 27u);
        const auto rotazione = static_cast<std::uint32_t>(x >> 59u);
        return (mescolato >> rotazione) | (mescolato << ((32u - rotazione) & 31u));
    }

    // A whole number from 0 to n - 1, every one equally likely (Lemire's
    // multiply and shift, drawing again on the few values that would bias it).
    std::uint32_t sotto(std::uint32_t n) {
        std::uint64_t m = std::uint64_t{(*this)()} * n;
        if (static_cast<std::uint32_t>(m) < n) {
            const std::uint32_t soglia = (0u - n) % n;
            while (static_cast<std::uint32_t>(m) < soglia) m = std::uint64_t{(*this)()} * n;
        }
        return static_cast<std::uint32_t>(m >> 32u);
    }

private:
    static constexpr std::uint64_t incremento = 1442695040888963407ull;
    std::uint64_t stato_ = 0;
};

}  // namespace lesta
