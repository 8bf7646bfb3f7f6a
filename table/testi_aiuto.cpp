// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/testi_aiuto.h"

namespace lesta {

const std::string_view testo_inglese = R"(LESTA
You play against the computer, in
three kinds of game: one game, the
11 points game and the 21 points
game. The menu on the table offers
background music. The scores are
shown at the end of each game.

Do you know neapolitan cards?
The deck has four suits: Denari,
Coppe, Spade and Bastoni, much like
Diamonds, Hearts, Spades and Cudgels.
The first seven cards of a suit show
as many symbols as their value.
The girl is worth eight, the horse
nine and the king ten.

Game Rules
There are three types of game: one
game, 11 points and 21 points. If a
game ends in a draw, play goes on.
The dealer lays 4 uncovered cards on
the table and deals 3 covered cards
at a time to each player. The other
player starts. The aim is to win the
greater number of cards.

A card played must take the table
card of the same value, if there is
one. If not, it can take the table
cards whose sum equals its value:
a 7 takes 6+1 or 5+2.
Select the table cards by clicking on
each of them; click a card again to
deselect it.

The keys play too: Enter or the space
bar is GO; 1, 2 and 3 play the cards
of your hand from the left; Q W E R,
A S D F and Z X C V select the table
cards, row by row. With a screen
reader, H reads your hand again, T
the table, I whose turn it is, with
the deck and the leste, and P the
match so far. The keys are named as
a US keyboard prints them; what
counts is where a key is, not what
your keyboard prints on it.

Taking all the cards of the table is
a lesta, a sweep: the card that made
it is shown uncovered beside the pack
just won. Each lesta is worth one
point.

At the end the coin cards are
counted. The Settebello, the seven of
coins, gives 1 point.

Primiera, or primero: each player
takes the group of his 4 highest
cards, one for each suit, valued by
this table:
  Seven	21
  Six	18
  Ace	16
  Five	15
  Four	14
  Three	13
  Figures (eight nine and ten)	10
The best of all is the four sevens.

Some advice:
- get the most cards;
- prefer the coins;
- arrange the best primiera;
- hunt the Settebello and the aces;
- look for a lesta.
)";

const std::string_view testo_italiano = R"(Regole del gioco
Si gioca in tre modi: partita
singola, a 11 punti e a 21 punti.
Se una partita finisce pari, si
continua a giocare.
Il mazziere stende in tavola 4 carte
scoperte e dà 3 carte coperte per
volta a ciascun giocatore. Comincia
l'altro giocatore. Lo scopo è
prendere il maggior numero di carte.

La carta giocata deve prendere la
carta in tavola di pari valore, se
c'è. Altrimenti può prendere le
carte la cui somma è uguale al suo
valore: un 7 prende 6+1 o 5+2.
Si scelgono le carte in tavola con
un clic su ciascuna; un altro clic
sulla stessa carta la toglie.

Si gioca anche coi tasti: Invio o la
barra spaziatrice è GO; 1, 2 e 3
giocano le carte in mano, da sinistra;
Q W E R, A S D F e Z X C V scelgono le
carte in tavola, riga per riga. Con
un lettore di schermo, H rilegge le
tue carte, T la tavola, I a chi
tocca, col mazzo e le leste, e P la
partita fin qui. I nomi dei tasti sono
quelli di una tastiera americana:
conta il posto del tasto, non quel
che c'è scritto sopra.

Prendere tutte le carte in tavola è
una lesta: la carta che l'ha fatta
resta scoperta accanto al mazzetto
appena vinto. Ogni lesta vale un
punto.

Alla fine si contano i denari. Il
Settebello, il sette di denari, vale
1 punto.

Settanta: ogni giocatore prende le
sue 4 carte migliori, una per seme,
contate con questa tabella:
  Sette	21
  Sei	18
  Asso	16
  Cinque	15
  Quattro	14
  Tre	13
  Figure (otto nove e dieci)	10
La migliore di tutte è quella dei
quattro sette.

Consigli:
- prendi più carte che puoi;
- preferisci i denari;
- prepara la settanta migliore;
- caccia il Settebello e gli assi;
- cerca la lesta.

Il punteggio finale di una partita ha
cinque voci: un punto a chi ha più
carte, uno a chi ha più denari, uno
per la settanta migliore, uno per il
Settebello, e un punto per ogni
lesta.
)";

// The game and its deck; then whose it is and under which licence.
const std::string_view testo_informazioni =
    "Lesta  ver. 3.4\n"
    "Carte triestine\n"
    "© 2026 The Lesta developers\n"
    "Free software, GPL-3.0-or-later\n"
    "No warranty\n";

std::string_view nome_controllo(Controllo c, Lingua l) {
    const bool it = l == Lingua::italiano;
    switch (c) {
        case Controllo::Text2: return it ? "Regole del gioco in inglese" : "Game rules in English";
        case Controllo::Text3: return it ? "Regole del gioco in italiano" : "Game rules in Italian";
        case Controllo::Text4: return it ? "Informazioni" : "Information";
        case Controllo::Verde0: return it ? "Luce verde dalla tua parte" : "Green light on your side";
        case Controllo::Rosso0: return it ? "Luce rossa dalla tua parte" : "Red light on your side";
        case Controllo::Verde1: return it ? "Luce verde dalla parte del computer" : "Green light on the computer's side";
        case Controllo::Rosso1: return it ? "Luce rossa dalla parte del computer" : "Red light on the computer's side";
        case Controllo::Led: return it ? "Lampada accanto al mazzetto" : "Lamp by the pile";
        case Controllo::testo: return "Lesta";
        default: return {};
    }
}

std::string lettura_pannello(Controllo pannello, Lingua l) {
    const std::string_view testo = pannello == Controllo::Text2   ? testo_inglese
                                   : pannello == Controllo::Text3 ? testo_italiano
                                                                  : testo_informazioni;
    std::string lettura(nome_controllo(pannello, l));
    lettura += ".\n";
    for (std::size_t i = 0; i < testo.size(); ++i) {
        const bool a_capo = testo[i] == '\n';
        const bool paragrafo = a_capo && i + 1 < testo.size() && testo[i + 1] == '\n';
        if (!a_capo || paragrafo || i + 1 == testo.size())
            lettura += testo[i];
        else
            lettura += ' ';
    }
    return lettura;
}

}  // namespace lesta
