// SPDX-License-Identifier: GPL-3.0-or-later
// The capture search and the computer's choice of a card, and the move
// carried out on the table: laying a card, the capture's stack and slide,
// the pile, sweeps, and a card that finds the grid full.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include "banco.h"
#include "match/geometria.h"

namespace lesta {
namespace {

using prova::Griglia;
using Pause = std::vector<std::int64_t>;

// A table with the cards at their starting size, in the table colour, that
// writes down the length of every pause.
struct Banco : prova::Banco<FinestraRaster> {
    Banco() : prova::Banco<FinestraRaster>(1, 0.75f) {
        orologio.al_timer2 = [this] {
            pause.push_back(orologio.millisecondi() - tempo);
            tempo = orologio.millisecondi();
            frm.Timer2_Timer();
            if (in_pausa) in_pausa();
        };
        frm.pilay = {0, static_cast<std::int32_t>(std::nearbyint(2 * frm.meta_altezza - frm.altezza_carta - 5)), 5};
        tavolo_verde();
    }
    // The computer's three slots, 0 for a card already played.
    void mano(const std::array<Carta, 3>& carte) {
        for (std::size_t i = 0; i < 3; ++i) {
            const float x = sinistra_mano(static_cast<int>(i), frm.larghezza_carta);
            frm.dorso[i] = {x, alto_mano_computer, carte[i]};
            if (carte[i] != 0)
                finestra.PaintPicture(Figura::Dorso, x, alto_mano_computer, frm.larghezza_carta, frm.altezza_carta);
        }
    }
    // A card shown on the spot of the card in play, about to be moved, with
    // the list of what it takes, 0 for a hole.
    void in_gioco(Carta c, int turno, const std::vector<Carta>& prese = {}) {
        frm.turno = static_cast<std::int16_t>(turno);
        frm.carta_giocata = c;
        auto& g = frm.carta[c];
        g.Left = sinistra_in_gioco(frm.meta_larghezza);
        g.Top = alto_in_gioco(frm.meta_altezza, frm.altezza_carta);
        finestra.PaintPicture(faccia(c), g.Left, g.Top, frm.larghezza_carta, frm.altezza_carta);
        frm.quante = 0;
        for (Carta p : prese) {
            frm.presa[++frm.quante] = p;
            frm.carta[p].tag = p != 0 ? Tag::SEL : Tag::vuoto;
            frm.presax[frm.quante] = static_cast<std::int16_t>(std::nearbyint(frm.carta[p].Left));
            frm.presay[frm.quante] = static_cast<std::int16_t>(std::nearbyint(frm.carta[p].Top));
        }
    }
    bool esegui(Task t) { return t.start(), t.done(); }

    Pause pause;  // the length of every pause, in ms
    std::int64_t tempo = 0;
    std::function<void()> in_pausa;
};

std::vector<Carta> senza_buchi(std::vector<Carta> v) {
    std::erase(v, Carta{0});
    return v;
}

// ---- the computer's choice ----

struct CasoComputer {
    Griglia tavolo;
    std::array<Carta, 3> mano;
    std::vector<float> estrazioni;  // draws put in front of the stream
    int slot;
    // What it takes: entries 1..quante of the list, 0 for a hole; empty when
    // the card is laid.
    std::vector<Carta> presa;
};

const CasoComputer casi_computer[] = {
    // The capture search, for a lone card.
    {{0, 0, 0, 0, 22, 5, 33}, {15}, {}, 0, {5}},                                // an equal card before a sum
    {{0, 0, 0, 25, 0, 0, 0, 0, 5}, {35}, {}, 0, {25}},                          // the first equal in scan order
    {{0, 17, 0, 0, 0, 0, 0, 0, 0, 0, 0, 7}, {27}, {}, 0, {17}},                 // ... even over the 7 of coins
    {{4, 0, 12, 0, 0, 23, 0, 0, 31}, {35}, {}, 0, {0, 12, 23, 0}},              // mask order: 4 2 3 1 for a 5
    {{2, 12, 21, 3}, {15}, {}, 0, {2, 12, 21, 0}},                              // the subset ending first
    {{0, 0, 0, 0, 2, 14}, {5}, {0.1f}, 0, {}},                                  // two that do not add up
    {{0, 0, 0, 0, 2, 13}, {5}, {}, 0, {2, 13}},                                 // two that add up
    {{1, 0, 11, 0, 0, 0, 0, 0, 0, 0, 0, 21}, {2}, {}, 0, {1, 11, 0}},           // a 2 on three Aces
    {{4, 16, 29}, {10}, {}, 0, {4, 16, 0}},                                     // a King on 4 6 9
    {{4, 16, 0, 0, 0, 0, 30}, {10}, {}, 0, {30}},                               // a King takes a King
    {{0, 20, 3, 14}, {7}, {}, 0, {3, 14}},                                      // a King is no candidate
    {{2, 3}, {6}, {0.1f}, 0, {}},                                               // adding up to less
    {{4, 14, 6}, {9}, {0.1f}, 0, {}},                                           // no subset adds up
    {{3}, {26}, {0.1f}, 0, {}},                                                 // a single smaller card
    {{}, {7}, {0.1f}, 0, {}},                                                   // the empty table
    {{4, 14, 24, 34, 6, 16, 26, 5}, {9}, {}, 0, {4, 0, 0, 0, 0, 0, 0, 5}},      // eight, the last needed
    {{4, 14, 24, 34, 6, 16, 26, 5, 20}, {9}, {}, 0, {4, 0, 0, 0, 0, 0, 0, 5}},  // eight and a King
    {{4, 14, 24, 34, 6, 16, 26, 5, 3}, {9}, {}, 0, {}},                         // nine candidates: no sum
    {{1, 11, 21, 31, 2, 12, 22, 32, 3}, {10}, {}, 0, {}},                       // nine, a sum among them
    {{1, 11, 21, 31, 2, 12, 22, 32, 3, 40}, {10}, {}, 0, {40}},                 // nine, but an equal one
    // The choice of a card.
    {{7, 13}, {23, 35, 10}, {}, 0, {13}},                         // the first slot that captures, not a sweep
    {{7, 13}, {0, 35, 10}, {}, 2, {7, 13}},                       // a played slot is passed over
    {{1, 11, 21, 31, 2, 12, 22, 32, 3}, {17, 33, 0}, {}, 0, {}},  // too many candidates: laid at once
    {{}, {4, 16, 28}, {0.5f}, 1, {}},                             // the empty table: a throw
    {{20}, {4, 0, 16}, {0.4f, 0.9f}, 2, {}},                      // a draw on a played slot is used up
    {{20}, {7, 17, 0}, {0.1f, 0.5f}, 1, {}},                      // a seven is held back
    {{3}, {27, 0, 40}, {0.1f, 0.2f, 0.9f}, 2, {}},                // a seven and a King: the King
    {{20}, {0, 7, 0}, {0.1f, 0.5f}, 1, {}},                       // a seven alone is thrown
    {{20}, {7, 27, 0}, {0.0f, 0.1f, 0.5f}, 1, {}},                // only sevens: not the seven of coins
    {{20}, {17, 27, 37}, {0.1f}, 0, {}},                          // only sevens without it: any
    {{20}, {17, 27, 37}, {0.99999994f}, 2, {}},                   // the last draw of the stream
};

TEST(Computer, RicercaESceltaDellaCarta) {
    for (const auto& caso : casi_computer) {
        SCOPED_TRACE(&caso - casi_computer);
        Banco b;
        b.tavolo(caso.tavolo);
        for (Carta c : caso.tavolo)  // marks and outlines left from the player's turn
            if (auto& t = b.frm.carta[c]; c != 0) {
                t.tag = Tag::SEL;
                b.finestra.Box(t.Left + 3, t.Top + 3, t.Left + 30, t.Top + 60, rosso);
            }
        b.mano(caso.mano);
        for (float u : caso.estrazioni) b.casuale.metti(u);
        b.frm.turno = 2;
        ASSERT_TRUE(b.esegui(b.frm.gioco2()));

        const auto slot = static_cast<std::size_t>(caso.slot);
        EXPECT_EQ(b.frm.carta_giocata, caso.mano[slot]);
        EXPECT_EQ(b.casuale.estrazioni(), static_cast<int>(caso.estrazioni.size()));
        EXPECT_EQ(std::vector<Carta>(b.frm.presa.begin() + 1, b.frm.presa.begin() + 1 + b.frm.quante), caso.presa);
        const auto prese = senza_buchi(caso.presa);
        for (Carta c : caso.tavolo) {
            const bool presa = std::count(prese.begin(), prese.end(), c) != 0;
            EXPECT_EQ(b.frm.carta[c].tag == Tag::SEL, presa) << c;
            EXPECT_EQ(b.finestra.Point(b.frm.carta[c].Left + 3, b.frm.carta[c].Top + 20) == rosso, presa) << c;
        }
        // Shown on the spot of the card in play and gone from the hand,
        // between two pauses of 2 units.
        EXPECT_EQ(b.finestra.figura_a(b.frm.meta_larghezza + 190, b.frm.meta_altezza), caso.mano[slot]);
        EXPECT_EQ(b.finestra.Point(b.frm.dorso[slot].Left + 10, 20), verde_tavolo);
        EXPECT_EQ(b.pause, (Pause{650, 650}));
    }
}

// ---- the move ----

TEST(Muovi, LaCartaPosataVaInUnaCellaVuotaEstrattaACaso) {
    Banco b;
    b.tavolo({0, 0, 0, 0, 1, 2, 3, 4});
    b.in_gioco(35, 2);
    // Row 2 column 1 is taken and costs both draws; then row 1, column 4.
    for (float u : {0.5f, 0.1f, 0.2f, 0.99f}) b.casuale.metti(u);
    ASSERT_TRUE(b.esegui(b.frm.muovicarte()));
    EXPECT_EQ(b.casuale.estrazioni(), 4);
    EXPECT_EQ(b.frm.tavolo[1][4], 35);
    EXPECT_EQ(b.finestra.figura_a(b.cella_x(4) + 5, b.cella_y(1) + 5), 35);
    EXPECT_EQ(b.finestra.Point(b.frm.meta_larghezza + 180, b.frm.meta_altezza), verde_tavolo);
    EXPECT_EQ(b.frm.vuote, 7);
    EXPECT_TRUE(b.pause.empty());
}

// Twelve cards of 6 to 9 leave no capture to a card of 1 to 5.
constexpr Griglia pieno{6, 16, 26, 36, 7, 17, 27, 37, 8, 18, 28, 38};

struct CasoPresa {
    Griglia tavolo;
    Carta giocata;
    int turno;
    std::vector<Carta> presa;  // the list handed to the move, 0 for a hole
    Pause pause;
};

// 1 unit before each entry rises, 2 for the stack, 1 before turning it over,
// 2 turned over, 2 with the lamp lit beside the pile.
const CasoPresa casi_presa[] = {
    {{0, 0, 0, 0, 22, 5, 33}, 15, 1, {5}, {325, 650, 325, 650, 650}},
    {{4, 0, 12, 0, 0, 23, 0, 0, 31}, 35, 2, {0, 12, 23, 0}, {325, 325, 325, 325, 650, 325, 650, 650}},
    {pieno, 4, 1, {}, {325, 650, 650}},  // nothing to take and no room: to the side's own pile
    {pieno, 4, 2, {}, {325, 650, 650}},
};

TEST(Muovi, LaPresaSaleScivolaEVaAllaPila) {
    for (const auto& caso : casi_presa) {
        SCOPED_TRACE(&caso - casi_presa);
        Banco b;
        b.tavolo(caso.tavolo);
        b.in_gioco(caso.giocata, caso.turno, caso.presa);
        b.frm.ultima_presa = static_cast<std::int16_t>(3 - caso.turno);
        const auto prese = senza_buchi(caso.presa);
        const float x = b.frm.carta[caso.giocata].Left, y = b.frm.carta[caso.giocata].Top, h = b.frm.altezza_carta;
        std::vector<bool> lampada, contata, attese(caso.pause.size(), false);
        b.in_pausa = [&] {
            lampada.push_back(b.frm.Visible(Controllo::Led));
            contata.push_back(b.frm.prese[caso.giocata] != 0);
        };
        ASSERT_TRUE(b.esegui(b.frm.muovicarte()));

        EXPECT_EQ(b.pause, caso.pause);
        EXPECT_EQ(contata, attese);  // the player's cards are counted once on the pile
        attese.back() = true;
        EXPECT_EQ(lampada, attese);
        EXPECT_FALSE(b.frm.Visible(Controllo::Led));
        EXPECT_EQ(b.finestra.figura_a(105, b.frm.pilay[caso.turno] + 5.0f), int(Figura::Dorso));
        for (Carta c : prese) EXPECT_EQ(b.frm.prese[c], caso.turno == 1);  // the computer's pile is not recorded
        EXPECT_EQ(b.frm.prese[caso.giocata], caso.turno == 1);
        EXPECT_EQ(b.frm.ultima_presa, prese.empty() ? 3 - caso.turno : caso.turno);
        // The stack rose 0.3 of a card per entry above the played card, and
        // the top card slid down in steps of 2, one frame each.
        for (std::size_t i = 0; i < caso.presa.size(); ++i)
            if (const Carta c = caso.presa[i]; c != 0) {
                EXPECT_EQ(b.frm.carta[c].Left, x);
                EXPECT_NEAR(b.frm.carta[c].Top, y - 0.3f * static_cast<float>(i + 1) * h, 1e-3);
            }
        const float cima = prese.empty() ? y : b.frm.carta[prese.back()].Top;
        EXPECT_EQ(b.orologio.frame(), prese.empty() ? 0 : std::ceil((y - std::nearbyint(cima)) / 2));
        EXPECT_EQ(b.finestra.Point(x + 10, cima + 5), verde_tavolo);
        EXPECT_EQ(b.finestra.Point(x + 10, y + h + 1), verde_tavolo);
    }
}

// A capture that empties the table, at points of the hand given by the deck
// and the moves: a sweep, unless it is the last card of the hand. Its marker
// stands by the pile, each further one 25 nearer the middle.
TEST(Muovi, SpazzateEIlLoroSegno) {
    struct Caso {
        std::int16_t posizione, mosse, turno, leste_prima;
        bool spazzata;
        float alzata;
    };
    for (const Caso& caso : {Caso{22, 6, 1, 0, false, 0},
                             {22, 6, 2, 1, false, 0},  // the last card of the hand
                             {19, 6, 1, 0, true, 0},
                             {19, 6, 2, 0, true, 0},  // the last card of a deal
                             {7, 1, 1, 2, true, -50},
                             {13, 4, 2, 2, true, 50},    // third sweeps
                             {22, 5, 2, 0, true, 0}}) {  // the last but one card
        SCOPED_TRACE(testing::Message() << caso.posizione << " + " << caso.mosse << ", side " << caso.turno);
        Banco b;
        b.tavolo({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5});
        b.in_gioco(25, caso.turno, {5});
        b.mod.leste[caso.turno] = caso.leste_prima;
        b.frm.posizione_mazzo = caso.posizione;
        b.frm.mosse = caso.mosse;
        ASSERT_TRUE(b.esegui(b.frm.muovicarte()));
        EXPECT_EQ(b.mod.leste[caso.turno], caso.leste_prima + caso.spazzata);
        EXPECT_EQ(b.mod.leste[3 - caso.turno], 0);
        const float y = static_cast<float>(b.frm.pilay[caso.turno]) + caso.alzata;
        EXPECT_EQ(b.finestra.figura_a(b.frm.larghezza_carta + 105, y + 5) == 25, caso.spazzata);
    }
}

}  // namespace
}  // namespace lesta
