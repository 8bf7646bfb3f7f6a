// SPDX-License-Identifier: GPL-3.0-or-later
// The player's capture: once the played card is known to take something, the
// turn waits until the cards marked on the table make a legal capture.

#include "match/frmlesta.h"
#include "match/tavolo.h"
#include "turns/passi.h"
#include "turns/ritardo.h"

namespace lesta {

Task Frmlesta::verifica() {
    combina();

    if (!trovata) {
        // Nothing to take: the card will be laid. Painting the table cards
        // again wipes any outline left on them.
        per_ogni_carta(tavolo, [this](Carta c) { ridipingi(*this, c); });
        quante = 0;
        somma = 0;
    } else {
        // One pass of the check: the marked cards in scan order become the
        // capture list. They pass when their values add up to the played
        // card's, and, when a card of equal value lies on the table, when
        // they are that one card alone. Any selection with the right sum
        // passes, not only the one the search would choose.
        //
        // The wait wakes after every event and runs one pass, so every click
        // is followed by a check of its own: no click can slip in between
        // gathering the marks and judging them. The list judged is always
        // the marks as they stand, so there is no recount, and no repaint
        // of the table for a count that changed during the wait.
        auto selezione_valida = [this] {
            quante = 0;
            per_ogni_carta(tavolo, [this](Carta c) {
                if (carta[c].tag == Tag::SEL) metti_in_presa(*this, c);
            });
            modo = Modo::selezione;
            somma = 0;
            for (int i = 1; i <= quante; ++i) somma = static_cast<std::int16_t>(somma + valore(presa[i]));
            if (singola && quante > 1) return false;
            return somma == valore_giocata;
        };
        co_await finche(piattaforma.orologio, selezione_valida);
        // The selected cards keep their mark: the move clears them from the
        // table by it.
    }

    modo = Modo::vuoto;
    co_await ritardo(pausa::carta_del_giocatore);
}

}  // namespace lesta
