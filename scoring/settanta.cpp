// SPDX-License-Identifier: GPL-3.0-or-later
// The primiera of both piles at the end of a hand.

#include "scoring/settanta.h"

#include <algorithm>

#include "match/frmlesta.h"

namespace lesta {

std::int32_t valoresettanta(std::int16_t cifra) {
    switch (cifra) {
        case 7: return 21;
        case 6: return 18;
        case 1: return 16;
        case 5: return 15;
        case 4: return 14;
        case 3: return 13;
        case 2: return 12;
        case 8:
        case 9:
        case 0: return 10;
        default: return 0;
    }
}

std::int16_t posizione_settanta(int cifra) {
    const auto dove = ordine_settanta.find(static_cast<char>('0' + cifra));
    return static_cast<std::int16_t>(dove + 1);
}

int carta_migliore(int seme, int posizione) {
    if (seme < 1 || seme > 4 || posizione < 1 || posizione > static_cast<int>(ordine_settanta.size())) return 0;
    int rango = ordine_settanta[static_cast<std::size_t>(posizione - 1)] - '0';
    if (rango == 0) rango = 10;
    return 10 * (seme - 1) + rango;
}

// The hand is over, so the table grid is free and holds the working values of
// the count: row 3 the best position found so far in each suit, rows 1 and 2
// the points of that card for the player and for the computer.
void Frmlesta::calcsettanta() {
    settanta[1] = 0;
    settanta[2] = 0;
    for (int u = 1; u <= 4; ++u) {
        tavolo[1][u] = 0;
        tavolo[2][u] = 0;
    }

    // The player's pile is carte(1..numcarte), the computer's the rest.
    const int confine[3] = {0, std::clamp<int>(mod.numcarte, 0, 40), 40};
    for (int lato = 1; lato <= 2; ++lato) {
        auto& migliore = tavolo[3];
        auto& punti = tavolo[lato];
        for (int u = 1; u <= 4; ++u) migliore[u] = nessuna_carta;

        for (int i = confine[lato - 1] + 1; i <= confine[lato]; ++i) {
            const Carta c = mod.carte[i];
            if (c < 1 || c > 40) continue;  // no card
            const int u = seme(c);
            const auto d = static_cast<std::int16_t>(cifra(c));
            const std::int16_t q = posizione_settanta(d);
            if (q < migliore[u]) {
                punti[u] = static_cast<Carta>(valoresettanta(d));
                migliore[u] = q;
            }
        }

        for (int u = 1; u <= 4; ++u) {
            mod.migliori[lato][u] = migliore[u];
            settanta[lato] = static_cast<std::int16_t>(settanta[lato] + punti[u]);
        }
    }

    if (settanta[1] > settanta[2])
        mod.vince_settanta = 1;
    else if (settanta[1] < settanta[2])
        mod.vince_settanta = 2;
    else
        mod.vince_settanta = 0;
}

}  // namespace lesta
