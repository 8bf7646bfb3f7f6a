// The points of a hand and the match: the five score lines and the sheet's
// texts, the totals and their colours, the deal passed on, the count of
// hands, the end of a match, and the buttons.

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "headless/punteggio.h"
#include "scoring/frmscore.h"

namespace lesta {
namespace {

// A hand as gioco and calcsettanta leave it for the sheet.
struct Mano {
    int numcarte = 20, numdenari = 5, vince_settanta = 0;
    bool settebello = true;
    int leste1 = 0, leste2 = 0;
};

// The sheet loaded, as at the first start of the program.
struct Foglio {
    Foglio() { frm.Form_Load(); }

    // The end of a hand: the sheet comes up and is filled.
    void fine_mano(const Mano& m) {
        mod.numcarte = static_cast<std::int16_t>(m.numcarte);
        mod.numdenari = static_cast<std::int16_t>(m.numdenari);
        mod.vince_settanta = static_cast<std::uint8_t>(m.vince_settanta);
        mod.settebello = m.settebello;
        mod.leste = {0, static_cast<std::int16_t>(m.leste1), static_cast<std::int16_t>(m.leste2)};
        frm.Show();
    }
    // The player's five cells of a hand's row, and the computer's.
    std::array<std::string, 5> riga(int mano, int lato) const {
        std::array<std::string, 5> r;
        for (int k = 0; k < 5; ++k) r[static_cast<std::size_t>(k)] = finestra.LBLdat.at(10 * mano + 13 + 5 * (lato - 1) + k).Caption;
        return r;
    }

    ModLesta mod;
    PunteggioSenzaSchermo finestra;
    Frmscore frm{finestra, mod};
};

TEST(CinqueLinee, EachHandGivesItsPointsAndTheSheetReadsThem) {
    struct Riga {
        const char* nome;
        Mano mano;
        int punti_giocatore, punti_computer;
        std::array<std::string, 5> giocatore, computer;
    };
    const std::vector<Riga> righe = {
        {"23 cards, 6 coins, a tied primiera, the seven, sweeps 1 and 2",
         {23, 6, 0, true, 1, 2}, 4, 2,
         {" 23", " 6", "NO", "YES", " 1"}, {" 17", " 4", "NO", "NO", " 2"}},
        {"20 cards and 5 coins each, the seven to the player", {20, 5, 0, true, 0, 0}, 1, 0,
         {" 20", " 5", "NO", "YES", " 0"}, {" 20", " 5", "NO", "NO", " 0"}},
        {"20 cards and 5 coins each, the seven to the computer", {20, 5, 0, false, 0, 0}, 0, 1,
         {" 20", " 5", "NO", "NO", " 0"}, {" 20", " 5", "NO", "YES", " 0"}},
        {"everything to the computer", {0, 0, 2, false, 0, 0}, 0, 4,
         {" 0", " 0", "NO", "NO", " 0"}, {" 40", " 10", "YES", "YES", " 0"}},
        {"everything to the player, with sweeps", {40, 10, 1, true, 7, 0}, 11, 0,
         {" 40", " 10", "YES", "YES", " 7"}, {" 0", " 0", "NO", "NO", " 0"}},
        {"21 cards, 6 coins, the primiera, no seven", {21, 6, 1, false, 0, 3}, 3, 4,
         {" 21", " 6", "YES", "NO", " 0"}, {" 19", " 4", "NO", "YES", " 3"}},
        {"19 cards, 4 coins, the computer's primiera, the seven", {19, 4, 2, true, 2, 0}, 3, 3,
         {" 19", " 4", "NO", "YES", " 2"}, {" 21", " 6", "YES", "NO", " 0"}},
        {"21 cards, 5 coins: one point for the cards only", {21, 5, 0, false, 0, 0}, 1, 1,
         {" 21", " 5", "NO", "NO", " 0"}, {" 19", " 5", "NO", "YES", " 0"}},
        {"20 cards, 6 coins: one point for the coins only", {20, 6, 0, false, 0, 0}, 1, 1,
         {" 20", " 6", "NO", "NO", " 0"}, {" 20", " 4", "NO", "YES", " 0"}},
    };
    for (const Riga& r : righe) {
        Foglio f;
        // A single hand shows its own points, whatever was there before.
        f.mod.punti_giocatore = 9;
        f.mod.punti_computer = 5;
        f.fine_mano(r.mano);
        EXPECT_EQ(f.mod.punti_giocatore, r.punti_giocatore) << r.nome;
        EXPECT_EQ(f.mod.punti_computer, r.punti_computer) << r.nome;
        EXPECT_EQ(f.riga(0, 1), r.giocatore) << r.nome;
        EXPECT_EQ(f.riga(0, 2), r.computer) << r.nome;
        EXPECT_EQ(f.finestra.lblTot[0].Caption, " " + std::to_string(r.punti_giocatore)) << r.nome;
        EXPECT_EQ(f.finestra.lblTot[1].Caption, " " + std::to_string(r.punti_computer)) << r.nome;
        EXPECT_EQ(f.mod.command1, "NEW GAME") << r.nome;
        EXPECT_EQ(f.finestra.captions[1], "NEW GAME") << r.nome;
        EXPECT_EQ(f.mod.partite, 0) << r.nome;
    }
}

TEST(CinqueLinee, InAMatchTheHandsPointsAreAddedToTheTotals) {
    Foglio f;
    f.mod.tipo_partita = 2;
    f.fine_mano({23, 6, 0, true, 1, 2});
    EXPECT_EQ(f.mod.punti_giocatore, 4);
    EXPECT_EQ(f.mod.punti_computer, 2);
    f.frm.Command1_Click();
    f.fine_mano({15, 3, 2, false, 0, 1});
    EXPECT_EQ(f.mod.punti_giocatore, 4);
    EXPECT_EQ(f.mod.punti_computer, 2 + 5);
    EXPECT_EQ(f.finestra.lblTot[0].Caption, " 4");
    EXPECT_EQ(f.finestra.lblTot[1].Caption, " 7");
    // The first row is still there, under the second.
    EXPECT_EQ(f.riga(0, 1)[0], " 23");
    EXPECT_EQ(f.riga(1, 1)[0], " 15");
    EXPECT_EQ(f.riga(1, 2)[0], " 25");
}

TEST(Totali, TheGreaterTotalIsRedTheOtherDarkRedAndEqualTotalsBothDarkRed) {
    struct Riga {
        Mano mano;
        Colore giocatore, computer;
    };
    const std::vector<Riga> righe = {
        {{23, 6, 0, true, 1, 2}, rosso, rosso_scuro},        // 4 to 2
        {{17, 4, 0, false, 0, 0}, rosso_scuro, rosso},       // 0 to 3
        {{21, 4, 0, true, 0, 0}, rosso, rosso_scuro},        // 2 to 1
        {{21, 5, 0, false, 0, 0}, rosso_scuro, rosso_scuro}, // 1 to 1
        {{20, 5, 0, true, 0, 1}, rosso_scuro, rosso_scuro},  // 1 to 1
    };
    for (const Riga& r : righe) {
        Foglio f;
        f.fine_mano(r.mano);
        EXPECT_EQ(f.finestra.lblTot[0].ForeColor, r.giocatore) << int(f.mod.punti_giocatore) << ":" << int(f.mod.punti_computer);
        EXPECT_EQ(f.finestra.lblTot[1].ForeColor, r.computer) << int(f.mod.punti_giocatore) << ":" << int(f.mod.punti_computer);
        EXPECT_EQ(f.finestra.lblTot[0].BackColor, arancio_chiaro);
        EXPECT_TRUE(f.finestra.lblTot[0].FontBold);
        EXPECT_TRUE(f.finestra.lblTot[0].Visible);
        EXPECT_TRUE(f.finestra.lblTot[1].Visible);
    }
}

TEST(Totali, TheColoursFollowTheMatchTotalsNotTheHand) {
    Foglio f;
    f.mod.tipo_partita = 1;
    f.fine_mano({40, 10, 1, true, 0, 0});  // 4 to 0
    EXPECT_EQ(f.finestra.lblTot[0].ForeColor, rosso);
    f.frm.Command1_Click();
    f.fine_mano({0, 0, 2, false, 0, 0});  // 0 to 4: 4 to 4
    EXPECT_EQ(f.finestra.lblTot[0].ForeColor, rosso_scuro);
    EXPECT_EQ(f.finestra.lblTot[1].ForeColor, rosso_scuro);
    f.frm.Command1_Click();
    f.fine_mano({20, 5, 0, false, 0, 0});  // 4 to 5
    EXPECT_EQ(f.finestra.lblTot[0].ForeColor, rosso_scuro);
    EXPECT_EQ(f.finestra.lblTot[1].ForeColor, rosso);
}

// A hand that gives the player one point (the seven) plus his sweeps and
// the computer its sweeps.
Mano punti(int giocatore, int computer) { return {20, 5, 0, true, giocatore - 1, computer}; }

TEST(FinePartita, TheMatchEndsWhenASideReachesTheTargetAndTheTotalsDiffer) {
    struct Riga {
        int tipo;
        int prima_giocatore, prima_computer;  // totals before the hand
        int dopo_giocatore, dopo_computer;    // after it
        const char* caption;
    };
    const std::vector<Riga> righe = {
        {1, 10, 10, 11, 10, "NEW GAME"}, {1, 10, 10, 11, 11, "CONTINUE"}, {1, 11, 11, 13, 12, "NEW GAME"},
        {1, 9, 9, 10, 10, "CONTINUE"},   {1, 12, 10, 14, 12, "NEW GAME"}, {1, 8, 8, 10, 11, "NEW GAME"},
        {1, 5, 5, 7, 9, "CONTINUE"},     {1, 0, 0, 1, 0, "CONTINUE"},     {1, 12, 12, 13, 13, "CONTINUE"},
        {2, 19, 19, 21, 20, "NEW GAME"}, {2, 19, 19, 21, 21, "CONTINUE"}, {2, 21, 21, 22, 22, "CONTINUE"},
        {2, 22, 20, 24, 21, "NEW GAME"}, {2, 18, 19, 20, 20, "CONTINUE"}, {2, 19, 19, 20, 21, "NEW GAME"},
        {2, 10, 9, 11, 10, "CONTINUE"},  {2, 24, 23, 25, 26, "NEW GAME"}, {2, 3, 15, 4, 20, "CONTINUE"},
    };
    for (const Riga& r : righe) {
        Foglio f;
        f.mod.tipo_partita = static_cast<std::uint8_t>(r.tipo);
        f.mod.partite = 30;  // the fourth hand: the totals carry over
        f.mod.punti_giocatore = static_cast<std::uint8_t>(r.prima_giocatore);
        f.mod.punti_computer = static_cast<std::uint8_t>(r.prima_computer);
        f.fine_mano(punti(r.dopo_giocatore - r.prima_giocatore, r.dopo_computer - r.prima_computer));
        ASSERT_EQ(f.mod.punti_giocatore, r.dopo_giocatore);
        ASSERT_EQ(f.mod.punti_computer, r.dopo_computer);
        EXPECT_EQ(f.mod.command1, r.caption) << r.tipo << " " << r.dopo_giocatore << ":" << r.dopo_computer;
        EXPECT_EQ(f.finestra.captions[1], r.caption);
        EXPECT_EQ(f.mod.partite, 40);
    }
}

TEST(FinePartita, ATieAtTheTargetIsPlayedOffByFurtherHands) {
    Foglio f;
    f.mod.tipo_partita = 1;
    f.mod.punti_giocatore = 10;
    f.mod.punti_computer = 10;
    f.fine_mano(punti(1, 1));
    EXPECT_EQ(f.mod.command1, "CONTINUE");
    f.frm.Command1_Click();
    EXPECT_EQ(f.mod.punti_giocatore, 11);  // a CONTINUE keeps the totals
    f.fine_mano(punti(2, 1));
    EXPECT_EQ(f.mod.punti_giocatore, 13);
    EXPECT_EQ(f.mod.punti_computer, 12);
    EXPECT_EQ(f.mod.command1, "NEW GAME");
    EXPECT_EQ(f.mod.partite, 20);
}

TEST(FinePartita, AMatchToElevenCanEndOnItsFirstHand) {
    Foglio f;
    f.mod.tipo_partita = 1;
    f.fine_mano({40, 10, 1, true, 7, 0});
    EXPECT_EQ(f.mod.punti_giocatore, 11);
    EXPECT_EQ(f.mod.command1, "NEW GAME");
    EXPECT_EQ(f.mod.partite, 10);
}

TEST(Partite, EachHandOfAMatchAddsTenAndTheCountStopsAt250) {
    Foglio f;
    f.mod.tipo_partita = 2;
    for (int mano = 1; mano <= 25; ++mano) {
        f.fine_mano(punti(1, 0));
        f.mod.punti_giocatore = f.mod.punti_computer = 0;  // keep the match going
        ASSERT_EQ(f.mod.partite, 10 * mano);
        f.frm.Command1_Click();
    }
    // The 26th hand writes its row at 250 + 13 and the count cannot grow.
    f.fine_mano(punti(1, 0));
    EXPECT_EQ(f.mod.partite, 250);
    EXPECT_EQ(f.frm.LBLdat_UBound(), 272);
    EXPECT_EQ(f.frm.LBLdat.at(263).r.top, 2 * 250 + 91);
    f.frm.Command1_Click();
    // Every further hand writes over the last row.
    f.fine_mano({30, 8, 1, true, 0, 0});
    EXPECT_EQ(f.mod.partite, 250);
    EXPECT_EQ(f.frm.LBLdat_Count(), 273);
    EXPECT_EQ(f.frm.LBLdat.at(263).Caption, " 30");
    EXPECT_EQ(f.finestra.LBLdat.at(263).Caption, " 30");
}

TEST(Partite, ASingleHandLeavesTheCountAtZeroAndTheNextRowInTheSamePlace) {
    Foglio f;
    f.fine_mano(punti(3, 1));
    EXPECT_EQ(f.mod.partite, 0);
    f.frm.Command1_Click();  // "NEW GAME"
    f.fine_mano(punti(1, 2));
    EXPECT_EQ(f.mod.partite, 0);
    EXPECT_EQ(f.frm.LBLdat_Count(), 23);
    EXPECT_EQ(f.frm.LBLdat.at(13).r.top, 91);
    EXPECT_EQ(f.mod.punti_giocatore, 1);
    EXPECT_EQ(f.mod.punti_computer, 2);
}

TEST(Partite, TotalsThatWouldPassAByteStopWhereTheyAre) {
    Foglio f;
    f.mod.tipo_partita = 2;
    f.mod.partite = 100;
    f.mod.punti_giocatore = 253;
    f.mod.punti_computer = 200;
    // Cards, coins, primiera, seven: four additions of 1 and a sweep of 3.
    f.fine_mano({30, 8, 1, true, 3, 0});
    EXPECT_EQ(f.mod.punti_giocatore, 255);
    EXPECT_EQ(f.mod.command1, "NEW GAME");
}

TEST(Mazziere, TheDealPassesAfterEveryHandMatchOrNot) {
    for (int tipo : {0, 1, 2}) {
        Foglio f;
        f.mod.tipo_partita = static_cast<std::uint8_t>(tipo);
        f.mod.mazziere = 2;
        const std::array<int, 4> attesi = {1, 2, 1, 2};
        for (int atteso : attesi) {
            f.fine_mano(punti(1, 0));
            f.mod.punti_giocatore = 0;
            EXPECT_EQ(f.mod.mazziere, atteso) << tipo;
            f.frm.Command1_Click();
        }
    }
}

TEST(Command1, ContinueHandsOverToTheTableAndKeepsTheMatch) {
    Foglio f;
    f.mod.tipo_partita = 2;
    f.mod.mazziere = 1;
    f.fine_mano({23, 6, 0, true, 1, 2});
    ASSERT_EQ(f.mod.command1, "CONTINUE");
    const int righe = f.frm.LBLdat_Count();
    const std::size_t linee = f.finestra.linee.size();
    f.frm.Command1_Click();
    EXPECT_EQ(f.finestra.tavolo_mostrato, 1);
    EXPECT_EQ(f.mod.mazziere, 2);
    EXPECT_EQ(f.mod.punti_giocatore, 4);
    EXPECT_EQ(f.mod.punti_computer, 2);
    EXPECT_EQ(f.mod.partite, 10);
    EXPECT_EQ(f.mod.tipo_partita, 2);
    EXPECT_EQ(f.frm.LBLdat_Count(), righe);
    EXPECT_TRUE(f.frm.LBLdat.at(13).Visible);
    EXPECT_TRUE(f.frm.Command1.Visible);
    EXPECT_EQ(f.finestra.linee.size(), linee);  // no wipe
    EXPECT_EQ(f.frm.BackColor(), arancio);
}

TEST(Command1, NewGameClearsTheSheetAndTheMatchThenHandsOver) {
    Foglio f;
    f.mod.tipo_partita = 1;
    f.fine_mano({40, 10, 1, true, 7, 0});
    ASSERT_EQ(f.mod.command1, "NEW GAME");
    EXPECT_EQ(f.frm.BackColor(), arancio);
    f.frm.Command1_Click();

    EXPECT_EQ(f.finestra.tavolo_mostrato, 1);
    EXPECT_EQ(f.mod.partite, 0);
    EXPECT_EQ(f.mod.punti_giocatore, 0);
    EXPECT_EQ(f.mod.punti_computer, 0);
    EXPECT_EQ(f.mod.tipo_partita, 1);  // until an option is pressed
    EXPECT_EQ(f.mod.command1, "NEW GAME");
    // The wipe in olive, on the sheet's own surface: 801 lines from the
    // left over the upper half, 801 from the right over the lower half.
    EXPECT_EQ(f.frm.BackColor(), oliva);
    ASSERT_EQ(f.finestra.linee.size(), 2u * 801u);
    for (const auto& l : f.finestra.linee) EXPECT_EQ(l.colore, oliva);
    EXPECT_EQ(f.finestra.linee[0].x1, 0);
    EXPECT_EQ(f.finestra.linee[0].y2, 301);
    EXPECT_EQ(f.finestra.linee[1].x1, 800);
    EXPECT_EQ(f.finestra.linee[1].y1, 600);
    EXPECT_EQ(f.finestra.linee[1].y2, 300);
    // Every control hidden, the labels of heads and cells gone.
    EXPECT_EQ(f.frm.LBLdat_Count(), 3);
    EXPECT_EQ(f.finestra.LBLdat.size(), 3u);
    EXPECT_EQ(f.finestra.distrutte, 20);
    EXPECT_FALSE(f.finestra.LBLtit.Visible);
    for (int i = 0; i <= 2; ++i) EXPECT_FALSE(f.finestra.LBLdat.at(i).Visible) << i;
    EXPECT_FALSE(f.finestra.lblTot[0].Visible);
    EXPECT_FALSE(f.finestra.lblTot[1].Visible);
    for (int i = 1; i <= 8; ++i) EXPECT_FALSE(f.finestra.imgset[static_cast<std::size_t>(i)].Visible) << i;
    EXPECT_FALSE(f.finestra.bottoni[1].Visible);
    EXPECT_FALSE(f.finestra.bottoni[2].Visible);
}

TEST(Command1, OneClickPerFilledSheetAndNoneBeforeTheFirstHand) {
    Foglio f;
    f.frm.Command1_Click();  // nothing finished yet
    EXPECT_EQ(f.finestra.tavolo_mostrato, 0);
    f.mod.tipo_partita = 2;
    f.fine_mano(punti(1, 0));
    f.frm.Command1_Click();
    f.frm.Command1_Click();  // the table is already playing the next hand
    EXPECT_EQ(f.finestra.tavolo_mostrato, 1);
    f.fine_mano(punti(1, 0));
    f.frm.Command1_Click();
    EXPECT_EQ(f.finestra.tavolo_mostrato, 2);
}

TEST(Command1, TheTableCanStartTheNextHandFromTheClick) {
    // The simulator's way: each hand-over plays the next hand at once.
    Foglio f;
    f.mod.tipo_partita = 1;
    int mani = 0;
    f.finestra.al_tavolo = [&] {
        ++mani;
        f.fine_mano(punti(2, 1));
    };
    f.fine_mano(punti(2, 1));
    ++mani;
    for (int giro = 0; giro < 20 && f.mod.command1 == "CONTINUE"; ++giro) f.frm.Command1_Click();
    // 2:1, 4:2, ... 12:6 ends the match on the sixth hand.
    EXPECT_EQ(mani, 6);
    EXPECT_EQ(f.mod.punti_giocatore, 12);
    EXPECT_EQ(f.mod.command1, "NEW GAME");
    EXPECT_EQ(f.frm.LBLdat_Count(), 13 + 6 * 10);
}

TEST(Uscita, QuitUnloadsTheTableAndEndsTheCloseControlEndsAtOnce) {
    {
        Foglio f;
        f.fine_mano(punti(1, 0));
        f.frm.Command2_Click();
        EXPECT_EQ(f.finestra.tavolo_scaricato, 1);
        EXPECT_TRUE(f.finestra.finito);
        EXPECT_EQ(f.finestra.tavolo_mostrato, 0);
    }
    {
        Foglio f;
        int Cancel = 0;
        f.frm.Form_QueryUnload(Cancel, 0);
        EXPECT_TRUE(f.finestra.finito);
        EXPECT_EQ(f.finestra.tavolo_scaricato, 0);
    }
    {
        Foglio f;
        int Cancel = 0;
        f.frm.Form_QueryUnload(Cancel, 1);  // unloaded by code: Form_Unload follows
        EXPECT_FALSE(f.finestra.finito);
    }
}

}  // namespace
}  // namespace lesta
