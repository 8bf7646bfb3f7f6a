// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The lines the game says to a player who follows it by ear, each made from
// plain values of the table: what happens (a deal, a card played and what it
// takes, a card laid, a lesta, the last cards gathered, a mark set or taken
// off), and what stands on the table when the player asks. A card is named
// as the rules name it, a hand card by its key (1, 2, 3) and a table card by
// the key of its cell (Q W E R, A S D F, Z X C V).
//
// Only what the table shows is ever said: the computer's cards are named
// when they are played, never before, and the order of the deck never.

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "match/carte.h"
#include "match/nomi_carte.h"
#include "match/tavolo.h"

namespace lesta::frasi {

// The player's hand: slots 1..3, 0 for a slot played or not dealt.
using Mano = std::array<Carta, 4>;

// ---- what happens ----

// A hand begins: which one, who deals and who leads, and the four cards
// laid face up. numero_mano counts the hands of a match from 1; tipo_partita
// 0 is a single hand, 1 a match to 11, 2 to 21.
std::string nuova_mano(Lingua l, int tipo_partita, int numero_mano, int mazziere, const Tavolo& tavolo);
// Deal `numero` of six: the player's three new cards and what is left in the
// deck; the sixth uses the deck up.
std::string distribuzione(Lingua l, int numero, const Mano& carte, int nel_mazzo);
// The game waits for the player's card: the hand and the table.
std::string tocca_a_te(Lingua l, const Mano& mano, const Tavolo& tavolo);
// The card just played can take something, and must: what to mark.
std::string deve_prendere(Lingua l, Carta giocata, bool singola);
// A table card marked or unmarked, and, when the marked cards (`quante` of
// them, adding up to `somma`) are not the capture the card in play must
// make, why not.
std::string segno(Lingua l, Carta carta, bool segnata, int quante, int somma, Carta giocata, bool singola);
// A side (1 the player, 2 the computer) plays a card that takes the cards
// listed (a list with holes, as a capture list may have).
std::string giocata(Lingua l, int lato, Carta carta, std::span<const Carta> prese);
// A side plays a card that takes nothing: it lies on the table in row r,
// column k.
std::string posata(Lingua l, int lato, Carta carta, int riga, int colonna);
// A card that finds all twelve cells taken goes to its side's pile.
std::string tavolo_pieno(Lingua l, int lato, Carta carta);
// A side takes every card on the table.
std::string lesta(Lingua l, int lato);
// At the end of the hand the side that took last takes what is left.
std::string resto(Lingua l, int lato, std::span<const Carta> carte);

// The start panel: the kind of match chosen, by its button's caption.
std::string partita_scelta(Lingua l, std::string_view scelta);

// ---- what the player asks for ----

std::string le_tue_carte(Lingua l, const Mano& mano);
// The table by cell, marked cards said as marked, and the card in play if
// one stands on its spot (0 if none).
std::string sul_tavolo(Lingua l, const Tavolo& tavolo, const std::array<bool, 41>& segnate, Carta in_gioco);
// Whose turn it is (1, 2, or 0 when no hand is under way), the computer's
// cards in hand, the cards left in the deck and the leste of the hand.
std::string a_chi_tocca(Lingua l, int turno, int carte_computer, int nel_mazzo, int leste_giocatore,
                        int leste_computer);
// The match so far: its kind, the hands finished and both totals.
std::string la_partita(Lingua l, int tipo_partita, int mani_giocate, int punti_giocatore, int punti_computer);

// ---- pieces the other lines are made of ----

// "the Two of Coppe, the Three of Spade and the Ace of Bastoni".
std::string elenco(Lingua l, std::span<const Carta> carte);
// The key of a table cell: 'Q' for row 1 column 1 ... 'V' for row 3 column 4.
char tasto_cella(int riga, int colonna);

}  // namespace lesta::frasi
