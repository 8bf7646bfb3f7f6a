// SPDX-License-Identifier: GPL-3.0-or-later
#include "match/casuale_sistema.h"

#include <chrono>

namespace lesta {

void CasualeSistema::Randomize() {
    // The clock in nanoseconds, and a count so that two seedings within one
    // tick of a coarse clock still differ.
    const auto adesso = std::chrono::high_resolution_clock::now().time_since_epoch().count();
    std::seed_seq seme{static_cast<unsigned>(adesso), static_cast<unsigned>(adesso >> 32), ++semine_};
    generatore_.seed(seme);
}

float CasualeSistema::Rnd() {
    // 24 random bits: every float in [0, 1) on a grid of 2^-24, none equal to 1.
    return static_cast<float>(generatore_() >> 8) * (1.0f / 16777216.0f);
}

}  // namespace lesta
