// The computer's choice of a card, and the move carried out on the table:
// laying a card, the capture's stack and slide, the pile, sweeps, and a card
// that finds the grid full.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "banco.h"

namespace lesta {
namespace {

// Paints nothing and writes down what it was asked to paint, in order.
class FinestraSpia final : public FinestraSenzaSchermo {
public:
    void Cls() override {}
    void BackColor(Colore c) override { fondo_ = c; }
    Colore BackColor() const override { return fondo_; }
    void Line(float, float, float, float, Colore) override {}
    void Box(float x, float y, float, float, Colore c) override { registro.push_back({'B', 0, x, y, c}); }
    void BoxFilled(float x, float y, float, float, Colore c) override { registro.push_back({'F', 0, x, y, c}); }
    void PaintPicture(Figura f, float x, float y, float, float) override {
        registro.push_back({'P', static_cast<int>(f), x, y, 0});
    }
    Colore Point(float, float) const override { return bianco; }
    void Print(float, float, std::string_view, Colore) override {}
    float TextHeight() const override { return 13; }

    struct Voce {
        char cosa;
        int figura;
        float x, y;
        Colore colore;
    };
    std::vector<Voce> registro;

private:
    Colore fondo_ = verde_tavolo;
};

using prova::Griglia;

// A table with the cards at their starting size, in the table colour, that
// writes down the length of every pause.
template <class F>
struct Banco : prova::Banco<F> {
    using prova::Banco<F>::frm;
    using prova::Banco<F>::finestra;
    using prova::Banco<F>::orologio;
    Banco() : prova::Banco<F>(1, 0.75f) {
        orologio.al_timer2 = [this] {
            pause.push_back(orologio.millisecondi() - tempo);
            tempo = orologio.millisecondi();
            frm.Timer2_Timer();
            if (in_pausa) in_pausa();
        };
        frm.pilay[1] = static_cast<std::int32_t>(std::nearbyint(2 * frm.meta_altezza - frm.altezza_carta - 5));
        frm.pilay[2] = 5;
        this->tavolo_verde();
    }

    // The computer's three slots, 0 for a card already played.
    void mano(const std::array<Carta, 3>& carte) {
        for (int i = 0; i < 3; ++i) {
            auto& d = frm.dorso[static_cast<std::size_t>(i)];
            d.tag = carte[static_cast<std::size_t>(i)];
            d.Left = frm.meta_larghezza - 1.5f * frm.larghezza_carta - 6 +
                     static_cast<float>(i) * (frm.larghezza_carta + 6);
            d.Top = 5;
            if (d.tag != 0) finestra.PaintPicture(Figura::Dorso, d.Left, d.Top, frm.larghezza_carta, frm.altezza_carta);
        }
    }
    // A card shown on the spot of the card in play, about to be moved.
    void in_gioco(Carta c, int turno) {
        frm.turno = static_cast<std::int16_t>(turno);
        frm.carta_giocata = c;
        frm.valore_giocata = static_cast<std::int16_t>(valore(c));
        frm.carta[c].Left = frm.meta_larghezza + 178;
        frm.carta[c].Top = frm.meta_altezza - frm.altezza_carta / 2;
        finestra.PaintPicture(faccia(c), frm.carta[c].Left, frm.carta[c].Top, frm.larghezza_carta, frm.altezza_carta);
    }
    void esegui(Task t) {
        t.start();
        ASSERT_TRUE(t.done());
    }
    // The player's selection, as the turn hands it over to the move.
    void prendi(std::initializer_list<Carta> carte) {
        frm.quante = 0;
        for (Carta c : carte) {
            ++frm.quante;
            frm.carta[c].tag = Tag::SEL;
            frm.presa[frm.quante] = c;
            frm.presax[frm.quante] = static_cast<std::int16_t>(std::nearbyint(frm.carta[c].Left));
            frm.presay[frm.quante] = static_cast<std::int16_t>(std::nearbyint(frm.carta[c].Top));
        }
    }
    int carte_sul_tavolo() const {
        int n = 0;
        for (int r = 1; r <= 3; ++r)
            for (int k = 1; k <= 4; ++k) n += frm.tavolo[r][k] != 0;
        return n;
    }

    std::vector<std::int64_t> pause;  // the length of every pause, in ms
    std::int64_t tempo = 0;
    std::function<void()> in_pausa;
};

// ---- the computer's choice ----

struct CasoComputer {
    const char* nome;
    Griglia tavolo;
    std::array<Carta, 3> mano;
    std::vector<float> estrazioni;  // draws put in front of the stream
    int slot;
    std::vector<Carta> presa;  // what it takes; empty: the card is laid
};

const CasoComputer casi_computer[] = {
    {"the first slot that captures, not the one that would sweep", {7, 13}, {23, 35, 10}, {}, 0, {13}},
    {"a played slot is passed over in the search", {7, 13}, {0, 35, 10}, {}, 2, {7, 13}},
    {"an equal card before a sum", {0, 0, 0, 0, 2, 5, 3}, {15, 0, 0}, {}, 0, {5}},
    {"the empty table: a throw", {}, {4, 16, 28}, {0.5f}, 1, {}},
    {"a draw on a played slot is used up", {20}, {4, 0, 16}, {0.4f, 0.9f}, 2, {}},
    {"a seven is held back", {20}, {7, 17, 0}, {0.1f, 0.5f}, 1, {}},
    {"a seven and a King: the King", {3}, {27, 0, 40}, {0.1f, 0.2f, 0.9f}, 2, {}},
    {"a seven alone is thrown", {20}, {0, 7, 0}, {0.1f, 0.5f}, 1, {}},
    {"only sevens: not the seven of coins", {20}, {7, 27, 0}, {0.0f, 0.1f, 0.5f}, 1, {}},
    {"only sevens without it: any", {20}, {17, 27, 37}, {0.1f}, 0, {}},
    {"the last draw of the stream", {20}, {17, 27, 37}, {0.99999994f}, 2, {}},
    {"too many candidates stop the search: the seven is laid",
     {1, 11, 21, 31, 2, 12, 22, 32, 3},
     {17, 33, 0},
     {},
     0,
     {}},
};

TEST(Computer, SceltaDellaCarta) {
    for (const auto& caso : casi_computer) {
        SCOPED_TRACE(caso.nome);
        Banco<FinestraRaster> b;
        b.tavolo(caso.tavolo);
        b.mano(caso.mano);
        for (float u : caso.estrazioni) b.casuale.metti(u);
        b.frm.turno = 2;
        b.esegui(b.frm.gioco2());

        const Carta attesa = caso.mano[static_cast<std::size_t>(caso.slot)];
        EXPECT_EQ(b.frm.slot, caso.slot);
        EXPECT_EQ(b.frm.carta_giocata, attesa);
        EXPECT_EQ(b.frm.valore_giocata, valore(attesa));
        EXPECT_EQ(b.casuale.estrazioni(), static_cast<int>(caso.estrazioni.size()));
        std::vector<Carta> prese;
        for (int i = 1; i <= b.frm.quante; ++i)
            if (b.frm.presa[i] != 0) prese.push_back(b.frm.presa[i]);
        EXPECT_EQ(prese, caso.presa);
        for (Carta c : caso.tavolo) {
            if (c != 0) {
                EXPECT_EQ(b.frm.carta[c].tag == Tag::SEL, std::count(prese.begin(), prese.end(), c) != 0) << c;
            }
        }

        // Shown on the spot of the card in play, gone from the hand, with
        // the card sound, between two pauses of 2 units.
        EXPECT_EQ(b.frm.dorso[static_cast<std::size_t>(caso.slot)].tag, 0);
        EXPECT_EQ(b.finestra.figura_a(b.frm.meta_larghezza + 190, b.frm.meta_altezza), attesa);
        EXPECT_EQ(b.frm.carta[attesa].Left, b.frm.meta_larghezza + 178);
        EXPECT_EQ(b.finestra.Point(b.frm.dorso[static_cast<std::size_t>(caso.slot)].Left + 10, 20), verde_tavolo);
        EXPECT_EQ(b.suono.suonate, 1);
        EXPECT_EQ(b.pause, (std::vector<std::int64_t>{650, 650}));
    }
}

TEST(Computer, LaTavolaVienePulitaELaPresaSegnataPrimaDiMostrareLaCarta) {
    Banco<FinestraSpia> b;
    b.tavolo({0, 0, 0, 0, 2, 5, 3});
    // Marks and an outline left from the player's turn.
    b.frm.carta[2].tag = Tag::SEL;
    b.frm.carta[3].tag = Tag::SEL;
    b.mano({0, 15, 0});
    b.finestra.registro.clear();
    b.frm.turno = 2;
    b.esegui(b.frm.gioco2());
    EXPECT_EQ(b.frm.carta[2].tag, Tag::vuoto);
    EXPECT_EQ(b.frm.carta[3].tag, Tag::vuoto);
    EXPECT_EQ(b.frm.carta[5].tag, Tag::SEL);

    const auto& r = b.finestra.registro;
    auto dove = [&](auto cond) { return std::find_if(r.begin(), r.end(), cond) - r.begin(); };
    // Every table card painted again, in scan order, then the outline, the
    // back erased, and last the card face on the spot of the card in play.
    ASSERT_GE(r.size(), 6u);
    EXPECT_EQ(r[0].figura, 2);
    EXPECT_EQ(r[1].figura, 5);
    EXPECT_EQ(r[2].figura, 3);
    const auto contorno = dove([&](const auto& v) {
        return v.cosa == 'B' && v.colore == rosso && v.x == b.frm.carta[5].Left + 3;
    });
    const auto mostrata = dove([&](const auto& v) { return v.cosa == 'P' && v.figura == 15; });
    EXPECT_LT(contorno, mostrata);
    EXPECT_EQ(mostrata, static_cast<std::ptrdiff_t>(r.size()) - 1);
}

TEST(Computer, UnaCartaSenzaPresaSuUnTavoloPienoVaAllaSuaPila) {
    // Twelve cards of 6 to 9 leave no capture to a card of 1 to 5.
    const Griglia pieno{6, 16, 26, 36, 7, 17, 27, 37, 8, 18, 28, 38};
    for (int turno : {1, 2}) {
        SCOPED_TRACE(turno);
        Banco<FinestraRaster> b;
        b.tavolo(pieno);
        b.mano({4, 0, 0});
        b.frm.ultima_presa = static_cast<std::int16_t>(3 - turno);
        b.frm.turno = static_cast<std::int16_t>(turno);
        b.frm.posizione_mazzo = 16;
        b.frm.mosse = 3;
        if (turno == 2) {
            b.casuale.metti(0.1f);
            b.esegui(b.frm.gioco2());
        } else {
            b.in_gioco(4, 1);
            b.frm.quante = 0;
            b.esegui(b.frm.verifica());
        }
        ASSERT_EQ(b.frm.carta_giocata, 4);
        ASSERT_EQ(b.frm.quante, 0);
        const auto draws = b.casuale.estrazioni();
        b.pause.clear();
        b.esegui(b.frm.muovicarte());

        EXPECT_EQ(b.casuale.estrazioni(), draws);  // no cell is drawn
        EXPECT_EQ(b.carte_sul_tavolo(), 12);
        for (int i = 0; i < 12; ++i) EXPECT_EQ(b.frm.tavolo[i / 4 + 1][i % 4 + 1], pieno[static_cast<std::size_t>(i)]);
        EXPECT_EQ(b.frm.prese[4], turno == 1 ? 1 : 0);
        EXPECT_EQ(b.frm.ultima_presa, 3 - turno);
        EXPECT_EQ(b.mod.leste[turno], 0);
        EXPECT_EQ(b.frm.vuote, 0);
        // Turned over on its spot, then onto the pile with the lamp.
        EXPECT_EQ(b.pause, (std::vector<std::int64_t>{325, 650, 650}));
        EXPECT_EQ(b.finestra.Point(b.frm.meta_larghezza + 190, b.frm.meta_altezza), verde_tavolo);
        EXPECT_EQ(b.finestra.figura_a(105, static_cast<float>(b.frm.pilay[turno]) + 5),
                  static_cast<int>(Figura::Dorso));
        EXPECT_FALSE(b.frm.Visible(Controllo::Led));
    }
}

// ---- laying a card ----

TEST(Muovi, LaCartaPosataVaInUnaCellaVuotaEstrattaACaso) {
    Banco<FinestraRaster> b;
    b.tavolo({0, 0, 0, 0, 1, 2, 3, 4});
    b.in_gioco(35, 2);
    // Row 2 column 1 is taken and costs both draws; then row 1, column 4.
    for (float u : {0.5f, 0.1f, 0.2f, 0.99f}) b.casuale.metti(u);
    const float x0 = b.frm.carta[35].Left, y0 = b.frm.carta[35].Top;
    b.esegui(b.frm.muovicarte());
    EXPECT_EQ(b.casuale.estrazioni(), 4);
    EXPECT_EQ(b.frm.tavolo[1][4], 35);
    EXPECT_EQ(b.frm.riga, 1);
    EXPECT_EQ(b.frm.colonna, 4);
    EXPECT_EQ(b.frm.carta[35].Left, b.cella_x(4));
    EXPECT_EQ(b.frm.carta[35].Top, b.cella_y(1));
    EXPECT_EQ(b.finestra.figura_a(b.cella_x(4) + 5, b.cella_y(1) + 5), 35);
    EXPECT_EQ(b.finestra.Point(x0 + 10, y0 + 10), verde_tavolo);
    EXPECT_EQ(b.frm.vuote, 7);
    EXPECT_TRUE(b.pause.empty());
    EXPECT_EQ(b.frm.quante, 0);
}

TEST(Muovi, ConUnaSolaCellaVuotaLeEstrazioniContinuanoFinoAColpirla) {
    for (std::uint32_t seme = 1; seme <= 20; ++seme) {
        Banco<FinestraSpia> b;
        b.casuale = CasualeFisso(seme);
        b.tavolo({1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 11, 12});
        b.in_gioco(36, 1);
        b.esegui(b.frm.muovicarte());
        EXPECT_EQ(b.frm.tavolo[3][2], 36);
        EXPECT_EQ(b.casuale.estrazioni() % 2, 0);
        EXPECT_EQ(b.frm.vuote, 0);
    }
}

// ---- captures ----

TEST(Muovi, PresaDiUnaCartaDelGiocatore) {
    Banco<FinestraRaster> b;
    b.tavolo({0, 0, 0, 0, 22, 5, 33, 0});
    b.in_gioco(15, 1);
    b.prendi({5});
    const float x = b.frm.carta[15].Left, y = b.frm.carta[15].Top, h = b.frm.altezza_carta;
    const Rett led = b.frm.rett(Controllo::Led);
    std::vector<bool> prese_in_pausa, led_in_pausa;
    b.in_pausa = [&] {
        prese_in_pausa.push_back(b.frm.prese[15] != 0 || b.frm.prese[5] != 0);
        led_in_pausa.push_back(b.frm.Visible(Controllo::Led));
    };
    b.esegui(b.frm.muovicarte());

    // 1 unit before the card rises, 2 for the stack, 1 before turning it
    // over, 2 turned over, 2 with the lamp lit beside the pile.
    EXPECT_EQ(b.pause, (std::vector<std::int64_t>{325, 650, 325, 650, 650}));
    EXPECT_EQ(led_in_pausa, (std::vector<bool>{false, false, false, false, true}));
    EXPECT_EQ(prese_in_pausa, std::vector<bool>(5, false));
    EXPECT_EQ(b.frm.prese[15], 1);
    EXPECT_EQ(b.frm.prese[5], 1);
    EXPECT_FALSE(b.frm.Visible(Controllo::Led));
    EXPECT_EQ(b.frm.rett(Controllo::Led).left, 100 - led.width - 6);
    EXPECT_EQ(b.frm.rett(Controllo::Led).top, static_cast<float>(b.frm.pilay[1]) + h / 2 - led.height / 2);

    // The card rose 0.3 of a card above the played one and slid down in
    // steps of 2, one frame each.
    EXPECT_EQ(b.frm.carta[5].Left, x);
    EXPECT_NEAR(b.frm.carta[5].Top, y - 0.3f * h, 1e-3);
    EXPECT_EQ(b.orologio.frame(), static_cast<std::int64_t>(std::ceil((y - std::nearbyint(y - 0.3f * h)) / 2)));

    EXPECT_EQ(b.frm.ultima_presa, 1);
    EXPECT_EQ(b.frm.tavolo[2][2], 0);
    EXPECT_EQ(b.frm.carta[5].tag, Tag::vuoto);
    EXPECT_EQ(b.frm.vuote, 10);
    EXPECT_EQ(b.mod.leste[1], 0);
    EXPECT_EQ(b.frm.quante, 0);
    EXPECT_EQ(b.frm.presa, (std::array<Carta, 13>{}));
    // Nothing is left where the stack stood or where the card lay; the pile
    // shows a back.
    EXPECT_EQ(b.finestra.Point(x + 10, y - 0.3f * h + 5), verde_tavolo);
    EXPECT_EQ(b.finestra.Point(x + 10, y + h + 1), verde_tavolo);
    EXPECT_EQ(b.finestra.Point(b.cella_x(2) + 10, b.cella_y(2) + 10), verde_tavolo);
    EXPECT_EQ(b.finestra.figura_a(105, static_cast<float>(b.frm.pilay[1]) + 5), static_cast<int>(Figura::Dorso));
}

TEST(Muovi, PresaConBuchiDelComputer) {
    Banco<FinestraRaster> b;
    b.tavolo({4, 0, 12, 0, 0, 23, 0, 0, 31});
    b.in_gioco(35, 2);
    b.frm.combina();
    ASSERT_EQ(b.frm.quante, 4);
    ASSERT_EQ(b.frm.presa[1], 0);
    ASSERT_EQ(b.frm.presa[4], 0);
    const float y = b.frm.carta[35].Top, h = b.frm.altezza_carta;
    b.esegui(b.frm.muovicarte());

    EXPECT_EQ(b.pause, (std::vector<std::int64_t>{325, 325, 325, 325, 650, 325, 650, 650}));
    EXPECT_NEAR(b.frm.carta[12].Top, y - 0.6f * h, 1e-3);
    EXPECT_NEAR(b.frm.carta[23].Top, y - 0.9f * h, 1e-3);
    EXPECT_EQ(b.orologio.frame(), static_cast<std::int64_t>(std::ceil((y - std::nearbyint(y - 0.9f * h)) / 2)));
    EXPECT_EQ(b.frm.ultima_presa, 2);
    EXPECT_EQ(b.frm.prese, (std::array<std::int16_t, 41>{}));  // the computer's pile is not recorded
    EXPECT_EQ(b.frm.tavolo[1][3], 0);
    EXPECT_EQ(b.frm.tavolo[2][2], 0);
    EXPECT_EQ(b.frm.tavolo[1][1], 4);
    EXPECT_EQ(b.frm.tavolo[3][1], 31);
    EXPECT_EQ(b.frm.vuote, 10);
    EXPECT_EQ(b.finestra.figura_a(105, 10), static_cast<int>(Figura::Dorso));
}

// A capture that empties the table, at points of the hand given by the deck
// and the moves: a sweep, unless it is the last card of the hand.
TEST(Muovi, SpazzateEIlLoroSegno) {
    struct Caso {
        int posizione, mosse, turno, leste_prima;
        bool spazzata;
        float alzata;  // where the marker stands, from the pile's row
    };
    const Caso casi[] = {
        {22, 6, 1, 0, false, 0}, {22, 6, 2, 1, false, 0},   // the last card of the hand
        {19, 6, 1, 0, true, 0},  {19, 6, 2, 0, true, 0},    // the last card of a deal
        {7, 1, 1, 2, true, -50}, {13, 4, 2, 2, true, 50},   // third sweeps
        {22, 5, 2, 0, true, 0},                             // the hand's last but one card
    };
    for (const auto& caso : casi) {
        SCOPED_TRACE(testing::Message() << caso.posizione << " + " << caso.mosse << ", side " << caso.turno);
        Banco<FinestraRaster> b;
        b.tavolo({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5});
        b.in_gioco(25, caso.turno);
        b.mod.leste[caso.turno] = static_cast<std::int16_t>(caso.leste_prima);
        b.frm.posizione_mazzo = static_cast<std::int16_t>(caso.posizione);
        b.frm.mosse = static_cast<std::int16_t>(caso.mosse);
        b.prendi({5});
        b.esegui(b.frm.muovicarte());

        EXPECT_EQ(b.frm.vuote, 12);
        EXPECT_EQ(b.mod.leste[caso.turno], caso.leste_prima + (caso.spazzata ? 1 : 0));
        EXPECT_EQ(b.mod.leste[3 - caso.turno], 0);
        const float x = b.frm.larghezza_carta + 100;
        const float y = static_cast<float>(b.frm.pilay[caso.turno]) + caso.alzata;
        EXPECT_EQ(b.finestra.figura_a(x + 5, y + 5) == 25, caso.spazzata);
        if (caso.spazzata) {
            EXPECT_EQ(b.frm.posx, x);
            EXPECT_EQ(b.frm.posy, y);
        }
    }
}

}  // namespace
}  // namespace lesta
