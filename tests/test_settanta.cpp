// The primiera: the points of each rank, the best card of each side in each
// suit, the sums and who wins them, and the cards that the sheet shows.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "banco.h"
#include "headless/punteggio.h"
#include "scoring/frmscore.h"
#include "scoring/settanta.h"

namespace lesta {
namespace {

using prova::Banco;

TEST(Valoresettanta, EachRankDigitHasItsPointsAndAnythingElseNone) {
    const std::vector<std::pair<int, int>> righe = {
        {7, 21}, {6, 18}, {1, 16}, {5, 15}, {4, 14}, {3, 13}, {2, 12}, {8, 10}, {9, 10}, {0, 10},
        {-1, 0}, {10, 0}, {11, 0}, {70, 0}, {-32768, 0}, {32767, 0},
    };
    for (auto [cifra_rango, punti] : righe)
        EXPECT_EQ(valoresettanta(static_cast<std::int16_t>(cifra_rango)), punti) << cifra_rango;
}

TEST(Valoresettanta, TheOrderOfRanksGivesNeverMorePointsToAWorseRank) {
    ASSERT_EQ(ordine_settanta.size(), 10u);
    for (std::size_t i = 0; i + 1 < ordine_settanta.size(); ++i) {
        const auto meglio = static_cast<std::int16_t>(ordine_settanta[i] - '0');
        const auto peggio = static_cast<std::int16_t>(ordine_settanta[i + 1] - '0');
        EXPECT_GE(valoresettanta(meglio), valoresettanta(peggio)) << i;
        EXPECT_EQ(posizione_settanta(meglio), static_cast<int>(i) + 1);
    }
}

TEST(Valoresettanta, ThePositionOfASuitsBestCardNamesTheCard) {
    struct Riga {
        int seme, posizione, carta;
    };
    const std::vector<Riga> righe = {
        {1, 1, 7},   {1, 3, 1},   {1, 8, 8},   {1, 10, 10}, {2, 3, 11},  {2, 10, 20}, {3, 10, 30},
        {4, 1, 37},  {4, 7, 32},  {4, 9, 39},  {1, 11, 0},  {4, 11, 0},  {1, 0, 0},   {0, 1, 0},
        {5, 1, 0},
    };
    for (const Riga& r : righe) EXPECT_EQ(carta_migliore(r.seme, r.posizione), r.carta) << r.seme << "/" << r.posizione;
}

// The piles as the end of a hand lists them: the player's cards ascending in
// 1..numcarte, the computer's (all the others) ascending after them.
void pile(ModLesta& mod, std::vector<int> giocatore) {
    std::sort(giocatore.begin(), giocatore.end());
    mod.numcarte = static_cast<std::int16_t>(giocatore.size());
    int i = 0;
    for (int c : giocatore) mod.carte[++i] = static_cast<Carta>(c);
    for (int c = 1; c <= 40; ++c)
        if (std::find(giocatore.begin(), giocatore.end(), c) == giocatore.end()) mod.carte[++i] = static_cast<Carta>(c);
}

std::vector<int> da_a(int primo, int ultimo) {
    std::vector<int> v;
    for (int c = primo; c <= ultimo; ++c) v.push_back(c);
    return v;
}

std::vector<int> unione(std::initializer_list<std::vector<int>> parti) {
    std::vector<int> v;
    for (const auto& p : parti) v.insert(v.end(), p.begin(), p.end());
    return v;
}

struct Caso {
    std::string nome;
    std::vector<int> giocatore;
    std::array<int, 4> migliori_giocatore;
    int settanta_giocatore;
    std::array<int, 4> migliori_computer;
    int settanta_computer;
    int vince;
};

const std::vector<Caso>& casi() {
    static const std::vector<Caso> tutti = {
        // The player's 2 and 7 of coins, Ace of cups and King of batons; the
        // computer lacks the seven of coins and falls back on its six.
        {"cards 2 7 11 30", {2, 7, 11, 30}, {1, 3, 10, 11}, 47, {2, 1, 1, 1}, 81, 2},
        {"four sevens", {7, 17, 27, 37}, {1, 1, 1, 1}, 84, {2, 2, 2, 2}, 72, 1},
        {"two whole suits each: a tie", unione({da_a(1, 10), da_a(21, 30)}), {1, 11, 1, 11}, 42, {11, 1, 11, 1}, 42, 0},
        {"figures only", {8, 9, 10, 18, 19, 20, 28, 29, 30, 38, 39, 40}, {8, 8, 8, 8}, 40, {1, 1, 1, 1}, 84, 2},
        {"girl and King of coins", {8, 10}, {8, 11, 11, 11}, 10, {1, 1, 1, 1}, 84, 2},
        {"horse and King of cups", {19, 20}, {11, 9, 11, 11}, 10, {1, 1, 1, 1}, 84, 2},
        {"King of swords alone", {40}, {11, 11, 11, 10}, 10, {1, 1, 1, 1}, 84, 2},
        {"the two of batons alone", {22}, {11, 11, 7, 11}, 12, {1, 1, 1, 1}, 84, 2},
        {"nothing for the player", {}, {11, 11, 11, 11}, 0, {1, 1, 1, 1}, 84, 2},
        {"everything for the player", da_a(1, 40), {1, 1, 1, 1}, 84, {11, 11, 11, 11}, 0, 1},
        {"one suit against three", da_a(1, 10), {1, 11, 11, 11}, 21, {11, 1, 1, 1}, 63, 2},
        // Sevens, sixes and Aces of three suits against the rest: the
        // computer holds no card better than a five in those suits, and
        // every card of swords.
        {"the three best of three suits",
         {7, 6, 1, 17, 16, 11, 27, 26, 21},
         {1, 1, 1, 11},
         63,
         {4, 4, 4, 1},
         66,
         2},
        // Every six for the player, every seven for the computer.
        {"sixes against sevens", {6, 16, 26, 36}, {2, 2, 2, 2}, 72, {1, 1, 1, 1}, 84, 2},
        // A seven and the sixes of the other suits: 21 + 3 x 18 = 75 against
        // the computer's three sevens and a six, 3 x 21 + 18 = 81.
        {"one seven and three sixes", {7, 16, 26, 36}, {1, 2, 2, 2}, 75, {2, 1, 1, 1}, 81, 2},
    };
    return tutti;
}

void controlla(const Banco<>& b, const Caso& caso, const std::string& come) {
    for (int u = 1; u <= 4; ++u) {
        EXPECT_EQ(b.mod.migliori[1][u], caso.migliori_giocatore[static_cast<std::size_t>(u - 1)])
            << caso.nome << " " << come << " suit " << u;
        EXPECT_EQ(b.mod.migliori[2][u], caso.migliori_computer[static_cast<std::size_t>(u - 1)])
            << caso.nome << " " << come << " suit " << u;
    }
    EXPECT_EQ(b.frm.settanta[1], caso.settanta_giocatore) << caso.nome << " " << come;
    EXPECT_EQ(b.frm.settanta[2], caso.settanta_computer) << caso.nome << " " << come;
    EXPECT_EQ(b.mod.vince_settanta, caso.vince) << caso.nome << " " << come;
}

TEST(Calcsettanta, BestCardsSumsAndWinnerOfEachPairOfPiles) {
    for (const Caso& caso : casi()) {
        Banco b;
        pile(b.mod, caso.giocatore);
        b.frm.calcsettanta();
        controlla(b, caso, "");
    }
}

TEST(Calcsettanta, TheOrderOfTheCardsInAPileChangesNothing) {
    for (const Caso& caso : casi()) {
        Banco b;
        pile(b.mod, caso.giocatore);
        // Each pile backwards: a six now comes before the seven of its suit.
        std::reverse(b.mod.carte.begin() + 1, b.mod.carte.begin() + 1 + b.mod.numcarte);
        std::reverse(b.mod.carte.begin() + 1 + b.mod.numcarte, b.mod.carte.end());
        b.frm.calcsettanta();
        controlla(b, caso, "reversed");

        // And turned round by a third.
        pile(b.mod, caso.giocatore);
        std::rotate(b.mod.carte.begin() + 1 + b.mod.numcarte, b.mod.carte.begin() + 1 + b.mod.numcarte + (40 - b.mod.numcarte) / 3,
                    b.mod.carte.end());
        b.frm.calcsettanta();
        controlla(b, caso, "rotated");
    }
}

TEST(Calcsettanta, WhatTheTableHeldBeforeTheCountDoesNotMatter) {
    for (const Caso& caso : casi()) {
        Banco b;
        for (auto& riga : b.frm.tavolo) riga.fill(33);
        b.frm.settanta = {5, 99, -7};
        b.mod.vince_settanta = 9;
        pile(b.mod, caso.giocatore);
        b.frm.calcsettanta();
        controlla(b, caso, "over a full table");
        // The count works on the table: row 3 ends with the computer's best
        // positions, row 2 with the points of its best cards.
        for (int u = 1; u <= 4; ++u) {
            EXPECT_EQ(b.frm.tavolo[3][u], b.mod.migliori[2][u]) << caso.nome;
            const int carta = carta_migliore(u, b.mod.migliori[2][u]);
            EXPECT_EQ(b.frm.tavolo[2][u], carta == 0 ? 0 : valoresettanta(static_cast<std::int16_t>(carta % 10)))
                << caso.nome;
        }
    }
}

// Three sevens beat four fives, 63 to 60: a side that lacks a suit still
// takes the point when its sum is the greater. Entries that hold no card
// count for nothing.
TEST(Calcsettanta, ThreeSevensBeatFourFivesWithoutTheFourthSuit) {
    Banco b;
    b.mod.carte = {};
    b.mod.numcarte = 3;
    const int carte[] = {7, 17, 27, 5, 15, 25, 35, 4, 14, 38};
    for (int i = 0; i < 10; ++i) b.mod.carte[static_cast<std::size_t>(i + 1)] = static_cast<Carta>(carte[i]);
    b.frm.calcsettanta();
    EXPECT_EQ(b.frm.settanta[1], 63);
    EXPECT_EQ(b.frm.settanta[2], 60);
    EXPECT_EQ(b.mod.vince_settanta, 1);
    EXPECT_EQ(b.mod.migliori[1][4], nessuna_carta);
    EXPECT_EQ(b.mod.migliori[2][4], 4);

    // The other way round, the fives for the player.
    b.mod.carte = {};
    b.mod.numcarte = 4;
    const int scambiate[] = {5, 15, 25, 35, 7, 17, 27};
    for (int i = 0; i < 7; ++i) b.mod.carte[static_cast<std::size_t>(i + 1)] = static_cast<Carta>(scambiate[i]);
    b.frm.calcsettanta();
    EXPECT_EQ(b.frm.settanta[1], 60);
    EXPECT_EQ(b.frm.settanta[2], 63);
    EXPECT_EQ(b.mod.vince_settanta, 2);
}

TEST(Calcsettanta, EverySplitOfOneSuitGivesTheBetterSideItsBestCard) {
    // All 1024 ways of splitting the coins, the other suits to the computer:
    // each side's best coin is the first of the order of ranks that it holds.
    for (int maschera = 0; maschera < 1024; ++maschera) {
        std::vector<int> giocatore;
        for (int c = 1; c <= 10; ++c)
            if ((maschera >> (c - 1)) & 1) giocatore.push_back(c);
        Banco b;
        pile(b.mod, giocatore);
        b.frm.calcsettanta();
        int atteso_giocatore = nessuna_carta, atteso_computer = nessuna_carta;
        for (int pos = 10; pos >= 1; --pos) {
            const int c = carta_migliore(1, pos);
            const bool del_giocatore = std::find(giocatore.begin(), giocatore.end(), c) != giocatore.end();
            (del_giocatore ? atteso_giocatore : atteso_computer) = pos;
        }
        ASSERT_EQ(b.mod.migliori[1][1], atteso_giocatore) << maschera;
        ASSERT_EQ(b.mod.migliori[2][1], atteso_computer) << maschera;
        const auto punti = [](int pos) {
            return pos == nessuna_carta ? 0 : valoresettanta(static_cast<std::int16_t>(carta_migliore(1, pos) % 10));
        };
        ASSERT_EQ(b.frm.settanta[1], punti(atteso_giocatore)) << maschera;
        ASSERT_EQ(b.frm.settanta[2], punti(atteso_computer) + 63) << maschera;
    }
}

// The sheet shows each side's best card of each suit over its title; a suit
// that a side lacks leaves its place empty and the others stay where they are.
TEST(Mostrasettanta, TheBestCardsOfTheTwoSidesStandOverTheTitle) {
    Banco b;
    PunteggioSenzaSchermo finestra;
    Frmscore foglio(finestra, b.mod);
    foglio.Form_Load();
    pile(b.mod, {2, 7, 11, 30});
    b.frm.calcsettanta();
    foglio.mostrasettanta();

    struct Atteso {
        float left;
        bool visibile;
        int carta;
    };
    const std::array<Atteso, 9> attesi = {{
        {0, false, 0},
        {50, true, 7},
        {100, true, 11},
        {150, true, 30},
        {200, false, 0},
        {550, true, 6},
        {600, true, 17},
        {650, true, 27},
        {700, true, 37},
    }};
    for (int i = 1; i <= 8; ++i) {
        const Immagine& im = finestra.imgset[static_cast<std::size_t>(i)];
        EXPECT_EQ(im.r.left, attesi[static_cast<std::size_t>(i)].left) << i;
        EXPECT_EQ(im.r.top, 5) << i;
        EXPECT_FLOAT_EQ(im.r.width, 372.0f * 800.0f / 15360.0f) << i;
        EXPECT_FLOAT_EQ(im.r.height, 600.0f * 600.0f / 11985.0f) << i;
        EXPECT_EQ(im.Visible, attesi[static_cast<std::size_t>(i)].visibile) << i;
        if (im.Visible) {
            EXPECT_EQ(im.carta, attesi[static_cast<std::size_t>(i)].carta) << i;
        }
        // The window was told what the sheet holds.
        EXPECT_EQ(foglio.imgset[static_cast<std::size_t>(i)].Visible, im.Visible) << i;
    }

    // The next hand: the player has only figures; each suit shows its girl,
    // and the computer's sevens.
    pile(b.mod, {8, 9, 10, 19, 20, 30, 38, 40});
    b.frm.calcsettanta();
    foglio.mostrasettanta();
    const std::array<int, 9> carte = {0, 8, 19, 30, 38, 7, 17, 27, 37};
    for (int i = 1; i <= 8; ++i) {
        EXPECT_TRUE(finestra.imgset[static_cast<std::size_t>(i)].Visible) << i;
        EXPECT_EQ(finestra.imgset[static_cast<std::size_t>(i)].carta, carte[static_cast<std::size_t>(i)]) << i;
    }
}

}  // namespace
}  // namespace lesta
