// SPDX-License-Identifier: GPL-3.0-or-later
#include "match/nomi_carte.h"

#include <array>

namespace lesta {

namespace {

// Values 1..10: the Ace, the number cards, the girl, the horse, the King.
constexpr std::array<std::string_view, 11> valori_inglesi{"",    "Ace",   "Two",  "Three", "Four", "Five",
                                                          "Six", "Seven", "Girl", "Horse", "King"};
constexpr std::array<std::string_view, 11> valori_italiani{"",    "Asso",  "Due",   "Tre",     "Quattro", "Cinque",
                                                           "Sei", "Sette", "Donna", "Cavallo", "Re"};
// Suits 1..4, in the order of the card numbers.
constexpr std::array<std::string_view, 5> semi{"", "Denari", "Coppe", "Bastoni", "Spade"};

}  // namespace

std::string_view nome_valore(int v, Lingua lingua) {
    return lingua == Lingua::italiano ? valori_italiani[static_cast<std::size_t>(v)]
                                      : valori_inglesi[static_cast<std::size_t>(v)];
}

std::string nome_carta(Carta c, Lingua lingua) {
    std::string nome(nome_valore(valore(c), lingua));
    nome += lingua == Lingua::italiano ? " di " : " of ";
    nome += semi[static_cast<std::size_t>(seme(c))];
    return nome;
}

std::string la_carta(Carta c, Lingua lingua) {
    if (lingua == Lingua::inglese) return "the " + nome_carta(c, lingua);
    // The Ace takes l', the girl la, every other card il.
    const int v = valore(c);
    const char* articolo = v == 1 ? "l'" : v == 8 ? "la " : "il ";
    return articolo + nome_carta(c, lingua);
}

}  // namespace lesta
