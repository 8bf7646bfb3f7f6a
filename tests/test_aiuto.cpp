// The help panels: which opens and closes on each menu entry and click, and
// the texts they hold.

#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "banco.h"
#include "table/testi_aiuto.h"

namespace lesta {
namespace {

using prova::Banco;

constexpr Controllo Text2 = Controllo::Text2, Text3 = Controllo::Text3, Text4 = Controllo::Text4;

// Which panels show, as the game has them and as the window was told.
std::string aperti(const Banco<>& b) {
    std::string s;
    for (auto [c, nome] : {std::pair{Text2, "2"}, std::pair{Text3, "3"}, std::pair{Text4, "4"}}) {
        const bool gioco = b.frm.Visible(c);
        const bool finestra = b.finestra.controlli[static_cast<std::size_t>(c)].visibile;
        EXPECT_EQ(gioco, finestra) << "Text" << nome;
        if (gioco) s += nome;
    }
    return s;
}

TEST(PannelliAiuto, AllHiddenAtLoad) {
    Banco b;
    EXPECT_EQ(aperti(b), "");
}

TEST(PannelliAiuto, EnglishAndItalianTakeEachOthersPlace) {
    Banco b;
    b.frm.Italiano_Click();
    EXPECT_EQ(aperti(b), "3");
    b.frm.english_Click();
    EXPECT_EQ(aperti(b), "2");
    EXPECT_TRUE(b.finestra.controlli[static_cast<std::size_t>(Text2)].in_primo_piano);
    b.frm.Italiano_Click();
    EXPECT_EQ(aperti(b), "3");
    EXPECT_TRUE(b.finestra.controlli[static_cast<std::size_t>(Text3)].in_primo_piano);
}

TEST(PannelliAiuto, ChoosingThePanelThatIsOpenLeavesItOpen) {
    Banco b;
    b.frm.english_Click();
    b.frm.english_Click();
    EXPECT_EQ(aperti(b), "2");
    b.frm.Italiano_Click();
    b.frm.Italiano_Click();
    EXPECT_EQ(aperti(b), "3");
}

TEST(PannelliAiuto, InfoTwiceOpensAndCloses) {
    Banco b;
    b.frm.menu_about_Click();
    EXPECT_EQ(aperti(b), "4");
    EXPECT_TRUE(b.finestra.controlli[static_cast<std::size_t>(Text4)].in_primo_piano);
    b.frm.menu_about_Click();
    EXPECT_EQ(aperti(b), "");
}

TEST(PannelliAiuto, InfoClosesTheItalianRulesButOpensOverTheEnglishOnes) {
    Banco b;
    b.frm.Italiano_Click();
    b.frm.menu_about_Click();
    EXPECT_EQ(aperti(b), "4");

    Banco e;
    e.frm.english_Click();
    e.frm.menu_about_Click();
    EXPECT_EQ(aperti(e), "24");
    EXPECT_TRUE(e.frm.davanti(Text4, Text2));
    // Closing the information shows the English rules again.
    e.frm.menu_about_Click();
    EXPECT_EQ(aperti(e), "2");
    // And a click on the information closes it the same way.
    e.frm.menu_about_Click();
    e.frm.Text4_Click();
    EXPECT_EQ(aperti(e), "2");
}

TEST(PannelliAiuto, AClickOnAPanelClosesOnlyThatOne) {
    Banco b;
    b.frm.Italiano_Click();
    b.frm.Text3_Click();
    EXPECT_EQ(aperti(b), "");
    b.frm.english_Click();
    b.frm.Text3_Click();  // a click that cannot reach a hidden panel changes nothing
    EXPECT_EQ(aperti(b), "2");
    b.frm.menu_about_Click();
    b.frm.Text4_Click();
    EXPECT_EQ(aperti(b), "2");
}

TEST(PannelliAiuto, ATurnLightOrGoClosesThemAll) {
    for (int modo = 0; modo < 4; ++modo) {
        Banco b;
        b.frm.english_Click();
        b.frm.menu_about_Click();
        ASSERT_EQ(aperti(b), "24");
        switch (modo) {
            case 0: b.frm.Verde_Click(0); break;
            case 1: b.frm.Verde_Click(1); break;
            case 2: b.frm.Rosso_Click(0); break;
            case 3: b.frm.GO_Click(); break;
        }
        EXPECT_EQ(aperti(b), "") << modo;
    }
}

// At most two panels at a time, and then the information over the English
// rules; whatever is clicked, in whatever order.
TEST(PannelliAiuto, NeverMoreThanTheInformationOverTheEnglishRules) {
    Banco b;
    std::mt19937 caso(11);
    for (int passo = 0; passo < 2000; ++passo) {
        switch (caso() % 7) {
            case 0: b.frm.english_Click(); break;
            case 1: b.frm.Italiano_Click(); break;
            case 2: b.frm.menu_about_Click(); break;
            case 3: b.frm.Text3_Click(); break;
            case 4: b.frm.Text4_Click(); break;
            case 5: b.frm.Verde_Click(static_cast<int>(caso() % 2)); break;
            case 6: b.frm.Rosso_Click(static_cast<int>(caso() % 2)); break;
        }
        const std::string s = aperti(b);
        ASSERT_TRUE(s == "" || s == "2" || s == "3" || s == "4" || s == "24") << s << " at " << passo;
        if (s == "24") {
            ASSERT_TRUE(b.frm.davanti(Text4, Text2));
        }
    }
}

// ---- the texts ----

std::vector<std::string> righe(std::string_view testo) {
    std::vector<std::string> out;
    std::istringstream in{std::string(testo)};
    for (std::string r; std::getline(in, r);) out.push_back(r);
    return out;
}

// Characters, not bytes: the Italian accents take two bytes each. -1 if the
// text is not valid UTF-8.
int caratteri(std::string_view s) {
    int n = 0;
    for (std::size_t i = 0; i < s.size();) {
        const auto c = static_cast<unsigned char>(s[i]);
        const std::size_t lunghezza = c < 0x80 ? 1 : (c >> 5) == 0x6 ? 2 : (c >> 4) == 0xE ? 3 : (c >> 3) == 0x1E ? 4 : 0;
        if (lunghezza == 0 || i + lunghezza > s.size()) return -1;
        for (std::size_t k = 1; k < lunghezza; ++k) {
            if ((static_cast<unsigned char>(s[i + k]) >> 6) != 0x2) return -1;
        }
        i += lunghezza;
        ++n;
    }
    return n;
}

// The pieces appear in the text in this order; the first one missing or out
// of place is returned, or "" if all are there in order.
std::string in_ordine(std::string_view testo, std::initializer_list<std::string_view> pezzi) {
    std::size_t da = 0;
    for (auto p : pezzi) {
        const std::size_t dove = testo.find(p, da);
        if (dove == std::string_view::npos) return std::string(p);
        da = dove + p.size();
    }
    return "";
}

// The line of the table that names `carta`: its value at the end of it.
int valore_in_tabella(std::string_view testo, std::string_view carta) {
    for (const auto& r : righe(testo)) {
        if (r.rfind("  " + std::string(carta) + " ", 0) == 0) return std::stoi(r.substr(r.find_last_of(' ') + 1));
    }
    return -1;
}

TEST(TestiAiuto, LinesAreBrokenByHandAtAbout38Characters) {
    for (auto [nome, testo] : {std::pair{"Text2", testo_inglese}, std::pair{"Text3", testo_italiano},
                               std::pair{"Text4", testo_informazioni}}) {
        ASSERT_FALSE(testo.empty()) << nome;
        EXPECT_EQ(testo.back(), '\n') << nome;
        EXPECT_EQ(testo.find('\r'), std::string_view::npos) << nome;
        EXPECT_EQ(testo.find('\t'), std::string_view::npos) << nome;
        for (const auto& r : righe(testo)) {
            const int n = caratteri(r);
            EXPECT_GE(n, 0) << nome << ": not UTF-8: " << r;
            EXPECT_LE(n, 38) << nome << ": " << r;
            EXPECT_TRUE(r.empty() || r.back() != ' ') << nome << ": blank at the end of \"" << r << "\"";
        }
    }
    // The rules are long texts, for a panel with a scroll bar.
    EXPECT_GT(righe(testo_inglese).size(), 40u);
    EXPECT_GT(righe(testo_italiano).size(), 40u);
}

TEST(TestiAiuto, TheEnglishRulesInTheirOrder) {
    const std::string_view t = testo_inglese;
    EXPECT_EQ(in_ordine(t, {
                               // a word on the game
                               "computer", "three kinds of game", "one game", "11 points game", "21 points",
                               "background music", "scores", "end of each game",
                               // the cards
                               "Do you know neapolitan cards?", "Denari", "Coppe", "Spade", "Bastoni", "Diamonds",
                               "Hearts", "Spades", "Cudgels", "first seven cards", "as many symbols as their value",
                               "girl is worth eight", "horse", "nine", "king ten",
                               // the rules
                               "Game Rules", "three types of game", "draw", "play goes on", "dealer lays 4 uncovered cards",
                               "3 covered cards", "at a time", "other", "player starts", "greater number of cards",
                               // captures
                               "same value", "sum equals", "a 7 takes 6+1 or 5+2", "clicking", "again", "deselect",
                               // the sweep
                               "all the cards of the table", "sweep", "uncovered beside the pack just", "one point",
                               // scoring
                               "coin cards are", "counted", "Settebello", "1 point",
                               // primiera
                               "Primiera", "primero", "4 highest", "one for each suit", "Seven", "Six", "Ace", "Five",
                               "Four", "Three", "Figures (eight nine and ten)", "four sevens",
                               // advice
                               "most cards", "coins", "best primiera", "Settebello and the aces", "sweep",
                           }),
              "");
    EXPECT_EQ(valore_in_tabella(t, "Seven"), 21);
    EXPECT_EQ(valore_in_tabella(t, "Six"), 18);
    EXPECT_EQ(valore_in_tabella(t, "Ace"), 16);
    EXPECT_EQ(valore_in_tabella(t, "Five"), 15);
    EXPECT_EQ(valore_in_tabella(t, "Four"), 14);
    EXPECT_EQ(valore_in_tabella(t, "Three"), 13);
    EXPECT_EQ(valore_in_tabella(t, "Figures (eight nine and ten)"), 10);
    EXPECT_EQ(valore_in_tabella(t, "Two"), -1);
    // Five lines of advice close the text.
    const auto r = righe(t);
    ASSERT_GE(r.size(), 6u);
    EXPECT_EQ(r[r.size() - 6], "Some advice:");
    for (std::size_t i = r.size() - 5; i < r.size(); ++i) EXPECT_EQ(r[i].rfind("- ", 0), 0u) << r[i];
    // The summary of the score belongs to the Italian rules only.
    EXPECT_EQ(t.find("five"), std::string_view::npos);
}

TEST(TestiAiuto, TheItalianRulesInTheirOrderWithTheSummaryAtTheEnd) {
    const std::string_view t = testo_italiano;
    EXPECT_EQ(righe(t).front(), "Regole del gioco");
    EXPECT_EQ(in_ordine(t, {
                               "Regole del gioco", "tre modi", "partita", "11 punti", "21 punti", "pari",
                               "si\ncontinua", "mazziere", "4 carte\nscoperte", "3 carte coperte", "per\nvolta",
                               "l'altro giocatore", "maggior numero di carte",
                               "pari valore", "somma", "un 7 prende 6+1 o 5+2", "clic", "un altro clic",
                               "tutte le carte in tavola", "scopa", "resta scoperta accanto al mazzetto", "un\npunto",
                               "si contano i denari", "Settebello", "1 punto",
                               "Settanta", "4 carte migliori", "una per seme", "Sette", "Sei", "Asso", "Cinque",
                               "Quattro", "Tre", "Figure (otto nove e dieci)", "quattro sette",
                               "Consigli", "più carte", "denari", "settanta migliore", "Settebello e gli assi", "scopa",
                               // the summary that the English rules lack
                               "punteggio finale", "cinque", "più\ncarte", "più denari", "settanta migliore",
                               "Settebello", "ogni\nscopa",
                           }),
              "");
    EXPECT_EQ(valore_in_tabella(t, "Sette"), 21);
    EXPECT_EQ(valore_in_tabella(t, "Sei"), 18);
    EXPECT_EQ(valore_in_tabella(t, "Asso"), 16);
    EXPECT_EQ(valore_in_tabella(t, "Cinque"), 15);
    EXPECT_EQ(valore_in_tabella(t, "Quattro"), 14);
    EXPECT_EQ(valore_in_tabella(t, "Tre"), 13);
    EXPECT_EQ(valore_in_tabella(t, "Figure (otto nove e dieci)"), 10);
    EXPECT_EQ(valore_in_tabella(t, "Due"), -1);
    // Neither the word on the game nor the cards: no music, no suits.
    for (std::string_view assente : {"musica", "Coppe", "Spade", "Bastoni", "computer", "primiera", "Primiera"}) {
        EXPECT_EQ(t.find(assente), std::string_view::npos) << assente;
    }
}

TEST(TestiAiuto, TheInformationIsTheVersionAndTheDeck) {
    EXPECT_EQ(righe(testo_informazioni), (std::vector<std::string>{"Lesta  ver. 3.4", "Carte triestine"}));
}

}  // namespace
}  // namespace lesta
