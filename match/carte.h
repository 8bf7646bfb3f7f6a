// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a card number tells: its value, suit and rank. A card is 1..40, 0 is no
// card. 1..10 are coins (Denari), 11..20 cups (Coppe), 21..30 batons (Bastoni),
// 31..40 swords (Spade).

#include <cstdint>

namespace lesta {

using Carta = std::int16_t;

inline constexpr Carta settebello_carta = 7;  // the seven of coins

// 1..10: the Ace is 1, the girl 8, the horse 9, the King 10.
constexpr int valore(int carta) {
    const int resto = carta % 10;
    return resto == 0 ? 10 : resto;
}

// 1 coins, 2 cups, 3 batons, 4 swords.
constexpr int seme(int carta) { return (carta - 1) / 10 + 1; }

constexpr bool denaro(int carta) { return carta < 11; }

// The rank digit that the primiera orders: a King is 0.
constexpr int cifra(int carta) { return carta % 10; }

}  // namespace lesta
