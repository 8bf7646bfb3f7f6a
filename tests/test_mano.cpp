// SPDX-License-Identifier: GPL-3.0-or-later
// The hand: the deal, the player's clicks and keys on the table window, the
// running score, and whole hands played to the end by a random player against
// the computer, on the virtual clock, with every card followed at every move
// and, on the raster, what is painted held to the table drawn afresh.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "banco.h"
#include "match/geometria.h"

namespace lesta {
namespace {

using prova::Banco;

// A hand just dealt, with the cards at the given scale.
struct Mano : Banco<FinestraRaster> {
    explicit Mano(float scala = 0.75f, Modo modo = Modo::gioco1) : Banco(1, scala) {
        frm.Mescola();
        frm.daicarte();
        frm.modo = modo;
    }
    Carta in_mano(int k) const { return mod.mazzo[frm.posizione_mazzo - 3 + k]; }
};

TEST(Mano, OgniDistribuzionePrendeDaiDueMezziDelMazzo) {
    Banco<FinestraRaster> b(1, 0.75f);
    b.frm.Mescola();
    const float w = b.frm.larghezza_carta, y = alto_mano_giocatore(b.frm.altezza_carta);
    for (int mano = 1; mano <= 6; ++mano) {
        b.frm.daicarte();
        const int p = b.frm.posizione_mazzo;
        ASSERT_EQ(p, 4 + 3 * mano);
        EXPECT_EQ(static_cast<Colore>(b.frm.sfondo), verde_tavolo);
        for (int i = 0; i < 3; ++i) {
            const float x = sinistra_mano(i, w);
            const Carta nostra = b.mod.mazzo[p - 2 + i];
            EXPECT_EQ(b.frm.dorso[i].tag, b.mod.mazzo[p + 16 + i]) << "deal " << mano << " slot " << i;
            EXPECT_TRUE(b.frm.carta[nostra].Left == x && b.frm.carta[nostra].Top == y && b.frm.dorso[i].Left == x &&
                        b.frm.dorso[i].Top == 5);
            EXPECT_EQ(b.finestra.figura_a(x + 5, y + 5), nostra);
            EXPECT_EQ(b.finestra.figura_a(x + 5, 10), static_cast<int>(Figura::Dorso));
        }
    }
}

// ---- the player's clicks ----

TEST(Mano, IlClicSceglieLaCartaPerAreeFisse) {
    struct Caso {
        float scala, x, y;
        int slot;  // 0: nothing is played
    };
    const Caso casi[] = {
        {0.75f, 336, 550, 1},
        {0.75f, 400, 550, 2},
        {0.75f, 464, 550, 3},
        {0.75f, 307, 550, 0},
        {0.75f, 307.01f, 550, 1},  // the left bound is strict
        {0.75f, 367.5f, 550, 0},   // the gap between the first two cards
        {0.75f, 400, 615, 0},      // below the window
        {0.75f, 336, 504.7f, 0},
        {0.75f, 336, 504.8f, 1},                                    // the top bound is strict
        {0.75f, 336, 490, 0},                                       // on the card, above the hit area
        {0.625f, 336, 504.7f + 0.625f * carta_iniziale.height, 0},  // the bottom bound is strict
        {0.625f, 336, 594.9f, 1},
        {1.0f, 380, 550, 2},
        {1.0f, 447, 550, 3},
        {1.0f, 360, 550, 1},  // overlapping: the right one wins
    };
    for (const auto& caso : casi) {
        SCOPED_TRACE(testing::Message() << "scale " << caso.scala << " at " << caso.x << ", " << caso.y);
        Mano b(caso.scala);
        b.frm.Form_MouseDown(caso.x, caso.y);
        const Carta attesa = caso.slot == 0 ? 0 : b.in_mano(caso.slot);
        EXPECT_EQ(b.frm.carta_giocata, attesa);
        EXPECT_EQ(b.frm.giocate, (std::array<std::uint8_t, 4>{0, caso.slot == 1, caso.slot == 2, caso.slot == 3}));
        if (caso.slot == 0) continue;
        // On the spot of the card in play, and gone from the hand.
        EXPECT_EQ(b.finestra.figura_a(b.frm.meta_larghezza + 190, b.frm.meta_altezza), attesa);
        EXPECT_EQ(b.finestra.Point(b.frm.posx + 10, b.frm.posy + 10), verde_tavolo);
    }
}

TEST(Mano, IlColoreDelTavoloFermaIlClic) {
    Mano b;
    // The bottom right corner of the first card's picture, inside its hit
    // area, is table colour, like the rounded corners of the real faces.
    const auto& prima = b.frm.carta[b.in_mano(1)];
    const float x = std::floor(prima.Left + b.frm.larghezza_carta) - 0.5f;
    const float y = std::floor(prima.Top + b.frm.altezza_carta) - 0.5f;
    ASSERT_TRUE(b.finestra.Point(x, y) == verde_tavolo && b.finestra.Point(x - 1, y) == bianco);
    b.frm.Form_MouseDown(x, y);
    EXPECT_EQ(b.frm.carta_giocata, 0);
    b.frm.Form_MouseDown(x - 1, y);
    EXPECT_EQ(b.frm.carta_giocata, b.in_mano(1));
}

// The scales the settings accept are those at which a person plays each hand
// card by clicking on it: clicks every fiftieth of a unit across each card as
// dealt, through the game's own click handler, play that card or nothing, and
// the card's middle plays it. At any other scale some click fails one of the
// two. (On a window that passes every click to the hand's hit areas.)
TEST(Mano, LeScaleAccettateSonoQuelleIncuiOgniCartaSiGiocaCliccandola) {
    int accettate = 0;
    for (int millesimi = 500; millesimi <= 850; millesimi += 7) {
        const float scala = static_cast<float>(millesimi) / 1000.0f;
        SCOPED_TRACE(testing::Message() << "scale " << scala);
        Banco<FinestraNulla> b(1, scala);
        b.frm.Mescola();
        b.frm.daicarte();
        bool giocabile = true;
        for (int k = 1; k <= 3 && giocabile; ++k) {
            const Carta nostra = b.mod.mazzo[b.frm.posizione_mazzo - 3 + k];
            const CartaControllo dealt = b.frm.carta[nostra];
            const auto gioca = [&](float x) {
                b.frm.modo = Modo::gioco1;
                b.frm.giocate = {};
                b.frm.carta[nostra] = dealt;
                b.frm.Form_MouseDown(x, dealt.Top + b.frm.altezza_carta / 2);
                return std::exchange(b.frm.carta_giocata, 0);
            };
            giocabile = gioca(dealt.Left + b.frm.larghezza_carta / 2) == nostra;
            for (float x = dealt.Left; x <= dealt.Left + b.frm.larghezza_carta && giocabile; x += 0.02f) {
                const Carta giocata = gioca(x);
                giocabile = giocata == 0 || giocata == nostra;
            }
        }
        EXPECT_EQ(scala_giocabile(scala), giocabile);
        accettate += giocabile;
    }
    EXPECT_GT(accettate, 20);  // 0.591 to 0.787 of those tried
}

TEST(Mano, IClicSulTavoloSegnanoEToglionoLaSelezione) {
    Mano b(0.75f, Modo::selezione);
    const Carta c = b.frm.tavolo[2][2];
    const float x = b.frm.carta[c].Left, y = b.frm.carta[c].Top + b.frm.altezza_carta / 2;
    const float w = b.frm.larghezza_carta;
    b.frm.Form_MouseDown(x + w / 2, y);
    EXPECT_EQ(b.frm.carta[c].tag, Tag::SEL);
    EXPECT_TRUE(b.finestra.Point(x + 3, y) == rosso && b.finestra.Point(x + w - 3, y) == rosso);
    b.frm.Form_MouseDown(x + 3, y);  // a click on the outline is a click on the card
    EXPECT_EQ(b.frm.carta[c].tag, Tag::vuoto);
    EXPECT_EQ(b.finestra.figura_a(x + 3, y), c);
    // The gap between two cards, an empty cell, a hand card; then any card
    // out of turn. Every click closes the help panels.
    const auto pannelli = {Controllo::Text2, Controllo::Text3, Controllo::Text4};
    for (auto [X, Y, modo] : {std::tuple{x + w + 3, y, Modo::selezione},
                              {x + w / 2, b.frm.tavoloy + 20, Modo::selezione},
                              {336.0f, 550.0f, Modo::selezione},
                              {x + w / 2, y, Modo::vuoto},
                              {336.0f, 550.0f, Modo::vuoto},
                              {10.0f, 10.0f, Modo::gioco1}}) {
        for (auto p : pannelli) b.frm.Visible(p, true);
        b.frm.modo = modo;
        b.frm.Form_MouseDown(X, Y);
        for (auto p : pannelli) EXPECT_FALSE(b.frm.Visible(p));
    }
    for (int k = 1; k <= 4; ++k) EXPECT_EQ(b.frm.carta[b.frm.tavolo[2][k]].tag, Tag::vuoto);
    EXPECT_EQ(b.frm.carta_giocata, 0);
}

// ---- the keys ----

// The keys 1, 2 and 3 click the middle of the hand cards as dealt, at scales
// across the band the settings accept, and play them; a played slot shows
// the table, and its key plays nothing more.
TEST(Mano, ITastiDaUnoATreGiocanoLeCarteInMano) {
    for (float scala : {0.6f, 0.75f, 0.785f}) {
        SCOPED_TRACE(testing::Message() << "scale " << scala);
        ASSERT_TRUE(scala_giocabile(scala));
        Mano b(scala);
        const float w = b.frm.larghezza_carta, h = b.frm.altezza_carta;
        for (int k : {2, 3, 1}) {
            const char tasto = static_cast<char>('0' + k);
            const CartaControllo dealt = b.frm.carta[b.in_mano(k)];
            const auto p = punto_del_tasto(tasto, w, h, b.frm.tavolox, b.frm.tavoloy);
            ASSERT_TRUE(p.has_value());
            EXPECT_FLOAT_EQ(p->x, dealt.Left + w / 2);
            EXPECT_FLOAT_EQ(p->y, dealt.Top + h / 2);
            b.frm.Form_KeyDown(tasto);
            EXPECT_EQ(b.frm.carta_giocata, b.in_mano(k)) << tasto;
            b.frm.carta_giocata = 0;  // the next turn
            b.frm.Form_KeyDown(tasto);
            EXPECT_EQ(b.frm.carta_giocata, 0) << tasto;
        }
        EXPECT_EQ(b.frm.giocate, (std::array<std::uint8_t, 4>{0, 1, 1, 1}));
    }
}

// Q W E R, A S D F and Z X C V click the middle of the cells of rows 1 to 3,
// columns 1 to 4: a first press marks the card of the cell, a second drops
// it; on an empty cell a letter marks nothing. A key that names no place
// does nothing at all (a small letter is no key's name), while one that does
// closes the help panels as a click does.
TEST(Mano, LeLettereSegnanoLeCarteDelTavolo) {
    Banco<FinestraRaster> b(1, 0.75f);
    b.tavolo_verde();
    prova::Griglia g{};
    for (std::size_t i = 0; i < g.size(); ++i) g[i] = i == 6 ? 0 : static_cast<Carta>(21 + i);  // D is empty
    b.tavolo(g);
    b.frm.modo = Modo::selezione;
    const float w = b.frm.larghezza_carta, h = b.frm.altezza_carta;
    auto segnate = [&] {
        std::vector<Carta> s;
        for (Carta c = 1; c <= 40; ++c)
            if (b.frm.carta[c].tag == Tag::SEL) s.push_back(c);
        return s;
    };
    const std::string_view tasti = "QWERASDFZXCV";
    for (std::size_t i = 0; i < tasti.size(); ++i) {
        const int r = static_cast<int>(i) / 4 + 1, k = static_cast<int>(i) % 4 + 1;
        SCOPED_TRACE(testing::Message() << tasti[i] << ": row " << r << ", column " << k);
        const auto p = punto_del_tasto(tasti[i], w, h, b.frm.tavolox, b.frm.tavoloy);
        ASSERT_TRUE(p.has_value());
        EXPECT_FLOAT_EQ(p->x, b.cella_x(k) + w / 2);
        EXPECT_FLOAT_EQ(p->y, b.cella_y(r) + h / 2);
        b.frm.Form_KeyDown(tasti[i]);
        EXPECT_EQ(segnate(), g[i] == 0 ? std::vector<Carta>{} : std::vector<Carta>{g[i]});
        b.frm.Visible(Controllo::Text2, true);
        b.frm.Form_KeyDown(tasti[i]);
        EXPECT_EQ(segnate(), std::vector<Carta>{});
        EXPECT_FALSE(b.frm.Visible(Controllo::Text2));
    }
    b.frm.Visible(Controllo::Text2, true);
    for (char tasto : {'0', '4', 'G', 'T', 'b', 'q', ' ', '\0'}) {
        b.frm.Form_KeyDown(tasto);
        EXPECT_FALSE(punto_del_tasto(tasto, w, h, b.frm.tavolox, b.frm.tavoloy).has_value()) << int{tasto};
    }
    EXPECT_TRUE(b.frm.Visible(Controllo::Text2));
    EXPECT_EQ(segnate(), std::vector<Carta>{});
}

TEST(Mano, IlPunteggioCorrenteDallaSecondaManoDiUnaPartita) {
    struct Caso {
        std::uint8_t tipo, partite;
        const char* prima_riga;  // "": no score box
    };
    for (const Caso& caso : {Caso{0, 0, ""}, {0, 30, ""}, {1, 0, ""}, {1, 10, " 2^Game"}, {2, 100, " 11^Game"}}) {
        SCOPED_TRACE(testing::Message() << int(caso.tipo) << " " << int(caso.partite));
        Mano b(0.75f, Modo::vuoto);
        b.mod.tipo_partita = caso.tipo;
        b.mod.partite = caso.partite;
        b.mod.punti_giocatore = 7;
        b.mod.punti_computer = 12;
        b.mod.mazziere = 2;  // the player leads: the hand stops at the first click
        Task t = b.frm.gioco();
        t.start();
        ASSERT_EQ(b.frm.modo, Modo::gioco1);
        EXPECT_TRUE(b.frm.davanti(Verde(0), Rosso(0)) && b.frm.davanti(Rosso(1), Verde(1)));
        const auto& s = b.finestra.scritte;
        const bool riquadro = *caso.prima_riga != 0;
        EXPECT_EQ(b.mod.punti_giocatore + b.mod.punti_computer, riquadro ? 19 : 0);
        std::vector<std::string> righe, attese;
        for (const auto& r : s) righe.push_back(r.testo);
        if (riquadro) attese = {caso.prima_riga, "You   Computer", " 7" + std::string(14, ' ') + " 12"};
        ASSERT_EQ(righe, attese);
        if (!riquadro) continue;
        const float h = b.finestra.TextHeight();
        EXPECT_TRUE(s[0].x == 695 && s[0].y == 275 && s[1].y == 275 + 2 * h && s[2].x == 700 && s[2].y == 275 + 3 * h);
        EXPECT_EQ(b.finestra.Point(691, 271), giallo);
        EXPECT_EQ(b.finestra.Point(740, 320), nero);
    }
}

// ---- whole hands ----

// Where a card is, as the state tells it. The computer's pile is not
// recorded: it is every card that is nowhere else, but for the card in play.
enum Posto : std::uint8_t { pila2, mazzo, mano1, mano2, tavolo, pila1, in_gioco };

struct Foto {
    std::array<Posto, 41> posto{};
    int posizione = 0;
    int quante(Posto p) const { return static_cast<int>(std::count(posto.begin() + 1, posto.end(), p)); }
};

// ---- what is painted ----

// What the state says of the table besides the place of each card.
struct Scena {
    Foto foto;
    int lato = 0;  // the side whose turn the lights show
    // The sweeps of the hand in the order they were made: the side, and the
    // card that made it, which is the marker.
    std::vector<std::pair<int, Carta>> leste;
};

// The table drawn afresh from the state alone on an empty raster, every
// place worked out here from the card size: the table colour, the running
// score and the song frame that the start of a hand paints and nothing
// paints over, the deck by the dealer until the last deal, each side's pile
// once it holds a card and its sweep markers, the table cards in their cells
// with the outline of a marked one, both hands, and the card in play.
void disegna_da_capo(FinestraRaster& r, const Frmlesta& f, const Scena& s) {
    const float w = f.larghezza_carta, h = f.altezza_carta;
    const auto faccia_a = [&](Carta c, float x, float y) { r.PaintPicture(faccia(c), x, y, w, h); };
    const auto dorso_a = [&](float x, float y) { r.PaintPicture(Figura::Dorso, x, y, w, h); };
    const auto cella_x = [&](int k) { return 400 - 2 * w - 9 + static_cast<float>(k - 1) * (w + 6); };
    const auto cella_y = [&](int k) { return 300 - 1.5f * h - 6 + static_cast<float>(k - 1) * (h + 6); };
    const auto mano_x = [&](int k) { return 400 - 1.5f * w - 6 + static_cast<float>(k - 1) * (w + 6); };
    const std::array<float, 3> pila_y{0, std::nearbyint(600 - h - 5), 5};
    const Foto& foto = s.foto;

    r.BackColor(verde_tavolo);
    if (f.mod.tipo_partita != 0 && f.mod.partite >= 2) {
        r.BoxFilled(690, 270, 795, 350, nero);
        r.Box(691, 271, 794, 349, giallo);
    }
    if (f.canzone != 0) {
        const float larga = 2925 * 800.0f / 15270, alta = 2175 * 600.0f / 11595;
        r.PaintPicture(Figura::Quadro, 10, 300 - alta / 2, larga, alta);
    }
    if (foto.posizione < 22) dorso_a(680, pila_y[f.mod.mazziere]);
    for (int lato : {1, 2})
        if (foto.quante(lato == 1 ? pila1 : pila2) > 0) dorso_a(100, pila_y[static_cast<std::size_t>(lato)]);
    std::array<int, 3> segni{};  // the markers of each side so far
    for (const auto& [lato, c] : s.leste) {
        const auto i = static_cast<std::size_t>(lato);
        faccia_a(c, w + 100, pila_y[i] + (lato == 1 ? -25.0f : 25.0f) * static_cast<float>(segni[i]++));
    }
    for (int riga = 1; riga <= 3; ++riga)
        for (int k = 1; k <= 4; ++k) {
            const Carta c = f.tavolo[static_cast<std::size_t>(riga)][static_cast<std::size_t>(k)];
            if (c == 0 || foto.posto[c] != tavolo) continue;
            const float x = cella_x(k), y = cella_y(riga);
            faccia_a(c, x, y);
            if (f.carta[c].tag == Tag::SEL) r.Box(x + 3, y + 3, x + w - 3, y + h - 3, rosso);
        }
    for (int k = 1; k <= 3; ++k) {
        const Carta c = f.mod.mazzo[static_cast<std::size_t>(foto.posizione - 3 + k)];
        if (foto.posto[c] == mano1) faccia_a(c, mano_x(k), 595 - h);
        if (f.dorso[static_cast<std::size_t>(k - 1)].tag != 0) dorso_a(mano_x(k), 5);
    }
    for (Carta c = 1; c <= 40; ++c)
        if (foto.posto[c] == in_gioco) faccia_a(c, 578, 300 - h / 2);
}

// Where what is painted differs from what is expected: how many pixels, in
// what rectangle, and the first of them; empty when nothing differs.
std::string differenze(const FinestraRaster& atteso, const FinestraRaster& dipinto) {
    if (atteso.pixel() == dipinto.pixel() && atteso.figure() == dipinto.figure()) return {};
    const auto punto = [](int x, int y) { return "(" + std::to_string(x) + ", " + std::to_string(y) + ")"; };
    const auto pixel = [](const FinestraRaster& r, std::size_t i) {
        return "colour " + std::to_string(r.pixel()[i]) + " picture " + std::to_string(r.figure()[i]);
    };
    int quanti = 0, x0 = FinestraRaster::L, y0 = FinestraRaster::A, x1 = -1, y1 = -1;
    std::string primo;
    for (int y = 0; y < FinestraRaster::A; ++y)
        for (int x = 0; x < FinestraRaster::L; ++x) {
            const auto i = static_cast<std::size_t>(y * FinestraRaster::L + x);
            if (atteso.pixel()[i] == dipinto.pixel()[i] && atteso.figure()[i] == dipinto.figure()[i]) continue;
            if (quanti++ == 0)
                primo = punto(x, y) + ": expected " + pixel(atteso, i) + ", painted " + pixel(dipinto, i);
            x0 = std::min(x0, x), y0 = std::min(y0, y), x1 = std::max(x1, x), y1 = std::max(y1, y);
        }
    return std::to_string(quanti) + " pixels differ, from " + punto(x0, y0) + " to " + punto(x1, y1) + "; first at " +
           primo;
}

// Plays whole hands as a random player would, with stray clicks, and checks
// every card after every move.
template <class F>
class Partita final : public Osservatore {
public:
    Partita(Banco<F>& banco, std::uint32_t seme) : b(banco), f(banco.frm), caso(seme) {
        f.osservatore = this;
        b.orologio.ingresso = [this] { return ingresso(); };
        b.orologio.al_timer2 = [this] {  // with a stray click now and then while the game pauses
            pausa();
            f.Timer2_Timer();
            if (f.modo == Modo::vuoto && moneta(0.05)) moneta(0.5) ? clic_tavolo() : clic_mano(1 + caso() % 3);
        };
    }

    std::array<int, 3> leste_viste{};  // the sweeps of each side in the hand

    void mano() {
        const int suonate = b.suono.suonate;
        leste.clear();
        leste_viste = {};
        f.Mescola();
        f.daicarte();
        Foto inizio;  // the deal undone: the cards of the deck and those on the table
        inizio.posto.fill(mazzo);
        for (Carta c : sul_tavolo()) inizio.posto[c] = tavolo;
        inizio.posizione = f.posizione_mazzo - 3;
        foto.assign(1, inizio);
        Task t = f.gioco();
        t.start();
        ASSERT_TRUE(t.done());
        guarda("at the end of the hand", foto.back(), b.mod.mazziere);
        // 36 moves, then the gathering of what is left, if anything is.
        ASSERT_EQ(foto.size(), foto.size() < 37 || foto[36].quante(tavolo) == 0 ? 37u : 38u);
        EXPECT_EQ(b.suono.suonate - suonate, 36);
        // Both piles for the score: the player's ascending, then the computer's.
        std::vector<Carta> attese;
        for (Posto p : {pila1, pila2})
            for (Carta c = 1; c <= 40; ++c)
                if (foto.back().posto[c] == p) attese.push_back(c);
        ASSERT_EQ(attese.size(), 40u);
        EXPECT_TRUE(std::equal(attese.begin(), attese.end(), b.mod.carte.begin() + 1));
        const auto sue = attese.begin() + foto.back().quante(pila1);
        EXPECT_EQ(b.mod.numcarte, sue - attese.begin());
        EXPECT_EQ(b.mod.numdenari, std::count_if(attese.begin(), sue, [](Carta c) { return c <= 10; }));
        EXPECT_EQ(b.mod.settebello, foto.back().posto[7] == pila1);
    }

    // From one move to the next, the side on turn: one card leaves its hand
    // (none in the gathering), and cards move only from that hand and the
    // table to its pile, or from the hand to the table.
    void mossa_eseguita(const Frmlesta&) override {
        clic = 0;
        const int n = static_cast<int>(foto.size()) - 1, lato = f.turno, primo = b.mod.mazziere == 1 ? 2 : 1;
        Foto da = foto.back(), a = fotografa(n < 36);  // the gathering leaves its cards in the grid
        const Posto sua_mano = lato == 1 ? mano1 : mano2, sua_pila = lato == 1 ? pila1 : pila2;
        if (n < 36) {  // the side that did not deal leads each deal; a deal every six moves
            EXPECT_EQ(lato, n % 2 == 0 ? primo : 3 - primo) << "move " << n;
            EXPECT_EQ(a.posizione, 7 + 3 * (n / 6));
            EXPECT_EQ(f.mosse, n % 6 + 1);
        }
        if (a.posizione == da.posizione + 3) {
            EXPECT_EQ(da.quante(mano1) + da.quante(mano2), 0);
            for (int i = 1; i <= 3; ++i) {
                da.posto[b.mod.mazzo[da.posizione + i]] = mano1;
                da.posto[b.mod.mazzo[da.posizione + 18 + i]] = mano2;
            }
        }
        int lasciano = 0, dal_tavolo = 0;
        for (Carta c = 1; c <= 40; ++c) {
            const Posto x = da.posto[c], y = a.posto[c];
            lasciano += x == sua_mano && y != x;
            dal_tavolo += x == tavolo && y != x;
            EXPECT_TRUE(x == y || (x == sua_mano && (y == tavolo || y == sua_pila)) || (x == tavolo && y == sua_pila))
                << "card " << c << " from " << int(x) << " to " << int(y) << " in move " << n << " of side " << lato;
        }
        EXPECT_EQ(lasciano, n < 36);
        // A card that takes nothing goes to its own pile only on a full grid.
        EXPECT_TRUE(!lasciano || dal_tavolo || a.posto[f.carta_giocata] == tavolo || da.quante(tavolo) == 12) << n;
        EXPECT_TRUE(n < 36 || lato == presa_da) << "the gathering goes to the side that took last";
        if (dal_tavolo > 0) presa_da = lato;
        if (n < 36 && b.mod.leste[lato] > leste_viste[lato]) {  // a sweep: the played card is its marker
            ++leste_viste[lato];
            leste.emplace_back(lato, f.carta_giocata);
        }
        EXPECT_EQ(f.vuote, 12 - (n < 36 ? a.quante(tavolo) : da.quante(tavolo)));
        foto.push_back(a);
        // The last card is the dealer's, and the lights stay on its turn
        // through the gathering.
        guarda("after move " + std::to_string(n), a, n < 36 ? lato : b.mod.mazziere);
    }

private:
    // On the raster, what is painted must be the table drawn afresh from the
    // state, and the turn lights and the lamp as the state has them.
    void guarda(const std::string& quando, const Foto& foto, int lato) {
        if constexpr (std::is_same_v<F, FinestraRaster>) {
            if (testing::Test::HasFailure()) return;
            if (!atteso) atteso = std::make_unique<FinestraRaster>();
            disegna_da_capo(*atteso, f, {foto, lato, leste});
            const std::string diversi = differenze(*atteso, b.finestra);
            EXPECT_EQ(diversi, "") << quando;
            const float h = f.altezza_carta;
            for (int i : {0, 1}) {
                const auto& verde = b.finestra.controlli[static_cast<std::size_t>(Verde(i))];
                const auto& rossa = b.finestra.controlli[static_cast<std::size_t>(Rosso(i))];
                for (const auto* luce : {&verde, &rossa})
                    EXPECT_TRUE(luce->visibile && luce->r.left == 620 &&
                                luce->r.top == (i == 0 ? 600 - h / 2 - 32 : h / 2))
                        << quando << ", light " << i;
                EXPECT_EQ(verde.alzato > rossa.alzato, i + 1 == lato) << quando << ", light " << i;
            }
            EXPECT_FALSE(b.finestra.controlli[static_cast<std::size_t>(Controllo::Led)].visibile) << quando;
        }
    }

    // In the pauses of the computer's turn before its card moves: its green
    // light on, then its card shown with what it takes outlined, the card
    // not yet counted in the deal's moves.
    void pausa() {
        const int fatte = static_cast<int>(foto.size()) - 1;
        if (f.carta_giocata == 0) {
            guarda("as the computer's turn begins", fotografa(true), f.turno);
        } else if (f.turno == 2 && f.mosse == fatte % 6) {
            Foto ora = fotografa(true);
            ora.posto[f.carta_giocata] = in_gioco;
            guarda("as the computer shows its card", ora, 2);
        }
    }

    bool moneta(double p) { return std::bernoulli_distribution(p)(caso); }
    template <class C>
    auto a_caso(const C& c) {
        return c[caso() % c.size()];
    }
    void clic_mano(int k) {
        const float y = (alto_area_mano + std::min(595.0f, alto_area_mano + f.altezza_carta)) / 2;
        f.Form_MouseDown(sinistra_area_mano[static_cast<std::size_t>(k)] + f.larghezza_carta / 2, y);
    }
    std::vector<Carta> sul_tavolo() const {
        std::vector<Carta> v;
        for (const auto& riga : f.tavolo)
            for (Carta c : riga)
                if (c != 0) v.push_back(c);
        return v;
    }
    void clic_tavolo(Carta c = 0) {
        const auto tutte = sul_tavolo();
        if (c == 0 && !tutte.empty()) c = a_caso(tutte);
        if (c != 0) f.Form_MouseDown(f.carta[c].Left + f.larghezza_carta / 2, f.carta[c].Top + f.altezza_carta / 2);
    }

    Foto fotografa(bool con_tavolo) {
        Foto fo;
        const int p = fo.posizione = f.posizione_mazzo;
        auto metti = [&](Carta c, Posto dove) {
            EXPECT_TRUE(c >= 1 && c <= 40 && fo.posto[c] == pila2) << "card " << c << " twice, or not a card";
            fo.posto[c] = dove;
        };
        for (int i = p + 1; i <= 40; ++i)
            if (i <= 22 || i > p + 18) metti(b.mod.mazzo[i], mazzo);
        for (int k = 1; k <= 3; ++k)
            if (f.giocate[k] == 0) metti(b.mod.mazzo[p - 3 + k], mano1);
        for (const auto& d : f.dorso)
            if (d.tag != 0) metti(d.tag, mano2);
        for (Carta c : con_tavolo ? sul_tavolo() : std::vector<Carta>{}) metti(c, tavolo);
        for (Carta c = 1; c <= 40; ++c)
            if (f.prese[c] != 0) metti(c, pila1);
        return fo;
    }

    bool ingresso() {
        if (++clic > 500) return ADD_FAILURE() << "the turn does not end", false;
        Foto ora = fotografa(true);
        if (f.carta_giocata != 0) ora.posto[f.carta_giocata] = in_gioco;  // it is not the computer's
        guarda(f.carta_giocata == 0 ? "as the player picks a card" : "as the player marks the capture", ora, 1);
        if (f.modo == Modo::gioco1 && f.carta_giocata == 0) {
            obiettivo.clear();
            std::vector<int> libere, giocate;
            for (int k = 1; k <= 3; ++k) (f.giocate[k] == 0 ? libere : giocate).push_back(k);
            if (moneta(0.1)) {  // a click that means nothing: a slot already played, or bare table
                giocate.empty() || moneta(0.5) ? f.Form_MouseDown(20, 300) : clic_mano(a_caso(giocate));
                EXPECT_EQ(f.carta_giocata, 0);
                return true;
            }
            const int k = a_caso(libere);
            clic_mano(k);
            if (moneta(0.2)) clic_mano(a_caso(libere));  // a second click queued behind the first
            EXPECT_EQ(f.carta_giocata, b.mod.mazzo[f.posizione_mazzo - 3 + k]);
            return true;
        }
        if (f.modo != Modo::selezione) return ADD_FAILURE() << "the hand waits for a click it cannot use", false;
        const auto tutte = sul_tavolo();
        if (obiettivo.empty()) obiettivo = scegli(tutte);
        if (obiettivo.empty()) return ADD_FAILURE() << "the turn waits for a capture the card does not have", false;
        if (moneta(0.15)) return clic_tavolo(), true;  // a slip of the hand, put right later
        for (Carta c : tutte)
            if ((std::count(obiettivo.begin(), obiettivo.end(), c) != 0) != (f.carta[c].tag == Tag::SEL))
                return clic_tavolo(c), true;
        return ADD_FAILURE() << "a legal selection stands, and the turn still waits", false;
    }

    // Any legal capture, as the player sees the table: a card of equal value
    // alone, or else two or more cards that add up to the played card.
    std::vector<Carta> scegli(const std::vector<Carta>& tutte) {
        std::vector<std::vector<Carta>> lecite;
        for (Carta c : tutte)
            if (valore(c) == f.valore_giocata) lecite.push_back({c});
        const bool uguale = !lecite.empty();
        for (unsigned m = 1; !uguale && m < (1u << tutte.size()); ++m) {
            std::vector<Carta> s;
            int somma = 0;
            for (std::size_t i = 0; i < tutte.size(); ++i)
                if (m >> i & 1u) s.push_back(tutte[i]), somma += valore(tutte[i]);
            if (s.size() >= 2 && somma == f.valore_giocata) lecite.push_back(s);
        }
        return lecite.empty() ? std::vector<Carta>{} : a_caso(lecite);
    }

    Banco<F>& b;
    Frmlesta& f;
    std::mt19937 caso;
    std::vector<Foto> foto;  // after the deal, then after every move
    std::vector<Carta> obiettivo;
    std::vector<std::pair<int, Carta>> leste;  // the sweeps of the hand so far
    std::unique_ptr<FinestraRaster> atteso;    // the table drawn afresh
    int clic = 0, presa_da = 0;
};

// Hands in runs of `per_seme`; the seed fixes the dealer, the speed and
// every click. Returns the most sweeps that each side made in one hand.
template <class F>
std::array<int, 3> mani(std::uint32_t semi, int per_seme, float scala = 0.75f, std::uint32_t primo = 1) {
    std::array<int, 3> piu_leste{};
    for (std::uint32_t seme = primo; seme < primo + semi && !testing::Test::HasFailure(); ++seme) {
        Banco<F> b(seme, scala);
        Partita<F> partita(b, seme * 7919u);
        for (std::uint32_t m = seme; m < seme + per_seme && !testing::Test::HasFailure(); ++m) {
            b.mod.mazziere = static_cast<std::uint8_t>(1 + m % 2);
            b.frm.velocita = static_cast<std::uint8_t>(10 * (1 + m % 3));
            // Now and then the song frame, and the running score of a match.
            b.frm.canzone = static_cast<std::int16_t>(m % 3 == 0);
            b.mod.tipo_partita = static_cast<std::uint8_t>(m % 4 == 1);
            b.mod.partite = static_cast<std::uint8_t>(10 * (m % 5));
            partita.mano();
            for (int lato : {1, 2}) piu_leste[lato] = std::max(piu_leste[lato], partita.leste_viste[lato]);
        }
    }
    return piu_leste;
}

TEST(Mano, MigliaiaDiManiSenzaPerdereUnaCarta) { mani<FinestraNulla>(300, 10); }

// Whole hands on the raster, where a click needs the colour under it: at
// every step, what the game's own painting has left on the table is the
// table drawn afresh from the state, at scales across the band the settings
// accept.
TEST(Mano, IlDipintoEIlTavoloRidisegnatoDalloStato) {
    std::uint32_t primo = 1;
    std::array<int, 3> piu_leste{};
    for (float scala : {0.75f, 0.6f, 0.7854f}) {
        SCOPED_TRACE(testing::Message() << "scale " << scala);
        const auto leste = mani<FinestraRaster>(8, 3, scala, primo);
        for (int lato : {1, 2}) piu_leste[lato] = std::max(piu_leste[lato], leste[lato]);
        primo += 8;
    }
    // Among them a hand with a second sweep marker of each side.
    EXPECT_TRUE(piu_leste[1] >= 2 && piu_leste[2] >= 2);
}

}  // namespace
}  // namespace lesta
