// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the table shows, read from the game's state alone: the player's hand
// by slot, the table by cell, the card in play, the computer's cards face
// down, the deck, whose light is green, and the cards that made the leste.
// A player who cannot see the table is told it from here, in names and on
// request, and a test holds it against what is painted.

#include <array>
#include <string>
#include <string_view>

#include "match/carte.h"
#include "match/stato.h"
#include "match/tavolo.h"
#include "table/controlli.h"
#include "turns/frasi.h"

namespace lesta {

class Frmlesta;

struct VistaTavolo {
    bool mano_in_corso = false;
    frasi::Mano mano{};              // slots 1..3: the card face up there, 0 for none
    Tavolo celle{};                  // the card face up in each cell, 0 for none
    std::array<bool, 41> segnate{};  // marked for the capture under way
    Carta in_gioco = 0;              // on the spot of the card in play
    int carte_computer = 0;          // the computer's cards, face down
    int nel_mazzo = 0;               // cards still to be dealt
    int lato_mazzo = 0;              // the side the deck stands on, 0 when it is gone
    int turno = 0;                   // the side whose green light shows, 0 outside a hand
    // The leste of each side (1, 2), by the card that made each.
    std::array<std::array<Carta, 19>, 3> leste{};
    std::array<int, 3> numero_leste{};
};

VistaTavolo vista_del_tavolo(const Frmlesta& f);

// The places of the table a screen reader lists, in this order: the three
// hand slots, the twelve cells in scan order, the spot of the card in play,
// the computer's hand, the deck, whose turn it is, each side's leste, and
// the match.
inline constexpr int posto_slot = 0, posto_cella = 3, posto_in_gioco = 15, posto_computer = 16, posto_mazzo = 17,
                     posto_turno = 18, posto_leste = 19 /* and 20 */, posto_partita = 21, numero_posti = 22;

// The table itself, as a screen reader names it.
std::string_view nome_del_tavolo(Lingua l);

// What a place shows, as a screen reader names it: "1: Seven of Denari",
// "Q: Two of Coppe, marked", "W: empty"...
std::string nome_posto(const VistaTavolo& v, const ModLesta& mod, int posto, Lingua l);
// Where a place stands on the table, in logical units (the leste and the
// match, which have no place of their own, stand by the piles and at the
// right edge).
Rett rett_posto(const Frmlesta& f, int posto);

// The keys that read the table again, for a player who follows it by ear,
// as a US keyboard names them: H the hand, T the table, I whose turn it is
// with the deck and the leste, P the match so far. None of them plays.
inline constexpr std::string_view tasti_lettura = "HTIP";
constexpr bool tasto_di_lettura(char t) { return tasti_lettura.find(t) != std::string_view::npos; }

// What a reading key says now, or nothing for any other key.
std::string lettura(const Frmlesta& f, char tasto, Lingua l);

}  // namespace lesta
