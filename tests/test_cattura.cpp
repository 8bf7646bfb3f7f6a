// SPDX-License-Identifier: GPL-3.0-or-later
// The capture search on the table alone, and the player's capture: which
// selections the turn accepts and what the search takes for the computer,
// against a brute-force reading of the rules on random tables. The
// computer's choice of a card is tested in test_computer.cpp.

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "banco.h"
#include "turns/fine_mano.h"
#include "turns/presa.h"

namespace lesta {
namespace {

using prova::Griglia;

// A table with the cards at their starting size, in the table colour.
template <class F>
struct Banco : prova::Banco<F> {
    using prova::Banco<F>::frm;
    Banco() : prova::Banco<F>(1, 0.75f) { this->tavolo_verde(); }

    // The search for a card played by the given side.
    void gioca(Carta c, int turno) {
        frm.turno = static_cast<std::int16_t>(turno);
        frm.carta_giocata = c;
        frm.valore_giocata = static_cast<std::int16_t>(valore(c));
        frm.quante = 0;
        frm.combina();
    }
    Task verifica(Carta c) {
        gioca(c, 1);  // the turn searches again
        Task t = frm.verifica();
        t.start();
        return t;
    }
    std::vector<Carta> segnate() const {
        std::vector<Carta> v;
        for (const auto& riga : frm.tavolo)
            for (Carta c : riga)
                if (c != 0 && frm.carta[c].tag == Tag::SEL) v.push_back(c);
        return v;
    }
    std::vector<Carta> lista() const { return {frm.presa.begin() + 1, frm.presa.begin() + 1 + frm.quante}; }
    void clic(Carta c) {
        frm.Form_MouseDown(frm.carta[c].Left + frm.larghezza_carta / 2, frm.carta[c].Top + frm.altezza_carta / 2);
    }
};

Tavolo griglia(const Griglia& g) {
    Tavolo t{};
    for (std::size_t i = 0; i < 12; ++i) t[i / 4 + 1][i % 4 + 1] = g[i];
    return t;
}

// What the search finds, and what it leaves in the fields whatever the side
// does with it: the empty cells it passed, the cards it looked at, their sum.
TEST(Ricerca, CosaTrovaECosaLasciaContato) {
    struct Caso {
        Griglia tavolo;
        Carta giocata;
        TipoPresa tipo;
        int vuote;
        std::vector<Carta> candidati;
        int somma;
        unsigned maschera;
    };
    using enum TipoPresa;
    const Caso casi[] = {
        {{0, 0, 15, 0, 0, 5}, 25, uguale, 2, {15}, 0, 1},                        // no count past the equal card
        {{}, 7, vuoto, 12, {}, 0, 0},                                            // an empty table
        {{20, 3, 14}, 7, somma, 9, {3, 14}, 7, 3},                               // a King is no candidate
        {{4, 0, 12, 0, 0, 23, 0, 0, 31}, 35, somma, 8, {4, 12, 23, 31}, 10, 6},  // the first mask: 2 + 3
        {{4, 14, 6}, 9, nessuna, 9, {4, 14, 6}, 14, 0},                          // enough in all, no subset
        {{2, 3}, 6, nessuna, 10, {2, 3}, 5, 0},                                  // short of the value
        {{1, 11, 21, 31, 2, 12, 22, 32, 3}, 10, troppe, 3, {1, 11, 21, 31, 2, 12, 22, 32, 3}, 15, 0},  // nine
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(&caso - casi);
        const PresaCercata p = cerca_presa(griglia(caso.tavolo), caso.giocata, valore(caso.giocata));
        EXPECT_EQ(p.tipo, caso.tipo);
        EXPECT_EQ(p.vuote, caso.vuote);
        EXPECT_EQ(std::vector<Carta>(p.candidati.begin(), p.candidati.begin() + p.quante), caso.candidati);
        EXPECT_EQ(p.somma, caso.somma);
        EXPECT_EQ(p.maschera, caso.maschera);
    }
}

TEST(Cattura, SenzaPresaLaCartaVaSulTavoloSenzaAttendere) {
    Banco<FinestraRaster> b;
    b.tavolo({0, 0, 0, 0, 2, 14});
    const auto& due = b.frm.carta[2];
    b.finestra.Box(due.Left + 3, due.Top + 3, due.Left + 50, due.Top + 50, rosso);  // left from an earlier turn
    ASSERT_TRUE(b.verifica(5).done());
    EXPECT_EQ(b.finestra.Point(due.Left + 3, due.Top + 20), bianco);
    EXPECT_EQ(b.orologio.millisecondi(), 325);
}

// The 36 moves of a hand as the hand loop counts them, deal d with the deck at
// 4 + 3d and the move's own card counted in `mosse`: only the 36th is the
// last card, and it alone sweeps nothing; the gathering after it counts as
// that same card. Nothing sweeps a table that is not left empty.
TEST(FineMano, SoloLUltimaCartaNonFaLesta) {
    for (int d = 1; d <= 6; ++d)
        for (int mosse = 1; mosse <= 6; ++mosse) {
            const int posizione = 4 + 3 * d;
            const bool ultima = d == 6 && mosse == 6;
            EXPECT_EQ(ultima_carta_della_mano(posizione, mosse), ultima) << d << " " << mosse;
            EXPECT_EQ(fa_lesta(12, posizione, mosse), !ultima) << d << " " << mosse;
            for (int vuote = 0; vuote < 12; ++vuote) EXPECT_FALSE(fa_lesta(vuote, posizione, mosse));
        }
}

// What is left goes in scan order to the side that took last, whoever played
// the last card; an empty table gives nothing to move.
TEST(FineMano, IlRestoAChiHaPresoPerUltimo) {
    for (std::int16_t lato : {1, 2}) {
        const Resto resto = resto_della_mano(griglia({0, 9, 0, 0, 31, 0, 0, 2, 0, 0, 0, 40}), lato);
        EXPECT_EQ(resto.lato, lato);
        EXPECT_EQ(std::vector<Carta>(resto.carte.begin(), resto.carte.begin() + resto.quante),
                  (std::vector<Carta>{9, 31, 2, 40}));
        EXPECT_EQ(resto_della_mano(griglia({}), lato).quante, 0);
    }
}

// The rules read straight: a card of equal value alone if there is one; else
// two or more cards adding up to the played card, unless more than eight
// cards could enter a sum.
bool lecita(const std::vector<Carta>& tavolo, Carta giocata, const std::vector<Carta>& scelta) {
    const int v = valore(giocata);
    if (std::any_of(tavolo.begin(), tavolo.end(), [&](Carta c) { return valore(c) == v; }))
        return scelta.size() == 1 && valore(scelta[0]) == v;
    if (std::count_if(tavolo.begin(), tavolo.end(), [&](Carta c) { return valore(c) < v; }) > 8) return false;
    int somma = 0;
    for (Carta c : scelta) somma += valore(c);
    return scelta.size() >= 2 && somma == v;
}

TEST(Cattura, LaVerificaAccettaEsattamenteLePreseLecite) {
    std::mt19937 caso(2024);
    for (int prova = 0; prova < 700; ++prova) {
        Banco<FinestraNulla> b;
        std::array<Carta, 40> mazzo;
        std::iota(mazzo.begin(), mazzo.end(), Carta{1});
        std::shuffle(mazzo.begin(), mazzo.end(), caso);
        const unsigned n = caso() % 13;
        Griglia g{};
        std::copy_n(mazzo.begin(), n, g.begin());
        std::shuffle(g.begin(), g.end(), caso);
        b.tavolo(g);
        std::vector<Carta> tavolo;  // in scan order
        std::copy_if(g.begin(), g.end(), std::back_inserter(tavolo), [](Carta c) { return c; });
        const Carta giocata = mazzo.back();
        auto scelta = [&](unsigned m) {
            std::vector<Carta> s;
            for (unsigned i = 0; i < n; ++i)
                if (m >> i & 1u) s.push_back(tavolo[i]);
            return s;
        };
        // Every subset on a small table, a sample of them on a large one.
        std::vector<unsigned> lecite, prove;
        for (unsigned m = 0; m < (1u << n); ++m) {
            if (lecita(tavolo, giocata, scelta(m))) lecite.push_back(m);
            if (n <= 9 || caso() % 8 == 0) prove.push_back(m);
        }
        // The search takes the first legal capture in the order of the
        // subsets of the table in scan order: the one whose last card comes
        // earliest, and so on back.
        const PresaCercata p = cerca_presa(b.frm.tavolo, giocata, valore(giocata));
        const bool presa = p.tipo == TipoPresa::uguale || p.tipo == TipoPresa::somma;
        ASSERT_EQ(presa, !lecite.empty()) << "played " << giocata << " on " << n << " cards";
        if (presa) {
            std::vector<Carta> presi;
            for (int i = 0; i < p.quante; ++i)
                if (p.maschera >> i & 1u) presi.push_back(p.candidati[static_cast<std::size_t>(i)]);
            EXPECT_EQ(presi, scelta(lecite.front())) << "played " << giocata << " on " << n << " cards";
        }

        Task t = b.verifica(giocata);
        ASSERT_EQ(t.done(), lecite.empty()) << "played " << giocata << " on " << n << " cards";
        if (t.done()) continue;
        EXPECT_TRUE(b.segnate().empty());  // for the player the search marks nothing
        prove.push_back(lecite.front());   // the turn ends with a legal capture
        for (std::size_t i = 0; i < prove.size(); ++i) {
            const auto s = scelta(prove[i]);
            for (Carta c : tavolo)
                if ((b.frm.carta[c].tag == Tag::SEL) != (std::count(s.begin(), s.end(), c) != 0)) b.clic(c);
            b.orologio.sveglia();
            ASSERT_EQ(t.done(), lecita(tavolo, giocata, s)) << "played " << giocata << ", " << s.size() << " marked";
            if (!t.done()) continue;
            EXPECT_EQ(b.frm.modo, Modo::vuoto);
            EXPECT_EQ(b.lista(), s);
            EXPECT_EQ(b.segnate(), s);  // kept for the move
            for (Carta c : s) b.frm.carta[c].tag = Tag::vuoto;
            if (i + 1 < prove.size()) t = b.verifica(giocata);
        }
    }
}

}  // namespace
}  // namespace lesta
