// SPDX-License-Identifier: GPL-3.0-or-later
// From the program's start to the first four cards: the load, the check of
// the screen, the start panel, the shuffle, and the pauses, on a table
// without a screen and with a virtual clock.

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <tuple>
#include <vector>

#include "banco.h"
#include "match/geometria.h"
#include "turns/ritardo.h"

namespace lesta {
namespace {

using prova::Banco;
using prova::estrazione;

// Queues the draws that make Mescola deal these cards first, then the rest
// in ascending order. The pool holds card k at entry k until it is taken, so
// a draw that lands on entry k takes card k.
void metti_mazzo(CasualeFisso& casuale, std::vector<int> primi) {
    std::vector<int> resto(40);
    std::iota(resto.begin(), resto.end(), 1);
    for (int c : primi) resto.erase(std::find(resto.begin(), resto.end(), c));
    primi.insert(primi.end(), resto.begin(), resto.end());
    for (int c : primi) casuale.metti(estrazione(c, 41));
}

TEST(Caricamento, TheFirstDealerIsDrawnOnceFromTheSecondHalfOfTheUnitForTheComputer) {
    for (auto [u, mazziere] : {std::pair{0.0f, 1}, {0.4999f, 1}, {0.5f, 2}, {0.9999f, 2}}) {
        Banco b;
        b.casuale.metti(u);
        b.frm.Form_Load();
        EXPECT_EQ(b.mod.mazziere, mazziere) << u;
        EXPECT_EQ(b.casuale.estrazioni(), 1);
    }
}

// A table loaded, with the computer dealing: the player leads, so the hand
// stops at once, waiting for the player's first card.
struct Avvio : Banco<> {
    Avvio() {
        frm.Form_Load();
        mod.mazziere = 2;
    }
    bool attende_la_prima_carta() const {
        return !mano.done() && orologio.in_attesa() && frm.modo == Modo::gioco1 && frm.mosse == 0;
    }
    void attiva() {
        mano = frm.Form_Activate();
        mano.start();
    }
    Task mano;
};

// A screen narrower than 824 pixels gets the message and nothing else runs;
// on one of 824 the first activation waits on the start panel, after two
// units at "Middle".
TEST(Avvio, TheFirstActivationWaitsOnTheStartPanelOnAWideEnoughScreen) {
    for (int larghezza : {823, 824}) {
        Avvio b;
        b.finestra.larghezza = larghezza;
        b.attiva();
        const bool stretto = larghezza < 824;
        EXPECT_EQ(b.mano.done(), stretto);
        EXPECT_EQ(b.programma.finito, stretto);
        EXPECT_EQ(b.programma.messaggio,
                  stretto ? "Screen resolution too low. Risoluzione di schermo troppo bassa" : "");
        EXPECT_EQ(b.frm.Visible(Controllo::GO), !stretto);
        EXPECT_EQ(b.orologio.millisecondi(), stretto ? 0 : 650);
    }
    Avvio b;
    b.attiva();
    // The panel: blue, in a black outline, on the pink ground.
    EXPECT_EQ(b.finestra.BackColor(), rosa_pannello);
    for (auto [x, y, colore] : {std::tuple{201.f, 51.f, blu},
                                {198.f, 48.f, nero},
                                {602.f, 412.f, nero},
                                {100.f, 300.f, rosa_pannello},
                                {605.f, 300.f, rosa_pannello}})
        EXPECT_EQ(b.finestra.Point(x, y), colore) << x << "," << y;

    // The title at half size under the choice.
    const Rett& titolo = b.frm.rett(Controllo::testo);
    const Rett& terza = b.frm.rett(Option1(2));
    EXPECT_EQ(b.finestra.figura_a(400, terza.top + terza.height + 10 + titolo.height / 4),
              static_cast<int>(Figura::Titolo));
    EXPECT_FALSE(b.frm.Visible(Controllo::testo));

    for (auto [c, alto] : {std::pair{Option1(0), 100.f},
                           {Option1(1), 130.f},
                           {Option1(2), 160.f},
                           {Controllo::GO, 300.f},
                           {Controllo::Shape1, 90.f}}) {
        EXPECT_TRUE(b.frm.Visible(c));
        EXPECT_FLOAT_EQ(b.frm.rett(c).top, alto);
        EXPECT_FLOAT_EQ(b.frm.rett(c).left + b.frm.rett(c).width / 2, 400);
    }

    // Nothing but GO ends the wait: a choice of match does not.
    b.frm.Option1_Click(1);
    b.orologio.sveglia();
    EXPECT_FALSE(b.mano.done());
}

TEST(Avvio, TheFirstFourCardsLieInTheMiddleRowAndTheDeckOnTheDealersSide) {
    Avvio b;
    b.mod.command1 = "CONTINUE";
    b.attiva();
    ASSERT_TRUE(b.attende_la_prima_carta());

    // The table, with cards at 75 per cent of their design size.
    EXPECT_EQ(b.finestra.BackColor(), verde_tavolo);
    EXPECT_NEAR(b.frm.larghezza_carta, 58.94f, 0.01f);
    EXPECT_NEAR(b.frm.altezza_carta, 108.28f, 0.01f);
    EXPECT_EQ(b.frm.posizione_mazzo, 7);  // four on the table, then the first deal
    for (int c = 1; c <= 4; ++c) {
        const Carta n = b.mod.mazzo[c];
        EXPECT_EQ(b.frm.tavolo[2][c], n);
        const auto& holder = b.frm.carta[n];
        EXPECT_FLOAT_EQ(holder.Left, sinistra_cella(static_cast<float>(c), b.frm.tavolox, b.frm.larghezza_carta));
        EXPECT_FLOAT_EQ(holder.Top, 300 - b.frm.altezza_carta / 2);
        EXPECT_EQ(b.finestra.figura_a(holder.Left + 20, holder.Top + 20), n);
    }
    for (int r : {1, 3})
        for (int c = 1; c <= 4; ++c) EXPECT_EQ(b.frm.tavolo[r][c], 0);
    // The point between the second and third column is bare table.
    EXPECT_EQ(b.finestra.Point(400, 300), verde_tavolo);

    EXPECT_EQ(b.frm.pilay[1], 487);  // 600 - 108.28 - 5, to the nearest
    EXPECT_EQ(b.frm.pilay[2], 5);
    const float alto_mazzo = static_cast<float>(b.frm.pilay[b.mod.mazziere]);
    EXPECT_EQ(b.finestra.figura_a(700, alto_mazzo + 50), static_cast<int>(Figura::Dorso));
    const float altro = static_cast<float>(b.frm.pilay[3 - b.mod.mazziere]);
    EXPECT_EQ(b.finestra.Point(700, altro + 50), verde_tavolo);

    // The lights are shown, on the table now that the hand has begun, with
    // the player's green in front.
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(b.frm.Visible(Verde(i)));
        EXPECT_FLOAT_EQ(b.frm.rett(Rosso(i)).left, 620);
    }
    EXPECT_TRUE(b.frm.davanti(Verde(0), Rosso(0)));
    EXPECT_TRUE(b.frm.davanti(Rosso(1), Verde(1)));
}

// Before the first hand, and after NEW GAME, the start panel waits for GO and
// the match starts from nought, of the kind last chosen (a choice on the
// panel starts the count of hands anew); after CONTINUE the hand starts at
// once and the match carries over.
TEST(Avvio, ThePanelWaitsForGoUnlessTheMatchContinues) {
    for (auto [comando, scelta, partite] : {std::tuple{"", 2, 0}, {"NEW GAME", -1, 20}, {"CONTINUE", -1, 20}}) {
        SCOPED_TRACE(comando);
        Avvio b;
        b.mod.command1 = comando;
        b.mod.tipo_partita = 1;
        b.mod.partite = 20;
        b.mod.punti_giocatore = 7;
        b.mod.punti_computer = 9;
        b.attiva();
        const bool pannello = b.mod.command1 != "CONTINUE";
        EXPECT_EQ(b.orologio.millisecondi(), pannello ? 650 : 0);
        if (pannello) {
            ASSERT_FALSE(b.mano.done());
            if (scelta >= 0) b.frm.Option1_Click(scelta);
            b.frm.GO_Click();
            b.orologio.sveglia();
            for (auto c : {Option1(0), Option1(1), Option1(2), Controllo::GO, Controllo::Shape1})
                EXPECT_FALSE(b.frm.Visible(c));
        }
        ASSERT_TRUE(b.attende_la_prima_carta());
        EXPECT_EQ(b.mod.tipo_partita, scelta >= 0 ? scelta : 1);
        EXPECT_EQ(b.mod.partite, partite);
        EXPECT_EQ(b.mod.punti_giocatore, pannello ? 0 : 7);
        EXPECT_EQ(b.mod.punti_computer, pannello ? 0 : 9);
        EXPECT_EQ(b.finestra.BackColor(), verde_tavolo);
    }
}

// ---- the shuffle ----

TEST(Mescolata, DrawsThatMissAreDrawnAgainForTheSamePlace) {
    Avvio b;
    b.mod.command1 = "CONTINUE";         // straight to the shuffle
    b.casuale.metti(0.0f);               // entry 0 is never a card
    b.casuale.metti(estrazione(5, 41));  // card 5 first
    b.casuale.metti(estrazione(5, 41));  // taken already: drawn again
    b.casuale.metti(0.0f);
    metti_mazzo(b.casuale, {9, 10, 11});
    const int prima = b.casuale.estrazioni();
    b.attiva();
    EXPECT_EQ(b.mod.mazzo[1], 5);
    EXPECT_EQ(b.mod.mazzo[2], 9);
    EXPECT_EQ(b.mod.mazzo[3], 10);
    EXPECT_EQ(b.mod.mazzo[4], 11);
    // 40 draws that hit and 4 that missed: 0, the second 5, 0, and the 5
    // among the rest of the pool, which is taken by then.
    EXPECT_EQ(b.casuale.estrazioni() - prima, 4 + 40);
    std::vector<int> mazzo(b.mod.mazzo.begin() + 1, b.mod.mazzo.end());
    std::sort(mazzo.begin(), mazzo.end());
    for (int i = 0; i < 40; ++i) EXPECT_EQ(mazzo[i], i + 1);
}

TEST(Mescolata, ADeckWhoseFirstFourNumbersAddUpTo40IsShuffledAgain) {
    for (const auto& rifiutato : {std::vector<int>{1, 2, 3, 34}, std::vector<int>{7, 8, 12, 13}}) {
        Avvio banco;
        banco.mod.command1 = "CONTINUE";
        metti_mazzo(banco.casuale, rifiutato);
        metti_mazzo(banco.casuale, {10, 20, 30, 40});
        const int semine = banco.casuale.semine();
        banco.attiva();
        // The four Kings add up to 100: that deck is played.
        EXPECT_EQ(banco.mod.mazzo[1], 10);
        EXPECT_EQ(banco.mod.mazzo[4], 40);
        EXPECT_EQ(banco.frm.tavolo[2][1], 10);
        EXPECT_EQ(banco.frm.tavolo[2][4], 40);
        // Seeded afresh for each try, after the one of the activation.
        EXPECT_EQ(banco.casuale.semine() - semine, 3);
    }
}

// ---- pauses ----

TEST(Ritardo, AUnitIs6500MillisecondsOverTheSpeedCutToWholeMilliseconds) {
    struct Caso {
        int velocita;
        float unita;
        int millisecondi;
    };
    for (auto [velocita, unita, ms] :
         {Caso{10, 1, 650}, Caso{10, 2, 1300}, Caso{10, 5, 3250}, Caso{20, 1, 325}, Caso{20, 2, 650}, Caso{20, 5, 1625},
          Caso{30, 1, 216}, Caso{30, 2, 433}, Caso{30, 5, 1083}}) {
        Banco b;
        b.frm.velocita = static_cast<std::uint8_t>(velocita);
        auto pausa = [&]() -> Task { co_await b.frm.ritardo(unita); };
        Task t = pausa();
        t.start();
        EXPECT_TRUE(t.done());
        EXPECT_EQ(b.orologio.millisecondi(), ms) << velocita << " " << unita;
        EXPECT_EQ(b.orologio.pause(), 1);
        EXPECT_TRUE(b.frm.scattato);
    }
}

}  // namespace
}  // namespace lesta
