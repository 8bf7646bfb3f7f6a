// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/vista.h"

#include <cmath>

#include "match/frmlesta.h"
#include "match/geometria.h"

namespace lesta {

namespace {

// Whether a card's holder says it was last painted at (x, y): a card that
// has left its cell for the stack of a capture no longer shows there.
bool dipinta_a(const CartaControllo& c, float x, float y) {
    return std::abs(c.Left - x) < 0.5f && std::abs(c.Top - y) < 0.5f;
}

}  // namespace

VistaTavolo vista_del_tavolo(const Frmlesta& f) {
    VistaTavolo v;
    v.mano_in_corso = f.mano_in_corso;
    if (!f.mano_in_corso) return v;

    const int p = f.posizione_mazzo;
    // The deal has given the player mazzo(p-2..p); a slot shows its card
    // until it is played.
    if (p >= 7)
        for (int k = 1; k <= 3; ++k)
            if (f.giocate[static_cast<std::size_t>(k)] == 0)
                v.mano[static_cast<std::size_t>(k)] = f.mod.mazzo[p - 3 + k];
    for (int r = 1; r <= 3; ++r)
        for (int k = 1; k <= 4; ++k) {
            const Carta c = f.tavolo[r][k];
            if (c == 0) continue;
            const auto& holder = f.carta[c];
            if (!dipinta_a(holder, sinistra_cella(static_cast<float>(k), f.tavolox, f.larghezza_carta),
                           alto_cella(static_cast<float>(r), f.tavoloy, f.altezza_carta)))
                continue;
            v.celle[r][k] = c;
            v.segnate[static_cast<std::size_t>(c)] = holder.tag == Tag::SEL;
        }
    v.in_gioco = f.in_gioco;
    if (p >= 7)
        for (const auto& retro : f.dorso) v.carte_computer += retro.tag != 0;
    v.nel_mazzo = 2 * (22 - p);
    v.lato_mazzo = p < 22 ? f.mod.mazziere : 0;
    v.turno = f.turno;
    v.leste = f.carte_leste;
    for (int lato = 1; lato <= 2; ++lato) v.numero_leste[static_cast<std::size_t>(lato)] = f.mod.leste[lato];
    return v;
}

std::string lettura(const Frmlesta& f, char tasto, Lingua l) {
    const VistaTavolo v = vista_del_tavolo(f);
    switch (maiuscola(tasto)) {
        case 'H': return frasi::le_tue_carte(l, v.mano);
        case 'T': return frasi::sul_tavolo(l, v.celle, v.segnate, v.in_gioco);
        case 'I':
            return frasi::a_chi_tocca(l, v.mano_in_corso ? v.turno : 0, v.carte_computer, v.nel_mazzo,
                                      v.numero_leste[1], v.numero_leste[2]);
        case 'P':
            return frasi::la_partita(l, f.mod.tipo_partita, f.mod.partite / 10, f.mod.punti_giocatore,
                                     f.mod.punti_computer);
        default: return {};
    }
}

}  // namespace lesta
