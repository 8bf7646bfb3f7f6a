// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's random generator: seeded from the clock, 32-bit floats in
// [0, 1).

#include <random>

#include "match/casuale.h"

namespace lesta {

class CasualeSistema final : public Casuale {
public:
    void Randomize() override;
    float Rnd() override;

private:
    std::mt19937 generatore_;
    unsigned semine_ = 0;
};

}  // namespace lesta
