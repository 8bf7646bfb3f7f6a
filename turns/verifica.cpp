// SPDX-License-Identifier: GPL-3.0-or-later
// The player's capture: once the played card is known to take something, the
// turn waits until the cards marked on the table make a legal capture.

#include "match/frmlesta.h"
#include "match/tavolo.h"
#include "turns/frasi.h"
#include "turns/passi.h"
#include "turns/presa.h"
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
        racconta([this](Lingua l) { return frasi::deve_prendere(l, carta_giocata, singola); });
        // One pass of the check: the marked cards in scan order become the
        // capture list, and the turn goes on when they are a capture the card
        // may make (turns/presa.h).
        //
        // The wait wakes after every event and runs one pass, so every click
        // is followed by a check of its own: no click can slip in between
        // gathering the marks and judging them. The list judged is always
        // the marks as they stand, so there is no recount, and no repaint
        // of the table for a count that changed during the wait.
        auto prende = [this] {
            quante = 0;
            per_ogni_carta(tavolo, [this](Carta c) {
                if (carta[c].tag == Tag::SEL) metti_in_presa(*this, c);
            });
            modo = Modo::selezione;
            somma = 0;
            for (int i = 1; i <= quante; ++i) somma = static_cast<std::int16_t>(somma + valore(presa[i]));
            return selezione_valida(somma, quante, valore_giocata, singola);
        };
        co_await finche(piattaforma.orologio, prende);
        racconta([this](Lingua l) {
            return frasi::giocata(l, 1, carta_giocata, std::span(presa).subspan(1, static_cast<std::size_t>(quante)));
        });
        // The selected cards keep their mark: the move clears them from the
        // table by it.
    }

    modo = Modo::vuoto;
    co_await ritardo(pausa::carta_del_giocatore);
}

}  // namespace lesta
