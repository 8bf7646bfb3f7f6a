// Carrying out a decided turn on the table and on screen. A card moves by
// being erased and painted again; only the slide of a capture onto the played
// card is animated, every other move is a jump after a pause.

#include <cmath>
#include <utility>

#include "match/frmlesta.h"
#include "match/tavolo.h"

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

// ---- the motion ----

// The played card from the spot (posx, posy) to its cell on the table.
void dipingi_posata(Frmlesta& f) {
    auto& posata = f.carta[f.carta_giocata];
    posata.Left = f.tavolox + (f.colonna - 1) * (f.larghezza_carta + 6);
    posata.Top = f.tavoloy + (f.riga - 1) * (f.altezza_carta + 6);
    f.finestra.PaintPicture(faccia(f.carta_giocata), posata.Left, posata.Top, f.larghezza_carta, f.altezza_carta);
    f.finestra.BoxFilled(f.posx - 1, f.posy - 1, f.posx + f.larghezza_carta + 1, f.posy + f.altezza_carta + 1,
                         verde_tavolo);
}

// The captured cards rise in a stack above the played card, 0.3 of a card
// height per entry of the list; a hole leaves a gap.
Task sali(Frmlesta& f) {
    for (int i = 1; i <= f.quante; ++i) {
        co_await f.ritardo(1);
        const Carta c = f.presa[i];
        if (c == 0) continue;
        f.finestra.BoxFilled(f.presax[i] - 1, f.presay[i] - 1, f.presax[i] + f.larghezza_carta + 1,
                             f.presay[i] + f.altezza_carta + 1, verde_tavolo);
        f.carta[c].Left = f.posx;
        f.carta[c].Top = static_cast<float>(f.posy - i * 0.3 * f.altezza_carta);
        f.finestra.PaintPicture(faccia(c), f.carta[c].Left, f.carta[c].Top, f.larghezza_carta, f.altezza_carta);
    }
    co_await f.ritardo(2);
}

// The top card slides down onto the played card in steps of 2, wiping the
// stack as it goes; the steps follow the frames, not the game's speed.
Task scivola(Frmlesta& f, Carta cima) {
    auto t = std::int32_t{unita_intere(f.carta[cima].Top)};
    while (f.finestra.conserva() && static_cast<float>(t) < f.posy) {
        t += 2;
        co_await un_frame(f.piattaforma.orologio);
        f.finestra.PaintPicture(faccia(cima), f.posx, static_cast<float>(t + 1), f.larghezza_carta, f.altezza_carta);
        f.finestra.BoxFilled(f.posx - 1, static_cast<float>(t - 3), f.posx + f.larghezza_carta + 1,
                             static_cast<float>(t), verde_tavolo);
    }
}

// The stack is turned over, carried to the pile of the side on turn, and the
// lamp beside the pile lights for a moment.
Task alla_pila(Frmlesta& f) {
    co_await f.ritardo(1);
    f.finestra.PaintPicture(Figura::Dorso, f.posx, f.posy + 2, f.larghezza_carta, f.altezza_carta);
    co_await f.ritardo(2);
    f.finestra.BoxFilled(f.posx - 1, f.posy - 1, f.posx + f.larghezza_carta + 1, f.posy + f.altezza_carta + 3,
                         verde_tavolo);
    const auto pila = static_cast<float>(f.pilay[f.turno]);
    f.finestra.PaintPicture(Figura::Dorso, 100, pila, f.larghezza_carta, f.altezza_carta);
    const Rett& led = f.rett(Controllo::Led);
    f.Move(Controllo::Led, 100 - led.width - 6, pila + f.altezza_carta / 2 - led.height / 2);
    f.Visible(Controllo::Led, true);
    co_await f.ritardo(2);
    f.Visible(Controllo::Led, false);
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
    } else {
        // A thirteenth card (nothing to take, and all twelve cells taken) has
        // no room on the table: it stays with the side that played it and
        // goes face down to that side's pile, as if it had taken itself. It
        // takes nothing from the table, so the last capture stays where it
        // was; and a full table cannot be swept.
        if (quante != 0) {
            co_await sali(*this);
            ultima_presa = turno;
            // The holes at the end of the list go: its last card tops the stack.
            while (presa[quante] == 0) --quante;
            co_await scivola(*this, presa[quante]);
        }
        co_await alla_pila(*this);
        // Only now, with the stack on the pile, are the player's cards counted.
        if (turno == 1) {
            prese[carta_giocata] = 1;
            for (int i = 1; i <= quante; ++i)
                if (presa[i] != 0) prese[presa[i]] = 1;
        }
    }

    vuote = togli_le_prese(tavolo, carta);
    // A sweep, except with the last card of the hand.
    if (vuote == 12 && posizione_mazzo + mosse != 28) {
        ++mod.leste[turno];
        segno_della_lesta(*this);
    }

    if (osservatore != nullptr) osservatore->mossa_eseguita(*this);
    presa.fill(0);
    quante = 0;
}

}  // namespace lesta
