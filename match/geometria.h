// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The table's geometry, in logical units: the card size, the grid of the
// table and its cells, the hands, the spot of the card in play, where a click
// picks a hand card or a cell, and which point each key stands for. The
// start of a hand, the dealing, the moves and the player's clicks all take
// their places from here, and the settings check a card scale against them.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>

#include "table/controlli.h"

namespace lesta {

// The card size at a scale: the card holder's design size times the scale.
constexpr float larghezza_a_scala(float scala) { return scala * carta_iniziale.width; }
constexpr float altezza_a_scala(float scala) { return scala * carta_iniziale.height; }

// The gap between two cards, across and down, on the table and in the hands.
inline constexpr float spazio_carte = 6;

// The card size at a scale and the top left corner of the table's grid,
// which centres the grid of 4 by 3 cards on the middle of the window.
struct Misure {
    float larghezza_carta, altezza_carta, tavolox, tavoloy;
};
constexpr Misure misure_a_scala(float scala, float meta_larghezza, float meta_altezza) {
    const float larghezza = larghezza_a_scala(scala), altezza = altezza_a_scala(scala);
    return {larghezza, altezza, meta_larghezza - 2 * larghezza - 9, meta_altezza - 1.5f * altezza - 6};
}

// Left of hand slot i (0..2), the same for both rows: three cards centred on
// the middle of the window with a gap between them.
constexpr float sinistra_mano(int i, float larghezza_carta, float meta_larghezza = 400) {
    return meta_larghezza - 1.5f * larghezza_carta - 6 + static_cast<float>(i) * (larghezza_carta + spazio_carte);
}

// The spot of the card in play, for both sides: right of the grid, level
// with its middle row.
constexpr float sinistra_in_gioco(float meta_larghezza) { return meta_larghezza + 178; }
constexpr float alto_in_gioco(float meta_altezza, float altezza_carta) { return meta_altezza - altezza_carta / 2; }
// Top of the player's row, 5 above the bottom edge; the computer's row stands
// at 5 from the top.
constexpr float alto_mano_giocatore(float altezza_carta) { return 595 - altezza_carta; }
inline constexpr float alto_mano_computer = 5;

// Left of table column c (1..4) and top of table row r (1..3): from the
// grid's top left corner, a card and a gap of 6 a step.
constexpr float sinistra_cella(float colonna, float tavolox, float larghezza_carta) {
    return tavolox + (colonna - 1) * (larghezza_carta + spazio_carte);
}
constexpr float alto_cella(float riga, float tavoloy, float altezza_carta) {
    return tavoloy + (riga - 1) * (altezza_carta + spazio_carte);
}
// The row or column of the grid that a point falls in, counted from 1; it
// may lie off the grid, below 1 or above 3 and 4.
inline float riga_del_punto(float Y, float tavoloy, float altezza_carta) {
    return std::floor((Y - tavoloy) / (altezza_carta + spazio_carte)) + 1;
}
inline float colonna_del_punto(float X, float tavolox, float larghezza_carta) {
    return std::floor((X - tavolox) / (larghezza_carta + spazio_carte)) + 1;
}

// A point of the table, in logical units.
struct Punto {
    float x = 0, y = 0;
};

// The middle of the player's hand card in slot k (1..3), as it is painted.
constexpr Punto centro_mano(int k, float larghezza_carta, float altezza_carta, float meta_larghezza = 400) {
    return {sinistra_mano(k - 1, larghezza_carta, meta_larghezza) + larghezza_carta / 2,
            alto_mano_giocatore(altezza_carta) + altezza_carta / 2};
}

// The hit areas of the three hand slots stand at fixed places, a pitch of 64
// apart, where the cards of a 58-unit-wide deck would stand; only their size
// follows the card size. Both bounds are strict.
inline constexpr float alto_area_mano = 504.7f;
inline constexpr std::array<float, 4> sinistra_area_mano{0, 307, 371, 435};  // slots 1..3

// The hand slot (1..3) that a click at (X, Y) picks, or 0. Where wider cards
// make the areas overlap, the slot further right wins.
constexpr std::int16_t slot_della_mano(float X, float Y, float larghezza_carta, float altezza_carta) {
    std::int16_t slot = 0;
    if (Y > alto_area_mano && Y < altezza_carta + alto_area_mano) {
        for (std::int16_t k = 1; k <= 3; ++k)
            if (X > sinistra_area_mano[k] && X < larghezza_carta + sinistra_area_mano[k]) slot = k;
    }
    return slot;
}

// Whether at this card scale the player can play each hand card by clicking
// on it: a click on the middle of a painted hand card plays that card, and a
// click anywhere on it plays that card or nothing, never a neighbour. The
// painted cards move with the scale while the hit areas stay put, so only a
// band of scales keeps them together (58.54 to 78.89 per cent).
constexpr bool scala_giocabile(float scala) {
    const float w = larghezza_a_scala(scala), h = altezza_a_scala(scala);
    for (std::int16_t k = 1; k <= 3; ++k) {
        const Punto medio = centro_mano(k, w, h);
        const float sinistra = sinistra_mano(k - 1, w), destra = sinistra + w;
        if (slot_della_mano(medio.x, medio.y, w, h) != k) return false;
        // Across the card, the slot picked changes only at the edges of the
        // hit areas: a click on each edge and between each two stands for all.
        // (Edges off the card count as its right edge.)
        std::array<float, 8> x{sinistra, destra};
        for (std::size_t j = 1; j <= 3; ++j) {
            for (std::size_t lato = 0; lato < 2; ++lato) {
                const float bordo = sinistra_area_mano[j] + (lato == 0 ? 0 : w);
                x[2 * j + lato] = bordo > sinistra && bordo < destra ? bordo : destra;
            }
        }
        std::sort(x.begin(), x.end());
        for (std::size_t i = 0; i < x.size(); ++i) {
            for (float X : {x[i], i + 1 < x.size() ? (x[i] + x[i + 1]) / 2 : x[i]}) {
                const std::int16_t colpito = slot_della_mano(X, medio.y, w, h);
                if (colpito != 0 && colpito != k) return false;
            }
        }
    }
    return true;
}

// The keys that play, each standing for a click on the middle of what it
// names: 1, 2 and 3 the hand slots from the left, and a letter for each table
// cell, row by row, as the letters stand on a keyboard:
//     Q W E R
//     A S D F
//     Z X C V
// A key is named as a US keyboard prints it (a letter by its capital), and
// the desktop names each key by its place, whatever the layout: the same
// twelve keys make the same rectangle on every keyboard. The click a key
// stands for is then judged as any click is: a played slot or an empty cell
// shows the table colour there, and nothing happens.
inline constexpr std::string_view tasti_mano = "123";
inline constexpr std::string_view tasti_celle = "QWERASDFZXCV";

// The point a key stands for, or nothing for a key that plays nothing; the
// table's grid has its top left corner at (tavolox, tavoloy).
constexpr std::optional<Punto> punto_del_tasto(char tasto, float larghezza_carta, float altezza_carta, float tavolox,
                                               float tavoloy, float meta_larghezza = 400) {
    if (const std::size_t slot = tasti_mano.find(tasto); slot != std::string_view::npos)
        return centro_mano(static_cast<int>(slot) + 1, larghezza_carta, altezza_carta, meta_larghezza);
    const std::size_t i = tasti_celle.find(tasto);
    if (i == std::string_view::npos) return std::nullopt;
    const auto riga = static_cast<float>(i / 4 + 1), colonna = static_cast<float>(i % 4 + 1);
    return Punto{sinistra_cella(colonna, tavolox, larghezza_carta) + larghezza_carta / 2,
                 alto_cella(riga, tavoloy, altezza_carta) + altezza_carta / 2};
}

}  // namespace lesta
