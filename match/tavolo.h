// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The table's grid: twelve cells in three rows of four, counted from 1 (row
// and column 0 are never used), each holding a card or 0. Every walk of the
// grid goes in scan order: row 1 columns 1..4, then rows 2 and 3.

#include <array>

#include "match/carte.h"

namespace lesta {

using Tavolo = std::array<std::array<Carta, 5>, 4>;

// Each cell, empty or not, in scan order; f may change the cell.
template <class Griglia, class F>
void per_ogni_cella(Griglia& tavolo, F&& f) {
    for (int r = 1; r <= 3; ++r)
        for (int k = 1; k <= 4; ++k) f(tavolo[r][k]);
}

// Each card on the table, in scan order.
template <class F>
void per_ogni_carta(const Tavolo& tavolo, F&& f) {
    per_ogni_cella(tavolo, [&f](Carta c) {
        if (c != 0) f(c);
    });
}

}  // namespace lesta
