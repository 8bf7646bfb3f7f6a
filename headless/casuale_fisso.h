// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A random generator that gives the same numbers for the same seed. Seeding
// "from the clock" does nothing here: the stream simply goes on, so a seed
// fixes a whole run. A test may put draws of its own in front of the stream.

#include <cstdint>
#include <vector>

#include "headless/pcg32.h"
#include "match/casuale.h"

namespace lesta {

class CasualeFisso final : public Casuale {
public:
    explicit CasualeFisso(std::uint32_t seme = 1) : generatore_(seme) {}

    void Randomize() override { ++semine_; }
    float Rnd() override {
        ++estrazioni_;
        if (prossima_ < davanti_.size()) return davanti_[prossima_++];
        // 24 random bits: every float the result can be is equally likely.
        return static_cast<float>(generatore_() >> 8) * (1.0f / 16777216.0f);
    }

    void metti(float u) { davanti_.push_back(u); }
    int semine() const { return semine_; }
    int estrazioni() const { return estrazioni_; }

private:
    Pcg32 generatore_;
    std::vector<float> davanti_;  // the scripted draws; those before prossima_ are used up
    std::size_t prossima_ = 0;
    int semine_ = 0;
    int estrazioni_ = 0;
};

}  // namespace lesta
