// SPDX-License-Identifier: GPL-3.0-or-later
// The primiera: each side's best card in each suit, the sums and who wins
// them, and the cards that the sheet shows.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

#include "banco.h"
#include "headless/punteggio.h"
#include "scoring/frmscore.h"
#include "scoring/settanta.h"

namespace lesta {
namespace {

using Carte = std::vector<int>;

// The piles as the end of a hand lists them: the player's numcarte cards,
// then the computer's; with no list for the computer it holds all the rest,
// and the places left over hold no card.
void pile(ModLesta& mod, Carte giocatore, Carte computer = {}, bool indietro = false) {
    if (computer.empty())
        for (int c = 1; c <= 40; ++c)
            if (std::find(giocatore.begin(), giocatore.end(), c) == giocatore.end()) computer.push_back(c);
    if (indietro) std::reverse(giocatore.begin(), giocatore.end());
    if (indietro) std::reverse(computer.begin(), computer.end());
    mod.carte = {};
    mod.numcarte = static_cast<std::int16_t>(giocatore.size());
    int i = 0;
    for (int c : giocatore) mod.carte[++i] = static_cast<Carta>(c);
    for (int c : computer) mod.carte[++i] = static_cast<Carta>(c);
}

TEST(Calcsettanta, BestCardsSumsAndWinnerInAnyOrderOverAnyTable) {
    struct Caso {
        const char* nome;
        Carte giocatore, computer;
        std::array<int, 4> migliori_g, migliori_c;  // positions, 11 for none
        int settanta_g, settanta_c, vince;
    };
    const std::vector<Caso> casi = {
        {"cards 2 7 11 30", {2, 7, 11, 30}, {}, {1, 3, 10, 11}, {2, 1, 1, 1}, 47, 81, 2},
        {"two whole suits each",
         {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30},
         {},
         {1, 11, 1, 11},
         {11, 1, 11, 1},
         42,
         42,
         0},
        {"figures only", {8, 9, 10, 18, 19, 20, 28, 29, 30, 38, 39, 40}, {}, {8, 8, 8, 8}, {1, 1, 1, 1}, 40, 84, 2},
        {"girl and King of coins", {10, 8}, {}, {8, 11, 11, 11}, {1, 1, 1, 1}, 10, 84, 2},
        {"nothing", {}, {}, {11, 11, 11, 11}, {1, 1, 1, 1}, 0, 84, 2},
        {"twos to fours and a nine", {2, 13, 24, 39}, {}, {7, 6, 5, 9}, {1, 1, 1, 1}, 49, 84, 2},
        {"sixes against sevens", {6, 16, 26, 36}, {}, {2, 2, 2, 2}, {1, 1, 1, 1}, 72, 84, 2},
        {"a seven, three sixes", {7, 16, 26, 36}, {}, {1, 2, 2, 2}, {2, 1, 1, 1}, 75, 81, 2},
        {"best three of three suits", {7, 6, 1, 17, 16, 11, 27, 26, 21}, {}, {1, 1, 1, 11}, {4, 4, 4, 1}, 63, 66, 2},
        // Three sevens beat four fives though they lack a suit.
        {"63 to 60", {7, 17, 27}, {5, 15, 25, 35, 4, 14, 38}, {1, 1, 1, 11}, {4, 4, 4, 4}, 63, 60, 1},
    };
    prova::Banco b;
    for (const Caso& k : casi)
        for (bool indietro : {false, true}) {
            pile(b.mod, k.giocatore, k.computer, indietro);
            for (auto& riga : b.frm.tavolo) riga.fill(33);  // the count works on the table
            b.mod.vince_settanta = 9;
            b.frm.calcsettanta();
            const auto& m = b.mod.migliori;
            EXPECT_EQ((std::array<int, 4>{m[1][1], m[1][2], m[1][3], m[1][4]}), k.migliori_g) << k.nome << indietro;
            EXPECT_EQ((std::array<int, 4>{m[2][1], m[2][2], m[2][3], m[2][4]}), k.migliori_c) << k.nome << indietro;
            EXPECT_EQ((std::array<int, 3>{b.frm.settanta[1], b.frm.settanta[2], b.mod.vince_settanta}),
                      (std::array<int, 3>{k.settanta_g, k.settanta_c, k.vince}))
                << k.nome << indietro;
        }
}

// Each side's best card of each suit over the title; a suit that a side
// lacks leaves its place empty and the others stay where they are.
TEST(Mostrasettanta, TheBestCardsStandOverTheTitle) {
    prova::Banco b;
    PunteggioSenzaSchermo finestra;
    Frmscore foglio(finestra, b.mod);
    foglio.Form_Load();
    struct Caso {
        Carte giocatore;
        std::array<int, 9> carte;  // 1..8, 0 for an empty place
    };
    for (const Caso& k : {Caso{{2, 7, 11, 30}, {0, 7, 11, 30, 0, 6, 17, 27, 37}},
                          Caso{{8, 9, 10, 19, 20, 30, 38, 40}, {0, 8, 19, 30, 38, 7, 17, 27, 37}},
                          Caso{{2, 13, 24, 35}, {0, 2, 13, 24, 35, 7, 17, 27, 37}}}) {
        pile(b.mod, k.giocatore);
        b.frm.calcsettanta();
        foglio.mostrasettanta();
        for (std::size_t i = 1; i <= 8; ++i) {
            const Imgset& im = finestra.imgset[i];
            EXPECT_EQ(im.r.left, i <= 4 ? 50.0f * i : 50.0f * i + 300) << i;
            EXPECT_EQ(im.r.top, 5) << i;
            EXPECT_EQ(im.Visible, k.carte[i] != 0) << i;
            EXPECT_TRUE(!im.Visible || im.carta == k.carte[i]) << i;
        }
    }
}

}  // namespace
}  // namespace lesta
