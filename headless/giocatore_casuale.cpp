// SPDX-License-Identifier: GPL-3.0-or-later
#include "headless/giocatore_casuale.h"

#include "match/geometria.h"

#include <algorithm>

namespace lesta {

bool GiocatoreCasuale::scegli_selezione() {
    const int v = f_.valore_giocata;
    std::array<Carta, 12> uguali{}, minori{};
    int n_uguali = 0, n_minori = 0;
    for (int r = 1; r <= 3; ++r)
        for (int k = 1; k <= 4; ++k)
            if (const Carta c = f_.tavolo[r][k]; c != 0) {
                if (valore(c) == v) uguali[n_uguali++] = c;
                if (valore(c) < v) minori[n_minori++] = c;
            }
    if (n_uguali > 0) {
        da_scegliere_[0] = uguali[a_caso(n_uguali)];
        restanti_ = 1;
        return true;
    }
    // A sum needs two cards or more, each of lower value: count the sets
    // whose values add up to the card's, then take one of them at random.
    auto somma_giusta = [&](unsigned m) {
        int somma = 0;
        for (int i = 0; i < n_minori; ++i)
            if (m >> i & 1u) somma += valore(minori[i]);
        return somma == v && (m & (m - 1)) != 0;
    };
    const unsigned tutte = 1u << n_minori;
    int lecite = 0;
    for (unsigned m = 1; m < tutte; ++m) lecite += somma_giusta(m);
    if (lecite == 0) return false;
    for (unsigned m = 1, scelta = static_cast<unsigned>(a_caso(lecite));; ++m) {
        if (!somma_giusta(m) || scelta-- != 0) continue;
        restanti_ = 0;
        for (int i = 0; i < n_minori; ++i)
            if (m >> i & 1u) da_scegliere_[static_cast<std::size_t>(restanti_++)] = minori[i];
        return true;
    }
}

void GiocatoreCasuale::clic_mano(int slot) {
    if (tasto_) return tasto_(tasti_mano[static_cast<std::size_t>(slot - 1)]);
    // The middle of the slot's fixed hit area.
    const float x = sinistra_area_mano[static_cast<std::size_t>(slot)] + std::min(f_.larghezza_carta, 64.0f) / 2;
    premi(x, alto_area_mano + f_.altezza_carta / 2);
}

void GiocatoreCasuale::clic_tavolo(Carta c) {
    if (tasto_) {
        for (int r = 1; r <= 3; ++r)
            for (int k = 1; k <= 4; ++k)
                if (f_.tavolo[r][k] == c) return tasto_(tasti_celle[static_cast<std::size_t>((r - 1) * 4 + k - 1)]);
        return;
    }
    premi(f_.carta[c].Left + f_.larghezza_carta / 2, f_.carta[c].Top + f_.altezza_carta / 2);
}

bool GiocatoreCasuale::clic() {
    if (f_.modo == Modo::gioco1 && f_.carta_giocata == 0) {
        std::array<int, 3> libere{};
        int n = 0;
        for (int k = 1; k <= 3; ++k)
            if (f_.giocate[k] == 0) libere[static_cast<std::size_t>(n++)] = k;
        if (n == 0) return false;
        clic_mano(libere[static_cast<std::size_t>(a_caso(n))]);
        return true;
    }
    if (f_.modo == Modo::selezione) {
        if (restanti_ == 0 && !scegli_selezione()) return false;
        clic_tavolo(da_scegliere_[static_cast<std::size_t>(--restanti_)]);
        return true;
    }
    return false;
}

}  // namespace lesta
