// SPDX-License-Identifier: GPL-3.0-or-later
// The score sheet without a screen: the five score lines and their texts,
// the totals and their colours, the deal passed on, the count of hands, the
// end of a match, the buttons, and every label's index, place and look.

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "headless/punteggio.h"
#include "scoring/frmscore.h"
#include "scoring/lettura_foglio.h"
#include "scoring/settanta.h"

namespace lesta {
namespace {

// A hand as gioco and calcsettanta leave it: cards and coins of the player,
// the primiera's winner, the seven, the sweeps of each side.
struct Mano {
    int carte, denari, primiera;
    bool sette;
    int leste1, leste2;
};
using Testi = std::array<std::string, 10>;  // the player's five cells, then the computer's

// One point to the player for the seven, and the rest in sweeps.
Mano punti(int giocatore, int computer) { return {20, 5, 0, true, giocatore - 1, computer}; }

// The sheet loaded, in a match of this kind with these totals.
struct Foglio {
    explicit Foglio(int tipo, int giocatore = 0, int computer = 0) {
        mod.tipo_partita = static_cast<std::uint8_t>(tipo);
        mod.punti_giocatore = static_cast<std::uint8_t>(giocatore);
        mod.punti_computer = static_cast<std::uint8_t>(computer);
        frm.Form_Load();
    }
    // Answers the sheet before, then the sheet comes up and is filled.
    void fine_mano(const Mano& m) {
        frm.Command1_Click();
        mod.numcarte = static_cast<std::int16_t>(m.carte);
        mod.numdenari = static_cast<std::int16_t>(m.denari);
        mod.vince_settanta = static_cast<std::uint8_t>(m.primiera);
        mod.settebello = m.sette;
        mod.leste = {0, static_cast<std::int16_t>(m.leste1), static_cast<std::int16_t>(m.leste2)};
        frm.Show();
    }
    std::string cella(int i) const { return finestra.LBLdat.at(i).Caption; }
    std::array<int, 2> totali() const { return {mod.punti_giocatore, mod.punti_computer}; }

    ModLesta mod;
    PunteggioSenzaSchermo finestra;
    Frmscore frm{finestra, mod};
};

TEST(CinqueLinee, EachHandsPointsAndTexts) {
    struct Riga {
        Mano mano;
        int giocatore, computer;
        Testi testi;
    };
    const std::vector<Riga> righe = {
        {{23, 6, 0, true, 1, 2}, 4, 2, {" 23", " 6", "NO", "YES", " 1", " 17", " 4", "NO", "NO", " 2"}},
        {{20, 5, 0, false, 0, 0}, 0, 1, {" 20", " 5", "NO", "NO", " 0", " 20", " 5", "NO", "YES", " 0"}},
        {{0, 0, 2, false, 0, 0}, 0, 4, {" 0", " 0", "NO", "NO", " 0", " 40", " 10", "YES", "YES", " 0"}},
        {{40, 10, 1, true, 7, 0}, 11, 0, {" 40", " 10", "YES", "YES", " 7", " 0", " 0", "NO", "NO", " 0"}},
        {{19, 4, 2, true, 2, 0}, 3, 3, {" 19", " 4", "NO", "YES", " 2", " 21", " 6", "YES", "NO", " 0"}},
        {{21, 5, 0, false, 0, 3}, 1, 4, {" 21", " 5", "NO", "NO", " 0", " 19", " 5", "NO", "YES", " 3"}},
        {{20, 6, 0, false, 0, 0}, 1, 1, {" 20", " 6", "NO", "NO", " 0", " 20", " 4", "NO", "YES", " 0"}},
    };
    for (const Riga& r : righe) {
        Foglio f(0, 9, 5);  // a single hand shows its own points only
        f.fine_mano(r.mano);
        const std::string dove = r.testi[0] + r.testi[1];
        EXPECT_EQ(f.totali(), (std::array<int, 2>{r.giocatore, r.computer})) << dove;
        for (int k = 0; k < 10; ++k) EXPECT_EQ(f.cella(13 + k), r.testi[static_cast<std::size_t>(k)]) << dove << k;
        // No match: NEW GAME at once, no hand counted, and the deal passes.
        EXPECT_TRUE(f.finestra.captions[1] == "NEW GAME" && f.mod.partite == 0 && f.mod.mazziere == 2) << dove;
    }
}

// The lines are added one by one, cards, coins, primiera, seven, sweeps, and
// an addition that would pass 255 does not take place.
TEST(CinqueLinee, TheLinesAreAddedInOrderAndStopBelowAByte) {
    for (auto [prima_, dopo] : {std::pair{253, 255}, {250, 254}, {240, 247}}) {
        Foglio f(2, prima_);
        f.fine_mano({30, 8, 1, true, 3, 0});
        EXPECT_EQ(f.mod.punti_giocatore, dopo) << prima_;
    }
}

TEST(FinePartita, TheMatchEndsWhenASideReachesTheTargetAndTheTotalsDiffer) {
    struct Riga {
        int tipo, prima_g, prima_c, dopo_g, dopo_c;
        const char* caption;
    };
    const std::vector<Riga> righe = {
        {1, 10, 10, 11, 10, "NEW GAME"}, {1, 10, 10, 11, 11, "CONTINUE"}, {1, 11, 11, 13, 12, "NEW GAME"},
        {1, 12, 12, 13, 13, "CONTINUE"}, {1, 8, 8, 10, 11, "NEW GAME"},   {1, 9, 9, 10, 10, "CONTINUE"},
        {1, 0, 0, 11, 0, "NEW GAME"},    {2, 19, 19, 21, 20, "NEW GAME"}, {2, 19, 19, 21, 21, "CONTINUE"},
        {2, 21, 21, 22, 22, "CONTINUE"}, {2, 19, 19, 20, 21, "NEW GAME"}, {2, 10, 9, 20, 10, "CONTINUE"},
    };
    for (const Riga& r : righe) {
        Foglio f(r.tipo, r.prima_g, r.prima_c);
        f.fine_mano(punti(r.dopo_g - r.prima_g, r.dopo_c - r.prima_c));
        ASSERT_EQ(f.totali(), (std::array<int, 2>{r.dopo_g, r.dopo_c}));
        EXPECT_EQ(f.mod.command1, r.caption) << r.tipo << " " << r.dopo_g << ":" << r.dopo_c;
    }
}

TEST(Partite, EachHandAddsTenUntil250ThenTheLastRowIsWrittenOverAndTheDealPasses) {
    Foglio f(2);
    for (int mano = 1; mano <= 27; ++mano) {
        f.fine_mano(mano == 27 ? Mano{30, 8, 1, true, 0, 0} : punti(1, 0));
        f.mod.punti_giocatore = 0;  // keep the match going
        ASSERT_EQ(f.mod.partite, std::min(10 * mano, 250)) << mano;
        ASSERT_EQ(f.mod.mazziere, mano % 2 + 1) << mano;  // the deal passes after every hand
    }
    EXPECT_EQ(f.frm.LBLdat_Count(), 273);
    EXPECT_EQ(f.frm.LBLdat.at(263).r.top, 2 * 250 + 91);
    EXPECT_EQ(f.cella(263), " 30");
}

const Testi prima = {" 23", " 6", "NO", "YES", " 1", " 17", " 4", "NO", "NO", " 2"};

// Every label as the window was told it, against the layout: the title, the
// hidden model, the heads of the sides, the column heads at Top 75, one row a
// hand from Top 91 twenty apart, ten indices a hand from 13, and the totals
// under the newest row.
void controlla_foglio(const Foglio& f, const std::vector<Testi>& righe) {
    static const std::array<std::string, 5> teste = {"Carte", "Denari", "Primiera", "Settebello", "Leste"};
    const auto& d = f.finestra.LBLdat;
    const int n = static_cast<int>(righe.size());
    ASSERT_EQ(f.frm.LBLdat_Count(), 13 + 10 * n);
    ASSERT_EQ(d.size(), f.frm.LBLdat.size());
    ASSERT_EQ(d.rbegin()->first, 12 + 10 * n);  // no gaps
    const Etichetta& t = f.finestra.LBLtit;
    EXPECT_TRUE(t.Caption == "SCORE" && t.Visible && t.BackColor == giallo_chiaro && t.ForeColor == rosso_scuro);
    EXPECT_TRUE(t.r.left == 20 && t.r.top == 5 && t.r.width == 760 && t.r.height == 40);
    EXPECT_FALSE(d.at(0).Visible);
    for (int lato = 1; lato <= 2; ++lato) {
        const Etichetta& e = d.at(lato);
        EXPECT_EQ(e.Caption, lato == 1 ? "Player" : "Computer");
        EXPECT_TRUE(e.r.left == (lato == 1 ? 20 : 432) && e.r.top == 45 && e.Visible && e.BackColor == azzurro) << lato;
    }
    for (int i = 3; i < 13 + 10 * n; ++i) {
        const int blocco = (i - 3) / 5, k = (i - 3) % 5;  // blocks 0 and 1 are the heads
        const auto sk = static_cast<std::size_t>(k), riga = static_cast<std::size_t>(blocco / 2 - 1);
        const Etichetta& e = d.at(i);
        EXPECT_EQ(e.Caption, blocco < 2 ? teste[sk] : righe[riga][5 * static_cast<std::size_t>(blocco % 2) + sk]) << i;
        EXPECT_FLOAT_EQ(e.r.left, (blocco % 2 == 0 ? 20.0f : 432.0f) + 70.0f * static_cast<float>(k)) << i;
        EXPECT_FLOAT_EQ(e.r.top, blocco < 2 ? 75.0f : 91.0f + 20.0f * static_cast<float>(riga)) << i;
        EXPECT_TRUE(e.Visible && e.ForeColor == rosso_scuro && e.BackColor == verde_chiaro && e.FontSize == 8) << i;
    }
    for (const Etichetta& e : f.finestra.lblTot) EXPECT_TRUE(e.r.top == 107 + 20 * (n - 1) && e.Visible) << e.r.top;
    EXPECT_EQ(f.finestra.lblTot[1].r.left, 432);
}

// In a match the hands add up; the greater total is red, the other dark red,
// equal totals both dark red, whatever the hand alone gave.
TEST(Foglio, TheLabelsAndTotalsAfterOneTwoAndThreeHandsAndAfterANewMatch) {
    Foglio f(2);
    struct Passo {
        Mano mano;
        Testi testi;
        std::array<int, 2> totali;
    };
    std::vector<Testi> righe;
    for (const Passo& p : std::vector<Passo>{
             {{23, 6, 0, true, 1, 2}, prima, {4, 2}},
             {{16, 2, 2, true, 0, 0}, {" 16", " 2", "NO", "YES", " 0", " 24", " 8", "YES", "NO", " 0"}, {5, 5}},
             {{25, 9, 1, true, 3, 0}, {" 25", " 9", "YES", "YES", " 3", " 15", " 1", "NO", "NO", " 0"}, {12, 5}}}) {
        f.fine_mano(p.mano);
        righe.push_back(p.testi);
        SCOPED_TRACE(righe.size());
        controlla_foglio(f, righe);
        EXPECT_TRUE(f.finestra.linee.empty() && f.finestra.fondo == arancio);  // CONTINUE wipes nothing
        for (std::size_t i = 0; i < 2; ++i) {
            EXPECT_EQ(f.finestra.lblTot[i].Caption, " " + std::to_string(p.totali[i]));
            EXPECT_EQ(f.finestra.lblTot[i].ForeColor, p.totali[i] > p.totali[1 - i] ? rosso : rosso_scuro);
        }
    }
    // NEW GAME: the match cleared, every control hidden, heads and cells
    // destroyed, the sheet wiped olive, and over to the table.
    f.mod.punti_giocatore = 21;
    f.fine_mano({40, 10, 1, true, 0, 0});
    ASSERT_EQ(f.mod.command1, "NEW GAME");
    f.frm.Command1_Click();
    f.frm.Command1_Click();  // the table is already playing the next hand
    // Once per filled sheet: not before the first.
    EXPECT_EQ(f.finestra.tavolo_mostrato, 4);
    EXPECT_TRUE(f.totali() == (std::array<int, 2>{0, 0}) && f.mod.partite == 0 && f.mod.tipo_partita == 2);
    EXPECT_TRUE(f.frm.LBLdat_Count() == 3 && f.finestra.distrutte == 50);
    EXPECT_FALSE(f.finestra.LBLtit.Visible || f.finestra.lblTot[0].Visible || f.finestra.bottoni[1].Visible);
    for (std::size_t i = 1; i <= 8; ++i) EXPECT_FALSE(f.finestra.imgset[i].Visible) << i;
    EXPECT_EQ(f.finestra.fondo, oliva);
    // The next match's first row stands at the top again; the ground stays olive.
    f.mod.tipo_partita = 0;
    f.fine_mano({23, 6, 0, true, 1, 2});
    controlla_foglio(f, {prima});
    EXPECT_EQ(f.finestra.fondo, oliva);
}

// A resize moves no label that shows; the hidden model keeps its real size.
TEST(Foglio, AResizeMovesNoVisibleLabelAndAMinimisedWindowNothing) {
    Foglio f(2);
    f.fine_mano({23, 6, 0, true, 1, 2});
    const auto prime = f.frm.LBLdat;
    f.finestra.minimizzata_ = true;
    f.finestra.larghezza = 100;
    f.frm.Form_Resize();
    EXPECT_EQ(f.frm.LBLdat.at(0).r.width, prime.at(0).r.width);
    f.finestra.minimizzata_ = false;
    f.finestra.larghezza = 2 * 15360;
    f.frm.Form_Resize();
    EXPECT_FLOAT_EQ(f.finestra.LBLdat.at(0).r.width, prime.at(0).r.width / 2);
    for (const auto& [i, e] : f.frm.LBLdat)
        EXPECT_TRUE(i == 0 || (e.r.left == prime.at(i).r.left && e.r.width == prime.at(i).r.width)) << i;
}

TEST(Uscita, QuitUnloadsTheTableTheCloseControlEndsAtOnce) {
    for (int modo : {-1, 0, 1}) {  // -1: Quit, else the UnloadMode of a close
        Foglio f(0);
        f.fine_mano(punti(1, 0));
        int Cancel = 0;
        modo < 0 ? f.frm.Command2_Click() : f.frm.Form_QueryUnload(Cancel, modo);
        EXPECT_EQ(f.finestra.finito, modo != 1) << modo;
        EXPECT_EQ(f.finestra.tavolo_scaricato, modo < 0 ? 1 : 0) << modo;
        EXPECT_EQ(f.finestra.tavolo_mostrato, 0);
    }
}

// The sheet read out as it shows: each side's row and the points it gives,
// the totals, the best primiera cards, how the hand or match ends, and the
// button that Enter presses.
TEST(Lettura, TheSheetReadAsItShows) {
    struct Caso {
        int tipo, prima_g, prima_c;
        Mano mano;
        Lingua lingua;
        const char* atteso;
    };
    const Caso casi[] = {
        {1, 2, 3, {23, 6, 0, true, 1, 2}, Lingua::inglese,
         "Score sheet, hand 1 of a match to 11 points. Player: Carte 23, Denari 6, Primiera no, Settebello yes, "
         "Leste 1; 4 points. Computer: Carte 17, Denari 4, Primiera no, Settebello no, Leste 2; 2 points. Totals: "
         "Player 6, Computer 5. Best cards of the primiera: Player: Seven of Denari, Girl of Spade; Computer: "
         "Ace of Coppe. The match goes on. Enter: CONTINUE."},
        {2, 19, 17, {20, 5, 2, false, 0, 0}, Lingua::inglese,
         "Score sheet, hand 1 of a match to 21 points. Player: Carte 20, Denari 5, Primiera no, Settebello no, "
         "Leste 0; 0 points. Computer: Carte 20, Denari 5, Primiera yes, Settebello yes, Leste 0; 2 points. "
         "Totals: Player 19, Computer 19. Best cards of the primiera: Player: Seven of Denari, Girl of Spade; "
         "Computer: Ace of Coppe. The match goes on. Enter: CONTINUE."},
        {1, 9, 0, {21, 4, 1, true, 0, 1}, Lingua::italiano,
         "Foglio dei punti, mano 1 di una partita a 11 punti. Giocatore: Carte 21, Denari 4, Primiera sì, "
         "Settebello sì, Leste 0; 3 punti. Computer: Carte 19, Denari 6, Primiera no, Settebello no, Leste 1; 2 "
         "punti. Totali: Giocatore 12, Computer 2. Carte migliori della settanta: Giocatore: Sette di Denari, "
         "Donna di Spade; Computer: Asso di Coppe. Vinci la partita. Invio: NEW GAME."},
        {0, 0, 0, {10, 1, 2, false, 0, 0}, Lingua::inglese,
         "Score sheet of a single hand. Player: Carte 10, Denari 1, Primiera no, Settebello no, Leste 0; 0 "
         "points. Computer: Carte 30, Denari 9, Primiera yes, Settebello yes, Leste 0; 4 points. Totals: Player "
         "0, Computer 4. Best cards of the primiera: Player: Seven of Denari, Girl of Spade; Computer: Ace of "
         "Coppe. The computer wins the hand. Enter: NEW GAME."},
        {0, 0, 0, {20, 5, 0, true, 0, 1}, Lingua::inglese,
         "Score sheet of a single hand. Player: Carte 20, Denari 5, Primiera no, Settebello yes, Leste 0; 1 "
         "point. Computer: Carte 20, Denari 5, Primiera no, Settebello no, Leste 1; 1 point. Totals: Player 1, "
         "Computer 1. Best cards of the primiera: Player: Seven of Denari, Girl of Spade; Computer: Ace of "
         "Coppe. The hand ends in a draw. Enter: NEW GAME."},
    };
    for (const Caso& c : casi) {
        Foglio f(c.tipo, c.prima_g, c.prima_c);
        // The player's best cards: the seven of coins and the girl of swords;
        // the computer's: the Ace of cups alone.
        f.mod.migliori[1] = {0, 1, nessuna_carta, nessuna_carta, 8};
        f.mod.migliori[2] = {0, nessuna_carta, 3, nessuna_carta, nessuna_carta};
        f.fine_mano(c.mano);
        EXPECT_EQ(lettura_del_foglio(f.mod, c.lingua), c.atteso);
    }
}

}  // namespace
}  // namespace lesta
