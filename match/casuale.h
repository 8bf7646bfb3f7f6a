// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The random generator of the shuffle, the computer's throw and the cell of a
// laid card: one stream of numbers in [0, 1).

namespace lesta {

class Casuale {
public:
    virtual ~Casuale() = default;
    // Seeds the generator from the clock.
    virtual void Randomize() = 0;
    // The next number u, 0 <= u < 1.
    virtual float Rnd() = 0;
};

}  // namespace lesta
