// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/suono_carta.h"

#include <algorithm>
#include <cmath>

namespace lesta::carta {

std::vector<std::int16_t> campioni() {
    constexpr double durata = 0.060;
    constexpr double pi = 3.14159265358979323846;
    const int n = static_cast<int>(durata * frequenza);

    // A fixed noise, so that every build makes the same file.
    std::uint32_t stato = 0x2545F491u;
    auto rumore = [&stato] {
        stato ^= stato << 13;
        stato ^= stato >> 17;
        stato ^= stato << 5;
        return static_cast<double>(stato) / 2147483648.0 - 1.0;
    };

    // The noise through a band of roughly 900 Hz to 6 kHz: two one-pole
    // filters, a high-pass and a low-pass.
    const double dt = 1.0 / frequenza;
    const double rc_alto = 1.0 / (2 * pi * 900.0), rc_basso = 1.0 / (2 * pi * 6000.0);
    const double a_alto = rc_alto / (rc_alto + dt), a_basso = dt / (rc_basso + dt);
    double ingresso_prima = 0, alto = 0, basso = 0;

    std::vector<double> onda(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) {
        const double t = i * dt;
        const double x = rumore();
        alto = a_alto * (alto + x - ingresso_prima);
        ingresso_prima = x;
        basso += a_basso * (alto - basso);

        // The snap: a sharp attack of half a millisecond and a fast decay,
        // with a second, weaker tap a few milliseconds later as the card
        // settles.
        const double attacco = std::min(1.0, t / 0.0005);
        const double scatto =
            attacco * std::exp(-t / 0.006) + 0.35 * (t > 0.011 ? std::exp(-(t - 0.011) / 0.004) : 0.0);
        // The thump: 150 Hz falling to 90 Hz, gone within 30 ms.
        const double fase = 2 * pi * (90.0 * t + 60.0 * 0.01 * (1 - std::exp(-t / 0.01)));
        const double tonfo = 0.45 * attacco * std::exp(-t / 0.010) * std::sin(fase);
        // The last 5 ms fade to nothing, so the end makes no click.
        const double coda = std::min(1.0, (durata - t) / 0.005);
        onda[static_cast<std::size_t>(i)] = (basso * 2.2 * scatto + tonfo) * coda;
    }

    double picco = 0;
    for (double v : onda) picco = std::max(picco, std::abs(v));
    // Peak at about -9 dB: with the songs' own peaks under -5.5 dB, the card
    // sound over the loudest moment of a song still stays under full scale.
    const double guadagno = picco > 0 ? 0.35 / picco : 0.0;

    std::vector<std::int16_t> out;
    out.reserve(onda.size());
    for (double v : onda) out.push_back(static_cast<std::int16_t>(std::lround(v * guadagno * 32767.0)));
    return out;
}

}  // namespace lesta::carta
