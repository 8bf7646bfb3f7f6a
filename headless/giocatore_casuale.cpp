#include "headless/giocatore_casuale.h"

#include <algorithm>

namespace lesta {

std::vector<std::vector<Carta>> GiocatoreCasuale::selezioni_lecite(const Frmlesta& f) {
    const int v = f.valore_giocata;
    std::vector<Carta> uguali, minori;
    for (int r = 1; r <= 3; ++r)
        for (int k = 1; k <= 4; ++k)
            if (const Carta c = f.tavolo[r][k]; c != 0) {
                if (valore(c) == v) uguali.push_back(c);
                if (valore(c) < v) minori.push_back(c);
            }
    std::vector<std::vector<Carta>> selezioni;
    if (!uguali.empty()) {
        for (Carta c : uguali) selezioni.push_back({c});
        return selezioni;
    }
    // A sum needs two cards or more, each of lower value.
    const unsigned n = static_cast<unsigned>(minori.size());
    for (unsigned m = 1; m < (1u << n); ++m) {
        int somma = 0;
        std::vector<Carta> scelta;
        for (unsigned i = 0; i < n; ++i)
            if (m >> i & 1u) {
                somma += valore(minori[i]);
                scelta.push_back(minori[i]);
            }
        if (somma == v && scelta.size() >= 2) selezioni.push_back(std::move(scelta));
    }
    return selezioni;
}

void GiocatoreCasuale::clic_mano(int slot) {
    // The middle of the slot's fixed hit area.
    const float x = 307.0f + 64.0f * static_cast<float>(slot - 1) + std::min(f_.larghezza_carta, 64.0f) / 2;
    f_.Form_MouseDown(x, 504.7f + f_.altezza_carta / 2);
}

void GiocatoreCasuale::clic_tavolo(Carta c) {
    f_.Form_MouseDown(f_.carta[c].Left + f_.larghezza_carta / 2, f_.carta[c].Top + f_.altezza_carta / 2);
}

bool GiocatoreCasuale::clic() {
    if (f_.modo == Modo::gioco1 && f_.carta_giocata == 0) {
        std::vector<int> libere;
        for (int k = 1; k <= 3; ++k)
            if (f_.giocate[k] == 0) libere.push_back(k);
        if (libere.empty()) return false;
        clic_mano(libere[std::uniform_int_distribution<std::size_t>(0, libere.size() - 1)(caso_)]);
        return true;
    }
    if (f_.modo == Modo::selezione) {
        if (da_scegliere_.empty()) {
            const auto selezioni = selezioni_lecite(f_);
            if (selezioni.empty()) return false;
            da_scegliere_ = selezioni[std::uniform_int_distribution<std::size_t>(0, selezioni.size() - 1)(caso_)];
        }
        const Carta c = da_scegliere_.back();
        da_scegliere_.pop_back();
        clic_tavolo(c);
        return true;
    }
    return false;
}

}  // namespace lesta
