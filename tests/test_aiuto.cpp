// SPDX-License-Identifier: GPL-3.0-or-later
// The help panels: which opens and closes on each menu entry and click, and
// the shape of the texts they hold.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <sstream>

#include "banco.h"
#include "match/geometria.h"
#include "table/testi_aiuto.h"
#include "table/vista.h"

namespace lesta {
namespace {

using prova::Banco;

constexpr Controllo Text2 = Controllo::Text2, Text3 = Controllo::Text3, Text4 = Controllo::Text4;

// Which panels show, as the game has them and as the window was told.
std::string aperti(const Banco<>& b) {
    std::string s;
    for (auto [c, nome] : {std::pair{Text2, '2'}, std::pair{Text3, '3'}, std::pair{Text4, '4'}}) {
        EXPECT_EQ(b.frm.Visible(c), b.finestra.controlli[static_cast<std::size_t>(c)].visibile) << nome;
        if (b.frm.Visible(c)) s += nome;
    }
    return s;
}

// E English, I Italian, A information (the menu); 3 and 4 a click on Text3 or
// Text4; V and v the green light, R the red one, G the GO button.
const std::map<char, std::function<void(Frmlesta&)>> azione = {{'E', &Frmlesta::english_Click},
                                                               {'I', &Frmlesta::Italiano_Click},
                                                               {'A', &Frmlesta::menu_about_Click},
                                                               {'3', &Frmlesta::Text3_Click},
                                                               {'4', &Frmlesta::Text4_Click},
                                                               {'V', [](Frmlesta& f) { f.Verde_Click(0); }},
                                                               {'v', [](Frmlesta& f) { f.Verde_Click(1); }},
                                                               {'R', [](Frmlesta& f) { f.Rosso_Click(0); }},
                                                               {'G', &Frmlesta::GO_Click}};

// From each state the panels can be in, every action, and the panels after it.
TEST(PannelliAiuto, EveryActionFromEveryState) {
    const std::string azioni = "EIA34VvRG";
    // The panels "", 2, 3, 4 and 24, reached by the actions `via`.
    const struct {
        const char* via;
        std::array<const char*, 9> dopo;
    } tabella[] = {
        {"", {"2", "3", "4", "", "", "", "", "", ""}},      {"E", {"2", "3", "24", "2", "2", "", "", "", ""}},
        {"I", {"2", "3", "4", "", "3", "", "", "", ""}},    {"A", {"2", "3", "", "4", "", "", "", "", ""}},
        {"EA", {"2", "3", "2", "24", "2", "", "", "", ""}},
    };
    for (const auto& riga : tabella) {
        for (std::size_t i = 0; i < azioni.size(); ++i) {
            Banco b;
            for (const char* p = riga.via; *p; ++p) azione.at (*p)(b.frm);
            azione.at(azioni[i])(b.frm);
            const std::string s = aperti(b);
            EXPECT_EQ(s, riga.dopo[i]) << riga.via << " then " << azioni[i];
            // A panel the menu opens comes to the front; the information
            // stands over the English rules.
            const Controllo dal_menu[] = {Text2, Text3, Text4};
            if (i < 3 && b.frm.Visible(dal_menu[i])) {
                EXPECT_TRUE(b.finestra.controlli[static_cast<std::size_t>(dal_menu[i])].in_primo_piano)
                    << riga.via << azioni[i];
            }
            if (s == "24") {
                EXPECT_TRUE(b.frm.davanti(Text4, Text2)) << riga.via << azioni[i];
            }
        }
    }
}

// Every line fits the panel: at most 38 characters, no blanks at the end.
TEST(TestiAiuto, LinesFitThePanel) {
    for (std::string_view testo : {testo_inglese, testo_italiano, testo_informazioni}) {
        ASSERT_FALSE(testo.empty());
        EXPECT_EQ(testo.back(), '\n');
        std::istringstream in{std::string(testo)};
        for (std::string r; std::getline(in, r);) {
            // Characters, not bytes: UTF-8's continuation bytes are not counted.
            const auto n = std::count_if(r.begin(), r.end(), [](char c) { return (c & 0xC0) != 0x80; });
            EXPECT_LE(n, 38) << r;
            EXPECT_TRUE(r.empty() || r.back() != ' ') << r;
        }
    }
}

// Both rules panels name the keys that play as the game names them, the
// table's a row of keys at a time, and say that a key counts by its place.
TEST(TestiAiuto, TheRulesNameTheKeysThatPlay) {
    std::vector<std::string> nomi;
    for (std::size_t i = 0; i < tasti_mano.size(); ++i) nomi.emplace_back(1, tasti_mano[i]);
    for (std::size_t riga = 0; riga < tasti_celle.size(); riga += 4) {
        std::string r;
        for (std::size_t k = riga; k < riga + 4; ++k) (r += tasti_celle[k]) += ' ';
        nomi.push_back(r.substr(0, r.size() - 1));
    }
    const std::pair<std::string_view, std::string_view> testi[] = {{testo_inglese, "where a key is"},
                                                                   {testo_italiano, "il posto del tasto"}};
    // The keys that read the table again, for a player by ear: each named
    // as a key of its own.
    for (char t : tasti_lettura) nomi.push_back(std::string(" ") + t + " ");
    for (auto [testo, posto] : testi) {
        // The paragraph on keys, on one line.
        std::string tasti(testo.substr(testo.find("GO;")));
        tasti = tasti.substr(0, tasti.find("\n\n"));
        std::replace(tasti.begin(), tasti.end(), '\n', ' ');
        for (const std::string& nome : nomi) EXPECT_NE(tasti.find(nome), std::string::npos) << nome << " in " << tasti;
        EXPECT_NE(tasti.find(posto), std::string::npos) << tasti;
    }
}

}  // namespace
}  // namespace lesta
