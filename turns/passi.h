// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Steps that several turns take alike.

#include "match/frmlesta.h"
#include "match/geometria.h"

namespace lesta {

// A table card joins the capture list, with the place it stands at in whole
// units.
inline void metti_in_presa(Frmlesta& f, Carta c) {
    ++f.quante;
    f.presa[f.quante] = c;
    f.presax[f.quante] = unita_intere(f.carta[c].Left);
    f.presay[f.quante] = unita_intere(f.carta[c].Top);
}

// Wipes to the table the band that a card with its left edge at x covers,
// from `alto` down to `basso`, a unit wider on either side: a picture can
// spill onto the pixel past its edge.
inline void cancella(Frmlesta& f, float x, float alto, float basso) {
    f.finestra.BoxFilled(x - 1, alto, x + f.larghezza_carta + 1, basso, verde_tavolo);
}

// A card's place at (x, y) wiped to the table, a unit wider all round.
inline void cancella_carta(Frmlesta& f, float x, float y) { cancella(f, x, y - 1, y + f.altezza_carta + 1); }

// A card painted again where it stands: its face without any outline.
inline void ridipingi(Frmlesta& f, Carta c) {
    f.finestra.PaintPicture(faccia(c), f.carta[c].Left, f.carta[c].Top, f.larghezza_carta, f.altezza_carta);
}

// The card in play, with its sound, leaves its hand place at (x, y), which is
// wiped to the table, for the spot of the card in play right of the grid.
inline void porta_in_gioco(Frmlesta& f, float x, float y) {
    f.piattaforma.MMCw.Command("Play");
    f.piattaforma.MMCw.From(0);
    f.posx = x;
    f.posy = y;
    cancella_carta(f, f.posx, f.posy);
    f.in_gioco = f.carta_giocata;
    auto& giocata = f.carta[f.carta_giocata];
    giocata.Left = sinistra_in_gioco(f.meta_larghezza);
    giocata.Top = alto_in_gioco(f.meta_altezza, f.altezza_carta);
    f.finestra.PaintPicture(faccia(f.carta_giocata), giocata.Left, giocata.Top, f.larghezza_carta, f.altezza_carta);
}

}  // namespace lesta
