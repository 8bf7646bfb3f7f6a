// The capture search and the player's selection: what a played card takes,
// for the computer and for the player, and which selections the turn
// accepts, against a brute-force reading of the rules on random tables.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
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

    void gioca(Carta c, int turno) {
        frm.turno = static_cast<std::int16_t>(turno);
        frm.carta_giocata = c;
        frm.valore_giocata = static_cast<std::int16_t>(valore(c));
        frm.quante = 0;
        frm.somma = 0;
        frm.presa.fill(0);
    }
    std::vector<Carta> segnate() const {
        std::vector<Carta> v;
        for (int r = 1; r <= 3; ++r)
            for (int k = 1; k <= 4; ++k)
                if (const Carta c = frm.tavolo[r][k]; c != 0 && frm.carta[c].tag == Tag::SEL) v.push_back(c);
        return v;
    }
    void clic(Carta c) {
        frm.Form_MouseDown(frm.carta[c].Left + frm.larghezza_carta / 2, frm.carta[c].Top + frm.altezza_carta / 2);
    }
};

// ---- the search ----

struct CasoCombina {
    const char* nome;
    Griglia tavolo;
    Carta giocata;
    // What the computer takes: entries 1..quante of the list, 0 for a hole;
    // empty when the card takes nothing.
    std::vector<Carta> presa;
    bool singola = false;  // the capture is of a card of equal value
    bool troppe = false;   // more than eight candidates: no sum is searched
};

const CasoCombina casi_combina[] = {
    {"an equal card before a sum", {0, 0, 0, 0, 22, 5, 33, 0}, 15, {5}, true},
    {"the first equal card in scan order", {0, 0, 0, 25, 0, 0, 0, 0, 5}, 35, {25}, true},
    {"the earliest equal card even over the seven of coins", {0, 17, 0, 0, 0, 0, 0, 0, 0, 0, 0, 7}, 27, {17}, true},
    {"mask order: 4 2 3 1 for a 5", {4, 0, 12, 0, 0, 23, 0, 0, 31}, 35, {0, 12, 23, 0}},
    {"the subset whose last card comes first", {2, 12, 21, 3}, 15, {2, 12, 21, 0}},
    {"two candidates that do not add up", {0, 0, 0, 0, 2, 14}, 5, {}},
    {"two candidates that add up", {0, 0, 0, 0, 2, 13}, 5, {2, 13}},
    {"an Ace on a table without an Ace", {5, 6, 0, 0, 0, 0, 0, 0, 0, 0, 38}, 1, {}},
    {"a 2 on three Aces", {1, 0, 11, 0, 0, 0, 0, 0, 0, 0, 0, 21}, 2, {1, 11, 0}},
    {"a King on 4 6 9", {4, 16, 29}, 10, {4, 16, 0}},
    {"a King takes a King", {4, 16, 0, 0, 0, 0, 30}, 10, {30}, true},
    {"a King on the table is no candidate", {0, 20, 3, 14}, 7, {3, 14}},
    {"candidates adding up to less", {2, 3}, 6, {}},
    {"a single smaller card", {3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, 26, {}},
    {"the empty table", {}, 7, {}},
    {"1 2 3 4 and a 6: mask 7", {1, 2, 3, 4}, 16, {1, 2, 3, 0}},
    {"no subset adds up", {4, 14, 6}, 9, {}},
    {"eight candidates, the last one needed",
     {4, 14, 24, 34, 6, 16, 26, 5},
     9,
     {4, 0, 0, 0, 0, 0, 0, 5}},
    {"eight candidates and a King", {4, 14, 24, 34, 6, 16, 26, 5, 20}, 9, {4, 0, 0, 0, 0, 0, 0, 5}},
    {"nine candidates", {4, 14, 24, 34, 6, 16, 26, 5, 3}, 9, {}, false, true},
    {"nine small cards and a sum among them", {1, 11, 21, 31, 2, 12, 22, 32, 3}, 10, {}, false, true},
    {"nine cards, but an equal one", {1, 11, 21, 31, 2, 12, 22, 32, 3, 40}, 10, {40}, true},
};

TEST(Cattura, IlComputerPrendeCioCheLaRicercaTrova) {
    for (const auto& caso : casi_combina) {
        SCOPED_TRACE(caso.nome);
        Banco<FinestraRaster> b;
        b.tavolo(caso.tavolo);
        b.gioca(caso.giocata, 2);
        b.frm.combina();

        if (caso.presa.empty()) {
            EXPECT_EQ(b.frm.carta_giocata, caso.troppe ? caso.giocata : 0);
            EXPECT_EQ(b.frm.quante, 0);
            EXPECT_TRUE(b.segnate().empty());
            continue;
        }
        EXPECT_EQ(b.frm.carta_giocata, caso.giocata);
        ASSERT_EQ(b.frm.quante, static_cast<int>(caso.presa.size()));
        std::vector<Carta> prese;
        for (int i = 1; i <= b.frm.quante; ++i) {
            const Carta c = b.frm.presa[i];
            EXPECT_EQ(c, caso.presa[static_cast<std::size_t>(i - 1)]) << "entry " << i;
            if (c == 0) continue;
            prese.push_back(c);
            EXPECT_EQ(b.frm.presax[i], std::nearbyint(b.frm.carta[c].Left));
            EXPECT_EQ(b.frm.presay[i], std::nearbyint(b.frm.carta[c].Top));
            // The red outline inside the card.
            EXPECT_EQ(b.finestra.Point(b.frm.carta[c].Left + 3, b.frm.carta[c].Top + 20), rosso);
        }
        EXPECT_EQ(b.segnate(), prese);
    }
}

TEST(Cattura, PerIlGiocatoreLaRicercaDiceSoloSeLaPresaEsiste) {
    for (const auto& caso : casi_combina) {
        SCOPED_TRACE(caso.nome);
        Banco<FinestraRaster> b;
        b.tavolo(caso.tavolo);
        b.gioca(caso.giocata, 1);
        b.frm.combina();
        EXPECT_EQ(b.frm.trovata, !caso.presa.empty());
        EXPECT_EQ(b.frm.singola, caso.singola);
        if (caso.singola) {
            EXPECT_EQ(b.frm.quante, 1);
        }
        if (caso.troppe) {
            EXPECT_EQ(b.frm.quante, 0);
        }
        EXPECT_EQ(b.frm.carta_giocata, caso.giocata);
        EXPECT_TRUE(b.segnate().empty());
        if (std::all_of(caso.tavolo.begin(), caso.tavolo.end(), [](Carta c) { return c == 0; })) {
            EXPECT_EQ(b.frm.vuote, 12);
        }
    }
}

TEST(Cattura, LePosizioniSonoArrotondateAlPari) {
    struct Caso {
        float left, top;
        std::int16_t x, y;
    };
    for (const Caso& caso : {Caso{300.5f, 100.5f, 300, 100}, Caso{301.5f, 101.5f, 302, 102},
                             Caso{299.49f, 99.51f, 299, 100}}) {
        for (Carta giocata : {Carta{25}, Carta{38}}) {  // the equal card, and a sum
            Banco<FinestraNulla> b;
            b.tavolo({5, 0, 0, 0, 0, 3});
            b.frm.carta[5].Left = caso.left;
            b.frm.carta[5].Top = caso.top;
            b.gioca(giocata, 2);
            b.frm.combina();
            ASSERT_GE(b.frm.quante, 1);
            EXPECT_EQ(b.frm.presa[1], 5);
            EXPECT_EQ(b.frm.presax[1], caso.x) << caso.left;
            EXPECT_EQ(b.frm.presay[1], caso.y) << caso.top;
        }
    }
}

// ---- the player's selection ----

TEST(Cattura, SenzaPresaLaCartaVaSulTavoloSenzaAttendere) {
    Banco<FinestraRaster> b;
    b.tavolo({0, 0, 0, 0, 2, 14});
    // An outline left from an earlier turn is wiped.
    const auto& due = b.frm.carta[2];
    b.finestra.Box(due.Left + 3, due.Top + 3, due.Left + 50, due.Top + 50, rosso);
    b.gioca(5, 1);
    b.frm.modo = Modo::gioco1;
    Task t = b.frm.verifica();
    t.start();
    ASSERT_TRUE(t.done());
    EXPECT_EQ(b.frm.quante, 0);
    EXPECT_EQ(b.frm.somma, 0);
    EXPECT_EQ(b.frm.modo, Modo::vuoto);
    EXPECT_EQ(b.finestra.Point(due.Left + 3, due.Top + 20), bianco);
    EXPECT_EQ(b.orologio.pause(), 1);
    EXPECT_EQ(b.orologio.millisecondi(), 325);
}

TEST(Cattura, UnaCartaUgualeVaPresaDaSola) {
    Banco<FinestraRaster> b;
    b.tavolo({0, 0, 0, 0, 22, 5, 33, 0});
    b.gioca(15, 1);
    Task t = b.frm.verifica();
    t.start();
    ASSERT_FALSE(t.done());
    EXPECT_EQ(b.frm.modo, Modo::selezione);
    // 2 + 3 adds up, and is refused without a word.
    b.clic(22);
    b.clic(33);
    b.orologio.sveglia();
    EXPECT_FALSE(t.done());
    EXPECT_EQ(b.frm.somma, 5);
    EXPECT_EQ(b.frm.quante, 2);
    // The 5 with them is refused too.
    b.clic(5);
    b.orologio.sveglia();
    EXPECT_FALSE(t.done());
    b.clic(22);
    b.clic(33);
    b.orologio.sveglia();
    ASSERT_TRUE(t.done());
    EXPECT_EQ(b.frm.quante, 1);
    EXPECT_EQ(b.frm.presa[1], 5);
    EXPECT_EQ(b.frm.carta[5].tag, Tag::SEL);  // kept for the move
    EXPECT_EQ(b.frm.modo, Modo::vuoto);
    // Clicks after the turn change nothing.
    b.clic(22);
    EXPECT_EQ(b.frm.carta[22].tag, Tag::vuoto);
}

TEST(Cattura, OgniSommaGiustaPassaNonSoloQuellaDellaRicerca) {
    Banco<FinestraNulla> b;
    b.tavolo({1, 2, 3, 4});
    b.gioca(16, 1);
    Task t = b.frm.verifica();
    t.start();
    ASSERT_FALSE(t.done());
    b.clic(2);
    b.clic(4);
    b.orologio.sveglia();
    ASSERT_TRUE(t.done());
    EXPECT_EQ(b.frm.quante, 2);
    EXPECT_EQ(b.frm.presa[1], 2);
    EXPECT_EQ(b.frm.presa[2], 4);
    EXPECT_EQ(b.frm.somma, 6);
}

// The rules read straight, by trying every subset of the table: a card of
// equal value alone if there is one; else two or more cards adding up to the
// played card, unless more than eight cards could enter a sum.
bool lecita(const std::vector<Carta>& tavolo, Carta giocata, const std::vector<Carta>& scelta) {
    const int v = valore(giocata);
    const bool uguale = std::any_of(tavolo.begin(), tavolo.end(), [&](Carta c) { return valore(c) == v; });
    if (uguale) return scelta.size() == 1 && valore(scelta[0]) == v;
    const auto candidate = std::count_if(tavolo.begin(), tavolo.end(), [&](Carta c) { return valore(c) < v; });
    if (candidate > 8) return false;
    int somma = 0;
    for (Carta c : scelta) somma += valore(c);
    return scelta.size() >= 2 && somma == v;
}

TEST(Cattura, LaVerificaAccettaEsattamenteLePreseLecite) {
    std::mt19937 caso(2024);
    int tavoli_con_presa = 0, accettate = 0, rifiutate = 0;
    for (int prova = 0; prova < 700; ++prova) {
        Banco<FinestraNulla> b;
        std::vector<Carta> mazzo(40);
        for (int i = 0; i < 40; ++i) mazzo[static_cast<std::size_t>(i)] = static_cast<Carta>(i + 1);
        std::shuffle(mazzo.begin(), mazzo.end(), caso);
        const Carta giocata = mazzo.back();
        std::vector<int> celle(12);
        for (int i = 0; i < 12; ++i) celle[static_cast<std::size_t>(i)] = i;
        std::shuffle(celle.begin(), celle.end(), caso);
        const auto n = std::uniform_int_distribution<std::size_t>(0, 12)(caso);
        Griglia g{};
        for (std::size_t i = 0; i < n; ++i) g[static_cast<std::size_t>(celle[i])] = mazzo[i];
        b.tavolo(g);
        std::vector<Carta> tavolo;  // in scan order
        for (Carta c : g)
            if (c != 0) tavolo.push_back(c);

        // Every subset on a small table, a sample of them on a large one.
        std::vector<unsigned> maschere;
        if (n <= 9) {
            for (unsigned m = 0; m < (1u << n); ++m) maschere.push_back(m);
        } else {
            for (int i = 0; i < 600; ++i)
                maschere.push_back(std::uniform_int_distribution<unsigned>(0, (1u << n) - 1)(caso));
        }
        bool esiste = false;
        for (unsigned m = 0; m < (1u << n); ++m) {
            std::vector<Carta> s;
            for (std::size_t i = 0; i < n; ++i)
                if (m >> i & 1u) s.push_back(tavolo[i]);
            esiste |= lecita(tavolo, giocata, s);
        }

        auto avvia = [&] {
            b.gioca(giocata, 1);
            Task t = b.frm.verifica();
            t.start();
            return t;
        };
        Task t = avvia();
        if (!esiste) {
            EXPECT_TRUE(t.done()) << "the card has no capture and the turn waits";
            EXPECT_EQ(b.frm.quante, 0);
            continue;
        }
        ++tavoli_con_presa;
        ASSERT_FALSE(t.done()) << "the card has a capture and the turn goes on";
        for (unsigned m : maschere) {
            std::vector<Carta> s;
            for (std::size_t i = 0; i < n; ++i)
                if (m >> i & 1u) s.push_back(tavolo[i]);
            // Click the difference between the marks and the subset, then
            // let the turn look.
            for (Carta c : tavolo)
                if ((b.frm.carta[c].tag == Tag::SEL) != (std::count(s.begin(), s.end(), c) != 0)) b.clic(c);
            ASSERT_EQ(b.segnate(), s);
            b.orologio.sveglia();
            const bool attesa = lecita(tavolo, giocata, s);
            ASSERT_EQ(t.done(), attesa) << "played " << giocata << ", selection of " << s.size();
            if (!attesa) {
                ++rifiutate;
                continue;
            }
            ++accettate;
            EXPECT_EQ(b.frm.quante, static_cast<int>(s.size()));
            EXPECT_TRUE(std::equal(s.begin(), s.end(), b.frm.presa.begin() + 1));
            for (Carta c : s) b.frm.carta[c].tag = Tag::vuoto;
            t = avvia();
        }
        // A turn left waiting is finished with a legal selection.
        if (!t.done()) {
            for (unsigned m = 1; m < (1u << n) && !t.done(); ++m) {
                std::vector<Carta> s;
                for (std::size_t i = 0; i < n; ++i)
                    if (m >> i & 1u) s.push_back(tavolo[i]);
                if (!lecita(tavolo, giocata, s)) continue;
                for (Carta c : tavolo)
                    if ((b.frm.carta[c].tag == Tag::SEL) != (std::count(s.begin(), s.end(), c) != 0)) b.clic(c);
                b.orologio.sveglia();
            }
            EXPECT_TRUE(t.done());
        }
    }
    EXPECT_GT(tavoli_con_presa, 300);
    EXPECT_GT(accettate, 400);
    EXPECT_GT(rifiutate, 50000);
}

}  // namespace
}  // namespace lesta
