// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Two rules of the end of a hand, on plain values: the last card of the hand
// sweeps nothing, and what is left on the table goes to the side that
// captured last.

#include <array>
#include <cstdint>

#include "match/carte.h"
#include "match/tavolo.h"

namespace lesta {

// Whether the card being moved is the last card of the hand: the deck is
// dealt out (its pointer at 22) and this is the sixth card of the last deal.
// Both sides count a card in `mosse` before it is moved (the player's when it
// is picked, the computer's right after its choice), so the sum is 28 while
// the last card is moved, whoever plays it, and still during the gathering
// that follows it; at no other move of the hand.
constexpr bool ultima_carta_della_mano(int posizione_mazzo, int mosse) { return posizione_mazzo + mosse == 28; }

// Whether a move that leaves `vuote` empty cells is a sweep: it must empty
// the table, and not with the last card of the hand.
constexpr bool fa_lesta(int vuote, int posizione_mazzo, int mosse) {
    return vuote == 12 && !ultima_carta_della_mano(posizione_mazzo, mosse);
}

// What is left on the table once the last card is played, and who takes it.
struct Resto {
    std::int16_t lato = 0;          // the side that captured last
    std::int16_t quante = 0;        // 0: the table is empty, and nothing moves
    std::array<Carta, 12> carte{};  // carte[0 .. quante-1], in scan order
};

// The cards left on the table go, in scan order, to the side that captured
// last, even when the other side played after that capture.
inline Resto resto_della_mano(const Tavolo& tavolo, std::int16_t ultima_presa) {
    Resto resto;
    resto.lato = ultima_presa;
    per_ogni_carta(tavolo, [&resto](Carta c) { resto.carte[static_cast<std::size_t>(resto.quante++)] = c; });
    return resto;
}

}  // namespace lesta
