// SPDX-License-Identifier: GPL-3.0-or-later
// The computer's turn. It plays the first card of its hand, in slot order,
// that takes anything, and takes what the capture search picks for it. When
// no card takes anything it throws one at random, holding back its sevens as
// long as it can and the seven of coins longest. It looks at nothing else:
// no score, no memory, no look-ahead.

#include <array>
#include <cmath>
#include <span>

#include "match/frmlesta.h"
#include "match/tavolo.h"
#include "turns/frasi.h"
#include "turns/passi.h"
#include "turns/ritardo.h"

namespace lesta {

namespace {

constexpr bool sette(Carta c) { return c % 10 == 7; }

// The slot of the card thrown from the hand (0 for a played slot). Every draw
// falls on a slot; a draw that falls on a played slot, or on a card held
// back, is used up and the next one is taken.
std::int16_t slot_da_gettare(const std::array<Carta, 3>& mano, Casuale& casuale) {
    int in_mano = 0, sette_in_mano = 0;
    for (Carta c : mano)
        if (c != 0) {
            ++in_mano;
            if (sette(c)) ++sette_in_mano;
        }
    for (;;) {
        const auto slot = static_cast<std::int16_t>(std::floor(static_cast<double>(casuale.Rnd()) * 3));
        const Carta c = mano[static_cast<std::size_t>(slot)];
        if (c == 0) continue;
        if (in_mano == 1) return slot;
        // Only sevens: any but the seven of coins.
        if (sette_in_mano == in_mano) {
            if (c != settebello_carta) return slot;
        } else if (!sette(c)) {
            return slot;
        }
    }
}

}  // namespace

Task Frmlesta::gioco2() {
    // A clean table: no mark and no outline is left from the player's turn.
    per_ogni_carta(tavolo, [this](Carta c) {
        ridipingi(*this, c);
        carta[c].tag = Tag::vuoto;
    });
    co_await ritardo(pausa::computer_pensa);

    // The first card that can capture is played. The search clears the card
    // in play when it takes nothing; it keeps it when there are too many
    // candidates for a sum, and then the card is laid and the slots after it
    // are not tried.
    bool scelta = false;
    for (slot = 0; slot <= 2; ++slot) {
        const Carta c = dorso[slot].tag;
        if (c == 0) continue;
        carta_giocata = c;
        valore_giocata = static_cast<std::int16_t>(valore(c));
        combina();
        if (carta_giocata != 0) {
            scelta = true;
            break;
        }
    }

    if (!scelta) {  // none can: the throw
        slot = slot_da_gettare({dorso[0].tag, dorso[1].tag, dorso[2].tag}, piattaforma.casuale);
        carta_giocata = dorso[slot].tag;
        valore_giocata = static_cast<std::int16_t>(valore(carta_giocata));
        quante = 0;
        somma = 0;
    }

    // The card is shown on the spot of the card in play; the capture's red
    // outlines are already on the table.
    porta_in_gioco(*this, dorso[slot].Left, dorso[slot].Top);
    dorso[slot].tag = 0;
    // A capture is told as the card shows; a card laid, once it lies in its cell.
    if (quante != 0)
        racconta([this](Lingua l) {
            return frasi::giocata(l, 2, carta_giocata, std::span(presa).subspan(1, static_cast<std::size_t>(quante)));
        });
    co_await ritardo(pausa::carta_del_computer);
}

}  // namespace lesta
