// SPDX-License-Identifier: GPL-3.0-or-later
// The deal: three cards to each side. The shuffle has already fixed who gets
// which card, so dealing is a walk along the deck with the painting that goes
// with it: no pause, no sound, no draw.

#include "match/frmlesta.h"
#include "match/geometria.h"
#include "turns/frasi.h"

namespace lesta {

void Frmlesta::daicarte() {
    // The middle of the window lies in the gap between the second and third
    // columns of the grid, which no card ever covers: it shows the table. A
    // click on that colour is a click on bare table.
    sfondo = static_cast<std::int32_t>(finestra.Point(meta_larghezza, meta_altezza));

    // Card by card, left to right, the player's and the computer's in turn.
    // The lower half of the deck is the player's, the upper half the
    // computer's: the computer's card is the one 18 places further on.
    for (int i = 0; i < 3; ++i) {
        ++posizione_mazzo;
        const int p = posizione_mazzo;
        const float x = sinistra_mano(i, larghezza_carta, meta_larghezza);

        const Carta nostra = mod.mazzo[p];
        const float y = alto_mano_giocatore(altezza_carta);
        finestra.PaintPicture(faccia(nostra), x, y, larghezza_carta, altezza_carta);
        carta[nostra].Left = x;
        carta[nostra].Top = y;

        auto& retro = dorso[i];
        retro.tag = mod.mazzo[p + 18];
        finestra.PaintPicture(Figura::Dorso, x, alto_mano_computer, larghezza_carta, altezza_carta);
        retro.Left = x;
        retro.Top = alto_mano_computer;
    }

    racconta([this](Lingua l) {
        const int p = posizione_mazzo;
        return frasi::distribuzione(l, (p - 4) / 3, {0, mod.mazzo[p - 2], mod.mazzo[p - 1], mod.mazzo[p]},
                                    2 * (22 - p));
    });
}

}  // namespace lesta
