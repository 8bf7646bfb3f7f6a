// SPDX-License-Identifier: GPL-3.0-or-later
// A hand, from the first deal on the table to both piles listed for the
// score: the sides take turns, the side that did not deal leads every deal,
// a new deal follows every sixth turn, and the side that captured last takes
// what is left on the table.

#include <algorithm>
#include <array>
#include <cassert>
#include <span>
#include <string>

#include "match/frmlesta.h"
#include "match/tavolo.h"
#include "table/vista.h"
#include "turns/fine_mano.h"
#include "turns/frasi.h"
#include "turns/passi.h"
#include "turns/ritardo.h"

namespace lesta {

namespace {

// The running score of a match, in a box at the right edge of the table.
void punteggio(Frmlesta& f) {
    auto& finestra = f.finestra;
    const float X = 2 * f.meta_larghezza, H = f.meta_altezza;
    finestra.BoxFilled(X - 110, H - 30, X - 5, H + 50, nero);
    finestra.Box(X - 109, H - 29, X - 6, H + 49, giallo);

    // Numbers are written with a leading blank where a sign would go.
    auto numero = [](int n) {
        std::string testo(1, ' ');
        return testo += std::to_string(n);
    };
    const float riga = finestra.TextHeight();
    float y = H - 25;
    finestra.Print(X - 105, y, numero(f.mod.partite / 10 + 1) + "^Game", bianco);
    y += 2 * riga;  // and an empty line
    finestra.Print(X - 105, y, "You   Computer", bianco);
    y += riga;
    finestra.Print(X - 100, y, numero(f.mod.punti_giocatore) + std::string(14, ' ') + numero(f.mod.punti_computer),
                   bianco);
}

// A new hand: nothing taken, played or swept yet, the turn lights beside
// the hands, and the running score of a match from its second hand on.
void apri_mano(Frmlesta& f) {
    f.prese.fill(0);
    f.giocate.fill(0);
    for (auto luce : {Verde(0), Rosso(0)}) f.Move(luce, 620, 600 - f.altezza_carta / 2 - 32);
    for (auto luce : {Verde(1), Rosso(1)}) f.Move(luce, 620, f.altezza_carta / 2);
    f.mosse = 0;
    f.mod.numdenari = 0;
    f.mod.numcarte = 0;
    f.mod.leste[1] = 0;
    f.mod.leste[2] = 0;
    if (f.mod.tipo_partita != 0 && f.mod.partite >= 2) {
        punteggio(f);
    } else {
        f.mod.punti_giocatore = 0;
        f.mod.punti_computer = 0;
    }
    if (f.canzone != 0) f.Quadro_Song();
}

// A side's turn begins with the turn's fields cleared and its green light,
// and the other side's red, in front.
void inizio_turno(Frmlesta& f, int lato) {
    f.turno = static_cast<std::int16_t>(lato);
    f.carta_giocata = 0;
    f.valore_giocata = 0;
    f.quante = 0;
    f.somma = 0;
    f.ZOrder(Verde(lato - 1));
    f.ZOrder(Rosso(2 - lato));
}

// Both piles for the score, from the cards the player took: the player's
// ascending in 1..numcarte, then the computer's, which are all the others.
struct Pile {
    std::array<Carta, 41> carte{};
    std::int16_t numcarte = 0;
    std::int16_t numdenari = 0;
    bool settebello = falso;
};

Pile elenca_pile(const std::array<std::int16_t, 41>& prese) {
    Pile pile;
    for (Carta c = 1; c <= 40; ++c) {
        if (prese[c] == 0) continue;
        pile.carte[++pile.numcarte] = c;
        if (denaro(c)) ++pile.numdenari;
        if (c == settebello_carta) pile.settebello = vero;
    }
    int k = 0;
    for (Carta c = 1; c <= 40; ++c)
        if (prese[c] == 0) pile.carte[pile.numcarte + ++k] = c;
    return pile;
}

// At the end of a hand every card has been played: the deck dealt out, both
// hands empty, and each card listed once in the two piles.
[[maybe_unused]] bool mano_finita(const Frmlesta& f, const Pile& pile, int turni) {
    bool mani_vuote = true;
    for (int k = 0; k < 3; ++k) mani_vuote = mani_vuote && f.giocate[k + 1] == 1 && f.dorso[k].tag == 0;
    std::array<bool, 41> vista{};
    for (int i = 1; i <= 40; ++i) vista[pile.carte[i]] = true;
    return turni == 36 && f.posizione_mazzo == 22 && mani_vuote &&
           std::all_of(vista.begin() + 1, vista.end(), [](bool v) { return v; });
}

}  // namespace

Task Frmlesta::gioco() {
    apri_mano(*this);

    // The side that did not deal leads each deal, so the dealer plays the
    // sixth card of each.
    const int primo = mod.mazziere == 1 ? 2 : 1;
    int lato = primo;
    [[maybe_unused]] int turni = 0;
    for (;;) {
        inizio_turno(*this, lato);
        ++turni;
        if (lato == 1) {
            racconta([this](Lingua l) {
                const VistaTavolo vista = vista_del_tavolo(*this);
                return frasi::tocca_a_te(l, vista.mano, vista.celle);
            });
            co_await gioco1();
            co_await verifica();
            co_await muovicarte();
        } else {
            co_await ritardo(pausa::prima_del_computer);
            co_await gioco2();
            // Counted before the move, as the player's card is, so that the
            // move knows the last card of the hand (turns/fine_mano.h).
            ++mosse;
            co_await muovicarte();
        }
        lato = 3 - lato;

        if (mosse != 6) continue;
        co_await ritardo(pausa::fine_distribuzione);
        if (posizione_mazzo == 22) break;
        mosse = 0;
        giocate.fill(0);
        daicarte();
        if (posizione_mazzo == 22) {
            // The last deal: the deck is gone from the side of the dealer, who
            // played last.
            const auto y = static_cast<float>(pilay[turno]);
            finestra.BoxFilled(680, y, 680 + larghezza_carta, y + altezza_carta, verde_tavolo);
        }
        lato = primo;
    }

    // What is left on the table goes to the side that captured last; the
    // move is still that of the last card, so it is no sweep.
    const Resto resto = resto_della_mano(tavolo, ultima_presa);
    quante = 0;
    for (int i = 0; i < resto.quante; ++i) metti_in_presa(*this, resto.carte[static_cast<std::size_t>(i)]);
    turno = resto.lato;
    racconta([&resto](Lingua l) {
        return frasi::resto(l, resto.lato, std::span(resto.carte).first(static_cast<std::size_t>(resto.quante)));
    });
    if (resto.quante != 0) co_await muovicarte();
    mano_in_corso = false;

    // Both piles for the score, and the primiera of each.
    const Pile pile = elenca_pile(prese);
    assert(mano_finita(*this, pile, turni));
    std::copy(pile.carte.begin() + 1, pile.carte.end(), mod.carte.begin() + 1);
    mod.numcarte = pile.numcarte;
    mod.numdenari = pile.numdenari;
    mod.settebello = pile.settebello;
    calcsettanta();
    // The table stays on view a moment before the score sheet comes up.
    co_await ritardo(pausa::prima_del_punteggio);
    piattaforma.programma.Show_frmscore();
}

}  // namespace lesta
