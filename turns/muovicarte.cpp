// Carrying out a decided turn on the table and on screen. A card moves by
// being erased and painted again; only the slide of a capture onto the played
// card is animated, every other move is a jump after a pause.

#include <cmath>

#include "match/frmlesta.h"
#include "match/geometria.h"

namespace lesta {

namespace {

bool tavolo_pieno(const std::array<std::array<Carta, 5>, 4>& tavolo) {
    for (int r = 1; r <= 3; ++r)
        for (int k = 1; k <= 4; ++k)
            if (tavolo[r][k] == 0) return false;
    return true;
}

}  // namespace

Task Frmlesta::muovicarte() {
    auto& casuale = piattaforma.casuale;
    auto cancella = [this](float basso) {
        finestra.BoxFilled(posx - 1, posy - 1, posx + larghezza_carta + 1, posy + altezza_carta + basso, verde_tavolo);
    };

    posx = carta[carta_giocata].Left;
    posy = carta[carta_giocata].Top;

    if (quante == 0 && !tavolo_pieno(tavolo)) {
        // Laid on a random empty cell: a row and then a column is drawn, and
        // a taken cell costs both draws again.
        do {
            riga = static_cast<float>(std::floor(static_cast<double>(casuale.Rnd()) * 3 + 1));
            colonna = static_cast<float>(std::floor(static_cast<double>(casuale.Rnd()) * 4 + 1));
        } while (tavolo[static_cast<std::size_t>(riga)][static_cast<std::size_t>(colonna)] != 0);
        auto& posata = carta[carta_giocata];
        posata.Left = sinistra_cella(colonna, tavolox, larghezza_carta);
        posata.Top = alto_cella(riga, tavoloy, altezza_carta);
        finestra.PaintPicture(faccia(carta_giocata), posata.Left, posata.Top, larghezza_carta, altezza_carta);
        cancella(1);
        tavolo[static_cast<std::size_t>(riga)][static_cast<std::size_t>(colonna)] = carta_giocata;
        posata.tag = Tag::vuoto;
    } else {
        // A thirteenth card (nothing to take, and all twelve cells taken) has
        // no room on the table: it stays with the side that played it and
        // goes face down to that side's pile, as if it had taken itself. It
        // takes nothing from the table, so the last capture stays where it
        // was; and a full table cannot be swept.
        if (quante != 0) {
            // The captured cards rise in a stack above the played card, 0.3
            // of a card height per entry of the list; a hole leaves a gap.
            for (int i = 1; i <= quante; ++i) {
                co_await ritardo(1);
                const Carta c = presa[i];
                if (c == 0) continue;
                finestra.BoxFilled(presax[i] - 1, presay[i] - 1, presax[i] + larghezza_carta + 1,
                                   presay[i] + altezza_carta + 1, verde_tavolo);
                carta[c].Left = posx;
                carta[c].Top = static_cast<float>(posy - i * 0.3 * altezza_carta);
                finestra.PaintPicture(faccia(c), carta[c].Left, carta[c].Top, larghezza_carta, altezza_carta);
            }
            co_await ritardo(2);
            ultima_presa = turno;

            // The top card slides down onto the played card in steps of 2,
            // wiping the stack as it goes; the steps follow the frames, not
            // the game's speed.
            while (presa[quante] == 0) --quante;
            const Carta cima = presa[quante];
            auto t = std::int32_t{unita_intere(carta[cima].Top)};
            while (finestra.conserva() && static_cast<float>(t) < posy) {
                t += 2;
                co_await un_frame(piattaforma.orologio);
                finestra.PaintPicture(faccia(cima), posx, static_cast<float>(t + 1), larghezza_carta, altezza_carta);
                finestra.BoxFilled(posx - 1, static_cast<float>(t - 3), posx + larghezza_carta + 1,
                                   static_cast<float>(t), verde_tavolo);
            }
        }

        // The stack is turned over, carried to the pile of the side on turn,
        // and the lamp beside the pile lights for a moment.
        co_await ritardo(1);
        finestra.PaintPicture(Figura::Dorso, posx, posy + 2, larghezza_carta, altezza_carta);
        co_await ritardo(2);
        cancella(3);
        const auto pila = static_cast<float>(pilay[turno]);
        finestra.PaintPicture(Figura::Dorso, 100, pila, larghezza_carta, altezza_carta);
        const Rett& led = rett(Controllo::Led);
        Move(Controllo::Led, 100 - led.width - 6, pila + altezza_carta / 2 - led.height / 2);
        Visible(Controllo::Led, true);
        co_await ritardo(2);
        Visible(Controllo::Led, false);

        // Only now, with the stack on the pile, are the player's cards counted.
        if (turno == 1) {
            prese[carta_giocata] = 1;
            for (int i = 1; i <= quante; ++i)
                if (presa[i] != 0) prese[presa[i]] = 1;
        }
    }

    // The captured cards leave the grid; the others keep their cells.
    vuote = 0;
    for (int r = 1; r <= 3; ++r)
        for (int k = 1; k <= 4; ++k) {
            auto& cella = tavolo[r][k];
            if (cella != 0 && carta[cella].tag == Tag::SEL) {
                carta[cella].tag = Tag::vuoto;
                cella = 0;
            }
            if (cella == 0) ++vuote;
        }

    // A sweep, except with the last card of the hand. Its marker is the card
    // that made it, painted beside the pile, each further one 25 units nearer
    // the middle of the window.
    if (vuote == 12 && posizione_mazzo + mosse != 28) {
        ++mod.leste[turno];
        posx = larghezza_carta + 100;
        const int verso = turno == 1 ? -1 : 1;
        posy = static_cast<float>(pilay[turno] + verso * (mod.leste[turno] - 1) * 25);
        finestra.PaintPicture(faccia(carta_giocata), posx, posy, larghezza_carta, altezza_carta);
    }

    if (osservatore != nullptr) osservatore->mossa_eseguita(*this);
    presa.fill(0);
    quante = 0;
}

}  // namespace lesta
