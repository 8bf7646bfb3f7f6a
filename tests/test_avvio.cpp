// From the program's start to the first four cards: the load, the check of
// the screen, the start panel, the shuffle, and the pauses, on a table
// without a screen and with a virtual clock.

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <tuple>
#include <vector>

#include "banco.h"

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

class Avvio : public ::testing::Test {
protected:
    void SetUp() override {
        b.frm.Form_Load();
        // The computer deals: the player leads, so the hand stops at once,
        // waiting for the player's first card.
        b.mod.mazziere = 2;
    }
    bool attende_la_prima_carta() const {
        return !mano.done() && b.orologio.in_attesa() && b.frm.modo == Modo::gioco1 && b.frm.mosse == 0;
    }
    void attiva() {
        mano = b.frm.Form_Activate();
        mano.start();
    }
    Banco<> b;
    Task mano;
};

TEST_F(Avvio, AScreenNarrowerThan824PixelsGetsTheMessageAndNothingElseRuns) {
    b.finestra.larghezza = 823;
    attiva();
    EXPECT_TRUE(mano.done());
    EXPECT_TRUE(b.programma.finito);
    EXPECT_EQ(b.programma.messaggio, "Screen resolution too low. Risoluzione di schermo troppo bassa");
    EXPECT_FALSE(b.frm.Visible(Controllo::GO));
    EXPECT_EQ(b.orologio.millisecondi(), 0);
}

TEST_F(Avvio, TheFirstActivationWaitsOnTheStartPanel) {
    b.finestra.larghezza = 824;
    attiva();
    ASSERT_FALSE(mano.done());
    EXPECT_TRUE(b.orologio.in_attesa());
    EXPECT_FALSE(b.programma.finito);
    // Two units at "Middle" before the wipe.
    EXPECT_EQ(b.orologio.millisecondi(), 650);

    // The panel: blue, in a black outline, on the pink ground.
    EXPECT_EQ(b.finestra.BackColor(), rosa_pannello);
    for (auto [x, y, colore] : {std::tuple{201.f, 51.f, blu}, {198.f, 48.f, nero}, {602.f, 412.f, nero},
                                {100.f, 300.f, rosa_pannello}, {605.f, 300.f, rosa_pannello}})
        EXPECT_EQ(b.finestra.Point(x, y), colore) << x << "," << y;

    // The title at half size under the choice.
    const Rett& titolo = b.frm.rett(Controllo::testo);
    const Rett& terza = b.frm.rett(Option1(2));
    EXPECT_EQ(b.finestra.figura_a(400, terza.top + terza.height + 10 + titolo.height / 4),
              static_cast<int>(Figura::Titolo));
    EXPECT_FALSE(b.frm.Visible(Controllo::testo));

    for (auto [c, alto] : {std::pair{Option1(0), 100.f}, {Option1(1), 130.f}, {Option1(2), 160.f},
                           {Controllo::GO, 300.f}, {Controllo::Shape1, 90.f}}) {
        EXPECT_TRUE(b.frm.Visible(c));
        EXPECT_FLOAT_EQ(b.frm.rett(c).top, alto);
        EXPECT_FLOAT_EQ(b.frm.rett(c).left + b.frm.rett(c).width / 2, 400);
    }

    // Nothing but GO ends the wait: a choice of match does not.
    b.frm.Option1_Click(1);
    b.orologio.sveglia();
    EXPECT_FALSE(mano.done());
}

TEST_F(Avvio, GoLaysTheFirstFourCardsInTheMiddleRowAndTheDeckOnTheDealersSide) {
    attiva();
    b.mod.partite = 30;
    b.frm.Option1_Click(2);
    b.frm.GO_Click();
    b.orologio.sveglia();
    ASSERT_TRUE(attende_la_prima_carta());

    EXPECT_EQ(b.mod.tipo_partita, 2);
    EXPECT_EQ(b.mod.partite, 0);
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(b.frm.Visible(Option1(i)));
    EXPECT_FALSE(b.frm.Visible(Controllo::GO));
    EXPECT_FALSE(b.frm.Visible(Controllo::Shape1));

    // The table, with cards at 75 per cent of their design size.
    EXPECT_EQ(b.finestra.BackColor(), verde_tavolo);
    EXPECT_NEAR(b.frm.larghezza_carta, 58.94f, 0.01f);
    EXPECT_NEAR(b.frm.altezza_carta, 108.28f, 0.01f);
    EXPECT_EQ(b.frm.posizione_mazzo, 7);  // four on the table, then the first deal
    for (int c = 1; c <= 4; ++c) {
        const Carta n = b.mod.mazzo[c];
        EXPECT_EQ(b.frm.tavolo[2][c], n);
        const auto& holder = b.frm.carta[n];
        EXPECT_FLOAT_EQ(holder.Left, b.frm.tavolox + static_cast<float>(c - 1) * (b.frm.larghezza_carta + 6));
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

TEST_F(Avvio, GoPressedAtOnceGivesASingleHand) {
    attiva();
    b.frm.GO_Click();
    b.orologio.sveglia();
    ASSERT_TRUE(attende_la_prima_carta());
    EXPECT_EQ(b.mod.tipo_partita, 0);
}

TEST_F(Avvio, AfterContinueNoPanelShowsAndTheMatchCarriesOver) {
    b.mod.command1 = "CONTINUE";
    b.mod.tipo_partita = 1;
    b.mod.partite = 20;
    b.mod.punti_giocatore = 7;
    b.mod.punti_computer = 9;
    attiva();
    EXPECT_TRUE(attende_la_prima_carta());
    EXPECT_EQ(b.orologio.millisecondi(), 0);
    EXPECT_EQ(b.mod.tipo_partita, 1);
    EXPECT_EQ(b.mod.partite, 20);
    EXPECT_EQ(b.mod.punti_giocatore, 7);
    EXPECT_EQ(b.mod.punti_computer, 9);
    EXPECT_EQ(b.finestra.BackColor(), verde_tavolo);
}

TEST_F(Avvio, AfterNewGameThePanelShowsAgainAndTheMatchChoiceStays) {
    b.mod.command1 = "NEW GAME";
    b.mod.tipo_partita = 2;
    b.mod.punti_giocatore = 12;
    attiva();
    ASSERT_FALSE(mano.done());
    EXPECT_EQ(b.mod.punti_giocatore, 0);
    b.frm.GO_Click();
    b.orologio.sveglia();
    ASSERT_TRUE(attende_la_prima_carta());
    EXPECT_EQ(b.mod.tipo_partita, 2);
}


// ---- the shuffle ----

class Mescolata : public Avvio {
protected:
    void SetUp() override {
        Avvio::SetUp();
        b.mod.command1 = "CONTINUE";  // straight to the shuffle
    }
};

TEST_F(Mescolata, DrawsThatMissAreDrawnAgainForTheSamePlace) {
    b.casuale.metti(0.0f);               // entry 0 is never a card
    b.casuale.metti(estrazione(5, 41));  // card 5 first
    b.casuale.metti(estrazione(5, 41));  // taken already: drawn again
    b.casuale.metti(0.0f);
    metti_mazzo(b.casuale, {9, 10, 11});
    const int prima = b.casuale.estrazioni();
    attiva();
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

TEST_F(Mescolata, ADeckWhoseFirstFourNumbersAddUpTo40IsShuffledAgain) {
    for (const auto& rifiutato : {std::vector<int>{1, 2, 3, 34}, std::vector<int>{7, 8, 12, 13}}) {
        Banco banco;
        banco.frm.Form_Load();
        banco.mod.mazziere = 2;
        banco.mod.command1 = "CONTINUE";
        metti_mazzo(banco.casuale, rifiutato);
        metti_mazzo(banco.casuale, {10, 20, 30, 40});
        const int semine = banco.casuale.semine();
        Task t = banco.frm.Form_Activate();
        t.start();
        // The four Kings add up to 100: that deck is played.
        EXPECT_EQ(banco.mod.mazzo[1], 10);
        EXPECT_EQ(banco.mod.mazzo[4], 40);
        EXPECT_EQ(banco.frm.tavolo[2][1], 10);
        EXPECT_EQ(banco.frm.tavolo[2][4], 40);
        // Seeded afresh for each try, after the one of the activation.
        EXPECT_EQ(banco.casuale.semine() - semine, 3);
    }
}

TEST_F(Mescolata, TheDeckIsAlwaysAPermutationAndNeverBeginsWithFourCardsAdding40) {
    for (int seme = 1; seme <= 100; ++seme) {
        Banco banco(static_cast<std::uint32_t>(seme));
        banco.frm.Form_Load();
        banco.mod.command1 = "CONTINUE";
        Task t = banco.frm.Form_Activate();
        t.start();
        const auto& m = banco.mod.mazzo;
        ASSERT_NE(m[1] + m[2] + m[3] + m[4], 40);
        std::vector<int> carte(m.begin() + 1, m.end());
        std::sort(carte.begin(), carte.end());
        for (int i = 0; i < 40; ++i) ASSERT_EQ(carte[i], i + 1);
    }
}

// ---- pauses ----

TEST(Ritardo, AUnitIs6500MillisecondsOverTheSpeedCutToWholeMilliseconds) {
    struct Caso {
        int velocita;
        float unita;
        int millisecondi;
    };
    for (auto [velocita, unita, ms] : {Caso{10, 1, 650}, Caso{10, 2, 1300}, Caso{10, 5, 3250}, Caso{20, 1, 325},
                                       Caso{20, 2, 650}, Caso{20, 5, 1625}, Caso{30, 1, 216}, Caso{30, 2, 433},
                                       Caso{30, 5, 1083}}) {
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
