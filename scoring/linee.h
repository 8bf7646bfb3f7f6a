// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A hand's five score lines for each side, as the sheet writes them and adds
// them up.

#include <array>

#include "match/stato.h"

namespace lesta {

// A side's five score lines for the hand: what it took, and so its points.
struct Linee {
    int carte, denari;  // cards and coins
    bool primiera, settebello;
    int leste;  // sweeps

    // One point for more than 20 cards, one for more than 5 coins, one for
    // the better primiera, one for the seven of coins, one a sweep.
    std::array<int, 5> punti() const { return {carte > 20, denari > 5, primiera, settebello, leste}; }
    int totale() const {
        int n = 0;
        for (int p : punti()) n += p;
        return n;
    }
};

// The player's lines and the computer's, from the player's pile: the
// computer took every card and coin that the player did not.
inline std::array<Linee, 2> linee_della_mano(const ModLesta& mod) {
    return {Linee{mod.numcarte, mod.numdenari, mod.vince_settanta == 1, mod.settebello, mod.leste[1]},
            Linee{40 - mod.numcarte, 10 - mod.numdenari, mod.vince_settanta == 2, !mod.settebello, mod.leste[2]}};
}

}  // namespace lesta
