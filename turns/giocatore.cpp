// SPDX-License-Identifier: GPL-3.0-or-later
// The player's side of a turn: the wait for a hand card, and the one click
// handler of the table, which the keys go through too. The handler never
// calls the game: it changes the turn's fields, and the routine that waits
// sees the change.

#include <cmath>

#include "match/frmlesta.h"
#include "match/geometria.h"
#include "match/tavolo.h"
#include "table/vista.h"
#include "turns/frasi.h"
#include "turns/passi.h"

namespace lesta {

namespace {

void carta_della_mano(Frmlesta& f, float X, float Y) {
    // One turn plays one card: a click queued behind the one that played
    // still finds "gioco1", and is dropped here until the next turn clears
    // the card in play.
    if (f.carta_giocata != 0) return;

    // The hit areas stand at fixed places; only their size follows the cards.
    f.slot = slot_della_mano(X, Y, f.larghezza_carta, f.altezza_carta);
    if (f.slot == 0 || f.giocate[f.slot] != 0) return;

    f.giocate[f.slot] = 1;
    f.carta_giocata = f.mod.mazzo[f.posizione_mazzo + f.slot - 3];
    f.valore_giocata = static_cast<std::int16_t>(valore(f.carta_giocata));

    // The card leaves the hand for the spot of the card in play.
    porta_in_gioco(f, f.carta[f.carta_giocata].Left, f.carta[f.carta_giocata].Top);
}

// A click on a table card selects it, with a red outline, or drops it from
// the selection. No rule applies here: the turn's check judges the marks.
void carta_del_tavolo(Frmlesta& f, float X, float Y) {
    f.riga = riga_del_punto(Y, f.tavoloy, f.altezza_carta);
    f.colonna = colonna_del_punto(X, f.tavolox, f.larghezza_carta);
    if (f.riga < 1 || f.riga > 3 || f.colonna < 1 || f.colonna > 4) return;

    const Carta c = f.tavolo[static_cast<std::size_t>(f.riga)][static_cast<std::size_t>(f.colonna)];
    // An empty cell shows the table and never gets past the colour test; on a
    // window that cannot tell, it is dropped here.
    if (c == 0) return;
    auto& scelta = f.carta[c];
    f.posx = scelta.Left;
    f.posy = scelta.Top;
    if (scelta.tag == Tag::SEL) {
        scelta.tag = Tag::vuoto;
        ridipingi(f, c);
    } else {
        f.finestra.Box(f.posx + 3, f.posy + 3, f.posx + f.larghezza_carta - 3, f.posy + f.altezza_carta - 3, rosso);
        scelta.tag = Tag::SEL;
    }
    f.racconta([&f, c](Lingua l) {
        int quante = 0, somma = 0;
        per_ogni_carta(f.tavolo, [&](Carta segnata) {
            if (f.carta[segnata].tag != Tag::SEL) return;
            ++quante;
            somma += valore(segnata);
        });
        return frasi::segno(l, c, f.carta[c].tag == Tag::SEL, quante, somma, f.carta_giocata, f.singola);
    });
}

}  // namespace

Task Frmlesta::gioco1() {
    modo = Modo::gioco1;
    co_await finche(piattaforma.orologio, [this] { return carta_giocata != 0; });
    // Counted before the move, as the computer's card is: turns/fine_mano.h.
    ++mosse;
}

void Frmlesta::Form_MouseDown(float X, float Y) {
    // Any click closes the help panels.
    for (auto pannello : {Controllo::Text2, Controllo::Text3, Controllo::Text4}) Visible(pannello, false);

    // Bare table, or the table colour in the rounded corner of a card.
    if (static_cast<std::int32_t>(finestra.Point(X, Y)) == sfondo) return;

    switch (modo) {
        case Modo::gioco1: carta_della_mano(*this, X, Y); break;
        case Modo::selezione: carta_del_tavolo(*this, X, Y); break;
        case Modo::vuoto: break;
    }
}

// A key is a click on the middle of its slot or cell, and nothing more: the
// click's handler alone judges it, with the table colour, the mode and the
// hit areas, so that a key can do nothing a click there could not. A played
// slot or an empty cell shows the table colour at its middle and the key is
// dropped; a key closes the help panels as a click does.
void Frmlesta::Form_KeyDown(char tasto) {
    if (tasto_di_lettura(tasto)) {
        racconta([this, tasto](Lingua l) { return lettura(*this, tasto, l); });
        return;
    }
    if (const auto p = punto_del_tasto(tasto, larghezza_carta, altezza_carta, tavolox, tavoloy, meta_larghezza))
        Form_MouseDown(p->x, p->y);
}

}  // namespace lesta
