// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The capture search on the table alone: what a played card can take, found
// the same way for either side, before the side acts on it.
//
// A card takes a table card of its own value if there is one, and then that
// card alone. Only when there is none may it take two or more cards whose
// values add up to its own; a King on the table never enters a sum. Sums are
// searched among at most eight cards: with more, the card cannot capture.

#include <array>
#include <cstdint>

#include "match/carte.h"
#include "match/tavolo.h"

namespace lesta {

enum class TipoPresa : std::uint8_t {
    uguale,   // a card of equal value: the first in scan order, alone
    somma,    // two or more candidates that add up to the played card
    nessuna,  // no card of equal value and no sum
    troppe,   // more than eight candidates: no sum is searched
    vuoto,    // nothing on the table
};

struct PresaCercata {
    TipoPresa tipo = TipoPresa::vuoto;
    // The empty cells passed: those before the card of equal value when there
    // is one, else all of them.
    std::uint8_t vuote = 0;
    // The cards looked at, in scan order, in candidati[0 .. quante-1]: the
    // card of equal value alone, or every candidate of a sum (a card of lower
    // value, no King). None on an empty table.
    std::int16_t quante = 0;
    std::array<Carta, 12> candidati{};
    // The candidates' values added up; 0 for a card of equal value.
    std::int16_t somma = 0;
    // The cards taken, bit p-1 for the p-th card looked at: 1 for the card of
    // equal value; for a sum, the first mask in ascending order whose cards
    // add up, so the subset whose last card comes earliest in scan order
    // wins; 0 when nothing is taken.
    unsigned maschera = 0;
};

// Whether the cards the player marked (quante of them, their values adding
// up to somma) are a capture the card in play may make: they add up to its
// value, and when a card of equal value lies on the table (singola) they are
// one card alone. Any marked set with the right sum passes, not only the one
// the search would choose.
constexpr bool selezione_valida(int somma, int quante, int valore_giocata, bool singola) {
    return !(singola && quante > 1) && somma == valore_giocata;
}

// The search for a played card, by its number (a card of equal value has the
// same number modulo 10) and its value (candidates are worth 1 up to it).
PresaCercata cerca_presa(const Tavolo& tavolo, Carta carta_giocata, int valore_giocata);

}  // namespace lesta
