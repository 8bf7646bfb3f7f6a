// SPDX-License-Identifier: GPL-3.0-or-later
// The game told to a player who follows it by ear: the lines of a whole hand
// against what a witness saw happen, nothing said that the table does not
// show, what the table shows (as it is named) against what is painted at
// every wait, and the lines themselves in both languages.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "banco.h"
#include "headless/giocatore_casuale.h"
#include "match/geometria.h"
#include "match/nomi_carte.h"
#include "racconto_atteso.h"
#include "table/vista.h"
#include "turns/frasi.h"

namespace lesta {
namespace {

using prova::Banco;

bool contiene(const std::string& riga, const std::string& parte) { return riga.find(parte) != std::string::npos; }

// ---- the lines ----

TEST(Frasi, LeCarteHannoINomiDelleRegole) {
    EXPECT_EQ(nome_carta(7, Lingua::inglese), "Seven of Denari");
    EXPECT_EQ(nome_carta(40, Lingua::inglese), "King of Spade");
    EXPECT_EQ(nome_carta(11, Lingua::inglese), "Ace of Coppe");
    EXPECT_EQ(nome_carta(28, Lingua::inglese), "Girl of Bastoni");
    EXPECT_EQ(nome_carta(19, Lingua::italiano), "Cavallo di Coppe");
    EXPECT_EQ(nome_carta(40, Lingua::italiano), "Re di Spade");
    // In a sentence, with the article that each takes in Italian.
    EXPECT_EQ(la_carta(21, Lingua::italiano), "l'Asso di Bastoni");
    EXPECT_EQ(la_carta(38, Lingua::italiano), "la Donna di Spade");
    EXPECT_EQ(la_carta(10, Lingua::italiano), "il Re di Denari");
    EXPECT_EQ(la_carta(10, Lingua::inglese), "the King of Denari");
    // Every card has a name of its own, in both languages.
    for (Lingua l : {Lingua::inglese, Lingua::italiano}) {
        std::set<std::string> nomi;
        for (Carta c = 1; c <= 40; ++c) nomi.insert(nome_carta(c, l));
        EXPECT_EQ(nomi.size(), 40u);
    }
}

TEST(Frasi, UnaMossaNominaLaCartaGiocataETutteLePrese) {
    const Carta prese[] = {0, 12, 0, 23, 31};  // a capture list with holes
    EXPECT_EQ(frasi::giocata(Lingua::inglese, 2, 15, prese),
              "The computer plays the Five of Coppe and takes the Two of Coppe, the Three of Bastoni and the Ace "
              "of Spade.");
    EXPECT_EQ(frasi::giocata(Lingua::italiano, 1, 15, prese),
              "Giochi il Cinque di Coppe e prendi il Due di Coppe, il Tre di Bastoni e l'Asso di Spade.");
    EXPECT_EQ(frasi::posata(Lingua::inglese, 1, 8, 3, 4), "You lay the Girl of Denari on the table at V.");
    EXPECT_EQ(frasi::posata(Lingua::italiano, 2, 1, 1, 2), "Il computer mette l'Asso di Denari in tavola in W.");
    const Carta resto[] = {40};
    EXPECT_EQ(frasi::resto(Lingua::inglese, 2, resto),
              "What is left on the table goes to the computer, which took last: the King of Spade.");
}

TEST(Frasi, LaManoPerTastoEIlTavoloPerCella) {
    Tavolo t{};
    t[1][1] = 2;   // Q
    t[2][3] = 17;  // D
    t[3][4] = 30;  // V
    const frasi::Mano mano{0, 7, 0, 40};
    EXPECT_EQ(frasi::tocca_a_te(Lingua::inglese, mano, t),
              "Your turn. Your cards: 1: Seven of Denari; 3: King of Spade. On the table: Q: Two of Denari; D: "
              "Seven of Coppe; V: King of Bastoni.");
    std::array<bool, 41> segnate{};
    segnate[17] = true;
    EXPECT_EQ(frasi::sul_tavolo(Lingua::italiano, t, segnate, 5),
              "In tavola: Q: Due di Denari; D: Sette di Coppe, segnata; V: Re di Bastoni. In gioco: Cinque di "
              "Denari.");
    EXPECT_EQ(frasi::tocca_a_te(Lingua::italiano, {}, Tavolo{}),
              "Tocca a te. Non hai carte in mano. La tavola è vuota.");
    // The last deal says the deck is used up.
    EXPECT_EQ(frasi::distribuzione(Lingua::inglese, 6, {0, 1, 2, 3}, 0),
              "Deal 6 of 6, the last. Your cards: 1: Ace of Denari; 2: Two of Denari; 3: Three of Denari. The "
              "deck is used up.");
    EXPECT_EQ(frasi::distribuzione(Lingua::inglese, 2, {0, 1, 2, 3}, 24).substr(0, 13), "Deal 2 of 6. ");
}

// A mark said as it is set or taken off, and, while the marked cards are not
// a capture the card in play may make, why not; silent once they are.
TEST(Frasi, IlSegnoDiceSeLeCarteSegnateNonSonoUnaPresa) {
    const Carta cinque = 5;
    struct Caso {
        bool segnata;
        int quante, somma;
        bool singola;
        const char* atteso;
    };
    const Caso casi[] = {
        {true, 1, 2, false,
         "Marked: Two of Coppe. No capture: the marked cards add up to 2, and the Five of Denari wants 5."},
        {true, 2, 5, false, "Marked: Two of Coppe."},
        {true, 2, 5, true, "Marked: Two of Coppe. No capture: a card of the same value must be taken alone."},
        {false, 0, 0, false, "Unmarked: Two of Coppe."},
        {false, 1, 7, false,
         "Unmarked: Two of Coppe. No capture: the marked cards add up to 7, and the Five of Denari wants 5."},
    };
    for (const auto& c : casi)
        EXPECT_EQ(frasi::segno(Lingua::inglese, 12, c.segnata, c.quante, c.somma, cinque, c.singola), c.atteso);
}

TEST(Frasi, LaPartitaEAChiTocca) {
    EXPECT_EQ(frasi::la_partita(Lingua::inglese, 1, 2, 5, 7),
              "A match to 11 points. Hands played: 2. Totals: you 5, the computer 7.");
    EXPECT_EQ(frasi::la_partita(Lingua::italiano, 0, 0, 0, 0), "Una partita singola: non si tengono totali.");
    EXPECT_EQ(frasi::a_chi_tocca(Lingua::inglese, 2, 1, 12, 0, 2),
              "The computer's turn. The computer holds 1 card. Cards left in the deck: 12. Leste: you 0, the "
              "computer 2.");
}

// ---- a whole hand told ----

// Plays a whole hand of a match by keys, as a player by ear would, on the
// raster: a witness writes down what happens, and at every wait of the game
// what the table shows, as the game names it, is held against the raster.
class ManoAscoltata {
public:
    ManoAscoltata(Lingua l, std::uint32_t seme)
        : b(seme, 0.75f), f(b.frm), righe(b.cronista.righe), racconto(l == Lingua::italiano), l_(l) {
        b.cronista.ascolta = true;
        b.cronista.lingua_ = l;
        b.cronista.guarda = [this](const std::string& riga) { nulla_di_nascosto(riga); };
        f.osservatore = &racconto;
        b.mod.command1 = "CONTINUE";
        b.mod.tipo_partita = 1;
        b.orologio.ingresso = [this] { return ingresso(); };
        b.orologio.al_timer2 = [this] {
            confronta_col_dipinto();
            f.Timer2_Timer();
        };
    }

    void gioca() {
        Task mano = f.Form_Activate();
        mano.start();
        ASSERT_TRUE(mano.done());
    }

    Banco<FinestraRaster> b;
    Frmlesta& f;
    const std::vector<std::string>& righe;  // every line told
    prova::RaccontoAtteso racconto;
    int letture = 0, attese_confrontate = 0;

private:
    std::string nome(Carta c) const { return nome_carta(c, l_); }

    // A line names no card the table does not show: none of the computer's
    // hand and none still in the deck.
    void nulla_di_nascosto(const std::string& riga) const {
        std::vector<Carta> nascoste;
        for (const auto& d : f.dorso) nascoste.push_back(d.tag);
        const int p = f.posizione_mazzo;
        for (int i = p + 1; i <= 40; ++i)
            if (i <= 22 || i > p + 18) nascoste.push_back(b.mod.mazzo[i]);
        for (Carta c : nascoste) {
            if (c == 0) continue;
            EXPECT_FALSE(contiene(riga, nome(c))) << "told a hidden card: " << riga;
        }
    }

    // The face painted at a point, 0 when none is.
    int faccia_a(float x, float y) const {
        const int n = b.finestra.figura_a(x, y);
        return n >= 1 && n <= 40 ? n : 0;
    }

    // At a wait, every face the table shows as the game names it stands
    // painted there, and no other face stands at a hand slot, in a cell or
    // on the spot of the card in play. While a capture is carried (its
    // cards have left their cells for the stack, which rises over the spot
    // of the card in play, or in the gathering at the end over the last
    // card's cell and those above it) the table and the spot are left as
    // they are.
    void confronta_col_dipinto() {
        if (!f.mano_in_corso) return;
        ++attese_confrontate;
        const VistaTavolo v = vista_del_tavolo(f);
        const float w = f.larghezza_carta, h = f.altezza_carta;
        for (int k = 1; k <= 3; ++k) {
            const Punto m = centro_mano(k, w, h);
            EXPECT_EQ(faccia_a(m.x, m.y), v.mano[static_cast<std::size_t>(k)]) << "hand slot " << k;
        }
        bool in_viaggio = false;
        for (int r = 1; r <= 3; ++r)
            for (int k = 1; k <= 4; ++k) in_viaggio = in_viaggio || (f.tavolo[r][k] != 0 && v.celle[r][k] == 0);
        for (int r = 1; r <= 3 && !in_viaggio; ++r)
            for (int k = 1; k <= 4; ++k) {
                const float x = sinistra_cella(static_cast<float>(k), f.tavolox, w) + w / 2;
                const float y = alto_cella(static_cast<float>(r), f.tavoloy, h) + h / 2;
                EXPECT_EQ(faccia_a(x, y), v.celle[r][k]) << "cell " << r << "," << k;
            }
        if (!in_viaggio) {
            const float x = sinistra_in_gioco(f.meta_larghezza) + w / 2, y = alto_in_gioco(f.meta_altezza, h) + h / 2;
            EXPECT_EQ(faccia_a(x, y), v.in_gioco) << "the spot of the card in play";
        }
        // Each lesta's card beside its side's pile: the later ones stand 25
        // units nearer the middle, over the earlier, whose outer strip shows.
        for (int lato = 1; lato <= 2; ++lato)
            for (int i = 0; i < v.numero_leste[static_cast<std::size_t>(lato)]; ++i) {
                const int verso = lato == 1 ? -1 : 1;
                const float y = static_cast<float>(f.pilay[lato] + verso * i * 25) + (lato == 1 ? h - 12 : 12);
                EXPECT_EQ(faccia_a(w + 100 + w / 2, y),
                          v.leste[static_cast<std::size_t>(lato)][static_cast<std::size_t>(i)]);
            }
    }

    // The player by keys: now and then a key that reads the table, and the
    // hand and the table it reads must be what the raster shows.
    bool ingresso() {
        confronta_col_dipinto();
        if (f.modo == Modo::gioco1 && f.carta_giocata == 0 && letture < racconto.mosse) {
            letture = racconto.mosse + 1;
            leggi_e_confronta();
            return true;
        }
        return giocatore.clic();
    }

    void leggi_e_confronta() {
        const float w = f.larghezza_carta, h = f.altezza_carta;
        f.Form_KeyDown('H');
        const std::string mano = righe.back();
        for (int k = 1; k <= 3; ++k) {
            const Punto m = centro_mano(k, w, h);
            if (const int c = faccia_a(m.x, m.y); c != 0) {
                EXPECT_TRUE(contiene(mano, std::to_string(k) + ": " + nome(static_cast<Carta>(c)))) << mano;
            }
        }
        f.Form_KeyDown('T');
        const std::string tavolo = righe.back();
        int carte = 0;
        for (int r = 1; r <= 3; ++r)
            for (int k = 1; k <= 4; ++k) {
                const float x = sinistra_cella(static_cast<float>(k), f.tavolox, w) + w / 2;
                const float y = alto_cella(static_cast<float>(r), f.tavoloy, h) + h / 2;
                if (const int c = faccia_a(x, y); c != 0) {
                    ++carte;
                    EXPECT_TRUE(
                        contiene(tavolo, std::string(1, frasi::tasto_cella(r, k)) + ": " + nome(static_cast<Carta>(c))))
                        << tavolo;
                }
            }
        EXPECT_EQ(std::count(tavolo.begin(), tavolo.end(), ':'), carte + (carte > 0)) << tavolo;
    }

    Lingua l_;
    GiocatoreCasuale giocatore{f, 2026, {}, [this](char t) { f.Form_KeyDown(t); }};
};

TEST(Cronaca, OgniManoRaccontataComeAvvieneSenzaDireLeCarteNascoste) {
    int leste = 0;
    for (std::uint32_t seme = 1; seme <= 8 && !testing::Test::HasFailure(); ++seme) {
        const Lingua l = seme % 2 ? Lingua::inglese : Lingua::italiano;
        SCOPED_TRACE(testing::Message() << "seed " << seme);
        ManoAscoltata mano(l, seme);
        mano.b.mod.mazziere = static_cast<std::uint8_t>(1 + seme % 2);
        mano.gioca();
        // 36 moves, and the gathering of what is left when anything is.
        ASSERT_GE(mano.racconto.mosse, 36);
        EXPECT_TRUE(mano.racconto.sentito_in(mano.righe));
        EXPECT_GT(mano.attese_confrontate, 100);
        EXPECT_TRUE(contiene(mano.righe.front(), l == Lingua::inglese ? "Hand 1 of a match to 11 points"
                                                                      : "Mano 1 di una partita a 11 punti"));
        leste += mano.racconto.leste;
    }
    EXPECT_GT(leste, 0) << "no hand had a lesta: the seeds say nothing of how one is told";
}

}  // namespace
}  // namespace lesta
