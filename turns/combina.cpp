// SPDX-License-Identifier: GPL-3.0-or-later
// The capture search for the card in play, for either side (turns/presa.h).
//
// For the player the search only says whether a capture exists (`trovata`)
// and whether it is of a card of equal value (`singola`); the player then
// picks the cards. For the computer it picks them: the first equal card in
// scan order, or the subset of the first mask that adds up, marked in red.

#include "turns/presa.h"

#include <array>
#include <bit>

#include "match/frmlesta.h"
#include "turns/passi.h"

namespace lesta {

PresaCercata cerca_presa(const Tavolo& tavolo, Carta carta_giocata, int valore_giocata) {
    PresaCercata cercata;
    auto& [tipo, vuote, quante, candidati, somma, maschera] = cercata;

    // A card of equal value ends the search at once.
    per_ogni_cella(tavolo, [&](Carta c) {
        if (tipo == TipoPresa::uguale) return;
        if (c == 0) {
            ++vuote;
        } else if (c % 10 == carta_giocata % 10) {
            tipo = TipoPresa::uguale;
            candidati[static_cast<std::size_t>(quante++)] = c;
            maschera = 1;
        }
    });
    if (tipo == TipoPresa::uguale || vuote == 12) return cercata;

    // The candidates of a sum: every card of a lower value, Kings excluded
    // (their number modulo 10 is 0).
    per_ogni_carta(tavolo, [&](Carta c) {
        if (c % 10 < 1 || c % 10 > valore_giocata) return;
        candidati[static_cast<std::size_t>(quante++)] = c;
        somma = static_cast<std::int16_t>(somma + c % 10);
    });
    tipo = TipoPresa::nessuna;
    if (somma < valore_giocata || quante < 2) return cercata;
    if (quante == 2) {
        if (somma == valore_giocata) {
            tipo = TipoPresa::somma;
            maschera = 3;
        }
        return cercata;
    }
    if (quante > 8) {
        tipo = TipoPresa::troppe;
        return cercata;
    }

    // The masks in ascending order: bit p-1 stands for the p-th candidate. A
    // mask's sum is that of the mask without its lowest candidate, met
    // earlier in the order, plus the value of that candidate.
    std::array<int, 256> somme;
    somme[0] = 0;
    const unsigned ultima = (1u << quante) - 1;
    for (unsigned m = 1; m <= ultima; ++m) {
        const auto primo = static_cast<std::size_t>(std::countr_zero(m));
        somme[m] = somme[m & (m - 1)] + candidati[primo] % 10;
        if (somme[m] == valore_giocata) {
            tipo = TipoPresa::somma;
            maschera = m;
            break;
        }
    }
    return cercata;
}

void Frmlesta::combina() {
    const PresaCercata cercata = cerca_presa(tavolo, carta_giocata, valore_giocata);
    trovata = false;
    singola = false;
    vuote = cercata.vuote;
    if (cercata.tipo == TipoPresa::vuoto) {
        if (turno == 2) carta_giocata = 0;
        return;
    }
    if (cercata.tipo == TipoPresa::uguale && turno == 1) {
        trovata = true;
        singola = true;
        quante = 1;
        return;
    }

    // The cards looked at become the capture list; for a sum, their count
    // and their sum stay in the fields whatever comes of it.
    quante = 0;
    for (int p = 0; p < cercata.quante; ++p) metti_in_presa(*this, cercata.candidati[static_cast<std::size_t>(p)]);
    if (cercata.tipo != TipoPresa::uguale) somma = cercata.somma;

    if (cercata.tipo == TipoPresa::troppe) {
        // The card is treated as one that takes nothing. The computer lays
        // it without trying its other cards.
        quante = 0;
        return;
    }
    if (cercata.tipo == TipoPresa::nessuna) {
        // The computer goes on to its next card.
        if (turno == 2) {
            carta_giocata = 0;
            quante = 0;
        }
        return;
    }
    if (turno == 1) {
        trovata = true;
        return;
    }

    // The computer's capture: a red outline inside each card taken, and its
    // mark. The candidates left out become holes; the count keeps them.
    const auto& voce = combinazioni[cercata.maschera];
    for (int p = 1; p <= quante; ++p) {
        if (voce[static_cast<std::size_t>(p - 1)] == '0') continue;
        const Carta c = presa[p];
        const float x = carta[c].Left, y = carta[c].Top;
        finestra.Box(x + 3, y + 3, x + larghezza_carta - 3, y + altezza_carta - 3, rosso);
        carta[c].tag = Tag::SEL;
    }
    for (int p = 1; p <= quante; ++p)
        if (carta[presa[p]].tag != Tag::SEL) presa[p] = 0;
}

}  // namespace lesta
