// SPDX-License-Identifier: GPL-3.0-or-later
#include "headless/punteggio.h"

namespace lesta {

void PunteggioSenzaSchermo::Line(float x1, float y1, float x2, float y2, Colore c) {
    linee.push_back({x1, y1, x2, y2, c});
}

void PunteggioSenzaSchermo::etichetta_cambiata(QualeEtichetta quale, const Etichetta& e) {
    switch (quale.gruppo) {
        case Gruppo::LBLtit: LBLtit = e; break;
        case Gruppo::LBLdat: LBLdat[quale.indice] = e; break;
        case Gruppo::lblTot:
            if (quale.indice == 0 || quale.indice == 1) lblTot[static_cast<std::size_t>(quale.indice)] = e;
            break;
    }
}

void PunteggioSenzaSchermo::etichetta_distrutta(int indice) {
    if (LBLdat.erase(indice) != 0) ++distrutte;
}

void PunteggioSenzaSchermo::imgset_cambiata(int indice, const Imgset& im) {
    if (indice >= 1 && indice <= 8) imgset[static_cast<std::size_t>(indice)] = im;
}

void PunteggioSenzaSchermo::bottone_cambiato(int indice, const Bottone& b, std::string_view caption) {
    if (indice != 1 && indice != 2) return;
    bottoni[static_cast<std::size_t>(indice)] = b;
    captions[static_cast<std::size_t>(indice)] = caption;
}

void PunteggioSenzaSchermo::Show_frmlesta() {
    ++tavolo_mostrato;
    if (al_tavolo) al_tavolo();
}

}  // namespace lesta
