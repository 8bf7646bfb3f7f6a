// The hand: the deal, the player's clicks on the table window, the running
// score, and whole hands played to the end by a random player against the
// computer, on the virtual clock, with every card followed at every turn.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "banco.h"

namespace lesta {
namespace {

using prova::Banco;

// ---- the deal ----

TEST(Mano, OgniDistribuzionePrendeDaiDueMezziDelMazzo) {
    for (std::uint8_t mazziere : {1, 2}) {
        Banco<FinestraRaster> b(1, 0.75f);
        b.mod.mazziere = mazziere;
        b.frm.Mescola();
        const float y_mano = 595 - b.frm.altezza_carta;
        for (int mano = 1; mano <= 6; ++mano) {
            b.frm.daicarte();
            const int p = b.frm.posizione_mazzo;
            ASSERT_EQ(p, 4 + 3 * mano);
            EXPECT_EQ(static_cast<Colore>(b.frm.sfondo), verde_tavolo);
            for (int i = 0; i < 3; ++i) {
                const float x = b.frm.meta_larghezza - 1.5f * b.frm.larghezza_carta - 6 +
                                static_cast<float>(i) * (b.frm.larghezza_carta + 6);
                const Carta nostra = b.mod.mazzo[p - 2 + i];
                EXPECT_EQ(b.frm.carta[nostra].Left, x);
                EXPECT_EQ(b.frm.carta[nostra].Top, y_mano);
                EXPECT_EQ(b.finestra.figura_a(x + 5, y_mano + 5), nostra);
                EXPECT_EQ(b.frm.dorso[i].tag, b.mod.mazzo[p + 16 + i]) << "deal " << mano << " slot " << i;
                EXPECT_EQ(b.frm.dorso[i].Left, x);
                EXPECT_EQ(b.frm.dorso[i].Top, 5);
                EXPECT_EQ(b.finestra.figura_a(x + 5, 10), static_cast<int>(Figura::Dorso));
            }
        }
        EXPECT_EQ(b.frm.dorso[2].tag, b.mod.mazzo[40]);
        EXPECT_EQ(b.frm.carta[b.mod.mazzo[22]].Left, b.frm.dorso[2].Left);
    }
}

// ---- the player's clicks ----

// A table of hand clicks for a card size: where, and which slot they play.
struct ClicMano {
    float scala;
    float x, y;
    int slot;  // 0: nothing is played
};

TEST(Mano, IlClicSceglieLaCartaPerAreeFisse) {
    const ClicMano casi[] = {
        {0.75f, 336, 550, 1},
        {0.75f, 400, 550, 2},
        {0.75f, 464, 550, 3},
        {0.75f, 307, 550, 0},              // the left bound is strict
        {0.75f, 307.01f, 550, 1},
        {0.75f, 367.5f, 550, 0},           // in the gap between the first two cards
        {0.75f, 400, 615, 0},              // below the window
        {0.75f, 336, 504.7f, 0},           // the top bound is strict
        {0.75f, 336, 504.8f, 1},
        {0.75f, 336, 490, 0},              // on the card, above the hit area
        {0.625f, 336, 504.7f + 0.625f * carta_iniziale.height, 0},  // the bottom bound is strict
        {0.625f, 336, 594.9f, 1},
        // With wide cards the areas overlap, and the slot further right wins.
        {1.0f, 380, 550, 2},
        {1.0f, 447, 550, 3},
        {1.0f, 360, 550, 1},
    };
    for (const auto& caso : casi) {
        Banco<FinestraRaster> b(1, caso.scala);
        b.frm.Mescola();
        b.frm.daicarte();
        b.frm.modo = Modo::gioco1;
        b.frm.Form_MouseDown(caso.x, caso.y);
        const auto spiega = testing::Message() << "scale " << caso.scala << " at " << caso.x << ", " << caso.y;
        if (caso.slot == 0) {
            EXPECT_EQ(b.frm.carta_giocata, 0) << spiega;
            EXPECT_EQ(b.frm.giocate, (std::array<std::uint8_t, 4>{})) << spiega;
            continue;
        }
        const Carta attesa = b.mod.mazzo[b.frm.posizione_mazzo - 3 + caso.slot];
        EXPECT_EQ(b.frm.slot, caso.slot) << spiega;
        EXPECT_EQ(b.frm.carta_giocata, attesa) << spiega;
        EXPECT_EQ(b.frm.valore_giocata, valore(attesa)) << spiega;
        EXPECT_EQ(b.frm.giocate[caso.slot], 1) << spiega;
        EXPECT_EQ(b.suono.suonate, 1) << spiega;
        // On the spot of the card in play, and gone from the hand.
        EXPECT_EQ(b.frm.carta[attesa].Left, b.frm.meta_larghezza + 178) << spiega;
        EXPECT_EQ(b.finestra.figura_a(b.frm.meta_larghezza + 190, b.frm.meta_altezza), attesa) << spiega;
        EXPECT_EQ(b.finestra.Point(b.frm.posx + 10, b.frm.posy + 10), verde_tavolo) << spiega;
    }
}

TEST(Mano, IlColoreDelTavoloFermaIlClic) {
    Banco<FinestraRaster> b(1, 0.75f);
    b.frm.Mescola();
    b.frm.daicarte();
    b.frm.modo = Modo::gioco1;
    // The bottom right corner of the first card's picture, inside its hit
    // area, is table colour, like the rounded corners of the real faces.
    const auto& prima = b.frm.carta[b.mod.mazzo[5]];
    const float x = std::floor(prima.Left + b.frm.larghezza_carta) - 0.5f;
    const float y = std::floor(prima.Top + b.frm.altezza_carta) - 0.5f;
    ASSERT_GT(y, 504.7f);
    ASSERT_EQ(b.finestra.Point(x, y), verde_tavolo);
    b.frm.Form_MouseDown(x, y);
    EXPECT_EQ(b.frm.carta_giocata, 0);
    // The pixel beside it is the card.
    ASSERT_EQ(b.finestra.Point(x - 1, y), bianco);
    b.frm.Form_MouseDown(x - 1, y);
    EXPECT_EQ(b.frm.carta_giocata, b.mod.mazzo[5]);
}

TEST(Mano, UnTurnoGiocaUnaSolaCarta) {
    Banco<FinestraRaster> b(1, 0.75f);
    b.frm.Mescola();
    b.frm.daicarte();
    b.frm.carta_giocata = 0;
    Task t = b.frm.gioco1();
    t.start();
    ASSERT_FALSE(t.done());
    // Two clicks queued before the turn goes on: the first plays.
    b.frm.Form_MouseDown(400, 550);
    b.frm.Form_MouseDown(464, 550);
    b.orologio.sveglia();
    ASSERT_TRUE(t.done());
    EXPECT_EQ(b.frm.carta_giocata, b.mod.mazzo[6]);
    EXPECT_EQ(b.frm.giocate, (std::array<std::uint8_t, 4>{0, 0, 1, 0}));
    EXPECT_EQ(b.frm.mosse, 1);
    EXPECT_EQ(b.suono.suonate, 1);
    EXPECT_EQ(b.finestra.figura_a(464, 550), b.mod.mazzo[7]);
    // A slot already played is dropped in a later turn of the deal.
    b.frm.carta_giocata = 0;
    b.frm.Form_MouseDown(400, 550);
    EXPECT_EQ(b.frm.carta_giocata, 0);
}

TEST(Mano, IClicSulTavoloSegnanoEToglionoLaSelezione) {
    Banco<FinestraRaster> b(1, 0.75f);
    b.frm.Mescola();
    b.frm.daicarte();
    b.frm.modo = Modo::selezione;
    const Carta c = b.frm.tavolo[2][2];
    const float x = b.frm.carta[c].Left, y = b.frm.carta[c].Top;
    const float w = b.frm.larghezza_carta, h = b.frm.altezza_carta;

    b.frm.Form_MouseDown(x + w / 2, y + h / 2);
    EXPECT_EQ(b.frm.carta[c].tag, Tag::SEL);
    EXPECT_EQ(b.finestra.Point(x + 3, y + h / 2), rosso);
    EXPECT_EQ(b.finestra.Point(x + w - 3, y + h / 2), rosso);
    EXPECT_EQ(b.finestra.Point(x + w / 2, y + h / 2), bianco);

    // A click on the outline is a click on the card.
    b.frm.Form_MouseDown(x + 3, y + h / 2);
    EXPECT_EQ(b.frm.carta[c].tag, Tag::vuoto);
    EXPECT_EQ(b.finestra.Point(x + 3, y + h / 2), bianco);
    EXPECT_EQ(b.finestra.figura_a(x + 3, y + h / 2), c);

    // The gap between two cards, an empty cell, and a point off the grid.
    b.frm.Form_MouseDown(x + w + 3, y + h / 2);
    b.frm.Form_MouseDown(x + w / 2, b.frm.tavoloy + h / 2);
    b.frm.Form_MouseDown(336, 550);  // a hand card
    for (int k = 1; k <= 4; ++k) EXPECT_EQ(b.frm.carta[b.frm.tavolo[2][k]].tag, Tag::vuoto);
    EXPECT_EQ(b.frm.carta_giocata, 0);
}

TEST(Mano, OgniClicChiudeIPannelliMaFuoriTurnoNonFaAltro) {
    Banco<FinestraRaster> b(1, 0.75f);
    b.frm.Mescola();
    b.frm.daicarte();
    const Carta c = b.frm.tavolo[2][1];
    for (Modo modo : {Modo::vuoto, Modo::gioco1, Modo::selezione}) {
        for (auto pannello : {Controllo::Text2, Controllo::Text3, Controllo::Text4}) b.frm.Visible(pannello, true);
        b.frm.modo = modo;
        b.frm.Form_MouseDown(10, 10);  // bare table
        for (auto pannello : {Controllo::Text2, Controllo::Text3, Controllo::Text4})
            EXPECT_FALSE(b.frm.Visible(pannello));
    }
    b.frm.modo = Modo::vuoto;
    b.frm.Form_MouseDown(336, 550);
    b.frm.Form_MouseDown(b.frm.carta[c].Left + 20, b.frm.carta[c].Top + 20);
    EXPECT_EQ(b.frm.carta_giocata, 0);
    EXPECT_EQ(b.frm.carta[c].tag, Tag::vuoto);
}

// ---- the start of a hand ----

TEST(Mano, IlPunteggioCorrenteDallaSecondaManoDiUnaPartita) {
    struct Caso {
        std::uint8_t tipo, partite;
        bool riquadro;
        const char* prima_riga;
    };
    const Caso casi[] = {
        {0, 0, false, ""}, {0, 30, false, ""}, {1, 0, false, ""},
        {1, 10, true, " 2^Game"}, {2, 100, true, " 11^Game"},
    };
    for (const auto& caso : casi) {
        Banco<FinestraRaster> b(1, 0.75f);
        b.mod.tipo_partita = caso.tipo;
        b.mod.partite = caso.partite;
        b.mod.punti_giocatore = 7;
        b.mod.punti_computer = 12;
        b.mod.mazziere = 2;  // the player leads: the hand stops at the first click
        b.frm.Mescola();
        b.frm.daicarte();
        Task t = b.frm.gioco();
        t.start();
        ASSERT_FALSE(t.done());
        EXPECT_EQ(b.frm.modo, Modo::gioco1);
        EXPECT_TRUE(b.frm.davanti(Verde(0), Rosso(0)));
        EXPECT_TRUE(b.frm.davanti(Rosso(1), Verde(1)));
        const auto& s = b.finestra.scritte;
        if (!caso.riquadro) {
            EXPECT_TRUE(s.empty());
            EXPECT_EQ(b.mod.punti_giocatore + b.mod.punti_computer, 0);
            continue;
        }
        ASSERT_EQ(s.size(), 3u);
        const float h = b.finestra.TextHeight();
        EXPECT_EQ(s[0].testo, caso.prima_riga);
        EXPECT_EQ(s[0].x, 695);
        EXPECT_EQ(s[0].y, 275);
        EXPECT_EQ(s[1].testo, "You   Computer");
        EXPECT_EQ(s[1].y, 275 + 2 * h);
        EXPECT_EQ(s[2].testo, " 7" + std::string(14, ' ') + " 12");
        EXPECT_EQ(s[2].x, 700);
        EXPECT_EQ(s[2].y, 275 + 3 * h);
        EXPECT_EQ(b.finestra.Point(691, 271), giallo);
        EXPECT_EQ(b.finestra.Point(740, 320), nero);
        EXPECT_EQ(b.mod.punti_giocatore, 7);
    }
}

// ---- whole hands ----

// Where a card is, as the state tells it. The computer's pile is not
// recorded: it is every card that is nowhere else.
enum Posto : std::uint8_t { pila2, mazzo, mano1, mano2, tavolo, pila1 };

struct Foto {
    std::array<Posto, 41> posto{};
    int posizione = 0, mosse = 0, lato = 0;
    std::array<std::int16_t, 3> leste{};
    int mano(int lato_) const {
        return static_cast<int>(std::count(posto.begin() + 1, posto.end(), lato_ == 1 ? mano1 : mano2));
    }
    bool tavolo_vuoto() const { return std::find(posto.begin() + 1, posto.end(), tavolo) == posto.end(); }
};

// Plays whole hands as a random player would, with stray clicks, and checks
// every card at the start of every turn and at the end of the hand.
template <class F>
class Partita {
public:
    Partita(Banco<F>& banco, std::uint32_t seme) : b(banco), f(banco.frm), caso(seme) {
        b.orologio.ingresso = [this] { return ingresso(); };
        b.orologio.al_timer2 = [this] {
            f.Timer2_Timer();
            in_pausa();
        };
    }

    // One hand; false if it did not run to its end.
    bool mano() {
        turni.clear();
        prima.reset();
        raccolta.reset();
        ultimo_lato = 0;
        suonate = b.suono.suonate;
        f.Mescola();
        f.daicarte();
        Task t = f.gioco();
        t.start();
        if (!t.done()) return false;
        fine_mano();
        return true;
    }

    int tredicesime = 0, raccolte_dall_altro = 0, ultima_posata = 0, ultima_spazza = 0, sequenze_scartate = 0;

private:
    bool moneta(double p) { return std::bernoulli_distribution(p)(caso); }
    template <class C>
    auto a_caso(const C& c) {
        return c[std::uniform_int_distribution<std::size_t>(0, c.size() - 1)(caso)];
    }
    void clic_mano(int k) {
        const float y_basso = std::min(595.0f, 504.7f + f.altezza_carta);
        f.Form_MouseDown(307.0f + 64.0f * static_cast<float>(k - 1) + f.larghezza_carta / 2, (504.7f + y_basso) / 2);
    }
    void clic_tavolo(Carta c) {
        f.Form_MouseDown(f.carta[c].Left + f.larghezza_carta / 2, f.carta[c].Top + f.altezza_carta / 2);
    }
    std::vector<Carta> sul_tavolo() const {
        std::vector<Carta> v;
        for (int r = 1; r <= 3; ++r)
            for (int k = 1; k <= 4; ++k)
                if (f.tavolo[r][k] != 0) v.push_back(f.tavolo[r][k]);
        return v;
    }

    // At the end of a hand the grid still holds the cards gathered from it.
    Foto foto(bool con_tavolo = true) {
        Foto fo;
        auto metti = [&](Carta c, Posto p) {
            if (c < 1 || c > 40 || fo.posto[c] != pila2)
                ADD_FAILURE() << "card " << c << " twice, or not a card (" << int(p) << ")";
            else
                fo.posto[c] = p;
        };
        const int p = f.posizione_mazzo;
        for (int i = p + 1; i <= 22; ++i) metti(b.mod.mazzo[i], mazzo);
        for (int i = p + 19; i <= 40; ++i) metti(b.mod.mazzo[i], mazzo);
        for (int k = 1; k <= 3; ++k)
            if (f.giocate[k] == 0) metti(b.mod.mazzo[p - 3 + k], mano1);
        for (const auto& d : f.dorso)
            if (d.tag != 0) metti(d.tag, mano2);
        if (con_tavolo)
            for (Carta c : sul_tavolo()) metti(c, tavolo);
        for (Carta c = 1; c <= 40; ++c)
            if (f.prese[c] != 0) metti(c, pila1);
        fo.posizione = p;
        fo.mosse = f.mosse;
        fo.leste = b.mod.leste;
        return fo;
    }

    // From one turn to the next: one card leaves the hand of the side that
    // played, and cards move only from that hand and the table to that
    // side's pile, or to the table; a sweep is counted exactly when the
    // table is left empty, but never by the last card of the hand.
    void passaggio(const Foto& da, const Foto& a, bool ultima) {
        const int lato = da.lato;
        const Posto sua_mano = lato == 1 ? mano1 : mano2, sua_pila = lato == 1 ? pila1 : pila2;
        int lasciano = 0, dal_tavolo = 0, in_pila = 0;
        for (Carta c = 1; c <= 40; ++c) {
            const Posto x = da.posto[c], y = a.posto[c];
            if (x == sua_mano && y != sua_mano) ++lasciano;
            dal_tavolo += x == tavolo && y != tavolo;
            in_pila += x == sua_mano && y == sua_pila;
            if (x == y) continue;
            const bool lecito = (x == mazzo && (y == mano1 || y == mano2) && a.posizione == da.posizione + 3) ||
                                (x == sua_mano && (y == tavolo || y == sua_pila)) || (x == tavolo && y == sua_pila);
            EXPECT_TRUE(lecito) << "card " << c << " from " << int(x) << " to " << int(y) << " in a turn of side "
                                << lato;
        }
        EXPECT_EQ(lasciano, 1);
        // A card that takes nothing with the grid full goes to its own pile.
        if (in_pila == 1 && dal_tavolo == 0) {
            EXPECT_EQ(std::count(da.posto.begin() + 1, da.posto.end(), tavolo), 12);
            ++tredicesime;
        }
        const int spazzate = ultima ? 0 : a.tavolo_vuoto();
        EXPECT_EQ(a.leste[lato], da.leste[lato] + spazzate);
        EXPECT_EQ(a.leste[3 - lato], da.leste[3 - lato]);
    }

    void inizio_turno(int lato) {
        if (!turni.insert({f.posizione_mazzo, f.mosse}).second) return;
        clic_del_turno = 0;
        Foto fo = foto();
        fo.lato = lato;
        // Strict alternation, the side that did not deal leading each deal.
        const int primo = b.mod.mazziere == 1 ? 2 : 1;
        EXPECT_EQ(lato, f.mosse % 2 == 0 ? primo : 3 - primo);
        EXPECT_EQ(fo.mano(1), 3 - (f.mosse + (primo == 1)) / 2);
        EXPECT_EQ(fo.mano(2), 3 - (f.mosse + (primo == 2)) / 2);
        // The table as the grid tells it: unmarked cards in their cells.
        int vuote = 0;
        for (int r = 1; r <= 3; ++r)
            for (int k = 1; k <= 4; ++k) {
                const Carta c = f.tavolo[r][k];
                if (c == 0) {
                    ++vuote;
                    continue;
                }
                EXPECT_EQ(f.carta[c].tag, Tag::vuoto);
                EXPECT_NEAR(f.carta[c].Left, f.tavolox + (k - 1) * (f.larghezza_carta + 6), 1e-3);
                EXPECT_NEAR(f.carta[c].Top, f.tavoloy + (r - 1) * (f.altezza_carta + 6), 1e-3);
            }
        if (prima) {
            EXPECT_EQ(f.vuote, vuote);
            passaggio(*prima, fo, false);
        }
        if constexpr (std::is_same_v<F, FinestraRaster>) {
            // The deck stands on the dealer's side until the last deal.
            const float x = 680 + f.larghezza_carta / 2, y = static_cast<float>(f.pilay[b.mod.mazziere]) + 20;
            if (f.posizione_mazzo < 22)
                EXPECT_EQ(b.finestra.figura_a(x, y), static_cast<int>(Figura::Dorso));
            else
                EXPECT_EQ(b.finestra.Point(x, y), verde_tavolo);
        }
        prima = fo;
        ultimo_lato = lato;
    }

    bool ingresso() {
        if (++clic_del_turno > 500) {
            ADD_FAILURE() << "the turn does not end";
            return false;
        }
        if (f.modo == Modo::gioco1 && f.carta_giocata == 0) {
            inizio_turno(1);
            obiettivo.reset();
            std::vector<int> libere, giocate;
            for (int k = 1; k <= 3; ++k) (f.giocate[k] == 0 ? libere : giocate).push_back(k);
            if (moneta(0.1)) {
                // A click that means nothing: a slot already played, or bare table.
                if (!giocate.empty() && moneta(0.5))
                    clic_mano(a_caso(giocate));
                else
                    f.Form_MouseDown(20, 300);
                EXPECT_EQ(f.carta_giocata, 0);
                return true;
            }
            const int k = a_caso(libere);
            clic_mano(k);
            const Carta attesa = b.mod.mazzo[f.posizione_mazzo - 3 + k];
            if (libere.size() > 1 && moneta(0.2)) {
                // A second click queued behind the first.
                int altra = k;
                while (altra == k) altra = a_caso(libere);
                clic_mano(altra);
                EXPECT_EQ(f.giocate[altra], 0);
                ++sequenze_scartate;
            }
            EXPECT_EQ(f.carta_giocata, attesa);
            return true;
        }
        if (f.modo == Modo::selezione) {
            const auto tutte = sul_tavolo();
            if (!obiettivo) obiettivo = scegli(tutte);
            if (obiettivo->empty()) {
                ADD_FAILURE() << "the turn waits for a capture that the card does not have";
                return false;
            }
            if (moneta(0.15)) {
                clic_tavolo(a_caso(tutte));  // a slip of the hand, put right later
                return true;
            }
            for (Carta c : tutte) {
                const bool voluta = std::count(obiettivo->begin(), obiettivo->end(), c) != 0;
                if (voluta != (f.carta[c].tag == Tag::SEL)) {
                    clic_tavolo(c);
                    return true;
                }
            }
            ADD_FAILURE() << "a legal selection stands, and the turn still waits";
            return false;
        }
        ADD_FAILURE() << "the hand waits for a click it cannot use";
        return false;
    }

    // Any legal capture, as the player sees the table: a card of equal value
    // alone, or else two or more cards that add up to the played card.
    std::vector<Carta> scegli(const std::vector<Carta>& tutte) {
        std::vector<std::vector<Carta>> lecite;
        for (Carta c : tutte)
            if (valore(c) == f.valore_giocata) lecite.push_back({c});
        if (lecite.empty()) {
            const auto n = tutte.size();
            for (unsigned m = 1; m < (1u << n); ++m) {
                std::vector<Carta> s;
                int somma = 0;
                for (std::size_t i = 0; i < n; ++i)
                    if (m >> i & 1u) s.push_back(tutte[i]), somma += valore(tutte[i]);
                if (s.size() >= 2 && somma == f.valore_giocata) lecite.push_back(s);
            }
        }
        return lecite.empty() ? std::vector<Carta>{} : a_caso(lecite);
    }

    void in_pausa() {
        if (f.turno == 2 && f.carta_giocata == 0) inizio_turno(2);
        // The stack of the last move being carried off the table: the cards
        // left at the end of the hand, gathered for the side that took last.
        if (!raccolta && f.posizione_mazzo == 22 && f.mosse == 6 && f.quante > 0) {
            bool segnate = false;
            for (Carta c : sul_tavolo()) segnate |= f.carta[c].tag == Tag::SEL;
            if (!segnate) {
                raccolta = foto();
                raccolta->lato = f.turno;
            }
        }
        // A stray click while the game pauses does nothing.
        if (f.modo == Modo::vuoto && moneta(0.05)) {
            const auto tutte = sul_tavolo();
            if (!tutte.empty() && moneta(0.5))
                clic_tavolo(a_caso(tutte));
            else
                clic_mano(std::uniform_int_distribution<int>(1, 3)(caso));
        }
    }

    void fine_mano() {
        EXPECT_EQ(turni.size(), 36u);
        std::set<int> distribuzioni;
        for (const auto& t : turni) distribuzioni.insert(t.first);
        EXPECT_EQ(distribuzioni, (std::set<int>{7, 10, 13, 16, 19, 22}));
        EXPECT_EQ(b.suono.suonate - suonate, 36);
        EXPECT_EQ(b.frm.posizione_mazzo + b.frm.mosse, 28);
        ASSERT_TRUE(prima.has_value());

        const Foto fine = foto(false);
        const Carta ultima = f.carta_giocata;
        if (raccolta) {
            // The last turn, then the gathering of the table.
            passaggio(*prima, *raccolta, true);
            EXPECT_EQ(raccolta->lato, f.ultima_presa);
            raccolte_dall_altro += f.ultima_presa != ultimo_lato;
            ultima_posata += raccolta->posto[ultima] == tavolo;
            const Posto pila = f.ultima_presa == 1 ? pila1 : pila2;
            for (Carta c = 1; c <= 40; ++c)
                EXPECT_EQ(fine.posto[c], raccolta->posto[c] == tavolo ? pila : raccolta->posto[c]) << c;
            EXPECT_EQ(fine.leste, raccolta->leste);
            // The grid now holds the primiera's working figures; the count of
            // empty cells still tells what was gathered.
            EXPECT_EQ(std::count(raccolta->posto.begin() + 1, raccolta->posto.end(), tavolo), 12 - f.vuote);
        } else {
            // The last card took all that was left.
            EXPECT_EQ(f.vuote, 12);
            passaggio(*prima, fine, true);
            ++ultima_spazza;
        }
        for (Carta c = 1; c <= 40; ++c) EXPECT_TRUE(fine.posto[c] == pila1 || fine.posto[c] == pila2) << c;

        // The piles for the score: the player's ascending, then the computer's.
        const auto& carte = b.mod.carte;
        std::vector<Carta> sue, altre;
        for (Carta c = 1; c <= 40; ++c) (fine.posto[c] == pila1 ? sue : altre).push_back(c);
        EXPECT_EQ(b.mod.numcarte, static_cast<int>(sue.size()));
        std::vector<Carta> attese = sue;
        attese.insert(attese.end(), altre.begin(), altre.end());
        EXPECT_TRUE(std::equal(attese.begin(), attese.end(), carte.begin() + 1));
        EXPECT_EQ(b.mod.numdenari, static_cast<int>(std::count_if(sue.begin(), sue.end(), [](Carta c) { return c <= 10; })));
        EXPECT_EQ(b.mod.settebello, fine.posto[7] == pila1);
    }

    Banco<F>& b;
    Frmlesta& f;
    std::mt19937 caso;
    std::set<std::pair<int, int>> turni;
    std::optional<Foto> prima, raccolta;
    std::optional<std::vector<Carta>> obiettivo;
    int ultimo_lato = 0;
    int suonate = 0;
    int clic_del_turno = 0;
};

TEST(Mano, MigliaiaDiManiSenzaPerdereUnaCarta) {
    const auto inizio = std::chrono::steady_clock::now();
    int mani = 0, raccolte_dall_altro = 0, ultima_posata = 0, ultima_spazza = 0, scartate = 0, tredicesime = 0;
    for (std::uint32_t seme = 1; seme <= 300 && !testing::Test::HasFailure(); ++seme) {
        Banco<FinestraNulla> b(seme, 0.75f);
        Partita<FinestraNulla> partita(b, seme * 7919u);
        for (int m = 0; m < 10 && !testing::Test::HasFailure(); ++m) {
            b.mod.mazziere = static_cast<std::uint8_t>(1 + (seme + static_cast<std::uint32_t>(m)) % 2);
            b.frm.velocita = static_cast<std::uint8_t>(10 * (1 + m % 3));
            ASSERT_TRUE(partita.mano()) << "seed " << seme << " hand " << m;
            ++mani;
        }
        raccolte_dall_altro += partita.raccolte_dall_altro;
        ultima_posata += partita.ultima_posata;
        ultima_spazza += partita.ultima_spazza;
        scartate += partita.sequenze_scartate;
        tredicesime += partita.tredicesime;
    }
    EXPECT_EQ(mani, 3000);
    // The ends of a hand that matter have all come up.
    EXPECT_GT(raccolte_dall_altro, 0);
    EXPECT_GT(ultima_posata, 0);
    EXPECT_GT(ultima_spazza, 0);
    EXPECT_GT(scartate, 0);
    const auto durata = std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
    RecordProperty("seconds", std::to_string(durata));
    RecordProperty("thirteenth_cards", std::to_string(tredicesime));
    RecordProperty("gathered_by_the_other_side", std::to_string(raccolte_dall_altro));
    RecordProperty("last_card_laid", std::to_string(ultima_posata));
    RecordProperty("last_card_took_all", std::to_string(ultima_spazza));
}

TEST(Mano, ManiInteriSulloSchermoConIlTestDelColore) {
    for (std::uint32_t seme = 1; seme <= 12 && !testing::Test::HasFailure(); ++seme) {
        Banco<FinestraRaster> b(seme, 0.75f);
        b.mod.mazziere = static_cast<std::uint8_t>(1 + seme % 2);
        Partita<FinestraRaster> partita(b, seme);
        ASSERT_TRUE(partita.mano()) << "seed " << seme;
        // The virtual clock kept time: at least the pauses of 36 turns.
        EXPECT_GT(b.orologio.millisecondi(), 36 * 325);
    }
}

}  // namespace
}  // namespace lesta
