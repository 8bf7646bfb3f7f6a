// The player's capture: which selections the turn accepts, against a
// brute-force reading of the rules on random tables; and the positions the
// capture search lists for the move. The search's choices are tested with
// the computer's choice of a card, in test_computer.cpp.

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "banco.h"

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

TEST(Cattura, SenzaPresaLaCartaVaSulTavoloSenzaAttendere) {
    Banco<FinestraRaster> b;
    b.tavolo({0, 0, 0, 0, 2, 14});
    const auto& due = b.frm.carta[2];
    b.finestra.Box(due.Left + 3, due.Top + 3, due.Left + 50, due.Top + 50, rosso);  // left from an earlier turn
    ASSERT_TRUE(b.verifica(5).done());
    EXPECT_EQ(b.finestra.Point(due.Left + 3, due.Top + 20), bianco);
    EXPECT_EQ(b.orologio.millisecondi(), 325);
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
        Task t = b.verifica(giocata);
        ASSERT_EQ(t.done(), lecite.empty()) << "played " << giocata << " on " << n << " cards";
        if (t.done()) continue;
        EXPECT_TRUE(b.segnate().empty());  // for the player the search marks nothing
        prove.push_back(lecite.front());  // the turn ends with a legal capture
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
