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

const char* in(Lingua l, const char* inglese, const char* italiano) {
    return l == Lingua::italiano ? italiano : inglese;
}

// "Q: Two of Coppe", "3: empty".
std::string posto_con_carta(Lingua l, char tasto, Carta c) {
    return std::string(1, tasto) + ": " + (c != 0 ? nome_carta(c, l) : std::string(in(l, "empty", "vuoto")));
}

std::string elenco_leste(Lingua l, const std::array<Carta, 19>& carte, int n) {
    std::string testo;
    for (int i = 0; i < n; ++i) {
        if (i > 0) testo += ", ";
        testo += nome_carta(carte[static_cast<std::size_t>(i)], l);
    }
    return n == 0 ? std::string(in(l, "none", "nessuna")) : testo;
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

std::string_view nome_del_tavolo(Lingua l) { return in(l, "Table", "Tavola"); }

std::string nome_posto(const VistaTavolo& v, const ModLesta& mod, int posto, Lingua l) {
    if (posto < posto_cella)
        return posto_con_carta(l, static_cast<char>('1' + posto), v.mano[static_cast<std::size_t>(posto + 1)]);
    if (posto < posto_in_gioco) {
        const int r = (posto - posto_cella) / 4 + 1, k = (posto - posto_cella) % 4 + 1;
        const Carta c = v.celle[r][k];
        std::string testo = posto_con_carta(l, frasi::tasto_cella(r, k), c);
        if (c != 0 && v.segnate[static_cast<std::size_t>(c)]) testo += in(l, ", marked", ", segnata");
        return testo;
    }
    switch (posto) {
        case posto_in_gioco:
            return v.in_gioco != 0 ? std::string(in(l, "In play: ", "In gioco: ")) + nome_carta(v.in_gioco, l)
                                   : std::string(in(l, "No card in play", "Nessuna carta in gioco"));
        case posto_computer:
            return std::string(in(l, "The computer's hand: ", "Le carte del computer: ")) +
                   std::to_string(v.carte_computer) + in(l, " face down", " coperte");
        case posto_mazzo:
            if (v.lato_mazzo == 0) return in(l, "The deck is used up", "Il mazzo è finito");
            return std::string(in(l, "The deck: ", "Il mazzo: ")) + std::to_string(v.nel_mazzo) +
                   (v.lato_mazzo == 1 ? in(l, " cards, on your side", " carte, dalla tua parte")
                                      : in(l, " cards, on the computer's side", " carte, dalla parte del computer"));
        case posto_turno:
            if (!v.mano_in_corso) return in(l, "No hand is under way", "Nessuna mano è in corso");
            return v.turno == 1 ? in(l, "Your turn", "Tocca a te") : in(l, "The computer's turn", "Tocca al computer");
        case posto_leste:
        case posto_leste + 1: {
            const int lato = posto - posto_leste + 1;
            return std::string(lato == 1 ? in(l, "Your leste: ", "Le tue leste: ")
                                         : in(l, "The computer's leste: ", "Le leste del computer: ")) +
                   elenco_leste(l, v.leste[static_cast<std::size_t>(lato)],
                                v.numero_leste[static_cast<std::size_t>(lato)]);
        }
        default:
            return frasi::la_partita(l, mod.tipo_partita, mod.partite / 10, mod.punti_giocatore, mod.punti_computer);
    }
}

Rett rett_posto(const Frmlesta& f, int posto) {
    const float w = f.larghezza_carta, h = f.altezza_carta;
    if (posto < posto_cella) return {sinistra_mano(posto, w, f.meta_larghezza), alto_mano_giocatore(h), w, h};
    if (posto < posto_in_gioco) {
        const int r = (posto - posto_cella) / 4 + 1, k = (posto - posto_cella) % 4 + 1;
        return {sinistra_cella(static_cast<float>(k), f.tavolox, w), alto_cella(static_cast<float>(r), f.tavoloy, h), w,
                h};
    }
    switch (posto) {
        case posto_in_gioco: return {sinistra_in_gioco(f.meta_larghezza), alto_in_gioco(f.meta_altezza, h), w, h};
        case posto_computer:
            return {sinistra_mano(0, w, f.meta_larghezza), alto_mano_computer, 3 * w + 2 * spazio_carte, h};
        case posto_mazzo: return {680, static_cast<float>(f.pilay[f.mod.mazziere]), w, h};
        case posto_turno: return f.rett(f.turno == 2 ? Verde(1) : Verde(0));
        case posto_leste:
        case posto_leste + 1: return {100, static_cast<float>(f.pilay[posto - posto_leste + 1]), 2 * w, h};
        default: return {2 * f.meta_larghezza - 110, f.meta_altezza - 30, 105, 80};
    }
}

std::string lettura(const Frmlesta& f, char tasto, Lingua l) {
    const VistaTavolo v = vista_del_tavolo(f);
    switch (tasto) {
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
