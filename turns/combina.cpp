// The capture search for the card in play, for either side.
//
// A card takes a table card of its own value if there is one, and then that
// card alone. Only when there is none may it take two or more cards whose
// values add up to its own; a King on the table never enters a sum. Sums are
// searched among at most eight cards: with more, the card cannot capture.
//
// For the player the search only says whether a capture exists (`trovata`)
// and whether it is of a card of equal value (`singola`); the player then
// picks the cards. For the computer it picks them: the first equal card in
// scan order, or the subset of the first mask that adds up, marked in red.

#include <array>
#include <bit>

#include "match/frmlesta.h"

namespace lesta {

void Frmlesta::combina() {
    // The computer's mark: a red outline inside the card, and the tag.
    auto segna = [this](Carta c) {
        const float x = carta[c].Left, y = carta[c].Top;
        finestra.Box(x + 3, y + 3, x + larghezza_carta - 3, y + altezza_carta - 3, rosso);
        carta[c].tag = Tag::SEL;
    };
    // The card in play cannot capture: the computer goes on to its next card.
    auto nessuna = [this] {
        if (turno == 2) {
            carta_giocata = 0;
            quante = 0;
        }
    };

    trovata = false;
    singola = false;
    vuote = 0;

    // A card of equal value ends the search at once.
    for (int r = 1; r <= 3; ++r)
        for (int k = 1; k <= 4; ++k) {
            const Carta c = tavolo[r][k];
            if (c == 0) {
                ++vuote;
                continue;
            }
            if (c % 10 != carta_giocata % 10) continue;
            if (turno == 1) {
                trovata = true;
                singola = true;
                quante = 1;
                return;
            }
            segna(c);
            presa[1] = c;
            presax[1] = unita_intere(carta[c].Left);
            presay[1] = unita_intere(carta[c].Top);
            quante = 1;
            return;
        }

    if (vuote == 12) {
        if (turno == 2) carta_giocata = 0;
        return;
    }

    // The candidates of a sum: every card of a lower value, Kings excluded
    // (their number modulo 10 is 0).
    somma = 0;
    quante = 0;
    for (int r = 1; r <= 3; ++r)
        for (int k = 1; k <= 4; ++k) {
            const Carta c = tavolo[r][k];
            if (c == 0 || c % 10 < 1 || c % 10 > valore_giocata) continue;
            ++quante;
            presa[quante] = c;
            presax[quante] = unita_intere(carta[c].Left);
            presay[quante] = unita_intere(carta[c].Top);
            somma = static_cast<std::int16_t>(somma + c % 10);
        }

    if (somma < valore_giocata || quante < 2) return nessuna();

    if (quante == 2) {
        if (somma != valore_giocata) return nessuna();
        if (turno == 1) {
            trovata = true;
        } else {
            segna(presa[1]);
            segna(presa[2]);
        }
        return;
    }

    // Too many candidates for the table of masks: the card is treated as one
    // that takes nothing. The computer lays it without trying its other cards.
    if (quante > 8) {
        quante = 0;
        return;
    }

    // The masks in ascending order: bit p-1 stands for the p-th candidate, so
    // the subset whose last card comes earliest in scan order wins. A mask's
    // sum is that of the mask without its lowest candidate, met earlier in
    // the order, plus the value of that candidate.
    std::array<int, 256> somme;
    somme[0] = 0;
    const unsigned ultima = (1u << quante) - 1;
    for (unsigned m = 1; m <= ultima; ++m) {
        const int primo = std::countr_zero(m) + 1;
        somme[m] = somme[m & (m - 1)] + presa[static_cast<std::size_t>(primo)] % 10;
        if (somme[m] != valore_giocata) continue;

        if (turno == 1) {
            trovata = true;
            return;
        }
        const auto& voce = combinazioni[m];
        for (int p = 1; p <= quante; ++p)
            if (voce[static_cast<std::size_t>(p - 1)] != '0') segna(presa[p]);
        // The candidates left out become holes; the count keeps them.
        for (int p = 1; p <= quante; ++p)
            if (carta[presa[p]].tag != Tag::SEL) presa[p] = 0;
        return;
    }
    nessuna();
}

}  // namespace lesta
