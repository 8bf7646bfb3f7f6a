// SPDX-License-Identifier: GPL-3.0-or-later
// Carrying out a decided turn on the table and on screen. A card moves by
// being erased and painted again; only the slide of a capture onto the played
// card is animated, every other move is a jump after a pause.

#include <algorithm>
#include <cassert>
#include <cmath>
#include <tuple>
#include <utility>

#include "match/frmlesta.h"
#include "match/geometria.h"
#include "match/tavolo.h"
#include "turns/fine_mano.h"
#include "turns/frasi.h"
#include "turns/passi.h"
#include "turns/ritardo.h"

namespace lesta {

namespace {

// ---- the bookkeeping ----

bool tavolo_pieno(const Tavolo& tavolo) {
    bool pieno = true;
    per_ogni_cella(tavolo, [&pieno](Carta c) { pieno = pieno && c != 0; });
    return pieno;
}

// The cell of a laid card, drawn at random among the empty ones: a row and
// then a column is drawn, and a taken cell costs both draws again.
std::pair<float, float> cella_a_caso(const Tavolo& tavolo, Casuale& casuale) {
    float riga = 0, colonna = 0;
    do {
        riga = static_cast<float>(std::floor(static_cast<double>(casuale.Rnd()) * 3 + 1));
        colonna = static_cast<float>(std::floor(static_cast<double>(casuale.Rnd()) * 4 + 1));
    } while (tavolo[static_cast<std::size_t>(riga)][static_cast<std::size_t>(colonna)] != 0);
    return {riga, colonna};
}

// The captured cards, those marked, leave the grid; the others keep their
// cells. The empty cells are counted after.
std::uint8_t togli_le_prese(Tavolo& tavolo, std::array<CartaControllo, 41>& carta) {
    std::uint8_t vuote = 0;
    per_ogni_cella(tavolo, [&](Carta& cella) {
        if (cella != 0 && carta[cella].tag == Tag::SEL) {
            carta[cella].tag = Tag::vuoto;
            cella = 0;
        }
        if (cella == 0) ++vuote;
    });
    return vuote;
}

// The player's pile: the played card and the cards of the capture list.
void conta_le_prese(std::array<std::int16_t, 41>& prese, Carta giocata, const std::array<Carta, 13>& presa,
                    int quante) {
    prese[giocata] = 1;
    for (int i = 1; i <= quante; ++i)
        if (presa[i] != 0) prese[presa[i]] = 1;
}

// ---- the motion ----

// The played card from the spot (posx, posy) to its cell on the table.
void dipingi_posata(Frmlesta& f) {
    auto& posata = f.carta[f.carta_giocata];
    posata.Left = sinistra_cella(f.colonna, f.tavolox, f.larghezza_carta);
    posata.Top = alto_cella(f.riga, f.tavoloy, f.altezza_carta);
    f.finestra.PaintPicture(faccia(f.carta_giocata), posata.Left, posata.Top, f.larghezza_carta, f.altezza_carta);
    cancella_carta(f, f.posx, f.posy);
    f.in_gioco = 0;
}

// Entry i of the capture list rises onto the stack above the played card,
// 0.3 of a card height per entry; a hole leaves a gap.
void sale(Frmlesta& f, int i) {
    const Carta c = f.presa[i];
    if (c == 0) return;
    cancella_carta(f, f.presax[i], f.presay[i]);
    f.carta[c].Left = f.posx;
    f.carta[c].Top = static_cast<float>(f.posy - i * 0.3 * f.altezza_carta);
    f.finestra.PaintPicture(faccia(c), f.carta[c].Left, f.carta[c].Top, f.larghezza_carta, f.altezza_carta);
}

// One step of the slide: the top card 2 units lower, at t + 1, and the stack
// wiped above it.
void scende(Frmlesta& f, Carta cima, std::int32_t t) {
    f.finestra.PaintPicture(faccia(cima), f.posx, static_cast<float>(t + 1), f.larghezza_carta, f.altezza_carta);
    cancella(f, f.posx, static_cast<float>(t - 3), static_cast<float>(t));
}

// The stack turned over on the spot of the played card.
void capovolgi(Frmlesta& f) {
    f.finestra.PaintPicture(Figura::Dorso, f.posx, f.posy + 2, f.larghezza_carta, f.altezza_carta);
    f.in_gioco = 0;
}

// The stack carried to the pile of the side on turn, and the lamp beside
// the pile lit.
void in_pila(Frmlesta& f) {
    // The turned stack stands 2 lower than the played card.
    cancella(f, f.posx, f.posy - 1, f.posy + f.altezza_carta + 3);
    const auto pila = static_cast<float>(f.pilay[f.turno]);
    f.finestra.PaintPicture(Figura::Dorso, 100, pila, f.larghezza_carta, f.altezza_carta);
    const Rett& led = f.rett(Controllo::Led);
    f.Move(Controllo::Led, 100 - led.width - 6, pila + f.altezza_carta / 2 - led.height / 2);
    f.Visible(Controllo::Led, true);
}

// A sweep's marker is the card that made it, painted beside the pile, each
// further one 25 units nearer the middle of the window.
void segno_della_lesta(Frmlesta& f) {
    f.posx = f.larghezza_carta + 100;
    const int verso = f.turno == 1 ? -1 : 1;
    f.posy = static_cast<float>(f.pilay[f.turno] + verso * (f.mod.leste[f.turno] - 1) * 25);
    f.finestra.PaintPicture(faccia(f.carta_giocata), f.posx, f.posy, f.larghezza_carta, f.altezza_carta);
}

}  // namespace

Task Frmlesta::muovicarte() {
    posx = carta[carta_giocata].Left;
    posy = carta[carta_giocata].Top;

    if (quante == 0 && !tavolo_pieno(tavolo)) {
        std::tie(riga, colonna) = cella_a_caso(tavolo, piattaforma.casuale);
        dipingi_posata(*this);
        tavolo[static_cast<std::size_t>(riga)][static_cast<std::size_t>(colonna)] = carta_giocata;
        carta[carta_giocata].tag = Tag::vuoto;
        racconta([this](Lingua l) {
            return frasi::posata(l, turno, carta_giocata, static_cast<int>(riga), static_cast<int>(colonna));
        });
    } else {
        // A thirteenth card (nothing to take, and all twelve cells taken) has
        // no room on the table: it stays with the side that played it and
        // goes face down to that side's pile, as if it had taken itself. It
        // takes nothing from the table, so the last capture stays where it
        // was; and a full table cannot be swept.
        if (quante == 0) racconta([this](Lingua l) { return frasi::tavolo_pieno(l, turno, carta_giocata); });
        if (quante != 0) {
            // A capture lists at most the twelve cells, and one card at least.
            assert(quante <= 12 &&
                   std::any_of(presa.begin() + 1, presa.begin() + quante + 1, [](Carta c) { return c != 0; }));
            // The captured cards rise one by one; the top card slides down
            // onto the played card, a step a frame whatever the game's speed.
            for (int i = 1; i <= quante; ++i) {
                co_await ritardo(pausa::prima_di_salire);
                sale(*this, i);
            }
            co_await ritardo(pausa::presa_sollevata);
            ultima_presa = turno;
            // The holes at the end of the list go: its last card tops the stack.
            while (presa[quante] == 0) --quante;
            const Carta cima = presa[quante];
            auto t = std::int32_t{unita_intere(carta[cima].Top)};
            while (finestra.conserva() && static_cast<float>(t) < posy) {
                t += 2;
                co_await un_frame(piattaforma.orologio);
                scende(*this, cima, t);
            }
        }
        // The stack is turned over and carried to its pile, where the lamp
        // lights for a moment.
        co_await ritardo(pausa::prima_di_capovolgere);
        capovolgi(*this);
        co_await ritardo(pausa::capovolta);
        in_pila(*this);
        co_await ritardo(pausa::lampada_accesa);
        Visible(Controllo::Led, false);
        // Only now, with the stack on the pile, are the player's cards counted.
        if (turno == 1) conta_le_prese(prese, carta_giocata, presa, quante);
    }

    vuote = togli_le_prese(tavolo, carta);
    if (fa_lesta(vuote, posizione_mazzo, mosse)) {
        ++mod.leste[turno];
        segno_della_lesta(*this);
        carte_leste[static_cast<std::size_t>(turno)][static_cast<std::size_t>(mod.leste[turno] - 1)] = carta_giocata;
        racconta([this](Lingua l) { return frasi::lesta(l, turno); });
    }

    if (osservatore != nullptr) osservatore->mossa_eseguita(*this);
    presa.fill(0);
    quante = 0;
}

}  // namespace lesta
