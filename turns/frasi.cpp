// SPDX-License-Identifier: GPL-3.0-or-later
#include "turns/frasi.h"

#include <vector>

#include "match/geometria.h"
#include "turns/presa.h"

namespace lesta::frasi {

namespace {

// The line in the player's language: English or Italian.
const char* in(Lingua l, const char* inglese, const char* italiano) {
    return l == Lingua::italiano ? italiano : inglese;
}

std::string numero(int n) { return std::to_string(n); }

// The same words to open a sentence: "The Five...", "L'Asso...".
std::string maiuscola(std::string testo) {
    if (!testo.empty() && testo[0] >= 'a' && testo[0] <= 'z') testo[0] = static_cast<char>(testo[0] - 'a' + 'A');
    return testo;
}

// Pieces joined by commas, the last two by "and": "a, b and c".
std::string unisci(Lingua l, const std::vector<std::string>& pezzi) {
    std::string testo;
    for (std::size_t i = 0; i < pezzi.size(); ++i) {
        if (i > 0) testo += i + 1 == pezzi.size() ? std::string(in(l, " and ", " e ")) : ", ";
        testo += pezzi[i];
    }
    return testo;
}

// "1: Seven of Denari; 3: Ace of Coppe": the cards still in hand by key.
std::string per_tasto(Lingua l, const Mano& mano) {
    std::string testo;
    for (int k = 1; k <= 3; ++k) {
        if (mano[static_cast<std::size_t>(k)] == 0) continue;
        if (!testo.empty()) testo += "; ";
        testo += numero(k) + ": " + nome_carta(mano[static_cast<std::size_t>(k)], l);
    }
    return testo;
}

// "Q: Two of Coppe; E: Five of Spade, marked": the table cards by the key
// of their cells, in scan order; empty when the table is.
std::string celle(Lingua l, const Tavolo& tavolo, const std::array<bool, 41>* segnate) {
    std::string testo;
    for (int r = 1; r <= 3; ++r)
        for (int k = 1; k <= 4; ++k) {
            const Carta c = tavolo[r][k];
            if (c == 0) continue;
            if (!testo.empty()) testo += "; ";
            testo += tasto_cella(r, k);
            testo += ": " + nome_carta(c, l);
            if (segnate != nullptr && (*segnate)[static_cast<std::size_t>(c)]) testo += in(l, ", marked", ", segnata");
        }
    return testo;
}

std::string tavola(Lingua l, const Tavolo& tavolo, const std::array<bool, 41>* segnate = nullptr) {
    const std::string carte = celle(l, tavolo, segnate);
    if (carte.empty()) return std::string(in(l, "The table is empty.", "La tavola è vuota."));
    return std::string(in(l, "On the table: ", "In tavola: ")) + carte + ".";
}

std::string carte_in_mano(Lingua l, const Mano& mano) {
    const std::string carte = per_tasto(l, mano);
    if (carte.empty()) return std::string(in(l, "You have no cards in hand.", "Non hai carte in mano."));
    return std::string(in(l, "Your cards: ", "Le tue carte: ")) + carte + ".";
}

std::string rimasti(Lingua l, int nel_mazzo) {
    if (nel_mazzo == 0) return std::string(in(l, "The deck is used up.", "Il mazzo è finito."));
    return std::string(in(l, "Cards left in the deck: ", "Carte rimaste nel mazzo: ")) + numero(nel_mazzo) + ".";
}

const char* tipo(Lingua l, int tipo_partita) {
    switch (tipo_partita) {
        case 1: return in(l, "a match to 11 points", "una partita a 11 punti");
        case 2: return in(l, "a match to 21 points", "una partita a 21 punti");
        default: return in(l, "a single hand", "una partita singola");
    }
}

}  // namespace

char tasto_cella(int riga, int colonna) { return tasti_celle[static_cast<std::size_t>((riga - 1) * 4 + colonna - 1)]; }

std::string elenco(Lingua l, std::span<const Carta> carte) {
    std::vector<std::string> nomi;
    for (Carta c : carte)
        if (c != 0) nomi.push_back(la_carta(c, l));
    return unisci(l, nomi);
}

std::string nuova_mano(Lingua l, int tipo_partita, int numero_mano, int mazziere, const Tavolo& tavolo) {
    std::string testo;
    if (tipo_partita == 0) {
        testo = in(l, "A single hand. ", "Partita singola. ");
    } else {
        testo = std::string(in(l, "Hand ", "Mano ")) + numero(numero_mano) + in(l, " of ", " di ");
        testo += std::string(tipo(l, tipo_partita)) + ". ";
    }
    testo += mazziere == 1 ? in(l, "You deal and the computer leads. ", "Dai tu le carte e comincia il computer. ")
                           : in(l, "The computer deals and you lead. ", "Il computer dà le carte e cominci tu. ");
    return testo + tavola(l, tavolo);
}

std::string distribuzione(Lingua l, int n, const Mano& carte, int nel_mazzo) {
    std::string testo = std::string(in(l, "Deal ", "Distribuzione ")) + numero(n) + in(l, " of 6", " di 6");
    testo += n == 6 ? std::string(in(l, ", the last. ", ", l'ultima. ")) : std::string(". ");
    return testo + carte_in_mano(l, carte) + " " + rimasti(l, nel_mazzo);
}

std::string tocca_a_te(Lingua l, const Mano& mano, const Tavolo& tavolo) {
    return std::string(in(l, "Your turn. ", "Tocca a te. ")) + carte_in_mano(l, mano) + " " + tavola(l, tavolo);
}

std::string deve_prendere(Lingua l, Carta giocata, bool singola) {
    const std::string testo = maiuscola(la_carta(giocata, l));
    if (singola)
        return testo + in(l, " must take a card of the same value: mark it.",
                          " deve prendere una carta di pari valore: segnala.");
    return testo +
           in(l, " must take: mark table cards that add up to ", " deve prendere: segna in tavola carte che fanno ") +
           numero(valore(giocata)) + ".";
}

std::string segno(Lingua l, Carta carta, bool segnata, int quante, int somma, Carta giocata, bool singola) {
    std::string testo =
        std::string(segnata ? in(l, "Marked: ", "Segnata: ") : in(l, "Unmarked: ", "Non più segnata: "));
    testo += nome_carta(carta, l) + ".";
    if (quante == 0 || selezione_valida(somma, quante, valore(giocata), singola)) return testo;
    if (singola && quante > 1)
        return testo + in(l, " No capture: a card of the same value must be taken alone.",
                          " Non è una presa: la carta di pari valore va presa da sola.");
    return testo + in(l, " No capture: the marked cards add up to ", " Non è una presa: le carte segnate fanno ") +
           numero(somma) + in(l, ", and ", ", e ") + la_carta(giocata, l) + in(l, " wants ", " vuole ") +
           numero(valore(giocata)) + ".";
}

std::string giocata(Lingua l, int lato, Carta carta, std::span<const Carta> prese) {
    return std::string(lato == 1 ? in(l, "You play ", "Giochi ") : in(l, "The computer plays ", "Il computer gioca ")) +
           la_carta(carta, l) + (lato == 1 ? in(l, " and take ", " e prendi ") : in(l, " and takes ", " e prende ")) +
           elenco(l, prese) + ".";
}

std::string posata(Lingua l, int lato, Carta carta, int riga, int colonna) {
    return std::string(lato == 1 ? in(l, "You lay ", "Metti ") : in(l, "The computer lays ", "Il computer mette ")) +
           la_carta(carta, l) + in(l, " on the table at ", " in tavola in ") + tasto_cella(riga, colonna) + ".";
}

std::string tavolo_pieno(Lingua l, int lato, Carta carta) {
    return std::string(in(l, "All twelve places are taken: ", "I dodici posti sono tutti presi: ")) +
           la_carta(carta, l) +
           (lato == 1 ? in(l, " goes to your pile.", " va nel tuo mazzetto.")
                      : in(l, " goes to the computer's pile.", " va nel mazzetto del computer."));
}

std::string lesta(Lingua l, int lato) {
    return std::string(
        lato == 1 ? in(l, "Lesta! You take every card on the table.", "Lesta! Prendi tutte le carte in tavola.")
                  : in(l, "Lesta! The computer takes every card on the table.",
                       "Lesta! Il computer prende tutte le carte in tavola."));
}

std::string resto(Lingua l, int lato, std::span<const Carta> carte) {
    const std::string nomi = elenco(l, carte);
    if (nomi.empty()) return std::string(in(l, "Nothing is left on the table.", "In tavola non resta niente."));
    return std::string(lato == 1 ? in(l, "What is left on the table goes to you, who took last: ",
                                      "Quel che resta in tavola va a te, che hai preso per ultimo: ")
                                 : in(l, "What is left on the table goes to the computer, which took last: ",
                                      "Quel che resta in tavola va al computer, che ha preso per ultimo: ")) +
           nomi + ".";
}

std::string partita_scelta(Lingua l, std::string_view scelta) {
    return std::string(in(l, "Chosen: ", "Scelta: ")) + std::string(scelta) +
           in(l, ". Enter starts the match.", ". Invio avvia la partita.");
}

std::string le_tue_carte(Lingua l, const Mano& mano) { return carte_in_mano(l, mano); }

std::string sul_tavolo(Lingua l, const Tavolo& tavolo, const std::array<bool, 41>& segnate, Carta in_gioco) {
    std::string testo = tavola(l, tavolo, &segnate);
    if (in_gioco != 0) testo += std::string(in(l, " In play: ", " In gioco: ")) + nome_carta(in_gioco, l) + ".";
    return testo;
}

std::string a_chi_tocca(Lingua l, int turno, int carte_computer, int nel_mazzo, int leste_giocatore,
                        int leste_computer) {
    if (turno == 0) return std::string(in(l, "No hand is under way.", "Nessuna mano è in corso."));
    std::string testo(turno == 1 ? in(l, "Your turn. ", "Tocca a te. ")
                                 : in(l, "The computer's turn. ", "Tocca al computer. "));
    testo += std::string(in(l, "The computer holds ", "Il computer ha in mano ")) + numero(carte_computer) +
             (carte_computer == 1 ? in(l, " card. ", " carta. ") : in(l, " cards. ", " carte. "));
    testo += rimasti(l, nel_mazzo);
    testo += std::string(in(l, " Leste: you ", " Leste: tu ")) + numero(leste_giocatore) +
             in(l, ", the computer ", ", il computer ") + numero(leste_computer) + ".";
    return testo;
}

std::string la_partita(Lingua l, int tipo_partita, int mani_giocate, int punti_giocatore, int punti_computer) {
    std::string testo = maiuscola(std::string(tipo(l, tipo_partita)));
    if (tipo_partita == 0) return testo + in(l, ": no totals are kept.", ": non si tengono totali.");
    testo += std::string(in(l, ". Hands played: ", ". Mani giocate: ")) + numero(mani_giocate) + ".";
    return testo + in(l, " Totals: you ", " Totali: tu ") + numero(punti_giocatore) +
           in(l, ", the computer ", ", il computer ") + numero(punti_computer) + ".";
}

}  // namespace lesta::frasi
