// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>

#include "match/frmlesta.h"
#include "match/geometria.h"
#include "table/sipario.h"

namespace lesta {

// Shuffles the deck and lays out the table for a new hand: four cards face up
// in the middle row, the deck on the dealer's side.
void Frmlesta::Mescola() {
    for (auto& riga_tavolo : tavolo) riga_tavolo.fill(0);
    auto& carte = mod.carte;
    auto& mazzo = mod.mazzo;
    carte.fill(0);

    Casuale& casuale = piattaforma.casuale;
    do {
        for (int i = 1; i <= 40; ++i) carte[i] = static_cast<Carta>(i);
        casuale.Randomize();
        // Each card is drawn from the pool; a draw that falls on a card
        // already taken (or on entry 0, which is never a card) is drawn again.
        for (int i = 1; i <= 40; ++i) {
            int r = 0;
            do {
                r = static_cast<int>(std::floor(41.0 * casuale.Rnd()));
            } while (carte[r] == 0);
            mazzo[i] = carte[r];
            carte[r] = 0;
        }
        // The only deck thrown back: one whose first four card numbers add up
        // to 40.
    } while (mazzo[1] + mazzo[2] + mazzo[3] + mazzo[4] == 40);

    for (int i = 0; i < 2; ++i) {
        Visible(Verde(i), true);
        Visible(Rosso(i), true);
    }
    posizione_mazzo = 0;
    mano_in_corso = true;
    in_gioco = 0;
    for (auto& carte : carte_leste) carte.fill(0);
    sipario(finestra, verde_tavolo);

    for (int c = 1; c <= 4; ++c) {
        ++posizione_mazzo;
        const Carta n = mazzo[posizione_mazzo];
        tavolo[2][c] = n;
        carta[n].Left = sinistra_cella(static_cast<float>(c), tavolox, larghezza_carta);
        carta[n].Top = meta_altezza - altezza_carta / 2;
        finestra.PaintPicture(faccia(n), carta[n].Left, carta[n].Top, larghezza_carta, altezza_carta);
    }

    pilay[1] = static_cast<std::int32_t>(std::nearbyint(2 * meta_altezza - altezza_carta - 5));
    pilay[2] = 5;
    finestra.PaintPicture(Figura::Dorso, 680, static_cast<float>(pilay[mod.mazziere]), larghezza_carta, altezza_carta);

    piattaforma.MMC1.Command("Play");
}

}  // namespace lesta
