// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The primiera, which the game calls settanta: the best card of each side in
// each suit, its points, and which side has the greater sum.

#include <cstdint>
#include <string_view>

namespace lesta {

// The order of ranks, best first: the place of a rank digit in this string,
// counted from 1, is its position. Seven, six, Ace, five, four, three, two,
// girl, horse, King (a King's digit is 0).
inline constexpr std::string_view ordine_settanta = "7615432890";

// Position 11: the side holds no card of the suit.
inline constexpr std::int16_t nessuna_carta = 11;

// The points of a rank digit: 21 for the seven down to 10 for the figures;
// any digit outside 0..9 is worth nothing.
std::int32_t valoresettanta(std::int16_t cifra);

// The position of a rank digit in the order of ranks, 1..10.
std::int16_t posizione_settanta(int cifra);

// The card that a side's best position in suit u (1..4) stands for, or 0 when
// the position is no card's.
int carta_migliore(int seme, int posizione);

}  // namespace lesta
