#pragma once
// A random generator that gives the same numbers for the same seed. Seeding
// "from the clock" does nothing here: the stream simply goes on, so a seed
// fixes a whole run. A test may put draws of its own in front of the stream.

#include <cstdint>
#include <deque>
#include <random>

#include "match/casuale.h"

namespace lesta {

class CasualeFisso final : public Casuale {
public:
    explicit CasualeFisso(std::uint32_t seme = 1) : generatore_(seme) {}

    void Randomize() override { ++semine_; }
    float Rnd() override {
        ++estrazioni_;
        if (!davanti_.empty()) {
            const float u = davanti_.front();
            davanti_.pop_front();
            return u;
        }
        // 24 random bits: every float the result can be is equally likely.
        return static_cast<float>(generatore_() >> 8) * (1.0f / 16777216.0f);
    }

    void metti(float u) { davanti_.push_back(u); }
    int semine() const { return semine_; }
    int estrazioni() const { return estrazioni_; }

private:
    std::mt19937 generatore_;
    std::deque<float> davanti_;
    int semine_ = 0;
    int estrazioni_ = 0;
};

}  // namespace lesta
