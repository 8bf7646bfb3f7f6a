// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The match state that both windows share: the deck, the piles as the end of a
// hand lists them, the points and who deals. Arrays count from 1; entry 0 is
// never used.

#include <array>
#include <cstdint>
#include <string>

#include "match/carte.h"

namespace lesta {

inline constexpr bool vero = true;
inline constexpr bool falso = false;

struct ModLesta {
    // The shuffled deck. Entries 1..4 are the first table cards, 5..22 go to
    // the player and 23..40 to the computer, three at a time.
    std::array<Carta, 41> mazzo{};
    // At the shuffle, the pool that cards are drawn from; at the end of a
    // hand, the player's cards ascending in 1..numcarte, then the computer's.
    std::array<Carta, 41> carte{};
    std::int16_t numcarte = 0;            // cards the player took this hand
    std::int16_t numdenari = 0;           // coins among them
    bool settebello = false;              // the player took the seven of coins
    std::array<std::int16_t, 3> leste{};  // sweeps of each side this hand
    // The best card of side s in suit u, as a place in the primiera's order
    // of ranks; 11 when the side has no card of that suit.
    std::array<std::array<std::int16_t, 5>, 3> migliori{};
    std::uint8_t vince_settanta = 0;  // the better primiera: 1, 2, or 0 for a tie
    std::uint8_t mazziere = 1;        // the dealer: 1 the player, 2 the computer
    std::uint8_t tipo_partita = 0;    // 0 one hand, 1 to 11 points, 2 to 21 points
    std::uint8_t partite = 0;         // hands finished in this match, times ten
    std::uint8_t punti_giocatore = 0;
    std::uint8_t punti_computer = 0;

    // The caption of the score sheet's first button: empty before the first
    // hand ends, "CONTINUE" while a match goes on, "NEW GAME" when it is over.
    // It is how the table knows whether the next hand starts a match.
    std::string command1;
};

}  // namespace lesta
