// SPDX-License-Identifier: GPL-3.0-or-later
#include "match/frmlesta.h"

#include <utility>

namespace lesta {

Frmlesta::Frmlesta(Piattaforma p, ModLesta& m, std::filesystem::path cartella_programma)
    : mod(m),
      piattaforma(p),
      finestra(p.finestra),
      cartella(std::move(cartella_programma)),
      posto_impostazioni(scegli_posto_impostazioni(cartella, true, {})) {
    for (int i = 0; i < numero_controlli; ++i) {
        const auto c = static_cast<Controllo>(i);
        controlli[indice(c)] = {rettangolo_iniziale(c), visibile_iniziale(c), ++ultimo_z_};
    }
    for (auto& c : carta) c.Left = carta_iniziale.left, c.Top = carta_iniziale.top;
    for (auto& d : dorso) d.Left = dorso_iniziale.left, d.Top = dorso_iniziale.top;
    for (int i = 0; i < numero_controlli; ++i) ridisegna(static_cast<Controllo>(i));
}

void Frmlesta::ridisegna(Controllo c) {
    const auto& s = controlli[indice(c)];
    finestra.controllo_cambiato(c, s.r, s.visibile, s.z == ultimo_z_);
}

void Frmlesta::Move(Controllo c, float left, float top) {
    auto& r = controlli[indice(c)].r;
    if (r.left == left && r.top == top) return;
    r.left = left;
    r.top = top;
    ridisegna(c);
}

void Frmlesta::Visible(Controllo c, bool visibile) {
    auto& s = controlli[indice(c)];
    if (s.visibile == visibile) return;
    s.visibile = visibile;
    ridisegna(c);
}

void Frmlesta::ZOrder(Controllo c) {
    controlli[indice(c)].z = ++ultimo_z_;
    ridisegna(c);
}

}  // namespace lesta
